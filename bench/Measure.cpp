#include "bench/Measure.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>

namespace bench {

namespace {

long baseKilobytes = 0;
long dataKilobytes = 0;

/// Counter-based generator (splitmix64), uniform in [0, 1): any program can make the same numbers.
double uniform(uint64_t i)
{
    uint64_t z = (i + 1) * 0x9E3779B97F4A7C15ull;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    z ^= z >> 31;
    return double(z >> 11) * 0x1.0p-53;
}

double processorMs()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) * 1e-6;
}

/// A field of /proc/self/status [kB].
long statusField(std::string const& key)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.compare(0, key.size(), key) == 0) return std::atol(line.c_str() + key.size() + 1);
    }
    return -1;
}

double calibrate()
{
    double const start = now();
    uint64_t z = 1;
    for (int i = 0; i < 2000000; ++i) z = (z ^ (z >> 27)) * 0x94D049BB133111EBull + 1;
    uint64_t volatile sink = z;
    (void)sink;
    return now() - start;
}

int repetitions()
{
    char const* const text = std::getenv("BENCH_REPS");
    return text ? std::max(1, std::atoi(text)) : 5;
}

void summarize(std::vector<double> wall, Times& times)
{
    std::sort(wall.begin(), wall.end());
    times.min = wall.front();
    times.median = wall[wall.size() / 2];
    times.max = wall.back();
    times.repetitions = int(wall.size());
}

} // namespace

double now()
{
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

Walk::Walk(size_t count, unsigned long long seed)
{
    std::vector<double> xs(count);
    std::vector<double> ys(count);
    double sum = 0;
    for (size_t i = 0; i < count; ++i) {
        sum += 2 * uniform(seed + i) - 1;
        xs[i] = double(i);
        ys[i] = sum;
    }
    x = std::make_shared<std::vector<double> const>(std::move(xs));
    y = std::make_shared<std::vector<double> const>(std::move(ys));
}

Cloud::Cloud(size_t count)
{
    std::vector<double> xs(count);
    std::vector<double> ys(count);
    for (size_t i = 0; i < count; ++i) {
        xs[i] = uniform(2 * i);
        ys[i] = uniform(2 * i + 1);
    }
    x = std::make_shared<std::vector<double> const>(std::move(xs));
    y = std::make_shared<std::vector<double> const>(std::move(ys));
}

Times measure(std::function<void()> const& work, double per)
{
    Times times;
    double const first = now();
    work();
    times.cold = (now() - first) / per;

    double const before = calibrate();
    std::vector<double> wall;
    std::vector<double> processor;
    for (int i = 0; i < repetitions(); ++i) {
        double const start = now();
        double const used = processorMs();
        work();
        processor.push_back((processorMs() - used) / per);
        wall.push_back((now() - start) / per);
    }
    times.calibration = 0.5 * (before + calibrate());
    std::sort(processor.begin(), processor.end());
    times.cpu = processor[processor.size() / 2];
    summarize(std::move(wall), times);
    return times;
}

Times measurePart(std::function<double()> const& work)
{
    Times times;
    times.cold = work();
    double const before = calibrate();
    std::vector<double> wall;
    for (int i = 0; i < repetitions(); ++i) wall.push_back(work());
    times.calibration = 0.5 * (before + calibrate());
    summarize(std::move(wall), times);
    times.cpu = times.median;
    return times;
}

void rememberDataSize()
{
    if (baseKilobytes == 0) baseKilobytes = statusField("VmRSS:");
    dataKilobytes = statusField("VmRSS:");
}

void report(std::string const& scenario, std::string const& variant, std::string const& operation,
            Times const& times, long ink)
{
    std::printf("{\"peer\":\"fenvis\",\"scenario\":\"%s\",\"variant\":\"%s\",\"op\":\"%s\",\"min_ms\":%.5g,"
                "\"median_ms\":%.5g,\"max_ms\":%.5g,\"cpu_ms\":%.5g,\"cold_ms\":%.5g,\"reps\":%d,"
                "\"cal_ms\":%.4g,\"ink\":%ld,\"rss_base_kb\":%ld,\"rss_data_kb\":%ld,\"rss_peak_kb\":%ld}\n",
                scenario.c_str(), variant.c_str(), operation.c_str(), times.min, times.median, times.max,
                times.cpu, times.cold, times.repetitions, times.calibration, ink, baseKilobytes,
                dataKilobytes, statusField("VmHWM:"));
    std::fflush(stdout);
}

} // namespace bench
