#pragma once

#include <QByteArray>
#include <QString>

class FenPropertiesString;

namespace fen {

class JsonWriter;
struct JsonValue;

/// How a scene file writes and reads the settings of one type of the string store: numbers and
/// true or false as they are, colours as "#aarrggbb", vectors, matrices and lists as lists. Numbers
/// that JSON lacks are the texts "nan", "inf" and "-inf".
struct SceneValueType {
    char const* name; ///< as `FenPropertiesString::typeName` says it
    char const* expected; ///< as in "expected a number"
    /// @return false when the stored text is no value of this type; nothing is written then
    bool (*write)(JsonWriter& writer, QString const& key, QString const& stored);
    /// @param stored  set to the text to store
    /// @return false when the value is of another type
    bool (*read)(JsonValue const& value, QString& stored);
    /// Says that a key is of this type.
    void (*declare)(FenPropertiesString& store, QString const& key);

    static SceneValueType const& of(QString const& typeName);
    /// The type that keeps a value of a key that nobody has declared; null when none keeps it as it is.
    static SceneValueType const* guess(JsonValue const& value);
};

/// A number as JSON writes it, the shortest text that reads as the same number.
QByteArray jsonNumber(double value);

} // namespace fen
