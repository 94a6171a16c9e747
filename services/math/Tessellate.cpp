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

typedef Tessellate::Index Index;
typedef Tessellate::Triangle Triangle;

constexpr int gridBits = 26;
constexpr double mostElongated = 1000.0;
constexpr Index none = Tessellate::none;

bool known(IVariableIter const& points, Vector3 const& p, Vector3::Comp comp)
{
    return !points.IsUndefined(comp) && std::isfinite(p[comp]);
}

bool outside(Math::BoundingBox const& box, Vector3 const& p)
{
    if (!box.defined()) return false;
    return p.x() < box.min().x() || p.x() > box.max().x() || p.y() < box.min().y() || p.y() > box.max().y();
}

// The points whose place in x and y is known, those with z unknown too: with a NaN there.
std::vector<Vector3> collect(IVariableIter& points, Math::BoundingBox const& box)
{
    std::vector<Vector3> found;
    points.Reset();
    while (points.MoveNext()) {
        Vector3 p = points.Current();
        if (!known(points, p, Vector3::CompX) || !known(points, p, Vector3::CompY) || outside(box, p))
            continue;
        if (!known(points, p, Vector3::CompZ)) p.z() = std::nanf("");
        found.push_back(p);
    }
    return found;
}

bool isHole(Vector3 const& p) { return std::isnan(p.z()); }

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

// The points as rows and columns, or no columns when they do not fill such a grid.
struct Grid {
    size_t columns = 0;
    size_t rows = 0;
    std::vector<Index> at; // row by row, from the lowest y; holes too

    explicit Grid(std::vector<Vector3> const& points)
    {
        if (!readInOrder(points)) sortIntoPlaces(points);
    }

    std::vector<Index> outline() const
    {
        std::vector<Index> around;
        auto const add = [&](size_t column, size_t row) { around.push_back(at[row * columns + column]); };
        for (size_t i = 0; i + 1 < columns; ++i) add(i, 0);
        for (size_t i = 0; i + 1 < rows; ++i) add(columns - 1, i);
        for (size_t i = columns - 1; i > 0; --i) add(i, rows - 1);
        for (size_t i = rows - 1; i > 0; --i) add(0, i);
        return around;
    }

private:
    // One walk for points that come row by row from the lowest x and y, as most grids are stored.
    bool readInOrder(std::vector<Vector3> const& points)
    {
        size_t length = 0;
        while (length < points.size() && points[length].y() == points[0].y()) ++length;
        if (length < 2 || length == points.size() || points.size() % length != 0) return false;
        for (size_t i = 0; i < points.size(); ++i) {
            size_t const column = i % length, first = i - column;
            if (column == 0 ? i > 0 && !(points[i].y() > points[i - 1].y())
                            : points[i].y() != points[first].y() || !(points[i].x() > points[i - 1].x()))
                return false;
            if (points[i].x() != points[column].x()) return false;
        }
        columns = length;
        rows = points.size() / length;
        at.resize(points.size());
        std::iota(at.begin(), at.end(), Index(0));
        return true;
    }

    void sortIntoPlaces(std::vector<Vector3> const& points)
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
    if (Grid grid(_points); grid.columns > 0) {
        outline = grid.outline();
        _grid = std::move(grid.at);
        _columns = grid.columns;
        sortOutHoles();
        outline.erase(
            std::remove_if(outline.begin(), outline.end(), [&](Index i) { return isHole(_points[i]); }),
            outline.end());
        if (!outline.empty()) outline.push_back(outline.front());
    } else if (sortOutHoles(); !_points.empty()) {
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

// Grids keep the points of holes, so that places stay what they are, but point at none.
void Tessellate::sortOutHoles()
{
    if (_grid.empty()) _points.erase(std::remove_if(_points.begin(), _points.end(), isHole), _points.end());
    for (Index& i : _grid)
        if (isHole(_points[i])) i = none;
}

unsigned Tessellate::cell(std::size_t column, std::size_t row, Triangle triangles[2]) const
{
    Index const a = at(column, row), b = at(column + 1, row);
    Index const c = at(column + 1, row + 1), d = at(column, row + 1);
    Index const corners[4] = {a, b, c, d};
    auto const holes = std::count(corners, corners + 4, none);
    if (holes > 1) return 0;
    if (holes == 1) {
        int const hole = int(std::find(corners, corners + 4, none) - corners);
        triangles[0] = {corners[(hole + 1) % 4], corners[(hole + 2) % 4], corners[(hole + 3) % 4]};
        return 1;
    }
    float const rise = std::fabs(_points[a].z() - _points[c].z());
    bool const alongAC = rise <= std::fabs(_points[b].z() - _points[d].z());
    triangles[0] = alongAC ? Triangle{a, b, c} : Triangle{a, b, d};
    triangles[1] = alongAC ? Triangle{a, c, d} : Triangle{b, c, d};
    return 2;
}

void Tessellate::Reset()
{
    _next = 0;
    _left = 0;
    _any = false;
}

bool Tessellate::MoveNext()
{
    if (_left > 0) {
        --_left;
        _current[0] = _current[1];
        return true;
    }
    _any = false;
    if (_columns == 0) {
        if (_next >= _triangles.size()) return false;
        _current[0] = _triangles[_next++];
        return _any = true;
    }
    std::size_t const across = _columns - 1, cells = across * (rows() - 1);
    while (_next < cells) {
        unsigned const found = cell(_next % across, _next / across, _current);
        ++_next;
        if (found == 0) continue;
        _left = found - 1;
        return _any = true;
    }
    return false;
}

void Tessellate::Current(Vector3& a, Vector3& b, Vector3& c) const
{
    if (!_any) {
        a = b = c = Vector3();
        return;
    }
    Triangle const& t = _current[0];
    a = _points[t[0]];
    b = _points[t[1]];
    c = _points[t[2]];
}

} // namespace Kes::Tess
