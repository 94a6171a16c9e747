#pragma once

#include <QColor>
#include <QList>
#include <QString>

#include <functional>

class FenOglCache;

namespace fen {

/// How an area is filled.
struct FillStyle {
    enum Mode { None, Solid, Sparse, Gradient };
    Mode mode = None;
    QColor color; ///< solid, and the set pixels of a pattern
    QColor back; ///< under a pattern
    QString pattern;
    QList<QColor> ramp; ///< of a gradient, never empty for one
};

/// Sets colour, pattern or texture, has `area` draw the geometry (with ramp coordinates when its argument
/// is true), and switches pattern and texture off again.
void drawFill(FillStyle const& style, FenOglCache& cache, std::function<void(bool textured)> const& area);

/// Has `geometry` draw in the colours of a ramp, through texture coordinates.
void drawRamp(QList<QColor> const& ramp, FenOglCache& cache, std::function<void()> const& geometry);

} // namespace fen
