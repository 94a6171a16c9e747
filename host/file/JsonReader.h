#pragma once

#include "host/file/JsonValue.h"

namespace fen {

struct JsonLimits {
    std::size_t depth; ///< of lists and objects in each other
    std::size_t numbers; ///< in the whole text
};

/// Why a text is no JSON.
struct JsonProblem {
    std::size_t offset; ///< [bytes]
    QString message;
};

/// Reads a JSON text (RFC 8259) more strictly than it must be: keys of an object differ, half
/// surrogate pairs and numbers beyond the range of double are errors. `value` points into `text`.
/// @return empty, or the first error
std::optional<JsonProblem> readJson(std::string_view text, JsonLimits const& limits, JsonValue& value);

} // namespace fen
