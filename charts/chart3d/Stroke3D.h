#pragma once

#include <functional>

class FenOglCache;

namespace fen {

struct VariableStyle;

/// Sets width, pattern and colour or ramp of a variable's lines, without lighting, has `lines` draw them
/// with ramp coordinates, and sets all but lighting and colour back. Nothing for a line that is not drawn.
void drawStroke3D(VariableStyle const& style, FenOglCache& cache, std::function<void()> const& lines);

} // namespace fen
