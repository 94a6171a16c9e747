#include "host/file/SceneDataWriter.h"

#include "host/file/JsonWriter.h"
#include "host/file/SceneProblems.h"
#include "host/file/SceneReadOptions.h"
#include "host/file/SceneValues.h"
#include "host/file/Unread.h"
#include "host/output/MessageText.h"
#include "host/scene/Scene.h"

#include "services/chartdata/ChartVariable.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace {

using Comp = FenChartVariable::Comp;
typedef std::vector<double> Values;
typedef std::vector<std::uint32_t> RowNumbers;

constexpr std::size_t numbersPerLine = 10;
QString const directions[] = {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")};

bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

/// True when `part` is the values of `whole` in these rows.
bool isPart(Values const& part, Values const& whole, RowNumbers const& rows)
{
    return std::ranges::equal(part, rows,
                              [&](double value, std::uint32_t row) { return same(value, whole[row]); });
}

bool isRowNumber(Values const& part, RowNumbers const& rows)
{
    return std::ranges::equal(part, rows,
                              [](double value, std::uint32_t row) { return value == double(row); });
}

std::vector<QByteArray> numbersJson(Values const& values)
{
    std::vector<QByteArray> items;
    items.reserve(values.size());
    for (double const value : values) items.push_back(fen::jsonNumber(value));
    return items;
}

} // namespace

fen::SceneDataWriter::SceneDataWriter(FenVisScene const& scene, QString const& folder,
                                      QList<FenSceneProblem>& problems)
{
    for (FenSceneTable const& table : scene.tables)
        if (!table.file.isEmpty()) addTable(table, folder);
    visit(scene.root());
    shareLists();
    warn(problems);
}

void fen::SceneDataWriter::addTable(FenSceneTable const& table, QString const& folder)
{
    QString const file = QFileInfo(table.file).canonicalFilePath();
    QString const below = folder.isEmpty() ? QString() : QFileInfo(folder).canonicalFilePath();
    QString const path = file.isEmpty() || below.isEmpty() ? QString() : QDir(below).relativeFilePath(file);
    Table& own = _tables.emplace_back();
    own.source = &table;
    own.path = path.startsWith(u"..") ? QString() : path;
    own.name = freeName(table.name.isEmpty() ? QFileInfo(table.file).completeBaseName() : table.name);
    for (std::size_t i = 0; i < table.table.columns(); ++i) {
        FenDataTable::Column const& column = table.table.column(i);
        addColumn(own, column.name, column.values.get());
        if (column.kind == FenDataTable::Kind::Text && !own.path.isEmpty())
            own.groups.emplace_back(column.name, groupRows(column));
    }
}

void fen::SceneDataWriter::addColumn(Table& table, QString const& name, Values const* values)
{
    table.columns.emplace_back(name, values);
    table.names.try_emplace(values, name);
}

QString fen::SceneDataWriter::freeName(QString const& wanted) const
{
    auto const taken = [&](QString const& name) {
        return std::ranges::any_of(_tables, [&](Table const& table) { return table.name == name; });
    };
    QString free = wanted.isEmpty() ? QStringLiteral("table") : wanted;
    for (int number = 2; taken(free); ++number) free = wanted + QStringLiteral(".%1").arg(number);
    return free;
}

void fen::SceneDataWriter::visit(FenProperties const& node)
{
    if (auto const* const variable = dynamic_cast<FenChartVariable const*>(&node)) {
        _variables.push_back(variable);
        Source& source = _sources[variable];
        for (int i = 0; i < 3; ++i)
            if (FenChartColumn::Ptr const& column = variable->sourceColumn(Comp(i)))
                source.values[std::size_t(i)] = &column->values();
        findWhole(source);
        findGroup(source);
    }
    for (unsigned i = 0; i < node.size(); ++i) visit(*node.at(i));
}

void fen::SceneDataWriter::findWhole(Source& source)
{
    for (std::size_t i = 0; i < 3; ++i) {
        for (Table& table : _tables) {
            auto const column = table.names.find(source.values[i]);
            if (column == table.names.end()) continue;
            table.used = true;
            if (!table.path.isEmpty()) source.origins[i] = {&table, column->second};
        }
    }
}

/// All columns of a variable are the same rows of one table, or none is taken for that.
void fen::SceneDataWriter::findGroup(Source& source)
{
    std::size_t size = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        if (source.origins[i].table) return;
        if (source.values[i]) size = source.values[i]->size();
    }
    for (Table& table : _tables) {
        for (auto const& [column, groups] : table.groups) {
            for (std::size_t group = 0; group < groups.rows.size(); ++group) {
                if (size == 0 || groups.rows[group]->size() != size) continue;
                if (!matches(source, table, *groups.rows[group])) continue;
                QStringList const& texts =
                    table.source->table.column(std::size_t(table.source->table.find(column))).categories;
                source.groupColumn = column;
                if (qsizetype(group) < texts.size()) source.group = texts[qsizetype(group)];
                table.used = true;
                return;
            }
        }
    }
}

/// Finds the columns of a table that have a variable's values in these rows.
bool fen::SceneDataWriter::matches(Source& source, Table& table, std::vector<std::uint32_t> const& rows) const
{
    std::array<Origin, 3> found;
    for (std::size_t i = 0; i < 3; ++i) {
        if (!source.values[i]) continue;
        Values const& values = *source.values[i];
        if (values.size() != rows.size()) return false;
        auto const column = std::ranges::find_if(
            table.columns, [&](auto const& entry) { return isPart(values, *entry.second, rows); });
        if (column == table.columns.end() && !isRowNumber(values, rows)) return false;
        found[i] = {&table, column == table.columns.end() ? QString() : column->first};
    }
    source.origins = found;
    return true;
}

/// Lists that stand in more than one place get a table of their own.
void fen::SceneDataWriter::shareLists()
{
    std::map<Values const*, int> uses;
    for (auto const& [variable, source] : _sources)
        for (std::size_t i = 0; i < 3; ++i)
            if (source.values[i] && !source.origins[i].table) ++uses[source.values[i]];
    if (std::ranges::none_of(uses, [](auto const& use) { return use.second > 1; })) return;
    QString const name = freeName(QStringLiteral("shared"));
    Table& shared = _tables.emplace_back();
    shared.name = name;
    shared.used = true;
    for (FenChartVariable const* const variable : _variables) {
        Source& source = _sources[variable];
        for (std::size_t i = 0; i < 3; ++i) {
            Values const* const values = source.values[i];
            if (!values || source.origins[i].table || uses[values] < 2) continue;
            if (!shared.names.contains(values))
                addColumn(shared, QStringLiteral("column %1").arg(shared.columns.size() + 1), values);
            source.origins[i] = {&shared, shared.names[values]};
        }
    }
}

void fen::SceneDataWriter::warn(QList<FenSceneProblem>& problems) const
{
    for (Table const& table : _tables) {
        if (!table.used || !table.source || !table.path.isEmpty()) continue;
        FenSceneProblem problem;
        problem.error = false;
        problem.message = QStringLiteral("%1 does not lie below the scene's folder; its numbers are written "
                                         "into the scene")
                              .arg(quotedName(table.source->file));
        problems.append(problem);
    }
}

void fen::SceneDataWriter::writeTables(JsonWriter& writer) const
{
    writer.beginObject(QStringLiteral("data"));
    for (Table const& table : _tables) {
        if (!table.used || (table.source && table.path.isEmpty())) continue;
        writer.beginObject(table.name);
        if (table.source) {
            writer.write(QStringLiteral("file"), jsonText(table.path));
            writeReadOptions(writer, table.source->options);
            writeUnread(writer, table.source->unread);
        } else {
            writer.beginObject(QStringLiteral("columns"));
            for (auto const& [name, values] : table.columns)
                writer.writeList(name, numbersJson(*values), numbersPerLine);
            writer.end();
        }
        writer.end();
    }
    writer.end();
}

void fen::SceneDataWriter::writeColumns(JsonWriter& writer, FenChartVariable const& variable) const
{
    auto const found = _sources.find(&variable);
    if (found == _sources.end()) return;
    Source const& source = found->second;
    Table const* main = nullptr;
    for (Origin const& origin : source.origins)
        if (!main) main = origin.table;
    if (main) writer.write(QStringLiteral("table"), jsonText(main->name));
    if (!source.groupColumn.isEmpty()) {
        writer.beginObject(QStringLiteral("where"));
        writer.write(source.groupColumn, source.group ? jsonText(*source.group) : "null");
        writer.end();
    }
    for (std::size_t i = 0; i < 3; ++i) {
        if (source.origins[i].table)
            writeOrigin(writer, directions[i], source.origins[i], source.origins[i].table != main);
        else if (source.values[i])
            writer.writeList(directions[i], numbersJson(*source.values[i]), numbersPerLine);
    }
}

void fen::SceneDataWriter::writeOrigin(JsonWriter& writer, QString const& key, Origin const& origin,
                                       bool ownTable)
{
    QByteArray const name = jsonText(origin.column);
    if (origin.column.isEmpty())
        writer.write(key, "{\"rowNumber\": true}");
    else if (ownTable)
        writer.write(key, "{\"table\": " + jsonText(origin.table->name) + ", \"column\": " + name + '}');
    else
        writer.write(key, name);
}
