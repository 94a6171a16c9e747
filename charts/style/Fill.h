#pragma once

#include "charts/style/VariableStyle.h"

#include <functional>

class FenOglCache;

namespace fen {

/// Sets colour, pattern or texture, has `area` draw the geometry (with ramp coordinates when its argument
/// is true), and switches pattern and texture off again.
void drawFill(FillStyle const& style, FenOglCache& cache, std::function<void(bool textured)> const& area);

/// Binds a smooth ramp as the current texture: 0 is the first colour, 1 the last. To be called before a list
/// that draws with it is recorded: the texture would be loaded whenever the list is drawn.
void useRamp(QList<QColor> const& ramp, FenOglCache& cache);

/// True when something behind the area shines through it.
bool isTranslucent(FillStyle const& style);

/// Has `geometry` draw in the colours of a ramp, through texture coordinates.
void drawRamp(QList<QColor> const& ramp, FenOglCache& cache, std::function<void()> const& geometry);

} // namespace fen
