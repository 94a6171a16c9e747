#pragma once

#include "../math/Matrix.h"
#include "../math/Vector2.h"
#include "ChartAxisMapping.h"
#include "ChartRange.h"
#include "ChartVariableCache.h"

class FenChartAxisPairScale;
class FenChartVariableListCache;

/// How the points of each cached variable map into chart space, -1 to 1 on both axes.
///
/// `mapping` is exact to double and right for every kind of axis. The matrices are its linear part as
/// float: on a logarithmic axis they apply to the decimal logarithm of a coordinate.
class FENVIS_EXPORT FenChartPerVariableScaling {
public:
    typedef Kes::Math::Vector3::Comp Comp;

    FenChartPerVariableScaling() = default;
    FenChartPerVariableScaling(FenChartAxisPairScale const& x, FenChartAxisPairScale const& y,
                               FenChartVariableListCache const& variables);

    /// Number of cached variables. Beyond it variables are not valid and empty.
    unsigned size() const { return unsigned(_entries.size()); }
    /// False when one of the variable's axes was not found, or the variable is gone.
    bool valid(unsigned i) const;
    FenChartVariableCache const& variable(unsigned i) const;
    /// Maps points [data] into [chart]; the identity for a variable that is not valid.
    Kes::Math::Matrix matrix(unsigned i) const;
    /// Maps `FenChartVariableCache::relativePoints` into [chart].
    Kes::Math::Matrix relativeMatrix(unsigned i) const;
    /// Mapping of one coordinate; z from -1 to 1 onto itself, as all of a variable that is not valid.
    FenChartAxisMapping mapping(unsigned i, Comp comp) const;
    bool isAxisDiscrete(Comp comp, unsigned i) const;

    /// What a gradient of the variable spans along x or y.
    /// @param range  [data] smallest and largest value; (0, 0) without points
    /// @param base   [data] the value down to which the variable is filled: 0, or the end of the axis
    ///               that is nearest to it
    /// @return false, with (0, 0) and 0, for a variable that is not valid
    bool gradientExtents(unsigned i, Comp comp, Kes::Math::Vector2& range, double& base) const;
    /// The same in double.
    bool gradientExtents(unsigned i, Comp comp, FenChartRange& range, double& base) const;

private:
    struct Entry {
        FenChartVariableCache cache;
        FenChartAxisMapping mapping[2];
        bool discrete[2] = {false, false};
        bool resolved = false;
    };
    Entry const* find(unsigned i) const;
    static Kes::Math::Matrix makeMatrix(Entry const& entry, bool relative);

    std::vector<Entry> _entries;
};
