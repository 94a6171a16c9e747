#pragma once

#include "../math/Vector2.h"
#include "ChartRange.h"
#include "ChartVariable.h"

class FenChartVariableCache;

/// The variables that are drawn, each with the range of its values.
///
/// Points at the variables: one that is destroyed is gone (`alive`).
class FENVIS_EXPORT FenChartValidVariableList {
public:
    void clear() { _entries.clear(); }
    /// @param minmax  [data] smallest and largest value
    void push_back(FenChartVariable const& variable, Kes::Math::Vector2 const& minmax);
    /// With the range of its y, which is kept in double; (0, 0) when it has no points.
    void push_back(FenChartVariableCache const& cache);

    unsigned size() const { return unsigned(_entries.size()); }
    /// False once variable i is gone, and beyond the list.
    bool alive(unsigned i) const;
    /// Variable i; one that is in no tree when it is gone or i is beyond the list.
    FenChartVariable const& variable(unsigned i) const;
    /// [data] (smallest, largest) value of variable i; (0, 0) beyond the list.
    Kes::Math::Vector2 minmax(unsigned i) const;
    /// The same in double.
    FenChartRange range(unsigned i) const;
    /// [data] value down to which variable i is filled: 0, or what is nearest to 0 in the range of all
    /// variables of the list, so that a filled variable never leaves their common range.
    double fillBaseLine(unsigned i) const;
    /// Index of the living variable of that name, or -1.
    int findIndexByName(QString const& name) const;

private:
    struct Entry {
        fen::view_ptr<FenChartVariable const> variable;
        FenChartRange range;
    };
    std::vector<Entry> _entries;
};
