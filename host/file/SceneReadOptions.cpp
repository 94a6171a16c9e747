#include "host/file/SceneReadOptions.h"

#include "host/file/JsonValue.h"
#include "host/file/JsonWriter.h"
#include "host/file/SceneProblems.h"

#include <cmath>

namespace {

using fen::JsonMember;
using fen::JsonValue;
using fen::SceneProblems;
using Kind = JsonValue::Kind;
typedef FenReadOptions::As As;

constexpr std::pair<char const*, As> types[] = {
    {"number", As::Number}, {"date", As::Date}, {"category", As::Category}};

/// A text of one of these characters.
void readCharacter(SceneProblems& problems, JsonValue const& value, char const* choice,
                   std::optional<char>& character)
{
    QString const text = value.text();
    if (text.size() == 1 && QLatin1String(choice).contains(text.front()))
        character = text.front().toLatin1();
    else
        problems.error(value,
                       QStringLiteral("expected one of the characters %1")
                           .arg(QString::fromUtf8(fen::jsonText(QString::fromLatin1(choice)))));
}

void readText(SceneProblems& problems, JsonValue const& value, QString& text)
{
    if (value.kind == Kind::Text)
        text = value.text();
    else
        problems.error(value, QStringLiteral("expected a text"));
}

void readTypes(SceneProblems& problems, JsonValue const& value, FenReadOptions& options)
{
    if (value.kind != Kind::Object) return problems.error(value, QStringLiteral("expected an object"));
    for (JsonMember const& member : value.members) {
        QString const given = member.value.text();
        auto const* const type = std::find_if(std::begin(types), std::end(types), [&](auto const& one) {
            return given == QLatin1String(one.first);
        });
        if (type != std::end(types))
            options.columns.emplace_back(member.key, type->second);
        else
            problems.error(member.value, QStringLiteral("expected one of: number, date, category"));
    }
}

void readSkipRows(SceneProblems& problems, JsonValue const& value, FenReadOptions& options)
{
    constexpr double most = 1e6;
    double const rows = fen::numberOf(value).value_or(-1);
    if (rows >= 0 && rows <= most && rows == std::floor(rows))
        options.skipRows = int(rows);
    else
        problems.error(value, QStringLiteral("expected a whole number from 0"));
}

/// A member and what it means.
struct Row {
    char const* key;
    void (*read)(SceneProblems& problems, JsonValue const& value, FenReadOptions& options);
};

constexpr Row rows[] = {
    {"delimiter",
     [](SceneProblems& problems, JsonValue const& value, FenReadOptions& options) {
         readCharacter(problems, value, ",;\t|", options.delimiter);
     }},
    {"decimal",
     [](SceneProblems& problems, JsonValue const& value, FenReadOptions& options) {
         readCharacter(problems, value, ".,", options.decimal);
     }},
    {"dateFormat",
     [](SceneProblems& problems, JsonValue const& value, FenReadOptions& options) {
         readText(problems, value, options.dateFormat);
     }},
    {"skipRows", readSkipRows},
    {"unitsRow",
     [](SceneProblems& problems, JsonValue const& value, FenReadOptions& options) {
         if (value.kind == Kind::Bool)
             options.unitsRow = value.isTrue();
         else
             problems.error(value, QStringLiteral("expected true or false"));
     }},
    {"comment",
     [](SceneProblems& problems, JsonValue const& value, FenReadOptions& options) {
         readText(problems, value, options.comment);
     }},
    {"types", readTypes},
};

} // namespace

QStringList fen::readOptionKeys()
{
    QStringList keys;
    for (Row const& row : rows) keys.append(QString::fromLatin1(row.key));
    return keys;
}

void fen::readReadOptions(SceneProblems& problems, JsonValue const& table, FenReadOptions& options)
{
    for (Row const& row : rows)
        if (JsonValue const* const value = table.find(row.key)) row.read(problems, *value, options);
}

void fen::writeReadOptions(JsonWriter& writer, FenReadOptions const& options)
{
    auto const character = [](char c) { return jsonText(QString(QLatin1Char(c))); };
    FenReadOptions const usual;
    if (options.delimiter) writer.write(QStringLiteral("delimiter"), character(*options.delimiter));
    if (options.decimal) writer.write(QStringLiteral("decimal"), character(*options.decimal));
    if (options.dateFormat != usual.dateFormat)
        writer.write(QStringLiteral("dateFormat"), jsonText(options.dateFormat));
    if (options.skipRows) writer.write(QStringLiteral("skipRows"), QByteArray::number(*options.skipRows));
    if (options.unitsRow) writer.write(QStringLiteral("unitsRow"), *options.unitsRow ? "true" : "false");
    if (options.comment != usual.comment) writer.write(QStringLiteral("comment"), jsonText(options.comment));
    writer.beginObject(QStringLiteral("types"));
    for (auto const& [column, as] : options.columns)
        for (auto const& [name, type] : types)
            if (type == as) writer.write(column, jsonText(QString::fromLatin1(name)));
    writer.end();
}
