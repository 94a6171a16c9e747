#include "scene/VisTeapot.h"

#include "scene/TeapotGeometry.h"
#include "services/math/BoundingBox.h"
#include "services/properties/ModifiedGroup.h"

#include <gtest/gtest.h>

#include <cmath>

using Kes::Math::BoundingBox, Kes::Math::Matrix, Kes::Math::Vector3;

TEST(VisTeapot, IsClosedAroundItsAxisAndLooksOutwards)
{
    fen::TeapotMesh const mesh = fen::teapotMesh(6);
    auto const& places = mesh.vertices.positions;
    auto const& normals = mesh.vertices.normals;
    ASSERT_EQ(places.size(), normals.size());
    size_t flat = 0;
    for (size_t i = 0; i < mesh.triangles.size(); i += 3) {
        auto const corner = [&](size_t k) { return places[mesh.triangles[i + k]]; };
        Vector3 const face = Vector3::xProduct(corner(1) - corner(0), corner(2) - corner(0));
        if (face.length() < 1e-7f) {
            ++flat; // at the poles
            continue;
        }
        Vector3 const wound = Vector3::normalize(face);
        for (size_t k = 0; k < 3; ++k)
            ASSERT_GT(Vector3::dot(wound, normals[mesh.triangles[i + k]]), 0.0f) << corner(k);
    }
    EXPECT_LT(flat, mesh.triangles.size() / 3 / 20);
    // Widest at the height where body meets body: the normal there points away from the axis.
    constexpr size_t around = 6 * 4 * 7 * 7; // places of the parts around the axis, which come first
    for (size_t i = 0; i < places.size(); ++i) {
        ASSERT_NEAR(1.0f, normals[i].length(), 1e-4f);
        bool const ofTube = places[i].x() < -2.2f
            || (places[i].x() > 2.6f && places[i].z() < 2.3f); // handle and spout, but not its lip
        if (ofTube && std::abs(places[i].y()) > 0.02f) {
            EXPECT_GT(places[i].y() * normals[i].y(), 0.0f) << places[i];
        }
        if (i >= around || std::abs(places[i].z() - 0.9f) > 1e-5f) continue;
        EXPECT_GT(places[i].x() * normals[i].x() + places[i].y() * normals[i].y(), 0.0f) << places[i];
    }
    EXPECT_NEAR(3.15f, mesh.box.max().z(), 1e-5f);
    EXPECT_EQ(0.0f, mesh.box.min().z());
    EXPECT_NEAR(2.0f, mesh.box.max().y(), 0.02f);
}

TEST(VisTeapot, ItsBoxFollowsTheTransform)
{
    FenModifiedGroup group;
    FenVisTeapot teapot(group);
    BoundingBox const box = teapot.boundingBox();
    teapot.transform.value.set(Matrix::translation(Vector3(10, 0, 0)));
    EXPECT_EQ(box.max().x() + 10, teapot.boundingBox().max().x());
    FenVisTeapot const copy(teapot);
    EXPECT_EQ(teapot.boundingBox(), copy.boundingBox());
    EXPECT_EQ(&copy.transform, copy.at("transform"));
    teapot.transform.value.set(Matrix::scaling(Vector3(NAN, 1, INFINITY)));
    EXPECT_FALSE(teapot.boundingBox().defined());
}
