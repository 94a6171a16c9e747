#pragma once

#include <QString>

namespace fen {

/// Writes `text` as one error line, with "WARNING: " before it, unless the same
/// text was written before; after a few hundred different texts it keeps silent.
void warnOnce(QString const& text);

} // namespace fen
