#include "services/opengl/GlWrappers.h"

#include "services/opengl/FittedView.h"

#include "services/math/BoundingBox.h"
#include "services/math/Matrix.h"
#include "services/math/Vector3.h"
#include "services/opengl/LogOnce.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/StipplePatterns.h"
#include "services/properties/Viewport.h"

#include <QColor>
#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

using Kes::Math::BoundingBox;
using Kes::Math::Matrix;
using Kes::Math::Vector3;

namespace {

Matrix currentMatrix(GLenum which)
{
    Matrix matrix;
    std::array<GLfloat, 16> values;
    std::copy_n(static_cast<float const*>(matrix), values.size(), values.begin()); // kept without a context
    glGetFloatv(which, values.data());
    return Matrix(values.data());
}

int devicePixels(int logical)
{
    constexpr double most = 1e6;
    return int(std::lround(std::clamp(logical * fen::pixelRatio(), -most, most)));
}

int logicalPixels(int device) { return int(std::lround(device / fen::pixelRatio())); }

/// Usable in float arithmetic: NaN, infinities and what their sums would overflow are not.
bool usable(Vector3 const& v)
{
    constexpr float most = 1e30f;
    return std::abs(v.x()) < most && std::abs(v.y()) < most && std::abs(v.z()) < most;
}

/// Box as the eye sees it, -1..1 for one that is undefined or not finite.
BoundingBox eyeBox(BoundingBox const& box, Matrix const& modelView)
{
    BoundingBox const unit(Vector3(-1, -1, -1), Vector3(1, 1, 1));
    if (!box.defined()) return unit;
    BoundingBox const seen = box * modelView;
    if (usable(seen.min()) && usable(seen.max())) return seen;
    fen::warnOnce("The bounding box of a projection must be finite.", "@line 55");
    return unit;
}

/// Projection of a box with this centre and half extents [eye], as a user has zoomed, moved and bent it.
///
/// Perspective as glFrustum makes it, its eye so far in front of the centre that the opening angle holds
/// there, and drawn together so that the front of the box fits as the middle does in a parallel view.
Matrix throughView(fen::FittedView const& view, Vector3 const& center, Vector3 const& half)
{
    double const panX = view.panX * half.y() / half.x();
    double const panY = view.panY;
    Matrix m;
    if (!(view.angle > 0)) {
        m(0, 0) = float(view.zoom / half.x());
        m(1, 1) = float(view.zoom / half.y());
        m(2, 2) = -1 / half.z();
        m(0, 3) = float(panX - view.zoom * center.x() / half.x());
        m(1, 3) = float(panY - view.zoom * center.y() / half.y());
        m(2, 3) = center.z() / half.z();
        return m;
    }
    constexpr double leastDistance = 1.25; // in half depths: the eye stays in front of the box
    double const tangent = std::tan(view.angle * std::numbers::pi / 360);
    double const distance = std::max(half.y() / tangent, leastDistance * half.z());
    double const near = distance - half.z();
    double const far = distance + half.z();
    double const size = view.zoom * near; // over the distance, of which near is the share that fits
    double const eye = center.z() + distance; // place of the eye on the z axis
    m(0, 0) = float(size / half.x());
    m(1, 1) = float(size / half.y());
    m(0, 2) = float(-panX);
    m(1, 2) = float(-panY);
    m(0, 3) = float(panX * eye - size * center.x() / half.x());
    m(1, 3) = float(panY * eye - size * center.y() / half.y());
    m(2, 2) = float(-(far + near) / (far - near));
    m(2, 3) = float((far + near) / (far - near) * eye - 2 * far * near / (far - near));
    m(3, 2) = -1;
    m(3, 3) = float(eye);
    return m;
}

} // namespace

Matrix glGetModelViewMatrix() { return currentMatrix(GL_MODELVIEW_MATRIX); }
Matrix glGetProjectionMatrix() { return currentMatrix(GL_PROJECTION_MATRIX); }

FenOglViewport glGetViewport()
{
    GLint values[4] = {0, 0, 0, 0};
    glGetIntegerv(GL_VIEWPORT, values);
    return FenOglViewport(logicalPixels(values[0]), logicalPixels(values[1]), logicalPixels(values[2]),
                          logicalPixels(values[3]));
}

void glColor(QColor const& color)
{
    glColor4f(float(color.redF()), float(color.greenF()), float(color.blueF()), float(color.alphaF()));
}

void glLight(GLenum light, GLenum parameter, Vector3 const& value)
{
    GLfloat const values[] = {value.x(), value.y(), value.z(), 1};
    glLightfv(light, parameter, values);
}

void glLight(GLenum light, GLenum parameter, QColor const& value)
{
    GLfloat const values[] = {float(value.redF()), float(value.greenF()), float(value.blueF()),
                              float(value.alphaF())};
    glLightfv(light, parameter, values);
}

void glLineStipple(int factor, QString const& pattern)
{
    fen::lineStipple(factor, fen::lineStippleBits(pattern));
}

void glPolygonStipple(QString const& pattern)
{
    glPolygonStipple(fen::polygonStippleBits(pattern, fen::pixelRatio()).data());
}

void glLoadMatrix(Matrix const& matrix) { glLoadMatrixf(static_cast<float const*>(matrix)); }
void glMultMatrix(Matrix const& matrix) { glMultMatrixf(static_cast<float const*>(matrix)); }
void glScale(Vector3 const& scale) { glScalef(scale.x(), scale.y(), scale.z()); }

void glOrtho(FenOglViewport const& viewport, BoundingBox const& box, Matrix const& modelView)
{
    BoundingBox const seen = eyeBox(box, modelView);
    Vector3 const center = (seen.min() + seen.max()) * 0.5f;
    Vector3 const half = (seen.max() - seen.min()) * 0.5f;
    double const aspect = viewport.valid() ? double(viewport.width()) / viewport.height() : 1;
    double halfHeight = std::max(double(half.y()), half.x() / aspect);
    if (!(halfHeight > 0)) halfHeight = half.z() > 0 ? half.z() : 1;
    // A box far away or tiny must not make planes that are one number.
    double const distance = std::max({std::abs(center.x()), std::abs(center.y()), std::abs(center.z())});
    double const least = std::max(1e-30, 1e-7 * distance);
    halfHeight = std::max(halfHeight, least * std::max(1.0, 1 / aspect));
    double const halfWidth = halfHeight * aspect;
    constexpr double slack = 1.1; // beyond the box: the far plane wraps in selection mode
    double const halfDepth = std::max({slack * half.z(), 0.01 * halfHeight, least});
    if (!fen::fittedView().plain()) {
        glMultMatrix(throughView(fen::fittedView(), center,
                                 Vector3(float(halfWidth), float(halfHeight), float(halfDepth))));
        return;
    }
    glOrtho(center.x() - halfWidth, center.x() + halfWidth, center.y() - halfHeight, center.y() + halfHeight,
            -center.z() - halfDepth, -center.z() + halfDepth);
}

void glViewport(FenOglViewport const& viewport)
{
    glViewport(devicePixels(viewport.x()), devicePixels(viewport.y()),
               devicePixels(std::max(viewport.width(), 0)), devicePixels(std::max(viewport.height(), 0)));
}

void glViewport(FenViewport const& viewport)
{
    glViewport(FenOglViewport::fitToParent(glGetViewport(), viewport));
}

void gluOrtho2D(FenOglViewport const& viewport)
{
    glOrtho(0, std::max(viewport.width(), 1), 0, std::max(viewport.height(), 1), -1, 1);
}

void gluPickMatrix(QPoint const& point, QSize const& size, FenOglViewport const& viewport)
{
    GLint area[] = {viewport.x(), viewport.y(), std::max(viewport.width(), 1),
                    std::max(viewport.height(), 1)};
    gluPickMatrix(point.x() + 0.5, point.y() + 0.5, std::max(size.width(), 1), std::max(size.height(), 1),
                  area);
}
