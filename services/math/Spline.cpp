#include "services/math/Spline.h"

#include "services/math/Finite.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Kes::Math {

namespace {

constexpr size_t maxPerSpan = 1000;
constexpr size_t maxPoints = size_t(1) << 24;

// Number of even parts of the way between two points.
size_t parts(double step, size_t points)
{
    constexpr double rounding = 1e-4; // 1 / 0.1f is a little less than 10
    size_t const room = std::clamp(maxPoints / std::max<size_t>(points, 1), size_t(1), maxPerSpan);
    return size_t(std::clamp(std::ceil(1.0 / step - rounding), 1.0, double(room)));
}

// The greatest slope of a cubic piece that leads from a point to both its neighbours without running back:
// three times the way, when both lie in the same direction, else none.
float steepest(float toBefore, float toAfter)
{
    bool const onward = (toBefore > 0.0f && toAfter > 0.0f) || (toBefore < 0.0f && toAfter < 0.0f);
    return onward ? 3.0f * std::min(std::fabs(toBefore), std::fabs(toAfter)) : 0.0f;
}

// The x axis is the one along which a curve runs.
void keepFromRunningBack(Vector2& slope, Vector2 const& toBefore, Vector2 const& toAfter)
{
    float const most = steepest(toBefore.x(), toAfter.x());
    if (most > 0.0f) {
        if (std::fabs(slope.x()) > most) slope *= most / std::fabs(slope.x());
        return;
    }
    // x turns or stands still here: the curve passes along y, and does not swing out there either.
    float const up = steepest(toBefore.y(), toAfter.y());
    slope = Vector2(0.0f, std::clamp(slope.y(), -up, up));
}
// Curves in space run along no axis.
void keepFromRunningBack(Vector3&, Vector3 const&, Vector3 const&) { }

// Half the way from the point before to the point after; the ends count twice.
template <class Vector>
Vector tangent(std::vector<Vector> const& run, size_t i)
{
    Vector const& before = run[i > 0 ? i - 1 : 0];
    Vector const& after = run[std::min(i + 1, run.size() - 1)];
    Vector slope = after * 0.5f - before * 0.5f;
    if (i > 0 && i + 1 < run.size()) keepFromRunningBack(slope, run[i] - before, after - run[i]);
    return slope;
}

// Cubic Hermite piece from a (slope m) to b (slope n), at t and s = 1 - t: the same from either end.
template <class Vector>
Vector onCurve(Vector const& a, Vector const& b, Vector const& m, Vector const& n, double t, double s)
{
    double const fromA = (s + 3.0 * t) * s * s;
    double const fromB = (t + 3.0 * s) * t * t;
    double const fromM = t * s * s;
    double const fromN = -(s * t * t);
    Vector p = a;
    for (size_t i = 0; i < sizeof(Vector) / sizeof(float); ++i) {
        p[i] = float((fromA * a[i] + fromB * b[i]) + (fromM * m[i] + fromN * n[i]));
    }
    return p;
}

// Rounding must not lead back either.
void keepBetween(Vector2& p, Vector2 const& before, Vector2 const& end)
{
    auto const [low, high] = std::minmax({before.x(), end.x()});
    p.x() = std::clamp(p.x(), low, high);
}
void keepBetween(Vector3&, Vector3 const&, Vector3 const&) { }

template <class Vector>
void appendRun(std::vector<Vector> const& run, size_t spans, std::vector<Vector>& curve)
{
    for (size_t i = 0; i < run.size(); ++i) {
        curve.push_back(run[i]);
        if (run.size() < 3 || i + 1 == run.size()) continue;
        Vector const m = tangent(run, i);
        Vector const n = tangent(run, i + 1);
        for (size_t k = 1; k < spans; ++k) {
            double const t = double(k) / double(spans), s = double(spans - k) / double(spans);
            Vector p = onCurve(run[i], run[i + 1], m, n, t, s);
            keepBetween(p, curve.back(), run[i + 1]);
            curve.push_back(p);
        }
    }
}

template <class Vector>
void interpolate(std::vector<Vector>& points, float step)
{
    if (!(step > 0.0f && step <= 1.0f)) return;
    size_t const spans = parts(double(step), points.size());
    std::vector<Vector> curve;
    curve.reserve(points.size() * spans);
    std::vector<Vector> run;
    for (Vector const& p : points) {
        if (!finite(p)) {
            appendRun(std::exchange(run, {}), spans, curve);
            curve.push_back(p);
        } else if (run.empty() || !(run.back() == p)) {
            run.push_back(p);
        }
    }
    appendRun(run, spans, curve);
    points = std::move(curve);
}

} // namespace

void interpolateCutmullRom(std::vector<Vector2>& points, float step) { interpolate(points, step); }

void interpolateCutmullRom(std::vector<Vector3>& points, float step) { interpolate(points, step); }

} // namespace Kes::Math
