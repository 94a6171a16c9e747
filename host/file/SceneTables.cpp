#include "host/file/SceneTables.h"

#include "host/Limits.h"
#include "host/file/SceneProblems.h"
#include "host/file/SceneReadOptions.h"
#include "host/file/Unread.h"
#include "host/output/MessageText.h"

#include "services/chartdata/ChartVariable.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {

using Kind = fen::JsonValue::Kind;
using Comp = FenChartVariable::Comp;

constexpr std::array<char const*, 3> directions{"x", "y", "z"}; // in the order of Vector3::Comp

QStringList canonical(QStringList const& folders)
{
    QStringList found;
    for (QString const& folder : folders) {
        QString const real = folder.isEmpty() ? QString() : QFileInfo(folder).canonicalFilePath();
        if (!real.isEmpty()) found.append(real);
    }
    return found;
}

bool liesBelow(QString const& file, QString const& folder)
{
    return !folder.isEmpty() && file.startsWith(folder.endsWith(u'/') ? folder : folder + u'/');
}

/// A table's name with the parts of it that are meant, as one text.
QString columnKey(QStringList const& names) { return names.join(QChar(0)); }

} // namespace

fen::SceneTables::SceneTables(SceneProblems& problems, QString const& folder,
                              QStringList const& allowedFolders)
    : _problems(problems)
    , _folder(canonical({folder}).value(0))
    , _allowed(canonical(allowedFolders))
{
}

void fen::SceneTables::read(JsonValue const& data)
{
    if (data.kind != Kind::Object)
        return _problems.error(data, QStringLiteral("expected an object of tables"));
    _tables.reserve(data.members.size());
    for (JsonMember const& member : data.members) {
        SceneProblems::Step const step(_problems, member.key);
        readTable(member.key, member.value);
    }
}

void fen::SceneTables::readTable(QString const& name, JsonValue const& value)
{
    if (name.isEmpty() || name.size() > limits::nameCharacters)
        return _problems.error(
            value,
            QStringLiteral("the name is empty or longer than %1 characters").arg(limits::nameCharacters));
    Table table;
    table.source.name = name;
    JsonValue const* const columns = value.find("columns");
    qsizetype const errorsBefore = _problems.errors();
    if ((columns != nullptr) == (value.find("file") != nullptr))
        _problems.error(value, QStringLiteral("a table has either a \"file\" or \"columns\""));
    else if (columns)
        readInline(*columns, table);
    else
        readFile(value, table);
    QStringList const known = columns ? QStringList{QStringLiteral("columns")}
                                      : QStringList{QStringLiteral("file")} + readOptionKeys();
    for (JsonMember const& member : value.members)
        if (!known.contains(member.key))
            keepUnread(_problems, QStringLiteral("table"), member, table.source.unread);
    table.good = _problems.errors() == errorsBefore;
    _tables.push_back(std::move(table));
}

void fen::SceneTables::readFile(JsonValue const& value, Table& table)
{
    FenSceneTable& source = table.source;
    readReadOptions(_problems, value, source.options);
    JsonValue const& file = *value.find("file");
    source.file = resolve(file);
    if (source.file.isEmpty()) return;
    QString error;
    if (!FenDataTable::read(source.file, source.table, error, source.options)) {
        QString const path = messageText(source.file); // told as the scene names it
        if (error.startsWith(path)) error = messageText(file.text()) + error.mid(path.size());
        return _problems.error(file, error);
    }
    // What was left out of the file or is not sure.
    for (QString const& note : source.table.notes()) {
        QString shown = note;
        shown.replace(messageText(source.file), messageText(file.text()));
        _problems.warnOnce(file.source, note, shown);
    }
    _values += source.table.rows() * source.table.columns();
    if (_values > std::size_t(limits::values))
        _problems.error(file, QStringLiteral("the tables have more than %1 values").arg(limits::values));
}

/// Path of a file that a scene names; empty, with the problem told, when it may not be read.
QString fen::SceneTables::resolve(JsonValue const& file) const
{
    auto const refuse = [&](QString const& why) {
        _problems.error(file, why);
        return QString();
    };
    QString const text = file.text();
    if (text.isEmpty() || text.contains(QChar(0)) || text.startsWith(u':') || text.contains(u"://")
        || text.contains(u'\\'))
        return refuse(QStringLiteral("expected the path of a file, relative to the scene"));
    bool const strays = text.startsWith(u'/') || text.split(u'/').contains(QStringLiteral(".."));
    if (strays && _allowed.isEmpty())
        return refuse(QStringLiteral("expected a path below the scene's folder, without \"..\""));
    if (_folder.isEmpty() && !text.startsWith(u'/'))
        return refuse(QStringLiteral("a scene without a folder cannot refer to files"));
    QString const real = QFileInfo(QDir(_folder), text).canonicalFilePath();
    if (real.isEmpty()) return refuse(quotedName(text) + QStringLiteral(": cannot read: no such file"));
    bool const allowed = liesBelow(real, _folder)
        || std::ranges::any_of(_allowed, [&](QString const& folder) { return liesBelow(real, folder); });
    return allowed ? real : refuse(QStringLiteral("the file lies outside of the scene's folder"));
}

void fen::SceneTables::readInline(JsonValue const& columns, Table& table)
{
    if (columns.kind != Kind::Object)
        return _problems.error(columns, QStringLiteral("expected an object of columns"));
    for (JsonMember const& member : columns.members)
        if (FenChartColumn::Ptr column = inlineColumn(member.value))
            table.inlined.insert(member.key, std::move(column));
}

FenChartColumn::Ptr fen::SceneTables::inlineColumn(JsonValue const& list)
{
    std::vector<double> numbers;
    bool const plain = list.kind == Kind::List && !list.mixed && list.members.empty();
    std::optional<JsonValue> const wrong = plain ? readNumbers(list, numbers) : std::optional(list);
    if (!wrong) return FenChartColumn::make(std::move(numbers));
    _problems.error(*wrong, QStringLiteral("expected a list of numbers and null"));
    return nullptr;
}

void fen::SceneTables::readColumns(JsonValue const& data, FenChartVariable& variable)
{
    if (data.kind != Kind::Object) return _problems.error(data, QStringLiteral("expected an object"));
    QStringList const settings{QStringLiteral("table"), QStringLiteral("where")};
    QStringList unread;
    for (JsonMember const& member : data.members) {
        auto const direction = std::ranges::find_if(
            directions, [&](char const* name) { return member.key == QLatin1String(name); });
        if (direction != directions.end())
            variable.setColumn(Comp(direction - directions.begin()), columnOf(member.value, data));
        else if (!settings.contains(member.key))
            keepUnread(_problems, QStringLiteral("data"), member, unread);
    }
    if (!unread.isEmpty()) variable.string().setValue(unreadDataKey, unread);
    notePoints(data, variable);
}

/// The points of a variable with a "table" are the rows of that.
void fen::SceneTables::notePoints(JsonValue const& data, FenChartVariable const& variable)
{
    Part part;
    Table* const table = data.find("table") && !_problems.failed() ? tableOf(data, data) : nullptr;
    if (!table || table->source.file.isEmpty() || !partOf(data, *table, part)) return;
    _points.push_back({&variable, table->source.table.id(), part.rows});
}

void fen::SceneTables::nameRows(FenTableRows& rows) const
{
    for (Points const& points : _points) rows.set(*points.variable, points.table, points.rows);
}

/// @param data  says which table where `value` does not
FenChartColumn::Ptr fen::SceneTables::columnOf(JsonValue const& value, JsonValue const& data)
{
    if (value.kind == Kind::List) return inlineColumn(value);
    JsonValue const* const own = value.kind == Kind::Object ? value.find("column") : nullptr;
    bool const rowNumber = value.kind == Kind::Object && !own && value.find("rowNumber");
    JsonValue const& name = own ? *own : value;
    if (!rowNumber && name.kind != Kind::Text) {
        _problems.error(value, QStringLiteral("expected the name of a column, or a list of numbers"));
        return nullptr;
    }
    JsonValue const& source = own && value.find("table") ? value : data;
    Table* const table = tableOf(source, value);
    Part part;
    if (!table || !partOf(source, *table, part)) return nullptr;
    QString const key =
        columnKey({table->source.name, part.column, part.text, rowNumber ? QString() : name.text()});
    FenChartColumn::Ptr& column = _columns[key];
    if (!column) column = tableColumn(*table, part, name);
    return column;
}

fen::SceneTables::Table* fen::SceneTables::tableOf(JsonValue const& data, JsonValue const& user)
{
    JsonValue const* const name = data.find("table");
    for (Table& table : _tables)
        if (name && name->kind == Kind::Text && table.source.name == name->text())
            return table.good ? &table : nullptr;
    if (name)
        _problems.error(*name, QStringLiteral("there is no such table"));
    else
        _problems.error(user, QStringLiteral("there is no \"table\" to take the column from"));
    return nullptr;
}

/// @return false, with the problem told, when "where" means no rows
bool fen::SceneTables::partOf(JsonValue const& data, Table& table, Part& part)
{
    JsonValue const* const where = data.find("where");
    if (!where) return true;
    bool const one = where->kind == Kind::Object && where->members.size() == 1;
    JsonValue const* const text = one ? &where->members.front().value : nullptr;
    if (!text || (text->kind != Kind::Text && text->kind != Kind::Null)) {
        _problems.error(*where, QStringLiteral("expected an object such as {\"species\": \"Adelie\"}"));
        return false;
    }
    part.column = where->members.front().key;
    bool const missing = text->kind == Kind::Null;
    part.text = missing ? QStringLiteral("-") : u'=' + text->text();
    FenDataTable const& values = table.source.table;
    int const index = values.find(part.column);
    if (index < 0 || values.column(std::size_t(index)).kind != FenDataTable::Kind::Text) {
        _problems.error(*where, QStringLiteral("there is no such column of texts"));
        return false;
    }
    FenDataTable::Column const& column = values.column(std::size_t(index));
    if (!table.groups.contains(part.column)) table.groups.insert(part.column, groupRows(column));
    RowGroups const& groups = table.groups[part.column];
    qsizetype const group = missing ? column.categories.size() : column.categories.indexOf(text->text());
    if (group < 0 || std::size_t(group) >= groups.rows.size())
        _problems.error(*text, QStringLiteral("the column has no such text"));
    else
        part.rows = groups.rows[std::size_t(group)];
    return bool(part.rows);
}

/// @param name  of the column; no text: the numbers of the rows
FenChartColumn::Ptr fen::SceneTables::tableColumn(Table& table, Part const& part, JsonValue const& name)
{
    bool const rowNumber = name.kind != Kind::Text;
    if (FenChartColumn::Ptr const own = table.inlined.value(name.text()); own && !rowNumber) return own;
    FenDataTable const& values = table.source.table;
    int const index = values.find(name.text());
    if (index < 0 && !rowNumber) {
        _problems.error(name, QStringLiteral("there is no such column in the table"));
        return nullptr;
    }
    if (!part.rows && !rowNumber) return FenChartColumn::share(values.column(std::size_t(index)).values);
    std::vector<double> chosen(part.rows ? part.rows->size() : values.rows());
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        std::size_t const row = part.rows ? (*part.rows)[i] : i;
        chosen[i] = rowNumber ? double(row) : (*values.column(std::size_t(index)).values)[row];
    }
    return FenChartColumn::make(std::move(chosen));
}

std::vector<FenSceneTable> fen::SceneTables::files() const
{
    std::vector<FenSceneTable> files;
    for (Table const& table : _tables)
        if (!table.source.file.isEmpty()) files.push_back(table.source);
    return files;
}
