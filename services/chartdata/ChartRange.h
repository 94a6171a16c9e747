#pragma once

#include <limits>

/// A range of numbers in double; empty until something is inserted.
struct FenChartRange {
    double min = std::numeric_limits<double>::infinity();
    double max = -std::numeric_limits<double>::infinity();

    /// True when the range holds a number.
    bool defined() const { return min <= max; }
    /// Grows to hold a number; NaN is ignored.
    void insert(double value)
    {
        if (value < min) min = value;
        if (value > max) max = value;
    }
    /// Grows to hold another range; an empty one adds nothing.
    void insert(FenChartRange const& other)
    {
        if (other.min < min) min = other.min;
        if (other.max > max) max = other.max;
    }

    bool operator==(FenChartRange const&) const = default;
};
