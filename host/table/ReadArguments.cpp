#include "host/table/ReadArguments.h"

#include "host/output/MessageText.h"

#include <QCommandLineParser>

#include <array>
#include <utility>

namespace {

QString latin(char const* text) { return QString::fromLatin1(text); }

struct Argument {
    char const* name;
    char const* value;
    char const* help;
};

constexpr std::array arguments{
    Argument{"delimiter", "CHARACTER", "between fields: a character, or tab (default: found out)"},
    Argument{"decimal", "MARK", "decimal mark of numbers, . or , (default: found out)"},
    Argument{"date-format", "PATTERN",
             "of dates, such as dd.MM.yyyy or MM/dd/yyyy HH:mm (default: found out)"},
    Argument{"skip-rows", "N", "lines above the header (default: found out)"},
    Argument{"units-row", "yes|no", "units stand below the header (default: found out)"},
    Argument{"comment", "TEXT", "lines that begin so are left out (default #; empty: none)"},
    Argument{"x-type", "number|date|category", "what the x column is (default: found out)"},
};

/// Reads one option; tells what it expected otherwise.
class Reader {
public:
    Reader(QCommandLineParser const& parser, QString& error)
        : _parser(parser)
        , _error(error)
    {
    }

    /// @param take  takes the value, or answers false
    template <class Take>
    void option(char const* name, char const* expected, Take const& take)
    {
        if (!_parser.isSet(latin(name))) return;
        QString const given = _parser.value(latin(name));
        if (!take(given) && _error.isEmpty())
            _error = QStringLiteral("--%1 \"%2\": expected %3")
                         .arg(latin(name), fen::messageText(given), latin(expected));
    }

private:
    QCommandLineParser const& _parser;
    QString& _error;
};

bool takeDelimiter(QString const& given, FenReadOptions& options)
{
    bool const tab = given == QLatin1String("tab") || given == QLatin1String("\\t");
    if (!tab && (given.size() != 1 || given[0].unicode() > 126 || given[0] == QLatin1Char('"'))) return false;
    options.delimiter = tab ? '\t' : given[0].toLatin1();
    return true;
}

bool takeDecimal(QString const& given, FenReadOptions& options)
{
    if (given != QLatin1String(".") && given != QLatin1String(",")) return false;
    options.decimal = given[0].toLatin1();
    return true;
}

bool takeDateFormat(QString const& given, FenReadOptions& options)
{
    options.dateFormat = given;
    return given.contains(QLatin1Char('y')) && given.contains(QLatin1Char('M'));
}

bool takeSkipRows(QString const& given, FenReadOptions& options)
{
    bool good = false;
    options.skipRows = given.toInt(&good);
    return good && *options.skipRows >= 0;
}

bool takeUnitsRow(QString const& given, FenReadOptions& options)
{
    options.unitsRow = given == QLatin1String("yes");
    return *options.unitsRow || given == QLatin1String("no");
}

bool takeType(QString const& given, QString const& x, FenReadOptions& options)
{
    typedef FenReadOptions::As As;
    for (auto const& [word, as] : {std::pair("number", As::Number), std::pair("date", As::Date),
                                   std::pair("category", As::Category)}) {
        if (given != latin(word)) continue;
        options.columns = {{x, as}};
        return true;
    }
    return false;
}

} // namespace

QList<QCommandLineOption> fen::readArguments()
{
    QList<QCommandLineOption> options;
    for (Argument const& argument : arguments)
        options.append(QCommandLineOption(latin(argument.name), latin(argument.help), latin(argument.value)));
    return options;
}

bool fen::readReadArguments(QCommandLineParser const& parser, QString const& x, FenReadOptions& options,
                            QString& error)
{
    Reader reader(parser, error);
    reader.option("delimiter", "one character, or tab",
                  [&](QString const& given) { return takeDelimiter(given, options); });
    reader.option("decimal", "a point or a comma",
                  [&](QString const& given) { return takeDecimal(given, options); });
    reader.option("date-format", "a pattern such as dd.MM.yyyy HH:mm",
                  [&](QString const& given) { return takeDateFormat(given, options); });
    reader.option("skip-rows", "a number of lines, 0 or more",
                  [&](QString const& given) { return takeSkipRows(given, options); });
    reader.option("units-row", "yes or no",
                  [&](QString const& given) { return takeUnitsRow(given, options); });
    reader.option("comment", "any text", [&](QString const& given) {
        options.comment = given;
        return true;
    });
    reader.option("x-type", "number, date or category",
                  [&](QString const& given) { return takeType(given, x, options); });
    return error.isEmpty();
}
