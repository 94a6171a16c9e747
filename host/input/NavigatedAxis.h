#pragma once

#include "services/properties/ViewPtr.h"

class FenChart;
class FenChartAxis;
class FenChartAxisScale;
class FenUndoPropertyEdit;

namespace fen {

/// The range of an axis at one moment, measured as it is drawn: in the exponents of a logarithmic axis.
class NavigatedAxis {
public:
    /// The range that was chosen last, whether or not it is shown already; that of `scale` where it is
    /// automatic.
    /// @param scale  the axis as it is shown; null: what its properties say
    NavigatedAxis(FenChartAxis& axis, FenChartAxisScale const* scale, bool horizontal);

    bool horizontal() const { return _horizontal; }
    double extent() const { return _max - _min; }
    /// The value at a fraction of the range [0..1, beyond it outside].
    double at(double fraction) const { return _min + fraction * extent(); }

    /// Shows another range. Nothing is written for one that numbers cannot tell apart any more, or
    /// beyond them.
    /// @return true when the axis was changed
    bool show(FenUndoPropertyEdit& edit, FenChart& chart, double min, double max) const;

private:
    view_ptr<FenChartAxis> _axis;
    bool _horizontal;
    bool _logarithmic;
    double _min;
    double _max;
};

} // namespace fen
