#pragma once

#include "../logging/Export.h"

#include <array>
#include <cstdint>

class QString;

namespace fen {

/// Bits of a line stipple by name or hex text, lowest bit first. An empty or
/// unknown name is 0xFFFF (solid); an unknown one is logged once.
FENVIS_EXPORT std::uint16_t lineStippleBits(QString const& pattern);

/// 32 x 32 bits of a fill pattern as glPolygonStipple reads them, bottom row
/// first, highest bit leftmost; one pattern pixel covers `ratio` device pixels.
/// Empty and unknown names are solid; an unknown one is logged once.
using PolygonStipple = std::array<std::uint8_t, 128>;
FENVIS_EXPORT PolygonStipple polygonStippleBits(QString const& pattern, double ratio = 1);

} // namespace fen
