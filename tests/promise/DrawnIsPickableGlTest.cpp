// What is drawn can be picked, and what is picked was drawn: random scenes are
// drawn once normally and once with every pickable thing in its own colour, and
// the colour under random points is compared with what a pick says there.

#include "framework/Visualization.h"
#include "host/headless/OffscreenContext.h"
#include "host/scene/Scene.h"
#include "tests/promise/IdentityScene.h"
#include "tests/support/OffscreenGlTest.h"

#include <algorithm>
#include <iostream>

namespace {

constexpr int width = 640;
constexpr int height = 400;
constexpr int scenesPerKind = 25;
constexpr int pointsPerScene = 400; ///< 10,000 points for each kind of node
/// Share of points that nothing explains; more means that drawing and picking have drifted apart.
constexpr double tolerated = 0.001;

/// Why a colour and a pick differ.
struct Tally {
    int points = 0;
    int agree = 0;
    int blended = 0; ///< the pixel is a mixture: the edge of a symbol or a text
    int text = 0; ///< inside the rectangle of a text, beside its glyphs
    int near = 0; ///< what was picked, or what is drawn, begins within the reach
    int unexplained = 0;
};

std::ostream& operator<<(std::ostream& out, Tally const& tally)
{
    auto const percent = [&](int part) { return 100.0 * part / std::max(1, tally.points); };
    return out << tally.points << " points: " << percent(tally.agree) << " % agree, "
               << percent(tally.blended) << " % blended edges, " << percent(tally.text)
               << " % text rectangles, " << percent(tally.near) << " % within the reach, "
               << percent(tally.unexplained) << " % unexplained";
}

class DrawnIsPickable : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        resizePicture(width, height);
    }

    /// Owner of the winning hit at a point [px, y up]; null for none and for a node's catch-all.
    static FenProperties const* pickedOwner(FenVisScene& scene, QPoint const& point)
    {
        FenVisPick const hit = scene.pick(point, QSize(1, 1));
        return hit.record.context() == FenVisHitRecord::DEFAULT_NAME ? nullptr : hit.property.property;
    }

    /// Whether the colour lies within `reach` [px] of a point. A pick sees whatever crosses the square of
    /// the pixel, and aliased lines are drawn up to half a pixel beside it, so the least reach is 1.
    static bool isNear(Picture const& picture, QPoint const& point, QColor const& color, int reach)
    {
        for (int dy = -reach; dy <= reach; ++dy) {
            for (int dx = -reach; dx <= reach; ++dx) {
                if (picture.pixelGl(point.x() + dx, point.y() + dy) == color) return true;
            }
        }
        return false;
    }

    static void compare(IdentityScene const& identities, Picture const& picture, QPoint const& point,
                        FenProperties const* pickedThere, Tally& tally)
    {
        ++tally.points;
        QColor const color = picture.pixelGl(point.x(), point.y());
        auto const* const drawn = identities.drawnIn(color);
        auto const* const picked = identities.ownedBy(pickedThere);
        if (drawn == picked && (drawn || color == QColor(Qt::white))) {
            ++tally.agree;
        } else if (!drawn && color != QColor(Qt::white)) {
            ++tally.blended;
        } else if (picked && picked->hasTexts && !drawn) {
            ++tally.text;
        } else if (picked ? isNear(picture, point, picked->color, picked->reach)
                          : isNear(picture, point, Qt::white, 1)) {
            ++tally.near;
        } else {
            ++tally.unexplained;
            if (tally.unexplained <= 5) {
                std::cout << "  at (" << point.x() << ", " << point.y() << ") drawn "
                          << (drawn ? qPrintable(drawn->owner->name()) : "nothing") << ", picked "
                          << (picked ? qPrintable(picked->owner->name()) : "nothing") << '\n';
            }
        }
    }

    /// Pixels that one picture leaves blank and the other does not: colours must not change shapes.
    static int inkDifferences(Picture const& a, Picture const& b)
    {
        int count = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                count += (a.pixel(x, y) == QColor(Qt::white)) != (b.pixel(x, y) == QColor(Qt::white));
        return count;
    }

    Picture drawScene(FenVisScene& scene) const
    {
        scene.resize(QSize(width, height));
        scene.update();
        scene.draw();
        return picture();
    }
};

} // namespace

TEST_F(DrawnIsPickable, UnderRandomPointsOfRandomScenes)
{
    for (IdentityKind const& kind : identityKinds()) {
        Tally tally;
        for (unsigned seed = 0; seed < scenesPerKind; ++seed) {
            SCOPED_TRACE(testing::Message() << kind.name << ", seed " << seed);
            std::mt19937 random(seed);
            FenVisScene scene;
            scene.background.set(Qt::white);
            IdentityScene const identities = kind.make(scene, random);
            Picture const normal = drawScene(scene);
            for (IdentityScene::Thing const& thing : identities.things) thing.paint();
            Picture const drawn = drawScene(scene);
            EXPECT_EQ(0, inkDifferences(normal, drawn));
            int const before = tally.unexplained;
            for (int i = 0; i < pointsPerScene; ++i) {
                QPoint const point(int(random() % width), int(random() % height));
                compare(identities, drawn, point, pickedOwner(scene, point), tally);
            }
            if (tally.unexplained > before) {
                drawn.save(QString("promise-%1").arg(seed));
                std::cout << "  above: seed " << seed << '\n';
            }
            // Picking must not have disturbed the picture.
            EXPECT_EQ(0, drawn.differingPixels(drawScene(scene)));
        }
        std::cout << kind.name << ": " << tally << '\n';
        EXPECT_LE(tally.unexplained, tolerated * tally.points) << kind.name;
        // Most points of a scene are background: without a share of things under them nothing was compared.
        EXPECT_GT(tally.agree, tally.points / 2) << kind.name;
    }
}
