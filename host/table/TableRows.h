#pragma once

#include "../../services/logging/Export.h"
#include "../../services/properties/ViewPtr.h"

#include <QHash>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class FenProperties;
class FenVisHitProperty;

/// What a table is known by. Copies of a table share one; two tables never do.
struct FenTableId {
    QString name; ///< the file that it was read from; empty for one made by a program
};

/// One row of a table: what a point on the screen stands for, whichever chart shows it.
struct FenTableRow {
    std::shared_ptr<FenTableId const> table;
    std::size_t row = 0; ///< from 0, the header not counted

    bool operator==(FenTableRow const&) const = default;
};

/// Which rows of which table the points of charts are, for picks and for selections that several
/// charts share.
///
/// Costs nothing for a variable that shows all rows in their order; one that
/// shows some shares the list of their numbers with all made of the same rows.
class FENVIS_EXPORT FenTableRows {
public:
    typedef std::shared_ptr<std::vector<std::uint32_t> const> Numbers;

    /// @param owner    of the points: a variable, or the chart data object whose items are rows
    /// @param numbers  row of each point, ascending; null: point i is row i
    void set(FenProperties const& owner, std::shared_ptr<FenTableId const> table, Numbers numbers);
    /// The row of a point; empty for a variable that was made of no table, and for a point that it has not.
    std::optional<FenTableRow> row(FenProperties const* variable, std::size_t point) const;
    /// The point of an owner that shows a row; empty when it shows another table or not that row.
    std::optional<std::size_t> point(FenProperties const& owner, FenTableRow const& row) const;
    /// The row of what a pick has hit; empty for anything but a data point of a table.
    std::optional<FenTableRow> row(FenVisHitProperty const& hit) const;

private:
    struct Source {
        fen::view_ptr<FenProperties const> variable;
        std::shared_ptr<FenTableId const> table;
        Numbers numbers;
    };
    void forgetTheDead();

    QHash<FenProperties const*, Source> _sources;
    qsizetype _sweepAt = 64; // when there are so many, variables that are gone are looked for
};
