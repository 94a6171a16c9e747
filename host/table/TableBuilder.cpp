#include "host/table/TableBuilder.h"

#include "host/Limits.h"
#include "host/output/MessageText.h"
#include "host/table/ColumnBuilder.h"
#include "host/table/CsvLayout.h"
#include "host/table/CsvReader.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

typedef FenDataTable::Column Column;
typedef FenDataTable::Kind Kind;
using fen::ColumnBuilder;
using fen::CsvLayout;

constexpr std::size_t sampleBytes = 1 << 18; // of the file, to find out how its fields are written
constexpr std::size_t sampleRows = 1000;

QString fromUtf8(std::string_view text) { return QString::fromUtf8(text.data(), qsizetype(text.size())); }

QString atLine(std::size_t line, QString const& message)
{
    return QStringLiteral("%1: %2").arg(line).arg(message);
}

/// True for a number, a date or a time of the day: no name of a column.
bool isValue(std::string_view field)
{
    FenReadOptions const none;
    ColumnBuilder column(none, {});
    column.add(field, 0);
    column.choose(false);
    column.add(field, 0);
    return column.take(QString()).kind != Kind::Text;
}

class TableBuilder final : public fen::ICsvRows {
public:
    TableBuilder(CsvLayout const& layout, FenReadOptions const& options)
        : _layout(layout)
        , _options(options)
    {
    }

    /// What the first rows look like; after that come walks over all of them.
    void sample(std::string_view text)
    {
        std::string_view first = text.substr(0, sampleBytes);
        if (first.size() < text.size()) first = first.substr(0, first.find_last_of("\r\n") + 1);
        _sampling = true;
        fen::readCsv(first, _layout.separator, *this, _layout.beginLine); // errors come in the walk
        _sampling = false;
        chooseFormats();
        _unitsRow = _options.unitsRow.value_or(firstRowIsUnits());
        if (_unitsRow) takeUnitsRow();
        startWalk();
    }

    QString row(std::vector<std::string_view> const& fields, std::size_t line) override
    {
        bool const first = std::exchange(_atStart, false);
        if (first && _names.isEmpty()) {
            QString const error = begin(fields, line);
            if (!error.isEmpty()) return error;
        }
        if ((first && _header) || isComment(fields)) return {};
        if (_sampling && _firstRow.empty()) {
            for (std::string_view const field : fields) _firstRow.emplace_back(field);
            if (_options.unitsRow.value_or(false)) return {};
        }
        if (!_sampling && std::exchange(_unitsAhead, false)) return {};
        QString const error = checkWidth(fields, line);
        if (!error.isEmpty()) return error;
        if (++_rows * _columns.size() > std::size_t(fen::limits::values))
            return QStringLiteral("more than %1 values").arg(fen::limits::values);
        if (_sampling && _rows > sampleRows) return QStringLiteral("enough");
        for (std::size_t i = 0; i < _columns.size(); ++i)
            _columns[i].add(i < fields.size() ? fields[i] : std::string_view(), line);
        return {};
    }

    /// True when some columns need another walk; makes ready for it.
    bool again()
    {
        bool needed = false;
        for (ColumnBuilder& column : _columns) {
            bool const counted = column.phase() == ColumnBuilder::Phase::Counting;
            if (counted) column.choose(_comma);
            needed |= counted || column.settle();
        }
        if (needed) startWalk();
        return needed;
    }

    std::size_t rows() const { return _rows; }
    bool begun() const { return !_names.isEmpty(); }
    std::size_t headerLine() const { return _headerLine; }

    std::vector<Column> result(QStringList& notes)
    {
        noteShortRows(notes);
        std::vector<Column> columns;
        for (std::size_t i = 0; i < _columns.size(); ++i) {
            note(_columns[i], _names[qsizetype(i)], notes);
            Column column = _columns[i].take(_names[qsizetype(i)]);
            QString const unit = _units[qsizetype(i)];
            if (!unit.isEmpty() && column.kind != Kind::Text) column.unit = unit;
            if (_headers[qsizetype(i)] != column.name) column.header = _headers[qsizetype(i)];
            columns.push_back(std::move(column));
        }
        joinDatesAndTimes(columns);
        return columns;
    }

private:
    void startWalk()
    {
        _rows = _shortRows = 0;
        _atStart = true;
        _unitsAhead = _unitsRow;
    }

    /// A line that begins like a comment and is no row.
    bool isComment(std::vector<std::string_view> const& fields) const
    {
        std::string const mark = _options.comment.toStdString();
        return !mark.empty() && fields.front().starts_with(mark)
            && (fields.size() != _columns.size() || fields.size() == 1);
    }

    QString checkWidth(std::vector<std::string_view> const& fields, std::size_t line)
    {
        std::size_t const width = _columns.size();
        if (fields.size() < width && ++_shortRows == 1) _shortLine = line;
        auto const blank = [](std::string_view field) {
            return field.find_first_not_of(" \t") == field.npos;
        };
        if (fields.size() <= width
            || std::ranges::all_of(fields.begin() + std::ptrdiff_t(width), fields.end(), blank))
            return {};
        return QStringLiteral("%1 fields, but the first row has %2").arg(fields.size()).arg(width);
    }

    /// The first row: names, unless nothing in it is one.
    QString begin(std::vector<std::string_view> const& fields, std::size_t line)
    {
        bool const noNames = std::ranges::all_of(fields, isValue);
        _header = !noNames;
        _headerLine = line;
        std::vector<std::string_view> names = fields;
        if (noNames && !_layout.header.empty())
            names = namesOfComment();
        else if (noNames)
            names.assign(fields.size(), std::string_view());
        QString const error = takeNames(names);
        if (!error.isEmpty()) return error;
        for (qsizetype i = 0; i < _names.size(); ++i) _columns.emplace_back(_options, asOf(i));
        return {};
    }

    std::vector<std::string_view> namesOfComment()
    {
        struct Row final : fen::ICsvRows {
            std::vector<std::string> fields;
            QString row(std::vector<std::string_view> const& read, std::size_t) override
            {
                fields.assign(read.begin(), read.end());
                return {};
            }
        } row;
        fen::readCsv(_layout.header, _layout.separator, row);
        _commentNames = row.fields;
        return {_commentNames.begin(), _commentNames.end()};
    }

    QString takeNames(std::vector<std::string_view> const& fields)
    {
        QHash<QString, int> bare; // how often each name without its unit occurs
        for (std::string_view const field : fields) {
            QString name = fromUtf8(field).simplified();
            fen::takeUnit(name);
            ++bare[name];
        }
        QHash<QString, int> uses;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            QString const header = fromUtf8(fields[i]).simplified();
            QString name = header;
            QString const unit = fen::takeUnit(name);
            if (bare.value(name) > 1) name = header;
            if (name.isEmpty()) name = QStringLiteral("column %1").arg(i + 1);
            if (name.size() > fen::limits::nameCharacters)
                return QStringLiteral("the name of column %1 is longer than %2 characters")
                    .arg(i + 1)
                    .arg(fen::limits::nameCharacters);
            QString unique = name;
            while (uses.contains(unique)) unique = QStringLiteral("%1.%2").arg(name).arg(++uses[name]);
            uses.insert(unique, 1);
            _names.append(unique);
            _headers.append(header.isEmpty() ? unique : header);
            _units.append(unit);
        }
        return {};
    }

    std::optional<FenReadOptions::As> asOf(qsizetype column) const
    {
        for (auto const& [name, as] : _options.columns)
            if (name == _names[column] || name == _headers[column] || (name.isEmpty() && column == 0))
                return as;
        return {};
    }

    void chooseFormats()
    {
        int votes = 0;
        for (ColumnBuilder const& column : _columns) votes += column.decimalVotes();
        _comma = votes == 0 ? _layout.separator != ',' : votes > 0;
        for (ColumnBuilder& column : _columns) column.choose(_comma);
    }

    /// Units below the names: short words where values are expected.
    bool firstRowIsUnits()
    {
        if (!_header || _firstRow.size() != _columns.size() || _rows < 2) return false;
        QStringList units;
        for (std::size_t i = 0; i < _columns.size(); ++i) {
            QString const text = fromUtf8(_firstRow[i]).trimmed();
            QString const unit = unbracketed(text);
            bool const told = !fen::isMissing(_firstRow[i]) && !_columns[i].isText();
            if (told && (_columns[i].reads(_firstRow[i]) || !fen::looksLikeUnit(unit))) return false;
            units.append(told ? unit : QString());
        }
        return units.join(QString()).size() > 0;
    }

    void takeUnitsRow()
    {
        for (std::size_t i = 0; i < std::min(_firstRow.size(), _columns.size()); ++i)
            if (QString const unit = unbracketed(fromUtf8(_firstRow[i]).trimmed()); !unit.isEmpty())
                _units[qsizetype(i)] = unit;
    }

    /// "rpm" of "[rpm]" and of "(rpm)"
    static QString unbracketed(QString const& text)
    {
        bool const brackets = text.size() > 2
            && ((text.front() == QLatin1Char('[') && text.back() == QLatin1Char(']'))
                || (text.front() == QLatin1Char('(') && text.back() == QLatin1Char(')')));
        return brackets ? text.mid(1, text.size() - 2).trimmed() : text;
    }

    void noteShortRows(QStringList& notes) const
    {
        if (_shortRows > 0)
            notes.append(
                atLine(_shortLine,
                       QStringLiteral("%1 with fewer fields than the first row; the rest is missing")
                           .arg(_shortRows == 1 ? QStringLiteral("a row")
                                                : QStringLiteral("the first of %1 rows").arg(_shortRows))));
    }

    static void note(ColumnBuilder const& column, QString const& name, QStringList& notes)
    {
        QString const quoted = QStringLiteral("column \"%1\": ").arg(fen::messageText(name, 80));
        for (ColumnBuilder::Bad const& bad : column.bad())
            notes.append(atLine(
                bad.line,
                quoted + QStringLiteral("\"%1\" cannot be read; left out").arg(fen::messageText(bad.text))));
        if (column.badCount() > column.bad().size())
            notes.append(atLine(column.bad().back().line,
                                quoted
                                    + QStringLiteral("%1 more fields below cannot be read; left out")
                                          .arg(column.badCount() - column.bad().size())));
        if (column.dayMonthUnclear())
            notes.append(
                atLine(1,
                       quoted
                           + (column.dayFirst()
                                  ? QStringLiteral("day and month cannot be told apart; taken as day first "
                                                   "(--date-format MM/dd/yyyy says otherwise)")
                                  : QStringLiteral("day and month cannot be told apart; taken as month first "
                                                   "(--date-format dd/MM/yyyy says otherwise)"))));
    }

    /// A column of days followed by one of times gets a column of both in front.
    static void joinDatesAndTimes(std::vector<Column>& columns)
    {
        for (std::size_t i = 0; i + 1 < columns.size(); ++i) {
            Column const& day = columns[i];
            Column const& time = columns[i + 1];
            if (day.kind != Kind::Date || day.hasTime || time.kind != Kind::Time) continue;
            std::vector<double> sum(*day.values);
            for (std::size_t row = 0; row < sum.size(); ++row) sum[row] += (*time.values)[row];
            Column both = day;
            both.name = day.name + QLatin1Char(' ') + time.name;
            both.header = {};
            both.hasTime = true;
            both.values = std::make_shared<std::vector<double> const>(std::move(sum));
            auto const taken = [&](Column const& column) { return column.name == both.name; };
            if (std::ranges::none_of(columns, taken))
                columns.insert(columns.begin() + std::ptrdiff_t(i), std::move(both));
            return;
        }
    }

    CsvLayout const& _layout;
    FenReadOptions const& _options;
    bool _sampling = false;
    bool _header = false;
    bool _comma = false; // decimal mark where a column does not tell
    bool _unitsRow = false;
    bool _unitsAhead = false; // in this walk
    bool _atStart = true; // of a walk over the file
    std::size_t _headerLine = 0;
    std::size_t _rows = 0;
    std::size_t _shortRows = 0;
    std::size_t _shortLine = 0;
    std::vector<std::string> _firstRow, _commentNames;
    QStringList _names, _headers, _units;
    std::vector<ColumnBuilder> _columns;
};

} // namespace

QString fen::readTable(std::string_view text, FenReadOptions const& options, std::size_t& rows,
                       std::vector<Column>& columns, QStringList& notes)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    CsvLayout const layout = findCsvLayout(text, options);
    std::string_view const table = text.substr(layout.begin);
    TableBuilder builder(layout, options);
    builder.sample(table);
    do {
        QString const error = readCsv(table, layout.separator, builder, layout.beginLine);
        if (!error.isEmpty()) return error;
    } while (builder.again());
    if (!builder.begun()) return QStringLiteral("1: the file is empty");
    if (builder.rows() == 0) return atLine(builder.headerLine(), QStringLiteral("no rows after the header"));
    rows = builder.rows();
    columns = builder.result(notes);
    return {};
}
