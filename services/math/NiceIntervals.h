#pragma once

#include "../logging/Export.h"
#include "NumberFormat.h"

#include <string>
#include <vector>

namespace Kes::Math {

/// Round tick values over a range, with their labels.
///
/// Steps are 1, 2 or 5 times a power of ten; the smallest one is taken that gives at most count + 1
/// values. Values are the doubles nearest to the decimal numbers meant, so a step of 0.1 gives 0.3 and
/// never a neighbour of it; only where an end of the range misses a value by less than a millionth of the
/// range is that value moved to the end. A range given the wrong way round is turned. A range with an end
/// that is not finite has no values; a clipped range of one number has that number as its only value.
class FENVIS_EXPORT NiceIntervals {
public:
    /// No values.
    NiceIntervals() = default;

    /// @param count      about how many intervals; taken as 1..1000
    /// @param clip       true: values lie within [min, max], which is the range covered. false: the range
    ///                   widens to whole steps, and its ends are the first and the last value
    /// @param useFactor  very large or small numbers share a power of ten: labels show value / factor()
    NiceIntervals(double min, double max, unsigned count, bool clip, bool useFactor,
                  NumberFormat const& numberFormat);

    unsigned size() const { return unsigned(_ticks.size()); }
    /// [data] ascending; 0 beyond the last.
    double value(unsigned i) const;
    /// value(i) / factor() in the number format; digits are added where neighbours would look alike. Empty
    /// beyond the last.
    std::string const& label(unsigned i) const;
    /// Position of value i in the range, 0 at min and 1 at max; 0 when the range has no length.
    /// @param inside  clamps to 0..1
    double fraction(unsigned i, bool inside = true) const;

    /// The range covered [data]; 0 and 0 when there are no values.
    double min() const { return _min; }
    double max() const { return _max; }
    /// What the labels are to be multiplied with: 1, or a power of 1000.
    double factor() const { return _factor; }

private:
    struct Tick {
        double value;
        std::string label;
    };
    struct Step;

    void makeTicks(Step const& step, bool clip, bool useFactor, NumberFormat const& numberFormat);
    void makeSingle(NumberFormat const& numberFormat);

    std::vector<Tick> _ticks;
    double _min = 0.0;
    double _max = 0.0;
    double _factor = 1.0;
};

} // namespace Kes::Math
