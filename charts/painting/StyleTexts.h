#pragma once

class QString;

namespace fen {

/// Logs that a property has a text that means nothing, once for each text.
/// @param what  the key, "fillMode"
void warnUnknownText(char const* what, QString const& text);

} // namespace fen
