#pragma once

#include "../logging/Export.h"
#include "Gl.h"
#include "OglViewport.h"

#include <QPoint>
#include <QSize>

class FenViewport;
class QColor;
class QString;

namespace Kes::Math {
class BoundingBox;
class Matrix;
class Vector3;
} // namespace Kes::Math

// OpenGL calls that take the framework's types, as overloads of their own names.

/// Current matrices. Queries: nothing that was recorded into an open list shows.
FENVIS_EXPORT Kes::Math::Matrix glGetModelViewMatrix();
FENVIS_EXPORT Kes::Math::Matrix glGetProjectionMatrix();
/// Current viewport in logical pixels; invalid without a context.
FENVIS_EXPORT FenOglViewport glGetViewport();

/// Current colour with alpha; an invalid colour is black.
FENVIS_EXPORT void glColor(QColor const& color);

/// Vector parameter of a light; positions get w = 1.
FENVIS_EXPORT void glLight(GLenum light, GLenum parameter, Kes::Math::Vector3 const& value);
FENVIS_EXPORT void glLight(GLenum light, GLenum parameter, QColor const& value);

/// Line stipple by name ("solid", "dash", "dot", "dashDot") or as a hex text
/// ("0x0F0F"); an unknown name is logged once and solid. The factor grows with
/// the pixel ratio and is clamped to 1..256. Switching stippling on is the caller's.
FENVIS_EXPORT void glLineStipple(int factor, QString const& pattern);
/// Fill pattern by name ("sparse", "dense", "horizontal", "vertical", "diagonal");
/// any other is solid. One pattern pixel is one logical pixel.
FENVIS_EXPORT void glPolygonStipple(QString const& pattern);

FENVIS_EXPORT void glLoadMatrix(Kes::Math::Matrix const& matrix);
/// current = current x matrix
FENVIS_EXPORT void glMultMatrix(Kes::Math::Matrix const& matrix);
FENVIS_EXPORT void glScale(Kes::Math::Vector3 const& scale);

/// Loads nothing but multiplies an orthographic projection that fits `box`, seen
/// through `modelView`, into `viewport` with equal scales, centred; the depth
/// range is a little longer than the box, so nothing lies on its ends. An
/// undefined box counts as -1..1 in each direction.
FENVIS_EXPORT void glOrtho(FenOglViewport const& viewport, Kes::Math::BoundingBox const& box,
                           Kes::Math::Matrix const& modelView);

/// Sets the viewport, given in logical pixels. Negative extents count as 0.
FENVIS_EXPORT void glViewport(FenOglViewport const& viewport);
/// Sets the viewport to a rectangle relative to the current one.
FENVIS_EXPORT void glViewport(FenViewport const& viewport);
/// Multiplies the projection in which one unit is one logical pixel of `viewport`:
/// glOrtho(0, width, 0, height, -1, 1), so pixel i covers i..i+1.
FENVIS_EXPORT void gluOrtho2D(FenOglViewport const& viewport);
/// Pick region around the centre of pixel `point` [px, window]; each extent of
/// `size` [px] is raised to at least 1.
FENVIS_EXPORT void gluPickMatrix(QPoint const& point, QSize const& size, FenOglViewport const& viewport);
