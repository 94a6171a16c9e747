#pragma once

#include "services/opengl/OglViewport.h"

namespace fen {

// How an annotation is laid out around its box [px], from the lower left corner of its rectangle: a
// rim, the box, and above it the strip; what is drawn and what is picked follow the same numbers.
constexpr int annotationRim = 3; ///< on every side
constexpr int annotationWider = 6; ///< than the box
constexpr int annotationHigher = 24; ///< than the box
constexpr int stripFrom = 9, stripTo = 20; ///< first and last row of the strip, above the height of the box

/// Rectangle of the whole annotation; it begins where the viewport places the box.
inline FenOglViewport annotationFrame(FenOglViewport const& box)
{
    return FenOglViewport(box.x(), box.y(), box.width() + annotationWider, box.height() + annotationHigher);
}

/// The box inside that rectangle.
inline FenOglViewport annotationContent(FenOglViewport const& frame)
{
    return FenOglViewport(frame.x() + annotationRim, frame.y() + annotationRim,
                          frame.width() - annotationWider, frame.height() - annotationHigher);
}

} // namespace fen
