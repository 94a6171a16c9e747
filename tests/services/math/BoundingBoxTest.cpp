#include "services/math/BoundingBox.h"
#include "services/math/Matrix.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Kes::Math;

TEST(BoundingBox, GrowsFromNothing)
{
    BoundingBox box;
    box.insert(NAN, 0, 0);
    box.insert(BoundingBox());
    EXPECT_FALSE(box.defined());
    box.insert(1, 2, 3);
    EXPECT_EQ(BoundingBox(Vector3(1, 2, 3), Vector3(1, 2, 3)), box);
    box.insert(0, 5, NAN);
    box += BoundingBox(Vector3(-1, 4, 4), Vector3(0, 6, 9));
    box += BoundingBox();
    EXPECT_EQ(BoundingBox(Vector3(-1, 2, 3), Vector3(1, 6, 9)), box);
}

TEST(BoundingBox, ScalesAndTransforms)
{
    BoundingBox const box(Vector3(1, 2, 3), Vector3(2, 4, 6));
    EXPECT_EQ(BoundingBox(Vector3(-4, 2, 0), Vector3(-2, 4, 0)), box.scale(Vector3(-2, 1, 0)));
    EXPECT_EQ(BoundingBox(Vector3(-4, 1, 3), Vector3(-2, 2, 6)), box * Matrix::rotate(VectorZ, 90));
    EXPECT_FALSE((BoundingBox() * Matrix::rotate(VectorZ, 90)).defined()
                 || BoundingBox().scale(Vector1).defined());
    BoundingBox const endless(Vector3(-INFINITY, 2, 0), Vector3(INFINITY, 4, INFINITY));
    EXPECT_EQ(Vector3(0, 3, INFINITY), endless.center());
    EXPECT_EQ(BoundingBox(Vector3(0, 2, 0), Vector3(0, 4, INFINITY)), endless.scale(Vector3(0, 1, 1)));
    EXPECT_EQ(BoundingBox(Vector3(-4, -INFINITY, 0), Vector3(-2, INFINITY, INFINITY)),
              endless * Matrix::rotate(VectorZ, 90));
}
