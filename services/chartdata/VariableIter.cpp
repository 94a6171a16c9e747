#include "services/chartdata/VariableIter.h"

#include "services/chartdata/FloatRange.h"

#include <cmath>

using Kes::Math::Vector3;

namespace fen {

bool VariableIter::MoveNext()
{
    if (_next >= count) {
        _next = count + 1; // behind the last point there is no current one
        return false;
    }
    ++_next;
    return true;
}

Vector3 VariableIter::Current() const
{
    return Vector3(fen::toFloat(value(Vector3::CompX)), fen::toFloat(value(Vector3::CompY)),
                   fen::toFloat(value(Vector3::CompZ)));
}

bool VariableIter::IsUndefined(Vector3::Comp component) const { return !std::isfinite(value(component)); }

double VariableIter::value(Vector3::Comp component) const
{
    if (_next == 0 || _next > count) return std::nan("");
    std::size_t const i = _next - 1;
    if (FenChartColumn::Ptr const& column = columns[component])
        return i < column->size() ? column->value(i) : std::nan("");
    if (component == Vector3::CompY) return std::nan("");
    return component == Vector3::CompX ? double(i) : 0.0;
}

} // namespace fen
