#pragma once

#include "charts/painting/CurvePoints.h"
#include "charts/style/VariableStyle.h"
#include "services/opengl/Gl.h"

#include <QColor>

#include <vector>

class FenOglGeometry;

namespace fen {

/// Texture coordinates of strips: one pair per vertex.
struct StripsRamp {
    std::vector<Kes::Math::Vector2> points, spans;
};

/// Draws every strip as a primitive of `kind`, and spans as lines, in the current colour and state.
void drawStrips(GLenum kind, Strips const& strips);
/// The same with a colour ramp in the current texture.
void drawStrips(GLenum kind, Strips const& strips, StripsRamp const& ramp);

/// True when `drawStroke` closes the notches of a line of that style.
bool hasCorners(StrokeStyle const& style);
/// Corners at which a wide line changes between flat and steep: OpenGL ends its two parts with different
/// edges there, and a square point closes the notch.
std::vector<Kes::Math::Vector2> notches(Strips const& line);

/// Draws a line while blending is on; leaves width and smoothing as they are then.
/// @param corners  what `notches` found
void drawStroke(Strips const& line, std::vector<Kes::Math::Vector2> const& corners, StrokeStyle const& style);

/// Glow along a line, widest ring first; keeps the enable flags and writes no depth.
void drawGlow(FenOglGeometry const& geometry, Strips const& line, QColor const& color, float width);

} // namespace fen
