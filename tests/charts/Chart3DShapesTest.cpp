#include "charts/chart3d/BarFootprint.h"
#include "charts/chart3d/BoxTree.h"
#include "charts/chart3d/DrawRules.h"
#include "charts/chart3d/LineShape.h"
#include "charts/chart3d/Normalisation.h"
#include "charts/chart3d/SurfaceMesh.h"
#include "services/chartdata/Chart.h"
#include "services/math/IVariableIter.h"
#include "services/opengl/OglViewport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <random>

using namespace Kes::Math;
using fen::Shape3D;

namespace {

typedef std::vector<Vector3> Points;

class ListIter : public IVariableIter {
public:
    explicit ListIter(Points points)
        : _points(std::move(points))
    {
    }
    void Reset() override { _next = 0; }
    bool MoveNext() override { return _next++ < _points.size(); }
    Vector3 Current() const override { return _points[_next - 1]; }
    bool IsUndefined(Vector3::Comp comp) const override { return std::isnan(Current()[comp]); }
    QString Unit(Vector3::Comp) const override { return QString(); }

private:
    Points _points;
    size_t _next = 0;
};

fen::SurfaceMesh meshOf(Points const& points)
{
    ListIter iter(points);
    return fen::SurfaceMesh(
        Kes::Tess::Tessellate(iter, BoundingBox()), [](Vector3 const& p) { return p; },
        [](float z) { return z; });
}

Points wave(int columns, int rows)
{
    Points points;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            points.push_back(Vector3(float(column), float(row), std::sin(float(column + row))));
    return points;
}

double areaOf(std::vector<Vector3> const& places, std::vector<GLuint> const& corners)
{
    double area = 0;
    for (size_t i = 0; i + 2 < corners.size(); i += 3)
        area += double(Vector3::xProduct(places[corners[i + 1]] - places[corners[i]],
                                         places[corners[i + 2]] - places[corners[i]])
                           .z())
            / 2;
    return area;
}

/// The triangles that OpenGL makes of a strip.
std::vector<GLuint> unrolled(std::vector<GLuint> const& strip)
{
    std::vector<GLuint> corners;
    for (size_t i = 0; i + 2 < strip.size(); ++i)
        corners.insert(corners.end(), {strip[i + i % 2], strip[i + 1 - i % 2], strip[i + 2]});
    return corners;
}

} // namespace

TEST(Chart3DShapes, FollowModeSurfaceAndStyle)
{
    auto const line = FenChart::styleLine, spline = FenChart::styleSpline, bar = FenChart::styleBar,
               step = FenChart::styleStep, none = FenChart::styleNone;
    for (unsigned mode = 0; mode < 4; ++mode) {
        for (QString const& style : {line, spline, none})
            EXPECT_EQ(Shape3D::Line, fen::shapeOf(mode, false, style));
        for (QString const& style : {bar, step})
            for (bool surface : {false, true}) EXPECT_EQ(Shape3D::Bars, fen::shapeOf(mode, surface, style));
        Shape3D const curve = mode == 0 ? Shape3D::Surface : mode == 3 ? Shape3D::Bars : Shape3D::Line;
        for (QString const& style : {line, spline}) EXPECT_EQ(curve, fen::shapeOf(mode, true, style));
        EXPECT_EQ(mode == 0 ? Shape3D::Nothing : curve, fen::shapeOf(mode, true, none));
    }
}

TEST(Chart3DShapes, NormalisingGivesTheUnitCube)
{
    struct {
        BoundingBox data;
        Vector3 scaling, offset;
    } const rows[] = {
        {{{0, 10, -1}, {2, 50, 1}}, {0.5f, 0.025f, 0.5f}, {0, -10, 1}},
        {{{3, 0, 0}, {3, 1, 1}}, {1, 1, 1}, {-3, 0, 0}},
        {{{-FLT_MAX, 0, 0}, {FLT_MAX, 1, 1e-42f}},
         {float(0.5 / double(FLT_MAX)), 1, FLT_MAX},
         {FLT_MAX, 0, 0}},
    };
    for (auto const& row : rows) {
        fen::Normalisation const found = fen::normalised(row.data);
        EXPECT_EQ(row.scaling, found.scaling);
        EXPECT_EQ(row.offset, found.offset);
        EXPECT_EQ(Vector3(0, 0, 0), found.bounds.min());
        EXPECT_NEAR(row.data.min().x() == row.data.max().x() ? 0 : 1, found.bounds.max().x(), 1e-5);
    }
    EXPECT_FALSE(fen::normalised(BoundingBox()).bounds.defined());
    BoundingBox const flat(Vector3(0, 2, 1e30f), Vector3(1, 2, 1e30f));
    BoundingBox const wide = fen::widened(flat);
    EXPECT_EQ(Vector2(1, 3), Vector2(wide.min().y(), wide.max().y()));
    EXPECT_LT(wide.min().z(), wide.max().z());
}

TEST(Chart3DShapes, BarsTakeTheSmallestStepAndHangOver)
{
    EXPECT_EQ(Vector2(0.5f, 2),
              fen::barFootprint({{0, 0, 0}, {1, 0, 0}, {1.5f, 0, 9}, {0, 2, 0}, {1, 2, 0}}));
    EXPECT_EQ(Vector2(FLT_MAX, FLT_MAX), fen::barFootprint({{1, 1, 1}}));
    EXPECT_EQ(Vector2(1, FLT_MAX), fen::barFootprint({{0, 4, 1}, {1, 4, 2}}));
    BoundingBox const cube(Vector3(0, 0, 0), Vector3(1, 1, 1));
    EXPECT_EQ(BoundingBox(Vector3(-0.5f, -0.25f, 0), Vector3(1.5f, 1.25f, 1)),
              fen::withOverhang(cube, Vector2(1, 0.5f)));
    EXPECT_EQ(cube, fen::withOverhang(cube, Vector2()));
    fen::BarBox const box =
        fen::BarStand{Vector2(1, 2), -3, Vector3(2, 1, 1), Vector3(1, 0, 0)}.box({4, 5, 6});
    EXPECT_EQ(Vector3(9, 4, -3), box.base);
    EXPECT_EQ(Vector3(11, 6, 6), box.top);
}

TEST(Chart3DShapes, LinesLieInTheirPlaneAndAreasAreCutAtTheBase)
{
    Points const points{{7, 0, 1}, {7, 2, -1}, {7, 4, 3}};
    EXPECT_EQ(points, fen::linePoints(points, fen::LinePlane(1, points), false));
    fen::LinePlane const across(2, points);
    EXPECT_EQ(2.0f, across.value) << "the middle of data that is not constant";
    EXPECT_EQ(Vector3(7, 2, 3), fen::linePoints(points, across, false).back());
    for (Vector3 const& p : fen::linePoints(points, fen::LinePlane(1, points), true)) EXPECT_EQ(7.0f, p.x());
    EXPECT_EQ(Points({{7, 0, 1}, {7, 0, 0}, {7, 1, 0}, {7, 1, 0}, {7, 2, -1}, {7, 2, 0}}),
              fen::areaStrip({points[0], points[1]}, 0));
}

TEST(Chart3DShapes, HolesOfAGridStayOpen)
{
    Points points = wave(40, 30);
    fen::SurfaceMesh const whole = meshOf(points);
    EXPECT_NEAR(39 * 29, areaOf(whole.vertices.positions, unrolled(whole.strip)), 1e-3);
    EXPECT_EQ(size_t(2 * 2 * (39 + 29)), whole.rim.size());
    for (size_t i : {7 * 40 + 5, 7 * 40 + 6, 0}) points[i].z() = NAN;
    fen::SurfaceMesh holed = meshOf(points);
    holed.listTriangles();
    // Two holes beside each other open five sixths of 2 x 3 cells, one at the corner half a cell.
    double const open = 2 + 4 * 0.5 + 0.5;
    EXPECT_NEAR(39 * 29 - open, areaOf(holed.vertices.positions, unrolled(holed.strip)), 1e-3);
    EXPECT_NEAR(39 * 29 - open, areaOf(holed.vertices.positions, holed.triangles), 1e-3);
    for (GLuint i : holed.triangles) EXPECT_FALSE(i == 0 || i == 7 * 40 + 5);
    for (Vector3 const& normal : whole.vertices.normals) EXPECT_GT(normal.z(), 0.3f);
}

// Picks must find what brute force finds.
TEST(Chart3DShapes, ThePickVolumeAndItsTreeMissNothing)
{
    std::mt19937 random(11);
    auto const uniform = [&] { return float(random()) / 4294967296.0f; };
    Points cloud(3000);
    for (Vector3& p : cloud) p = Vector3(uniform(), uniform(), uniform());
    Matrix toClip = Matrix::rotate(Vector3(1, 2, 3), 40) * Matrix::translation(Vector3(-0.5f, -0.5f, -0.5f));
    toClip(3, 2) = 0.3f; // some perspective
    toClip(3, 3) = 1.2f;
    FenOglViewport const viewport(10, 20, 400, 300);
    fen::BoxTree const tree(cloud);
    fen::SurfaceMesh const surface = meshOf(wave(60, 50));
    int found = 0;
    for (int round = 0; round < 200; ++round) {
        fen::PickVolume const volume(QPoint(int(random() % 400), int(random() % 300)), QSize(9, 9), viewport,
                                     toClip);
        std::vector<size_t> visited, inside;
        tree.visit(volume, [&](size_t i) { visited.push_back(i); });
        for (size_t i = 0; i < cloud.size(); ++i)
            if (volume.depthOf(cloud[i]) >= 0) inside.push_back(i);
        std::sort(visited.begin(), visited.end());
        EXPECT_TRUE(std::includes(visited.begin(), visited.end(), inside.begin(), inside.end()));
        EXPECT_LT(visited.size(), cloud.size() / 2);
        found += int(inside.size());
    }
    EXPECT_GT(found, 100);
    // Straight down on the surface.
    Matrix down;
    down(0, 0) = down(1, 1) = 1 / 30.0f;
    down(0, 3) = down(1, 3) = -1;
    down(2, 2) = -0.1f;
    fen::PickVolume const volume(QPoint(200, 150), QSize(3, 3), viewport, down);
    fen::PickRay const ray(QPoint(200, 150), viewport, Matrix(), down);
    auto const met = surface.firstMeeting(ray, surface.trianglesIn(volume));
    ASSERT_TRUE(met);
    EXPECT_NEAR(30.075, met->x(), 1e-3);
    EXPECT_NEAR(std::sin(60.2), met->z(), 0.15);
    EXPECT_LT(surface.trianglesIn(volume).size(), 30u);
}
