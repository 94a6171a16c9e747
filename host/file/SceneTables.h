#pragma once

#include "host/file/JsonValue.h"
#include "host/scene/SceneTable.h"
#include "host/table/ChartSelection.h"

#include "services/chartdata/ChartColumn.h"

#include <QHash>
#include <QStringList>

#include <vector>

class FenChartVariable;

namespace fen {

class SceneProblems;

/// The tables of a scene file that is read: CSV files beside it, and columns that stand in it.
class SceneTables {
public:
    /// @param folder          of the scene file; empty: there is none
    /// @param allowedFolders  where files may lie besides
    SceneTables(SceneProblems& problems, QString const& folder, QStringList const& allowedFolders);

    /// Reads the member "data" of the file.
    void read(JsonValue const& data);
    /// Reads the member "data" of a variable.
    void readColumns(JsonValue const& data, FenChartVariable& variable);

    /// The tables that came from files.
    std::vector<FenSceneTable> files() const;
    /// Tells which rows of files the points of variables are.
    void nameRows(FenTableRows& rows) const;

private:
    struct Table {
        FenSceneTable source;
        bool good = true; // false: what is wrong with it has been told
        QHash<QString, FenChartColumn::Ptr> inlined; // of a table that stands in the file
        QHash<QString, RowGroups> groups; // by column
    };
    /// The rows of a table in which a column has a text.
    struct Part {
        QString column;
        QString text; // "=" and the text; "-" for rows without any
        Rows rows; // null: all
    };

    void readTable(QString const& name, JsonValue const& value);
    void readFile(JsonValue const& value, Table& table);
    void readInline(JsonValue const& columns, Table& table);
    QString resolve(JsonValue const& file) const;

    void notePoints(JsonValue const& data, FenChartVariable const& variable);
    FenChartColumn::Ptr columnOf(JsonValue const& value, JsonValue const& data);
    FenChartColumn::Ptr inlineColumn(JsonValue const& list);
    Table* tableOf(JsonValue const& data, JsonValue const& user);
    bool partOf(JsonValue const& data, Table& table, Part& part);
    FenChartColumn::Ptr tableColumn(Table& table, Part const& part, JsonValue const& name);

    SceneProblems& _problems;
    QString _folder; // canonical
    QStringList _allowed; // canonical
    std::vector<Table> _tables;
    std::size_t _values = 0;
    QHash<QString, FenChartColumn::Ptr> _columns; // that are in use
    struct Points {
        FenChartVariable const* variable;
        std::shared_ptr<FenTableId const> table;
        Rows rows;
    };
    std::vector<Points> _points; // of the variables that refer to a file
};

} // namespace fen
