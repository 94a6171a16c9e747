#pragma once

#include "../logging/Export.h"
#include "../math/NumberFormat.h"
#include "../properties/ViewPtr.h"
#include "ChartAxis.h"
#include "ChartAxisMapping.h"
#include "ChartRange.h"

#include <QString>
#include <QStringList>

#include <vector>

class FenChartAxisContinuous;
class FenChartAxisDiscrete;

/// What an automatic range has to show.
struct FenChartAxisData {
    FenChartRange all; ///< [data]
    FenChartRange positive; ///< [data] of the values above 0
    bool base = false; ///< bars or fills stand on the axis: it shows their base line 0
};

/// The scale of one axis: its range, and ticks with positions and labels.
///
/// The range is found when the scale is made, from the data and the axis alone; `update` finds the ticks
/// for a number of divisions and never changes the range. So scales made of the same data agree however
/// large the picture is.
///
/// The range of a scale is always finite, its minimum below its maximum and, on a logarithmic axis, above
/// 0. An automatic range has a little air around the data, none at a base line. A range that is fixed but
/// makes no sense is turned (min > max), widened (min = max) or replaced by the automatic one (not finite).
class FENVIS_EXPORT FenChartAxisScale {
public:
    /// A scale from 0 to 1 that is not shown.
    FenChartAxisScale() = default;
    /// @param air  part of the data's extent that is added on either side of an automatic range
    FenChartAxisScale(FenChartAxis const& axis, FenChartAxisData const& data, double air);

    /// [data] ends of the axis.
    double min() const { return _min; }
    double max() const { return _max; }
    bool shown() const { return _shown; }
    /// True when label i belongs to the interval that ends at tick i: it is to be drawn half a tick
    /// distance before it. So are the labels of a discrete axis, whose ticks lie between categories.
    bool centered() const { return _discrete; }
    bool discrete() const { return _discrete; }
    bool logarithmic() const { return _logarithmic; }
    bool date() const { return _date; }
    /// The axis; null once it is gone.
    FenChartAxis const* axis() const { return _axis.get(); }

    /// Finds the ticks.
    /// @param divisions  about how many intervals; at least 1 is taken
    void update(unsigned divisions, Kes::Math::NumberFormat const& numberFormat);
    /// Number of ticks; 0 before the first `update`.
    unsigned size() const { return unsigned(_ticks.size()); }
    /// Text of tick i; empty beyond the last.
    QString label(unsigned i) const;
    /// Position of tick i on the axis, ascending, 0 at min and 1 at max; 0 beyond the last.
    double percentage(unsigned i) const;

    /// A value as tooltips tell it: the label of a category, a date as an ISO text, a number with the digits
    /// that tell it from its neighbours on this axis.
    QString valueText(double value, Kes::Math::NumberFormat const& format) const;

    /// The smallest n for which labels 0, n, 2n ... do not touch each other; at least 1.
    /// @param extents  [px] of each label along the axis
    /// @param length   [px] of the axis
    /// @param gap      [px] that two labels are apart at least
    unsigned labelStride(std::vector<double> const& extents, double length, double gap) const;

    FenChartAxisMapping mapping() const { return FenChartAxisMapping(_min, _max, _logarithmic); }

    /// Widens a range by a fraction of its length on both ends.
    template <class T>
    static void ExpandRange(T& min, T& max, T fraction)
    {
        T const margin = (max - min) * fraction;
        min -= margin;
        max += margin;
    }

private:
    struct Tick {
        double position; ///< [0..1]
        QString label;
    };

    void resolveContinuous(FenChartAxisContinuous const& axis, FenChartAxisData const& data, double air);
    void resolveDiscrete(FenChartAxisDiscrete const& axis, FenChartAxisData const& data);
    void updateLinear(unsigned divisions, Kes::Math::NumberFormat const& numberFormat);
    void updateLogarithmic(unsigned divisions, Kes::Math::NumberFormat const& numberFormat);
    void updateDate(unsigned divisions);
    void updateDiscrete(unsigned divisions);
    void matchNotation();
    void addTick(double value, QString const& label);

    fen::view_ptr<FenChartAxis const> _axis;
    double _min = 0.0;
    double _max = 1.0;
    double _factor = 1.0;
    bool _shown = false;
    bool _discrete = false;
    bool _logarithmic = false;
    bool _date = false;
    QStringList _labels; ///< of the categories
    std::vector<Tick> _ticks;
};
