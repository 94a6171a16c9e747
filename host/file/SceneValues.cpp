#include "host/file/SceneValues.h"

#include "host/file/JsonValue.h"
#include "host/file/JsonWriter.h"

#include "services/math/NumberFormat.h"
#include "services/properties/PropertiesString.h"
#include "services/properties/ValueText.h"

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

using fen::JsonItems;
using fen::JsonValue;
using fen::JsonWriter;
using fen::SceneValueType;
using Kind = JsonValue::Kind;

constexpr std::size_t numbersPerLine = 16; // a matrix stays on one
constexpr std::size_t textsPerLine = 8;

QString latin(std::string_view text) { return QString::fromLatin1(text.data(), qsizetype(text.size())); }

/// The token of a number as the store's texts write it: without the quotes of those that JSON lacks.
QString numberToken(JsonValue const& value)
{
    bool const quoted = value.kind == Kind::Text;
    return latin(quoted ? value.source.substr(1, value.source.size() - 2) : value.source);
}

QByteArray numberJson(QString const& token)
{
    bool const plain = token.back().isDigit(); // the others end in letters
    return plain ? token.toLatin1() : '"' + token.toLatin1() + '"';
}

template <class T>
void declare(FenPropertiesString& store, QString const& key)
{
    store.template declare<T>(store.place(key));
}

// --- one value

bool writeBool(JsonWriter& writer, QString const& key, QString const& stored)
{
    bool value = false;
    if (!fen::fromText(stored, value)) return false;
    writer.write(key, value ? "true" : "false");
    return true;
}

bool readBool(JsonValue const& value, QString& stored)
{
    stored = latin(value.source);
    return value.kind == Kind::Bool;
}

template <class T>
bool writeNumber(JsonWriter& writer, QString const& key, QString const& stored)
{
    T value{};
    if (!fen::fromText(stored, value)) return false;
    writer.write(key, numberJson(fen::toText(value)));
    return true;
}

template <class T>
bool readNumber(JsonValue const& value, QString& stored)
{
    T number{};
    if (!fen::numberOf(value) || !fen::fromText(numberToken(value), number)) return false;
    stored = fen::toText(number);
    return true;
}

bool writeText(JsonWriter& writer, QString const& key, QString const& stored)
{
    writer.write(key, fen::jsonText(stored));
    return true;
}

bool readText(JsonValue const& value, QString& stored)
{
    stored = value.text();
    return value.kind == Kind::Text;
}

bool writeColor(JsonWriter& writer, QString const& key, QString const& stored)
{
    QColor color;
    if (!fen::fromText(stored, color)) return false;
    writer.write(key, fen::jsonText(fen::toText(color)));
    return true;
}

bool readColor(JsonValue const& value, QString& stored)
{
    QColor color;
    if (value.kind != Kind::Text || !fen::fromText(value.text(), color)) return false;
    stored = fen::toText(color);
    return true;
}

// --- lists

bool isPlainList(JsonValue const& value)
{
    return value.kind == Kind::List && !value.mixed && value.members.empty();
}

/// Vectors and matrices, whose stored texts are numbers with blanks between.
template <class T>
bool writeVector(JsonWriter& writer, QString const& key, QString const& stored)
{
    T value{};
    if (!fen::fromText(stored, value)) return false;
    std::vector<QByteArray> items;
    for (QString const& token : fen::toText(value).split(u' ')) items.push_back(numberJson(token));
    writer.writeList(key, items, numbersPerLine);
    return true;
}

template <class T>
bool readVector(JsonValue const& value, QString& stored)
{
    if (!isPlainList(value)) return false;
    QStringList tokens;
    for (JsonItems items(value); items.next();) {
        if (!fen::numberOf(items.item())) return false;
        tokens.append(numberToken(items.item()));
    }
    T vector{};
    if (!fen::fromText(tokens.join(u' '), vector)) return false;
    stored = fen::toText(vector);
    return true;
}

bool writeNumbers(JsonWriter& writer, QString const& key, QString const& stored)
{
    std::vector<double> numbers;
    if (!fen::fromText(stored, numbers)) return false;
    std::vector<QByteArray> items;
    for (double const number : numbers) items.push_back(fen::jsonNumber(number));
    writer.writeList(key, items, numbersPerLine);
    return true;
}

bool readNumbers(JsonValue const& value, QString& stored)
{
    std::vector<double> numbers;
    if (!isPlainList(value) || fen::readNumbers(value, numbers)) return false;
    stored = fen::toText(numbers);
    return true;
}

/// Texts, of which `take` makes the items of a list.
template <class List, class Take>
bool readList(JsonValue const& value, QString& stored, Take const& take)
{
    if (!isPlainList(value)) return false;
    List list;
    for (JsonItems items(value); items.next();)
        if (items.kind() != Kind::Text || !take(items.item().text(), list)) return false;
    stored = fen::toText(list);
    return true;
}

template <class List>
bool writeTexts(JsonWriter& writer, QString const& key, QString const& stored)
{
    List list;
    if (!fen::fromText(stored, list)) return false;
    std::vector<QByteArray> items;
    for (auto const& item : list) items.push_back(fen::jsonText(fen::toText(item)));
    writer.writeList(key, items, textsPerLine);
    return true;
}

bool readTexts(JsonValue const& value, QString& stored)
{
    return readList<QStringList>(value, stored, [](QString const& text, QStringList& list) {
        list.append(text);
        return true;
    });
}

bool readColors(JsonValue const& value, QString& stored)
{
    return readList<QList<QColor>>(value, stored, [](QString const& text, QList<QColor>& list) {
        return fen::fromText(text, list.emplaceBack());
    });
}

using Kes::Math::Matrix;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

constexpr SceneValueType types[] = {
    {"QString", "a text", writeText, readText, declare<QString>},
    {"bool", "true or false", writeBool, readBool, declare<bool>},
    {"int", "a whole number", writeNumber<int>, readNumber<int>, declare<int>},
    {"unsigned", "a whole number from 0", writeNumber<unsigned>, readNumber<unsigned>, declare<unsigned>},
    {"float", "a number", writeNumber<float>, readNumber<float>, declare<float>},
    {"double", "a number", writeNumber<double>, readNumber<double>, declare<double>},
    {"QColor", "a colour such as \"#ff1f77b4\"", writeColor, readColor, declare<QColor>},
    {"QStringList", "a list of texts", writeTexts<QStringList>, readTexts, declare<QStringList>},
    {"QColorList", "a list of colours such as \"#ff1f77b4\"", writeTexts<QList<QColor>>, readColors,
     declare<QList<QColor>>},
    {"DoubleList", "a list of numbers", writeNumbers, readNumbers, declare<std::vector<double>>},
    {"Vector2", "a list of 2 numbers", writeVector<Vector2>, readVector<Vector2>, declare<Vector2>},
    {"Vector3", "a list of 3 numbers", writeVector<Vector3>, readVector<Vector3>, declare<Vector3>},
    {"Matrix", "a list of 16 numbers", writeVector<Matrix>, readVector<Matrix>, declare<Matrix>},
};

/// True when all items are of one kind.
bool allAre(JsonValue const& list, Kind kind)
{
    for (JsonItems items(list); items.next();)
        if (items.kind() != kind) return false;
    return true;
}

/// False for whole numbers of more digits than a double has.
bool fitsDouble(std::string_view number)
{
    return number.size() <= std::numeric_limits<double>::digits10
        || number.find_first_of(".eE") != number.npos;
}

char const* guessedName(JsonValue const& value)
{
    switch (value.kind) {
    case Kind::Bool:
        return "bool";
    case Kind::Number:
        return fitsDouble(value.source) ? "double" : nullptr;
    case Kind::Text:
        return "QString";
    case Kind::List:
        if (!isPlainList(value) || value.size == 0) return nullptr;
        return allAre(value, Kind::Number) ? "DoubleList"
            : allAre(value, Kind::Text)    ? "QStringList"
                                           : nullptr;
    case Kind::Null:
    case Kind::Object:
        break;
    }
    return nullptr;
}

} // namespace

fen::SceneValueType const& fen::SceneValueType::of(QString const& typeName)
{
    for (SceneValueType const& type : types)
        if (typeName == QLatin1String(type.name)) return type;
    return types[0];
}

fen::SceneValueType const* fen::SceneValueType::guess(JsonValue const& value)
{
    char const* const name = guessedName(value);
    return name ? &of(QLatin1String(name)) : nullptr;
}

QByteArray fen::jsonNumber(double value)
{
    if (std::isnan(value)) return "null";
    std::string const text = Kes::Math::shortestText(value);
    QByteArray const digits(text.data(), qsizetype(text.size()));
    return std::isinf(value) ? '"' + digits + '"' : digits;
}
