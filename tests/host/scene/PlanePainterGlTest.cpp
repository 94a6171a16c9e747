#include "host/scene/PlanePainter.h"

#include "host/camera/Camera.h"
#include "host/scene/PlaneSection.h"
#include "host/scene/Scene.h"
#include "scene/VisPlane.h"
#include "scene/VisTeapot.h"
#include "services/math/BoundingBox.h"
#include "services/math/Plane.h"
#include "tests/support/OffscreenGlTest.h"

#include <cmath>

using Kes::Math::BoundingBox, Kes::Math::Plane, Kes::Math::Vector3;

TEST(PlaneSection, IsTheConvexOutlineWhereThePlaneCutsTheBox)
{
    BoundingBox const box(Vector3(0, 0, 0), Vector3(2, 2, 2));
    struct Row {
        Vector3 point, normal;
        size_t corners, gridLines;
    };
    Row const rows[] = {{{1, 1, 1}, {0, 0, 1}, 4, 4}, {{0, 0, 0}, {0, 0, 1}, 4, 4}, // a face
                        {{1, 1, 1}, {1, 1, 1}, 6, 0}, {{0, 0, 0.5f}, {1, 1, 1}, 3, 0},
                        {{0, 0, 3}, {0, 0, 1}, 0, 0}, {{0, 0, 0}, {1, 1, 1}, 1, 0}, // a corner
                        {{1, 1, 1}, {1, 0, -1}, 4, 0}};
    for (Row const& row : rows) {
        fen::PlaneSection const section(box, Plane(row.point, row.normal).normalize());
        EXPECT_EQ(row.corners, section.corners.size()) << row.point << row.normal;
        EXPECT_EQ(row.corners < 3, section.empty());
        if (row.gridLines > 0) {
            EXPECT_EQ(2 * row.gridLines, section.grid(1).size());
        }
        for (size_t i = 0; i < section.corners.size() && !section.empty(); ++i) {
            size_t const n = section.corners.size();
            Vector3 const a = section.corners[i], b = section.corners[(i + 1) % n],
                          c = section.corners[(i + 2) % n];
            EXPECT_GT(Vector3::dot(Vector3::xProduct(b - a, c - b), row.normal), 0.0f);
        }
        for (double const spacing : {0.0, -1.0, 1e-9, double(NAN), 1e9})
            EXPECT_LE(section.grid(spacing).size(), 4u);
    }
    EXPECT_TRUE(fen::PlaneSection(BoundingBox(), Plane()).empty());
}

namespace {

class PlanePainter : public OffscreenGlTest {
protected:
    PlanePainter()
    {
        plane.position.set(Vector3(0, 0, 3.1f)); // over the pot
        plane.solid.set(false);
        plane.wireframe.set(false);
        plane.polygon.set(false);
        scene.resize(QSize(400, 300));
    }
    Picture draw()
    {
        scene.update();
        expectPassKeepsState([&] { scene.draw(); });
        return picture();
    }

    FenVisScene scene;
    FenVisTeapot& teapot = scene.add<FenVisTeapot>("teapot");
    FenVisPlane& plane = scene.add<FenVisPlane>("plane");
};

} // namespace

TEST_F(PlanePainter, ShowsWhatThePlaneAsksForAndCanBeSwitchedOff)
{
    Picture const bare = draw();
    FenPropertyAdaptor<bool>* const switches[] = {&plane.solid, &plane.wireframe, &plane.polygon, &plane.grid,
                                                  &plane.vector};
    FenPropertyAdaptor<QColor>* const colors[] = {&plane.solidColor, &plane.wireframeColor,
                                                  &plane.polygonColor, &plane.gridMajorColor,
                                                  &plane.vectorColor};
    plane.gridMinorColor.set(Qt::red);
    for (size_t i = 0; i < std::size(switches); ++i) {
        colors[i]->set(Qt::red);
        switches[i]->set(true);
        EXPECT_GT(draw().count(Qt::red, 30), 5) << i;
        scene.planePainter().enabled = false;
        EXPECT_EQ(0, draw().differingPixels(bare)) << i;
        scene.planePainter().enabled = true;
        switches[i]->set(false);
    }
    plane.solid.set(true);
    plane.solidTransparency.set(0.5);
    Picture const shown = draw();
    EXPECT_GT(shown.count(QColor(255, 127, 127), 3), 500) << "half transparent";
    for (Vector3 const& normal : {Vector3(0, 0, 0), Vector3(NAN, 0, 1)}) {
        plane.normal.set(normal);
        EXPECT_EQ(0, draw().differingPixels(bare));
    }
}

TEST_F(PlanePainter, AClipPlaneCutsTheNodesThatItNamesInDrawingAndPicking)
{
    FenCamera(scene).look("front");
    QRect const whole = draw().boundingBox();
    plane.position.set(Vector3(0, 0, 1));
    plane.clip.set(true);
    plane.clipObjects.set({"another", "no such"});
    EXPECT_EQ(whole, draw().boundingBox());
    plane.clipObjects.set({"teapot"});
    QRect const lower = draw().boundingBox();
    EXPECT_EQ(whole.bottom(), lower.bottom());
    EXPECT_LT(lower.height(), whole.height() / 2);
    plane.normal.set(Vector3(0, 0, -2));
    QRect const upper = draw().boundingBox();
    EXPECT_EQ(whole.top(), upper.top());
    EXPECT_NEAR(whole.height(), upper.height() + lower.height(), 2);
    plane.enabled.set(false);
    EXPECT_EQ(whole, draw().boundingBox());
}
