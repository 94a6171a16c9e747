#include "host/table/ChartSelection.h"

#include "host/output/MessageText.h"
#include "host/table/AxisChoice.h"
#include "host/table/ChartBuilder.h"

#include <algorithm>
#include <cmath>

namespace {

typedef FenDataTable::Kind Kind;
typedef FenDataTable::Column Column;

constexpr qsizetype longestName = 80; // [characters] in messages

QString kindText(Kind kind)
{
    return kind == Kind::Number ? QStringLiteral("numbers")
        : kind == Kind::Date    ? QStringLiteral("dates")
        : kind == Kind::Time    ? QStringLiteral("times")
                                : QStringLiteral("texts");
}

class Selector {
public:
    Selector(FenDataTable const& table, FenChartOptions const& options)
        : _table(table)
        , _options(options)
    {
    }

    /// @return empty, or what is wrong
    QString select(fen::ChartSelection& selection)
    {
        selection.x = xColumn();
        if (!_options.group.isEmpty()) selection.group = column(_options.group);
        for (QString const& name : fen::singleNames(_table, _options.y))
            selection.left.push_back(numbers(name));
        for (QString const& name : fen::singleNames(_table, _options.y2))
            selection.right.push_back(numbers(name));
        if (_error.isEmpty() && selection.left.empty() && selection.right.empty()) takeAll(selection);
        if (_error.isEmpty()) check(selection);
        return _error;
    }

private:
    void fail(QString const& error)
    {
        if (_error.isEmpty()) _error = error;
    }

    /// "row" stands for row numbers where no column has that name.
    Column const* xColumn()
    {
        if (_options.x.isEmpty()) return fen::chooseXAxis(_table).column;
        bool const rows = _options.x == QLatin1String("row") && _table.find(_options.x) < 0;
        return rows ? nullptr : column(_options.x);
    }

    Column const* column(QString const& name) { return fen::findColumn(_table, name, _error); }

    Column const* numbers(QString const& name)
    {
        Column const* const found = column(name);
        if (found && found->kind != Kind::Number)
            fail(QStringLiteral("column %1 holds %2, not numbers")
                     .arg(fen::quotedName(name), kindText(found->kind)));
        return found;
    }

    void takeAll(fen::ChartSelection& selection)
    {
        for (std::size_t i = 0; i < _table.columns(); ++i) {
            Column const& candidate = _table.column(i);
            bool const used = &candidate == selection.x || &candidate == selection.group;
            if (candidate.kind == Kind::Number && !used) selection.left.push_back(&candidate);
        }
        if (selection.left.empty()) fail(QStringLiteral("no column of numbers to show"));
    }

    void check(fen::ChartSelection const& selection)
    {
        if (_options.logX && selection.x && selection.x->kind != Kind::Number)
            fail(QStringLiteral("column %1 holds %2, which have no logarithm")
                     .arg(fen::quotedName(selection.x->name), kindText(selection.x->kind)));
        if (selection.group && selection.group->kind != Kind::Text)
            fail(QStringLiteral("column %1 holds %2; groups are made of texts")
                     .arg(fen::quotedName(selection.group->name), kindText(selection.group->kind)));
    }

    FenDataTable const& _table;
    FenChartOptions const& _options;
    QString _error;
};

} // namespace

FenDataTable::Column const* fen::findColumn(FenDataTable const& table, QString const& name, QString& error)
{
    int const index = table.find(name);
    if (index >= 0) return &table.column(std::size_t(index));
    if (!error.isEmpty()) return nullptr;
    QStringList shown;
    constexpr std::size_t most = 20;
    for (std::size_t i = 0; i < std::min(most, table.columns()); ++i)
        shown.append(fen::messageText(table.column(i).name, longestName));
    error =
        QStringLiteral("no column %1; there are: %2").arg(quotedName(name), shown.join(QStringLiteral(", ")));
    if (table.columns() > most) error += QStringLiteral(", ...");
    return nullptr;
}

QStringList fen::singleNames(FenDataTable const& table, QStringList const& lists)
{
    QStringList names;
    for (QString const& list : lists)
        names += table.find(list) >= 0 ? QStringList(list) : list.split(QLatin1Char(','), Qt::SkipEmptyParts);
    return names;
}

QString fen::selectColumns(FenDataTable const& table, FenChartOptions const& options,
                           ChartSelection& selection)
{
    return Selector(table, options).select(selection);
}

fen::RowGroups fen::groupRows(FenDataTable::Column const& column)
{
    fen::RowGroups groups;
    groups.names = column.categories;
    auto const without = std::size_t(groups.names.size());
    std::vector<std::vector<std::uint32_t>> rows(without + 1);
    for (std::size_t i = 0; i < column.values->size(); ++i) {
        double const value = (*column.values)[i];
        rows[std::isnan(value) ? without : std::size_t(value)].push_back(std::uint32_t(i));
    }
    if (rows[without].empty())
        rows.pop_back();
    else
        groups.names.append(QStringLiteral("(none)"));
    for (auto& one : rows)
        groups.rows.push_back(std::make_shared<std::vector<std::uint32_t> const>(std::move(one)));
    return groups;
}

std::vector<fen::ChartSeries> fen::chartSeries(fen::ChartSelection const& selection,
                                               fen::RowGroups const& groups)
{
    std::vector<fen::ChartSeries> whole;
    for (Column const* column : selection.left) whole.push_back({column->name, column, false, nullptr});
    for (Column const* column : selection.right) whole.push_back({column->name, column, true, nullptr});
    if (!selection.group) return whole;
    std::vector<fen::ChartSeries> parts;
    for (fen::ChartSeries const& of : whole) {
        for (qsizetype i = 0; i < groups.names.size(); ++i) {
            QString const name =
                whole.size() == 1 ? groups.names[i] : of.name + QLatin1Char(' ') + groups.names[i];
            parts.push_back({name, of.column, of.right, groups.rows[std::size_t(i)]});
        }
    }
    return parts;
}
