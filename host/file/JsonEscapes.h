#pragma once

#include <charconv>
#include <string_view>

namespace fen {

// What stands behind a backslash in a JSON text, and what it means.
inline constexpr std::string_view escapeNames = "\"\\/bfnrt";
inline constexpr std::string_view escapeMeanings = "\"\\/\b\f\n\r\t";

/// The code of four hexadecimal digits.
inline unsigned codeUnit(std::string_view digits)
{
    unsigned code = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    return code;
}

inline bool isJsonBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

} // namespace fen
