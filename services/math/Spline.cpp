#include "services/math/Spline.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Kes::Math {

namespace {

constexpr size_t maxPerSpan = 1000;
constexpr size_t maxPoints = size_t(1) << 24;

bool finite(Vector2 const& p) { return std::isfinite(p.x()) && std::isfinite(p.y()); }
bool finite(Vector3 const& p) { return finite(Vector2(p)) && std::isfinite(p.z()); }

// Parameters strictly between 0 and 1 at which the curve is taken.
struct Sampling {
    double step;
    size_t inner;

    Sampling(double asked, size_t points)
    {
        constexpr double rounding = 1e-4; // 1 / 0.1f is a little less than 10
        size_t const room = std::clamp(maxPoints / std::max<size_t>(points, 1), size_t(1), maxPerSpan);
        double const spans = std::ceil(1.0 / asked - rounding);
        inner = size_t(std::clamp(spans, 1.0, double(room))) - 1;
        step = spans > double(room) ? 1.0 / double(room) : asked;
    }
};

// The x axis is the one along which a curve runs; curves in space have none.
bool ascending(std::vector<Vector2> const& run)
{
    return std::is_sorted(run.begin(), run.end(), [](auto const& a, auto const& b) { return a.x() < b.x(); });
}
bool ascending(std::vector<Vector3> const&) { return false; }

// Half the way from the point before to the point after.
template <class Vector>
Vector tangent(std::vector<Vector> const& run, size_t i, bool keepsAscending)
{
    Vector const& before = run[i > 0 ? i - 1 : 0];
    Vector const& after = run[std::min(i + 1, run.size() - 1)];
    Vector const slope = after * 0.5f - before * 0.5f;
    if (!keepsAscending || !(slope.x() > 0.0f)) return slope;
    // A cubic piece from 0 to d stays ascending when its slopes at both ends lie within 0 and 3 d.
    float const toBefore = i > 0 ? run[i].x() - before.x() : after.x() - run[i].x();
    float const toAfter = i + 1 < run.size() ? after.x() - run[i].x() : toBefore;
    float const most = 3.0f * std::min(toBefore, toAfter);
    return slope.x() > most ? slope * (most / slope.x()) : slope;
}

// Cubic Hermite piece from a (slope m) to b (slope n).
template <class Vector>
Vector onCurve(Vector const& a, Vector const& b, Vector const& m, Vector const& n, double t)
{
    double const s = 1.0 - t;
    double const fromA = (1.0 + 2.0 * t) * s * s;
    double const fromB = t * t * (3.0 - 2.0 * t);
    double const fromM = t * s * s;
    double const fromN = -t * t * s;
    Vector p = a;
    for (size_t i = 0; i < sizeof(Vector) / sizeof(float); ++i) {
        p[i] = float(fromA * a[i] + fromB * b[i] + fromM * m[i] + fromN * n[i]);
    }
    return p;
}

template <class Vector>
void appendRun(std::vector<Vector> const& run, Sampling const& sampling, std::vector<Vector>& curve)
{
    bool const keepsAscending = ascending(run);
    for (size_t i = 0; i < run.size(); ++i) {
        curve.push_back(run[i]);
        if (run.size() < 3 || i + 1 == run.size()) continue;
        Vector const m = tangent(run, i, keepsAscending);
        Vector const n = tangent(run, i + 1, keepsAscending);
        for (size_t k = 1; k <= sampling.inner; ++k) {
            Vector p = onCurve(run[i], run[i + 1], m, n, double(k) * sampling.step);
            if (keepsAscending) p.x() = std::clamp(p.x(), curve.back().x(), run[i + 1].x()); // rounding
            curve.push_back(p);
        }
    }
}

template <class Vector>
void interpolate(std::vector<Vector>& points, float step)
{
    if (!(step > 0.0f && step <= 1.0f)) return;
    Sampling const sampling(double(step), points.size());
    std::vector<Vector> curve;
    curve.reserve(points.size() * (sampling.inner + 1));
    std::vector<Vector> run;
    for (Vector const& p : points) {
        if (!finite(p)) {
            appendRun(std::exchange(run, {}), sampling, curve);
            curve.push_back(p);
        } else if (run.empty() || !(run.back() == p)) {
            run.push_back(p);
        }
    }
    appendRun(run, sampling, curve);
    points = std::move(curve);
}

} // namespace

void interpolateCutmullRom(std::vector<Vector2>& points, float step) { interpolate(points, step); }

void interpolateCutmullRom(std::vector<Vector3>& points, float step) { interpolate(points, step); }

} // namespace Kes::Math
