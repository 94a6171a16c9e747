#pragma once

#include "services/chartdata/ChartColumn.h"
#include "services/math/IVariableIter.h"

#include <QString>

#include <array>

namespace fen {

/// Walks over the points of a variable; keeps its columns alive.
class VariableIter : public IVariableIter {
public:
    void Reset() override { _next = 0; }
    bool MoveNext() override;
    Kes::Math::Vector3 Current() const override;
    bool IsUndefined(Kes::Math::Vector3::Comp component) const override;
    QString Unit(Kes::Math::Vector3::Comp component) const override { return units[component]; }

    std::array<FenChartColumn::Ptr, 3> columns;
    std::array<QString, 3> units;
    std::size_t count = 0;

private:
    double value(Kes::Math::Vector3::Comp component) const;

    std::size_t _next = 0; ///< behind the current point
};

} // namespace fen
