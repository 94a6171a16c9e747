#pragma once

#include "../logging/Export.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

/// A column of numbers that never changes: the data of one direction of a variable.
///
/// Made once and then shared by variables, caches and pictures. When it is made
/// it is walked once (a few milliseconds for 10^7 values) and remembers whether
/// it ascends, whether it has gaps, and the extremes of each block of 64 values,
/// so that nothing later has to look at every value. Values that are NaN or
/// infinite are gaps: they belong to no minimum and no maximum.
class FENVIS_EXPORT FenChartColumn {
public:
    typedef std::shared_ptr<FenChartColumn const> Ptr;

    /// What a range of values holds.
    struct Range {
        double min = 0.0; ///< of the finite values; 0 when there is none
        double max = 0.0; ///< of the finite values; 0 when there is none
        bool gap = false; ///< some value is not finite
        bool any = false; ///< some value is finite
    };

    /// Number of values in a block; the last block may have fewer.
    static constexpr std::size_t blockSize = 64;

    /// Takes the values over: give an rvalue and nothing is copied.
    explicit FenChartColumn(std::vector<double> values);
    /// Shares values with whoever else holds them; nobody may change them any more. Null: no values.
    explicit FenChartColumn(std::shared_ptr<std::vector<double> const> values);

    static Ptr make(std::vector<double> values);
    static Ptr share(std::shared_ptr<std::vector<double> const> values);
    /// A column of the values of `column` (null: none) and then `more`. What is known about
    /// the old values is taken over. The first time they are copied, with room to grow; a
    /// column that was made so shares its memory with the longer one, and only its first
    /// `size()` values are its own.
    static Ptr appended(Ptr const& column, std::vector<double> const& more);
    /// A column of all values multiplied by a factor.
    static Ptr scaled(FenChartColumn const& column, double factor);

    std::size_t size() const { return _size; }
    bool empty() const { return _size == 0; }
    /// i < size().
    double value(std::size_t i) const { return (*_values)[i]; }
    double operator[](std::size_t i) const { return (*_values)[i]; }
    /// All values. Makes a copy when the column has been appended to since.
    std::vector<double> const& values() const;

    /// True when no value is smaller than the one before it and none is a gap.
    bool ascending() const { return _ascending; }
    /// True when some value is not finite.
    bool hasGaps() const { return _all.gap; }
    /// True when some value is finite.
    bool any() const { return _all.any; }
    /// Of the finite values; 0 when there is none.
    double min() const { return _all.min; }
    double max() const { return _all.max; }

    /// Extremes of the values first .. last - 1 [indices; last is cut at size()]. Costs one look per block.
    Range range(std::size_t first, std::size_t last) const;

    std::size_t blocks() const { return (size() + blockSize - 1) / blockSize; }
    /// Extremes of the finite values of a block; +infinity and -infinity when it has none.
    double blockMin(std::size_t block) const
    {
        return _ascending ? (*_values)[block * blockSize] : _extremes[block].min;
    }
    double blockMax(std::size_t block) const
    {
        return _ascending ? (*_values)[end(block) - 1] : _extremes[block].max;
    }
    /// True when some value of the block is not finite.
    bool blockHasGap(std::size_t block) const { return !_gaps.empty() && _gaps[block] != 0; }

    /// First index whose value is not below (above) `value`, or size(); for ascending columns only.
    std::size_t lowerBound(double value) const;
    std::size_t upperBound(double value) const;

    /// Smallest distance between two different values that are neighbours when sorted; 1 when there are
    /// fewer than two different ones. Found at the first call (sorts when the column does not ascend).
    double minDelta() const;
    /// Smallest value above 0; 0 when there is none. Found at the first call that needs a walk.
    double minPositive() const;
    /// Number of finite values that are not above 0.
    std::size_t nonPositive() const;

private:
    struct Extremes {
        double min, max;
    };

    std::size_t end(std::size_t block) const
    {
        std::size_t const beyond = (block + 1) * blockSize;
        return beyond < size() ? beyond : size();
    }
    FenChartColumn(std::shared_ptr<std::vector<double>> values, FenChartColumn const& head);
    void build(std::size_t firstBlock);
    void summarise();

    mutable std::shared_ptr<std::vector<double> const> _values; ///< never null; its first `_size` are ours
    std::size_t _size = 0;
    std::shared_ptr<std::vector<double>> _growing; ///< the same values, when more may be appended to them
    std::vector<Extremes> _extremes; ///< one per block; empty for an ascending column
    std::vector<std::uint8_t> _gaps; ///< one per block; empty for a column without gaps
    Range _all;
    bool _ascending = true;
    mutable double _minDelta = -1.0; ///< -1: not asked for yet
    mutable double _minPositive = -1.0; ///< -1: not asked for yet
};
