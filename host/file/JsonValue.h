#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace fen {

struct JsonMember;

/// A value of a JSON text, with the place where it stands. Points into the text.
///
/// Lists of plain values keep nothing but their source: numbers are read from there into arrays of
/// double without a text or an object for each.
struct JsonValue {
    enum class Kind { Null, Bool, Number, Text, List, Object };

    Kind kind = Kind::Null;
    bool mixed = false; ///< a list of both plain values and lists or objects; it has no members
    std::string_view source; ///< as it is written
    std::size_t size = 0; ///< number of items of a list
    /// Of an object, in order; of a list of nothing but lists and objects, without keys.
    std::vector<JsonMember> members;

    bool isTrue() const { return source == "true"; }
    /// Of a text.
    QString text() const;
    /// The member of that key, or null.
    JsonValue const* find(char const* key) const;
};

struct JsonMember {
    QString key;
    std::string_view place; ///< the key as it is written
    JsonValue value;
};

/// Walks over the plain items of a list one by one.
class JsonItems {
public:
    explicit JsonItems(JsonValue const& list);
    /// False behind the last.
    bool next();
    JsonValue::Kind kind() const { return _item.kind; }
    JsonValue const& item() const { return _item; }

private:
    std::string_view _rest;
    JsonValue _item;
};

/// Reads a list of numbers; null is "not a number", and the texts "nan", "inf" and "-inf" are numbers too.
/// @return null, or the first item that is none of these
std::optional<JsonValue> readNumbers(JsonValue const& list, std::vector<double>& numbers);
/// The number of a JSON number, or of one of the texts above. Empty for anything else.
std::optional<double> numberOf(JsonValue const& value);

/// A JSON text without the blanks between its parts.
QByteArray compactJson(std::string_view json);

/// Where a byte of a text stands.
struct TextPlace {
    int line; ///< from 1
    int column; ///< [characters] from 1
};
TextPlace placeOf(std::string_view text, std::size_t offset);

} // namespace fen
