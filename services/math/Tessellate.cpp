#include "services/math/Tessellate.h"

#include "services/math/BoundingBox.h"
#include "services/math/Delaunay.h"
#include "services/math/IVariableIter.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

namespace Kes::Tess {

namespace {

using Math::Vector3;

typedef std::uint32_t Index;
typedef std::array<Index, 3> Triangle;

constexpr int gridBits = 26;
constexpr double mostElongated = 1000.0;
constexpr Index none = 0xFFFFFFFF;

bool known(IVariableIter const& points, Vector3 const& p)
{
    for (Vector3::Comp const comp : {Vector3::CompX, Vector3::CompY, Vector3::CompZ}) {
        if (points.IsUndefined(comp) || !std::isfinite(p[comp])) return false;
    }
    return true;
}

bool outside(Math::BoundingBox const& box, Vector3 const& p)
{
    if (!box.defined()) return false;
    return p.x() < box.min().x() || p.x() > box.max().x() || p.y() < box.min().y() || p.y() > box.max().y();
}

std::vector<Vector3> collect(IVariableIter& points, Math::BoundingBox const& box)
{
    std::vector<Vector3> found;
    points.Reset();
    while (points.MoveNext()) {
        Vector3 const p = points.Current();
        if (known(points, p) && !outside(box, p)) found.push_back(p);
    }
    return found;
}

std::vector<float> distinct(std::vector<Vector3> const& points, Vector3::Comp comp)
{
    std::vector<float> values(points.size());
    std::transform(points.begin(), points.end(), values.begin(), [comp](auto const& p) { return p[comp]; });
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
    return values;
}

size_t placeOf(float value, std::vector<float> const& sorted)
{
    return size_t(std::lower_bound(sorted.begin(), sorted.end(), value) - sorted.begin());
}

// The points as rows and columns, or empty when they do not fill such a grid.
struct Grid {
    size_t columns = 0;
    size_t rows = 0;
    std::vector<Index> at; // row by row, from the lowest y

    explicit Grid(std::vector<Vector3> const& points)
    {
        std::vector<float> const xs = distinct(points, Vector3::CompX);
        std::vector<float> const ys = distinct(points, Vector3::CompY);
        if (xs.size() < 2 || ys.size() < 2 || xs.size() > points.size() / ys.size()) return;
        std::vector<Index> places(xs.size() * ys.size(), none);
        size_t filled = 0;
        for (Index i = 0; i < points.size(); ++i) {
            Index& place = places[placeOf(points[i].y(), ys) * xs.size() + placeOf(points[i].x(), xs)];
            if (place != none) continue;
            place = i;
            ++filled;
        }
        if (filled < places.size()) return;
        columns = xs.size();
        rows = ys.size();
        at = std::move(places);
    }

    Index index(size_t column, size_t row) const { return at[row * columns + column]; }

    std::vector<Triangle> triangles(std::vector<Vector3> const& points) const
    {
        std::vector<Triangle> found;
        found.reserve((columns - 1) * (rows - 1) * 2);
        for (size_t row = 0; row + 1 < rows; ++row) {
            for (size_t column = 0; column + 1 < columns; ++column) {
                Index const a = index(column, row);
                Index const b = index(column + 1, row);
                Index const c = index(column + 1, row + 1);
                Index const d = index(column, row + 1);
                float const rise = std::fabs(points[a].z() - points[c].z());
                bool const alongAC = rise <= std::fabs(points[b].z() - points[d].z());
                found.push_back(alongAC ? Triangle{a, b, c} : Triangle{a, b, d});
                found.push_back(alongAC ? Triangle{a, c, d} : Triangle{b, c, d});
            }
        }
        return found;
    }

    std::vector<Index> outline() const
    {
        std::vector<Index> around;
        for (size_t i = 0; i + 1 < columns; ++i) around.push_back(index(i, 0));
        for (size_t i = 0; i + 1 < rows; ++i) around.push_back(index(columns - 1, i));
        for (size_t i = columns - 1; i > 0; --i) around.push_back(index(i, rows - 1));
        for (size_t i = rows - 1; i > 0; --i) around.push_back(index(0, i));
        around.push_back(around.front());
        return around;
    }
};

// Moves coordinates onto whole numbers; a power of two, so that short binary fractions stay exact.
struct Rounding {
    Vector3 origin;
    int shift[2];

    explicit Rounding(std::vector<Vector3> const& points)
    {
        Math::BoundingBox box;
        for (Vector3 const& p : points) box.insert(p);
        origin = box.min();
        double extent[2];
        for (int i = 0; i < 2; ++i) extent[i] = double(box.max()[i]) - double(box.min()[i]);
        auto const [shorter, longer] = std::minmax({extent[0], extent[1]});
        bool const stretch = shorter > 0.0 && longer > shorter * mostElongated;
        for (int i = 0; i < 2; ++i) {
            int exponent = 0;
            std::frexp(stretch ? extent[i] : longer, &exponent);
            shift[i] = gridBits - exponent;
        }
    }

    GridPoint operator()(Vector3 const& p) const
    {
        auto const place = [&](int i) {
            return std::int64_t(std::llround(std::ldexp(double(p[i]) - double(origin[i]), shift[i])));
        };
        return {place(0), place(1)};
    }
};

// Points by x, then y, each place once, with the index of the first point there.
struct Distinct {
    std::vector<GridPoint> places;
    std::vector<Index> indices;

    explicit Distinct(std::vector<Vector3> const& points)
    {
        Rounding const onGrid(points);
        std::vector<std::tuple<std::int64_t, std::int64_t, Index>> sorted(points.size());
        for (Index i = 0; i < points.size(); ++i) {
            GridPoint const place = onGrid(points[i]);
            sorted[i] = {place.x, place.y, i};
        }
        std::sort(sorted.begin(), sorted.end());
        for (auto const& [x, y, i] : sorted) {
            GridPoint const place{x, y};
            if (!places.empty() && places.back() == place) continue;
            places.push_back(place);
            indices.push_back(i);
        }
    }
};

} // namespace

Tessellate::Tessellate(IVariableIter& points, Math::BoundingBox const& box)
    : _points(collect(points, box))
{
    std::vector<Index> outline;
    if (Grid const grid(_points); !grid.at.empty()) {
        _triangles = grid.triangles(_points);
        outline = grid.outline();
    } else if (!_points.empty()) {
        Distinct const distinctPoints(_points);
        Triangulation found = delaunay(distinctPoints.places);
        _triangles = std::move(found.triangles);
        outline = std::move(found.outline);
        for (Triangle& t : _triangles) {
            for (Index& corner : t) corner = distinctPoints.indices[corner];
        }
        for (Index& i : outline) i = distinctPoints.indices[i];
    }
    _boundary.reserve(outline.size());
    for (Index const i : outline) _boundary.push_back(_points[i]);
}

bool Tessellate::MoveNext()
{
    if (_next > _triangles.size()) return false;
    ++_next;
    return _next <= _triangles.size();
}

void Tessellate::Current(Vector3& a, Vector3& b, Vector3& c) const
{
    if (_next == 0 || _next > _triangles.size()) {
        a = b = c = Vector3();
        return;
    }
    Triangle const& t = _triangles[_next - 1];
    a = _points[t[0]];
    b = _points[t[1]];
    c = _points[t[2]];
}

} // namespace Kes::Tess
