#include "axes/AxisLabelEdges.h"
#include "axes/AxisDivisions.h"
#include "services/math/BoundingBox.h"
#include "services/math/Matrix.h"
#include "services/opengl/OglViewport.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

using namespace Kes::Math;

namespace {

/// [px] of a view of the unit cube, 400 px to a unit, turned about z and then tilted.
fen::ScreenProjection view(double azimuth, double elevation)
{
    Matrix const turned = Matrix::rotate(VectorX, elevation - 90) * Matrix::rotate(VectorZ, azimuth);
    return [turned](Vector3 const& point) {
        Vector3 const eye = turned * (point - Vector3(0.5f, 0.5f, 0.5f));
        return Vector2(500 + 400 * eye.x(), 400 + 400 * eye.y());
    };
}

BoundingBox const cube(Vector3(0, 0, 0), Vector3(1, 1, 1));

/// The projected cube.
class Outline {
public:
    explicit Outline(fen::ScreenProjection const& project)
    {
        for (int k = 0; k < 8; ++k)
            _corners.push_back(project(Vector3(float(k & 1), float(k >> 1 & 1), float(k >> 2))));
    }
    /// How many pixels a place lies outside; negative inside. The outline is convex: seen along enough
    /// directions it is where the place is farthest out.
    double outside(Vector2 const& place) const
    {
        double most = -1e9;
        for (double turn = 0; turn < 6.28; turn += 0.02) {
            double const c = std::cos(turn), s = std::sin(turn);
            double farthest = -1e9;
            for (Vector2 const& corner : _corners)
                farthest = std::max(farthest, c * double(corner.x()) + s * double(corner.y()));
            most = std::max(most, c * double(place.x()) + s * double(place.y()) - farthest);
        }
        return most;
    }

private:
    std::vector<Vector2> _corners;
};

std::string text(Segment const& edge)
{
    auto const corner = [](Vector3 const& p) {
        return std::string() + (p.x() > 0 ? '1' : '0') + (p.y() > 0 ? '1' : '0') + (p.z() > 0 ? '1' : '0');
    };
    return corner(edge.A()) + ">" + corner(edge.B());
}

} // namespace

TEST(AxisLabelEdges, LieOnTheLowerOrLeftEdgeOfTheOutline)
{
    struct {
        char const* what;
        double azimuth, elevation;
        std::string x, y, z;
    } const rows[] = {
        {"from the front right, above", -30, 30, "000>100", "100>110", "000>001"},
        {"from the front left, above", 30, 30, "000>100", "000>010", "010>011"},
        {"from behind, above", 150, 30, "010>110", "000>010", "110>111"},
        {"from the front right, below", -30, -30, "010>110", "000>010", "000>001"},
        {"exactly from the front", 0, 0, "000>100", "000>010", "000>001"},
        {"exactly from above", 0, 90, "000>100", "000>010", "000>001"},
        {"level, between two faces", 45, 0, "000>100", "000>010", "010>011"},
    };
    for (auto const& row : rows) {
        fen::AxisLabelEdges const found = fen::placeAxisLabels(cube, view(row.azimuth, row.elevation));
        EXPECT_EQ(row.x, text(found.edges[0])) << row.what;
        EXPECT_EQ(row.y, text(found.edges[1])) << row.what;
        EXPECT_EQ(row.z, text(found.edges[2])) << row.what;
    }
}

// Exact views as well as any others: rounding must not turn a label into the box.
TEST(AxisLabelEdges, LabelsStandOutsideTheBoxInEveryView)
{
    std::mt19937 random(3);
    std::vector<std::pair<double, double>> views;
    for (int azimuth = 0; azimuth < 360; azimuth += 15)
        for (int elevation = -90; elevation <= 90; elevation += 15) views.emplace_back(azimuth, elevation);
    for (int i = 0; i < 150; ++i) views.emplace_back(int(random() % 360) + 0.37, int(random() % 180) - 89.6);
    for (auto const& [azimuth, elevation] : views) {
        fen::ScreenProjection const project = view(azimuth, elevation);
        Outline const outline(project);
        fen::AxisLabelEdges const found = fen::placeAxisLabels(cube, project);
        for (size_t k = 0; k < 3; ++k) {
            Segment const place(project(found.edges[k].A()), project(found.edges[k].B()));
            Vector2 const middle = (Vector2(place.A()) + Vector2(place.B())) * 0.5f;
            if (place.vectorAB().length() < 1 || outline.outside(middle) < -1) continue; // not in the outline
            Vector2 const label = middle + fen::outwardNormal(place, found.directions[k]) * 5;
            EXPECT_GT(outline.outside(label), 4) << azimuth << ", " << elevation << ", axis " << k;
        }
    }
}

TEST(AxisLabelEdges, PartsBehindTheEyeKeepTheDefaults)
{
    fen::AxisLabelEdges const found = fen::placeAxisLabels(cube, [](Vector3 const& point) {
        return point.z() > 0 ? Vector2(NAN, NAN) : Vector2(point.x(), point.y());
    });
    EXPECT_EQ("000>001", text(found.edges[2]));
    EXPECT_EQ(1.0f, found.directions[0]);
}

TEST(AxisDivisions, AreTheEndsOfIntervalsOrRoundNumbers)
{
    LogCapture log;
    fen::ScreenProjection const project = view(0, 90);
    Segment const edge(Vector3(0, 0, 0), Vector3(1, 0, 0));
    for (auto const& [count, points] : {std::pair(3, 4), std::pair(1, 2), std::pair(0, 1), std::pair(-1, 0)})
        EXPECT_EQ(size_t(points), fen::discreteDivisions(edge, count, project).points.size()) << count;
    EXPECT_EQ(2, log.count("\"p_divisions >= 1\""));
    log.expect("\"p_divisions >= 1\"");
    EXPECT_TRUE(fen::discreteDivisions(Segment(edge.A(), edge.A()), 3, project).points.empty());
    EXPECT_FLOAT_EQ(2 / 3.0f, fen::discreteDivisions(edge, 3, project).points[2].x());

    // Data from 5 to 15 in the scene from 0 to 1.
    fen::AxisNumbers const numbers{Vector3::CompX, Vector3(0.1f, 1, 1), Vector3(-5, 0, 0)};
    fen::AxisDivisions const round = fen::continuousDivisions(edge, numbers, 5, {}, project);
    EXPECT_EQ((std::vector<QString>{"6", "8", "10", "12", "14"}), round.labels);
    EXPECT_NEAR(0.1, double(round.points[0].x()), 1e-6);
    EXPECT_NEAR(double(project(Vector3(0.9f, 0, 0)).x()), double(round.windowPoints[4].x()), 1e-3);
    Segment const single(Vector3(0, 0, 0), Vector3(0, 0, 0));
    EXPECT_EQ(QString("4"), fen::continuousDivisions(single, numbers, 2, {}, project).labels.front());
    fen::AxisNumbers const large{Vector3::CompX, Vector3(1e-6f, 1, 1), Vector3()};
    EXPECT_LT(1, fen::continuousDivisions(edge, large, 5, {}, project).factor);

    Matrix scaled;
    scaled(0, 0) = 2;
    EXPECT_EQ(13u, fen::divisionCount(FenOglViewport(0, 0, 1280, 800), Matrix()));
    EXPECT_EQ(26u, fen::divisionCount(FenOglViewport(0, 0, 1280, 800), scaled));
    EXPECT_EQ(2u, fen::divisionCount(FenOglViewport(0, 0, 10, 10), Matrix()));
}
