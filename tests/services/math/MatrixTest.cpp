#include "services/math/Matrix.h"
#include "services/math/Plane.h"
#include "services/math/Vector3.h"
#include "services/opengl/Gl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

using namespace Kes::Math;

namespace {

class MatrixFuzz : public testing::Test {
protected:
    float number(float low, float high) { return std::uniform_real_distribution<float>(low, high)(_random); }
    Vector3 vector(float size) { return {number(-size, size), number(-size, size), number(-size, size)}; }
    Vector3 factors() { return {number(0.2f, 4), number(0.2f, 4), number(0.2f, 4)}; }

    // What a camera looks through: moved, turned and scaled.
    Matrix modelView()
    {
        return Matrix::translation(Vector3(number(-3, 3), number(-3, 3), number(-40, -20)))
            * Matrix::rotate(vector(1), double(number(-400, 400))) * Matrix::scaling(factors());
    }

    // As gluPerspective(60, aspect, 5, 80) makes it.
    Matrix perspective()
    {
        Matrix m;
        m(0, 0) = 1.7320508f / number(0.5f, 2);
        m(1, 1) = 1.7320508f;
        m(2, 2) = -85.0f / 75.0f;
        m(2, 3) = -800.0f / 75.0f;
        m(3, 2) = -1;
        m(3, 3) = 0;
        return m;
    }

    std::mt19937 _random{20};
};

typedef std::array<double, 16> Doubles;

Doubles doubles(Matrix const& m)
{
    Doubles d;
    std::copy_n(static_cast<float const*>(m), 16, d.begin());
    return d;
}

void expectNear(Vector3 const& expected, Vector3 const& actual, double relative, char const* what)
{
    double const allowed = relative * (1.0 + double(expected.length()));
    EXPECT_NEAR(0.0, double((expected - actual).length()), allowed)
        << what << ": " << expected << " and " << actual;
}

Vector3 vectorOf(double const* d) { return {float(d[0]), float(d[1]), float(d[2])}; }

} // namespace

TEST(Matrix, MultipliesAndTurnsAsOpenGlDoes)
{
    Matrix m = Matrix::translation(Vector3(5, 0, 0));
    m *= Matrix::scaling(Vector3(2, 2, 2));
    EXPECT_EQ(Vector3(7, 2, 0), m * Vector3(1, 1, 0)); // the last factor acts first
    m.identity();
    EXPECT_EQ(Matrix::Identity, m);
    EXPECT_EQ(VectorY, Matrix::rotate(VectorZ, 90) * VectorX);
    EXPECT_EQ(-VectorX, Matrix::rotate(VectorZ * 7, -180) * VectorX);
    EXPECT_EQ(Matrix(), Matrix::rotate(Vector0, 90));
    EXPECT_EQ(Matrix(), Matrix::rotate(VectorX, NAN));
    EXPECT_NEAR(0.5, double((Matrix::rotate(VectorZ, 30) * VectorX).y()), 1e-7);
    for (float const none : {0.0f, NAN, 1e-45f}) // the inverse of the last overflows
        EXPECT_EQ(Matrix(), Matrix::scaling(Vector3(1, none, 1)).inverse());
    EXPECT_EQ(Matrix::scaling(Vector3(1e-30f, 1, 1)), Matrix::scaling(Vector3(1e30f, 1, 1)).inverse());
}

TEST_F(MatrixFuzz, InverseOrientationAndScaleTakeATransformApart)
{
    for (int i = 0; i < 300; ++i) {
        Matrix const turned = Matrix::rotate(vector(1), double(number(-180, 180)));
        Vector3 const stretched = factors();
        Matrix const m = Matrix::translation(vector(100)) * turned * Matrix::scaling(stretched);
        Vector3 const point = vector(10);
        expectNear(point, m.inverse() * (m * point), 1e-4, "inverse");
        expectNear(stretched, m.scale(), 1e-6, "scale");
        expectNear(turned * point, m.orientation() * point, 1e-6, "orientation");
    }
}

TEST_F(MatrixFuzz, ProjectAndUnProjectAgreeWithGlu)
{
    for (int i = 0; i < 300; ++i) {
        Matrix const model = modelView(), projection = perspective();
        Doubles const m = doubles(model), p = doubles(projection);
        int const viewport[4] = {i % 7 - 3, i % 5, 200 + i, 100 + 2 * i};
        Vector3 const point = vector(2);
        double o[3];
        gluProject(double(point.x()), double(point.y()), double(point.z()), m.data(), p.data(), viewport,
                   &o[0], &o[1], &o[2]);
        Vector3 const window = point.project(model, projection, viewport);
        expectNear(vectorOf(o), window, 1e-6, "project");
        gluUnProject(double(window.x()), double(window.y()), double(window.z()), m.data(), p.data(), viewport,
                     &o[0], &o[1], &o[2]);
        expectNear(vectorOf(o), window.unProject(model, projection, viewport), 1e-5, "unProject");
    }
    int const viewport[4] = {0, 0, 100, 100}, empty[4] = {0, 0, 0, 100};
    EXPECT_EQ(Vector0, Vector3(1, 1, 0).project(Matrix(), perspective(), viewport)); // w is 0
    EXPECT_EQ(Vector0, Vector3(1, 1, 0).unProject(Matrix::scaling(Vector3(1, 0, 1)), Matrix(), viewport));
    EXPECT_EQ(Vector0, Vector3(1, 1, 0).unProject(Matrix(), Matrix(), empty));
}

// The reference is the meeting of ray and plane: light + t (point - light).
TEST_F(MatrixFuzz, ShadowsLieOnThePlaneAndOnTheRayFromTheLight)
{
    for (int i = 0; i < 300; ++i) {
        Plane plane(vector(5), vector(1));
        plane.normalize();
        float const side = i % 2 ? 1.0f : -1.0f;
        Vector3 const light = plane.point() + plane.normal() * (side * 20) + vector(5);
        Vector3 const point = plane.point() + plane.normal() * (side * number(0, 10)) + vector(2);
        double const height = plane.distance(light);
        double const t = height / (height - plane.distance(point));
        Matrix const shadow = Matrix::shadow(plane, light);
        expectNear(light + (point - light) * float(t), shadow * point, 1e-4, "shadow");

        float w = shadow(3, 3);
        for (int k = 0; k < 3; ++k) w += shadow(3, k) * point[k];
        EXPECT_GT(w, 0.0f); // or OpenGL would clip it away
    }
}
