#pragma once

#include "../services/logging/Export.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace fen::limits {

// What files may hold. Readers refuse more with a message that names the limit
// and the line; `fenvis --limits` prints the table.

inline constexpr std::int64_t csvBytes = std::int64_t(2) << 30; ///< size of a CSV file
inline constexpr std::int64_t csvColumns = 65'536;
inline constexpr std::int64_t csvFieldBytes = 1 << 20; ///< one field of a CSV file
inline constexpr std::int64_t values = 100'000'000; ///< all numbers that a file brings in
inline constexpr std::int64_t variables = 10'000; ///< of one chart
inline constexpr std::int64_t nameCharacters = 1'024; ///< of columns, nodes and keys
inline constexpr std::int64_t sceneBytes = std::int64_t(256) << 20; ///< size of a scene file
inline constexpr std::int64_t treeDepth = 64; ///< levels of a scene's tree
inline constexpr std::int64_t nodes = 100'000; ///< of one scene
inline constexpr std::int64_t keysPerNode = 1'024;
inline constexpr std::int64_t pictureSide = 16'384; ///< [device px] of a picture; drivers may do less

/// One row of the table.
struct Limit {
    QString what;
    std::int64_t value;
    QString unit; ///< empty for plain counts
};

/// All limits, in the order of the declarations above.
FENVIS_EXPORT std::vector<Limit> table();

} // namespace fen::limits
