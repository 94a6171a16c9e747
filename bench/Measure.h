#pragma once

// What the scenario benchmark shares with nobody else: reproducible data,
// timing in and memory of this process, and one line of JSON per measurement.

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace bench {

/// Medians of repeated runs, all in milliseconds.
struct Times {
    double min = 0;
    double median = 0;
    double max = 0;
    double cpu = 0; ///< processor time of the median run
    double cold = 0; ///< the first, unmeasured run
    int repetitions = 0;
    double calibration = 0; ///< a fixed piece of integer work beside it: moves when the machine is disturbed
};

using Column = std::shared_ptr<std::vector<double> const>;

/// Points of a line: x counts, y is a random walk.
struct Walk {
    explicit Walk(size_t count, unsigned long long seed = 0);
    Column x;
    Column y;
};

/// Points spread evenly over the unit square.
struct Cloud {
    explicit Cloud(size_t count);
    Column x;
    Column y;
};

/// Runs `work` once to warm up, then BENCH_REPS times (5).
/// @param per  how many operations one call of `work` makes; times are per operation
Times measure(std::function<void()> const& work, double per = 1);

/// The same for work that needs preparations which do not count.
/// @param work  returns the milliseconds that count
Times measurePart(std::function<double()> const& work);

/// [ms] since some moment.
double now();

/// Remembers the memory in use as what the data alone costs.
void rememberDataSize();

/// Prints one JSON line on standard output.
/// @param ink  pixels that were drawn on (or hits of a pick), as proof of work
void report(std::string const& scenario, std::string const& variant, std::string const& operation,
            Times const& times, long ink);

} // namespace bench
