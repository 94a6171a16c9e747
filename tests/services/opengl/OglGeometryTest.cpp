#include "services/opengl/OglGeometry.h"

#include <gtest/gtest.h>

#include <cmath>

using Kes::Math::Vector3;

namespace {

void expectNear(Vector3 const& expected, Vector3 const& actual)
{
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(expected[i], actual[i], 1e-5) << "component " << i;
}

TEST(OglGeometry, ProjectsByAddingTheOffsetThenScaling)
{
    Vector3 const scaling(2, 0.5f, -1), offset(1, -2, 3);
    expectNear(Vector3(4, 1, -6), FenOglGeometry::Project(Vector3(1, 4, 3), scaling, offset));
    expectNear(Vector3(4, 1, -6), FenOglGeometry::Project(1, 4, 3, scaling, offset));
    expectNear(Vector3(1, 4, 3), FenOglGeometry::UnProject(Vector3(4, 1, -6), scaling, offset));
    Vector3 const flat = FenOglGeometry::UnProject(Vector3(4, 1, 0), Vector3(2, 0.5f, 0), offset);
    expectNear(Vector3(1, 4, -3), flat);
}

TEST(OglGeometry, KeepsNormalsUprightOnTheProjectedSurface)
{
    // The plane z = x, stretched along x: its normal stays at right angles to the stretched direction.
    Vector3 const scaling(3, 1, 1);
    Vector3 const normal = FenOglGeometry::ProjectNormal(Vector3(-1, 0, 1), scaling, Vector3());
    EXPECT_NEAR(0, normal.x() * 3 + normal.z() * 1, 1e-5);
    EXPECT_NEAR(1, normal.length(), 1e-5);
    expectNear(Vector3(0, 0, 1),
               FenOglGeometry::ProjectNormal(Vector3(0, 0, 1), Vector3(0, 0, 0), Vector3()));
    expectNear(Vector3(), FenOglGeometry::ProjectNormal(Vector3(), scaling, Vector3()));
}

TEST(OglGeometry, GlowsPalerAndThinnerOutwards)
{
    FenOglGeometry geometry;
    EXPECT_EQ(8, geometry.highlightWidth());
    QColor inner = FenOglGeometry::calcHighlightColorGradient(geometry, Qt::blue, 0);
    EXPECT_EQ(QColor(Qt::blue).rgb(), inner.rgb());
    for (int n = 2; n <= 8; n += 2) {
        QColor const ring = FenOglGeometry::calcHighlightColorGradient(geometry, Qt::blue, n);
        EXPECT_LT(ring.alpha(), inner.alpha());
        EXPECT_GT(ring.red(), inner.red());
        EXPECT_GT(ring.alpha(), 0);
        inner = ring;
    }
    EXPECT_EQ(inner, FenOglGeometry::calcHighlightColorGradient(geometry, Qt::blue, 999));
    geometry.setHighlightWidth(-3);
    EXPECT_EQ(0, geometry.highlightWidth());
    EXPECT_GT(geometry.calcHighlightColorGradient(0).alpha(), 0);
}

} // namespace
