#pragma once

#include "../logging/Export.h"

namespace fen {

/// Device pixels per logical pixel in the pass that runs, 1 outside of any.
/// Layout, picking and properties are in logical pixels; only the functions
/// below, the viewport and stipple wrappers and glyph and symbol images know
/// the ratio.
FENVIS_EXPORT double pixelRatio();

/// Sets the pixel ratio for its lifetime. Ratios that are not finite or not
/// above 0 count as 1.
class FENVIS_EXPORT PixelRatioScope {
public:
    explicit PixelRatioScope(double ratio);
    ~PixelRatioScope();
    PixelRatioScope(PixelRatioScope const&) = delete;
    PixelRatioScope& operator=(PixelRatioScope const&) = delete;

private:
    double _previous;
};

/// glLineWidth of `width` [px], times the ratio. What is not above 0 counts as 1.
FENVIS_EXPORT void lineWidth(float width);
/// glPointSize of `size` [px], times the ratio. What is not above 0 counts as 1.
FENVIS_EXPORT void pointSize(float size);
/// glScissor of a rectangle in window pixels [px], times the ratio.
FENVIS_EXPORT void scissor(int x, int y, int width, int height);
/// glLineStipple with the bits given; the factor, times the ratio, is clamped to 1..256.
FENVIS_EXPORT void lineStipple(int factor, unsigned short bits);

/// [device px] point size in force: what GL says, or, while a display list
/// records (queries do not see recorded calls), what `pointSize` set last.
FENVIS_EXPORT float devicePointSize();
/// True while a display list is being recorded.
FENVIS_EXPORT bool recordingList();
/// True in selection mode (glRenderMode(GL_SELECT)).
FENVIS_EXPORT bool selectionMode();

} // namespace fen
