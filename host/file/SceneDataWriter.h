#pragma once

#include "host/file/SceneFile.h"
#include "host/scene/SceneTable.h"
#include "host/table/ChartSelection.h"

#include "services/chartdata/ChartColumn.h"

#include <array>
#include <list>
#include <map>
#include <optional>
#include <utility>
#include <vector>

class FenChartVariable;
class FenProperties;

namespace fen {

class JsonWriter;

/// Writes the numbers of a scene's variables: as references to columns of tables, or as lists.
///
/// A column is told by the array that it shares with a table, the rows of a group by their values. Lists
/// that several variables share stand in a table of their own, so that they are shared again.
class SceneDataWriter {
public:
    /// @param folder  of the file that is written; empty: there is none
    SceneDataWriter(FenVisScene const& scene, QString const& folder, QList<FenSceneProblem>& problems);

    /// The tables that variables refer to, as the member "data" of the file.
    void writeTables(JsonWriter& writer) const;
    /// What a variable's member "data" holds.
    void writeColumns(JsonWriter& writer, FenChartVariable const& variable) const;

private:
    typedef std::vector<double> Values;
    struct Table {
        QString name; // in the file
        FenSceneTable const* source = nullptr; // null: of the columns that are shared
        QString path; // relative to the file; empty: it cannot be referred to
        std::vector<std::pair<QString, Values const*>> columns;
        std::map<Values const*, QString> names; // of the same
        std::vector<std::pair<QString, RowGroups>> groups; // by column of texts
        bool used = false;
    };
    struct Origin {
        Table* table = nullptr; // null: a list in its place
        QString column; // empty: the row number
    };
    /// Where the numbers of a variable are from.
    struct Source {
        std::array<Values const*, 3> values{}; // null where there is no column
        std::array<Origin, 3> origins;
        QString groupColumn; // empty: all rows of the tables
        std::optional<QString> group; // empty: rows without any text
    };

    void addTable(FenSceneTable const& table, QString const& folder);
    static void addColumn(Table& table, QString const& name, Values const* values);
    QString freeName(QString const& wanted) const;
    void visit(FenProperties const& node);
    void findWhole(Source& source);
    void findGroup(Source& source);
    bool matches(Source& source, Table& table, std::vector<std::uint32_t> const& rows) const;
    void shareLists();
    void warn(QList<FenSceneProblem>& problems) const;
    static void writeOrigin(JsonWriter& writer, QString const& key, Origin const& origin, bool ownTable);

    std::list<Table> _tables;
    std::vector<FenChartVariable const*> _variables; // in the order of the tree
    std::map<FenChartVariable const*, Source> _sources;
};

} // namespace fen
