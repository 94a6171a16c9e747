#pragma once

#include <QString>

#include <source_location>

namespace fen {

/// Writes `text` as a warning of the calling function unless the same text was
/// written before; after a few hundred different texts it keeps silent.
/// @param mark  fixed line mark, "@line 24"
void warnOnce(QString const& text, char const* mark,
              std::source_location const& where = std::source_location::current());

} // namespace fen
