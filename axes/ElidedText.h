#pragma once

#include "../services/logging/Export.h"

#include <QString>

class FenOglText;

namespace fen {

/// A text cut at its end, with an ellipsis, so that it is at most `width` wide.
/// @param width  [px] at the text object's point size
/// @return the text itself when it fits; empty when not even the ellipsis does
FENVIS_EXPORT QString elided(FenOglText const& text, QString const& string, int width);

} // namespace fen
