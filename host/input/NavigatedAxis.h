#pragma once

#include "services/properties/ViewPtr.h"

class FenChart;
class FenChartAxis;
class FenChartAxisScale;
class FenUndoPropertyEdit;

namespace fen {

/// An axis with the range that it showed when this was made, to choose another one relative to it.
class NavigatedAxis {
public:
    /// @param scale  the axis as it is shown; null: what its properties say
    NavigatedAxis(FenChartAxis& axis, FenChartAxisScale const* scale, bool horizontal);

    bool horizontal() const { return _horizontal; }

    /// Shows the part from `from` to `to` of that range [0..1, beyond it outside], measured as it is
    /// drawn: in the exponents of a logarithmic axis. Nothing is written for a range that numbers
    /// cannot tell apart any more, or beyond them.
    /// @return true when the axis was changed
    bool show(FenUndoPropertyEdit& edit, FenChart& chart, double from, double to) const;

private:
    view_ptr<FenChartAxis> _axis;
    bool _horizontal;
    bool _logarithmic;
    double _min; // exponents on a logarithmic axis
    double _max;
};

} // namespace fen
