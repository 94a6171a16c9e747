#include "host/table/DataTable.h"

#include "host/Limits.h"
#include "host/output/FileOutput.h"
#include "host/output/MessageText.h"
#include "host/table/CsvReader.h"
#include "host/table/DateText.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace {

constexpr double missing = std::numeric_limits<double>::quiet_NaN();

QString fromUtf8(std::string_view text) { return QString::fromUtf8(text.data(), qsizetype(text.size())); }

std::string_view trimmed(std::string_view text)
{
    std::size_t const first = text.find_first_not_of(" \t");
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool isMissing(std::string_view text)
{
    constexpr std::array<std::string_view, 6> words{"NA", "N/A", "NaN", "nan", "null", "NULL"};
    return text.empty() || (text.size() <= 4 && std::ranges::find(words, text) != words.end());
}

/// A number without sign "+", whole text; beyond the range of double it is infinite or 0.
bool parseNumber(std::string_view text, double& value)
{
    char const* const end = text.data() + text.size();
    std::from_chars_result const result = std::from_chars(text.data(), end, value);
    if (result.ptr != end) return false;
    if (result.ec == std::errc::result_out_of_range) {
        bool const tiny = text.find("e-") != text.npos || text.find("E-") != text.npos;
        double const infinite = std::numeric_limits<double>::infinity();
        value = tiny ? 0.0 : text.front() == '-' ? -infinite : infinite;
    }
    return result.ec != std::errc::invalid_argument;
}

bool numberFromField(std::string_view text, bool decimalComma, double& value)
{
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
    if (parseNumber(text, value)) return true;
    std::array<char, 64> buffer; // long enough for any number that a person writes
    std::size_t const comma = text.find(',');
    if (!decimalComma || comma == text.npos || text.size() > buffer.size()) return false;
    std::ranges::copy(text, buffer.begin());
    buffer[comma] = '.';
    return parseNumber(std::string_view(buffer.data(), text.size()), value);
}

/// Gathers one column and finds out its kind: a guess that fails is given up
/// for texts, and the column is filled again in a second walk over the file.
class ColumnBuilder {
public:
    typedef FenDataTable::Kind Kind;

    void add(std::string_view field, bool decimalComma)
    {
        if (_stopped) return;
        std::string_view const text = trimmed(field);
        double value = missing;
        if (!isMissing(text)) {
            while (!convert(text, decimalComma, value)) {
                if (giveUpGuess()) return;
            }
            _sawValue = true;
        }
        _values.push_back(value);
    }

    /// True when the file has to be walked again; makes ready for that.
    bool restart()
    {
        if (!_stopped) return false;
        _stopped = false;
        _values.clear();
        return true;
    }
    /// Takes no part in the walk that fills others again.
    void finish() { _finished = true; }
    bool finished() const { return _finished; }

    FenDataTable::Column result(QString const& name)
    {
        return {name, _kind, std::make_shared<std::vector<double> const>(std::move(_values)), _categories};
    }

private:
    bool convert(std::string_view text, bool decimalComma, double& value)
    {
        if (_kind == Kind::Number) return numberFromField(text, decimalComma, value);
        if (_kind == Kind::Text) {
            value = category(text);
            return true;
        }
        std::optional<double> const seconds = fen::secondsFromIsoDate(text);
        value = seconds.value_or(missing);
        return seconds.has_value();
    }

    /// @return true when values were taken by the old guess, so that they must be read again
    bool giveUpGuess()
    {
        _kind = _kind == Kind::Number && !_sawValue ? Kind::Date : Kind::Text;
        _stopped = _sawValue;
        return _stopped;
    }

    double category(std::string_view text)
    {
        auto const [entry, fresh] = _index.try_emplace(std::string(text), _categories.size());
        if (fresh) _categories.append(fromUtf8(text));
        return double(entry->second);
    }

    Kind _kind = Kind::Number;
    bool _sawValue = false;
    bool _stopped = false;
    bool _finished = false;
    std::vector<double> _values;
    QStringList _categories;
    std::unordered_map<std::string, qsizetype> _index;
};

class TableBuilder final : public fen::ICsvRows {
public:
    explicit TableBuilder(char separator)
        : _decimalComma(separator != ',')
    {
    }

    QString row(std::vector<std::string_view> const& fields, std::size_t line) override
    {
        bool const first = std::exchange(_atStart, false);
        if (first && _names.isEmpty()) {
            QString const error = begin(fields, line);
            if (!error.isEmpty()) return error;
        }
        if (first && _header) return {};
        std::size_t const width = _columns.size();
        if (fields.size() != width)
            return QStringLiteral("%1 fields, but the first row has %2").arg(fields.size()).arg(width);
        if (++_rows * width > std::size_t(fen::limits::values))
            return QStringLiteral("more than %1 values").arg(fen::limits::values);
        for (std::size_t i = 0; i < width; ++i)
            if (!_columns[i].finished()) _columns[i].add(fields[i], _decimalComma);
        return {};
    }

    /// True when some columns need another walk.
    bool again()
    {
        bool needed = false;
        for (ColumnBuilder& column : _columns) {
            if (column.finished()) continue;
            if (column.restart())
                needed = true;
            else
                column.finish();
        }
        if (needed) _rows = 0;
        _atStart = true;
        return needed;
    }

    std::size_t rows() const { return _rows; }
    bool begun() const { return !_names.isEmpty(); }
    std::size_t headerLine() const { return _headerLine; }
    std::vector<FenDataTable::Column> result()
    {
        std::vector<FenDataTable::Column> columns;
        for (std::size_t i = 0; i < _columns.size(); ++i)
            columns.push_back(_columns[i].result(_names[qsizetype(i)]));
        return columns;
    }

private:
    /// The first row: names, unless it is all numbers.
    QString begin(std::vector<std::string_view> const& fields, std::size_t line)
    {
        double value = 0;
        _header = !std::ranges::all_of(fields, [&](std::string_view field) {
            return numberFromField(trimmed(field), _decimalComma, value);
        });
        _headerLine = line;
        QHash<QString, int> uses;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            QString name = _header ? fromUtf8(fields[i]).simplified() : QString();
            if (name.isEmpty()) name = QStringLiteral("column %1").arg(i + 1);
            if (name.size() > fen::limits::nameCharacters)
                return QStringLiteral("the name of column %1 is longer than %2 characters")
                    .arg(i + 1)
                    .arg(fen::limits::nameCharacters);
            QString unique = name;
            while (uses.contains(unique)) unique = QStringLiteral("%1.%2").arg(name).arg(++uses[name]);
            uses.insert(unique, 1);
            _names.append(unique);
        }
        _columns.resize(fields.size());
        return {};
    }

    bool _decimalComma;
    bool _header = false;
    bool _atStart = true; // of a walk over the file
    std::size_t _headerLine = 0;
    std::size_t _rows = 0;
    QStringList _names;
    std::vector<ColumnBuilder> _columns;
};

/// @return empty, or an error as "line: message"
QString readInto(std::string_view text, std::size_t& rows, std::vector<FenDataTable::Column>& columns)
{
    char const separator = fen::detectCsvSeparator(text);
    TableBuilder builder(separator);
    do {
        QString const error = fen::readCsv(text, separator, builder);
        if (!error.isEmpty()) return error;
    } while (builder.again());
    if (!builder.begun()) return QStringLiteral("1: the file is empty");
    if (builder.rows() == 0) return QStringLiteral("%1: no rows after the header").arg(builder.headerLine());
    rows = builder.rows();
    columns = builder.result();
    return {};
}

} // namespace

bool FenDataTable::read(QString const& path, FenDataTable& table, QString& error)
{
    QByteArray bytes;
    if (!fen::readFile(path, fen::limits::csvBytes, bytes, error)) return false;
    return parse(std::string_view(bytes.constData(), std::size_t(bytes.size())), path, table, error);
}

bool FenDataTable::parse(std::string_view text, QString const& name, FenDataTable& table, QString& error)
{
    QString message;
    FenDataTable read;
    read._id = std::make_shared<FenTableId>(FenTableId{name});
    try {
        message = readInto(text, read._rows, read._columns);
    } catch (std::bad_alloc const&) {
        message = QStringLiteral("out of memory");
    }
    if (message.isEmpty())
        table = read;
    else
        error = fen::messageText(name) + QStringLiteral(":") + message;
    return message.isEmpty();
}

int FenDataTable::find(QString const& name) const
{
    for (std::size_t i = 0; i < _columns.size(); ++i)
        if (_columns[i].name == name) return int(i);
    return -1;
}

QStringList FenDataTable::names() const
{
    QStringList names;
    for (Column const& column : _columns) names.append(column.name);
    return names;
}

bool FenDataTable::append(QString const& name, Kind kind, std::vector<double> values)
{
    if (find(name) >= 0 || (!_columns.empty() && values.size() != _rows)) return false;
    _rows = values.size();
    _columns.push_back({name, kind, std::make_shared<std::vector<double> const>(std::move(values)), {}});
    return true;
}
