#include "services/math/Delaunay.h"

#include <cmath>
#include <utility>

namespace Kes::Tess {

namespace {

__extension__ typedef __int128 Wide; // products of lifted coordinates have up to 108 bits

// Directed edges in groups of four: e, its dual, its reverse and the reverse's dual.
class QuadEdges {
public:
    typedef std::uint32_t Edge;

    explicit QuadEdges(std::vector<GridPoint> const& points)
        : _points(points)
    {
        size_t const expected = points.size() * 3 * 4;
        _onext.reserve(expected);
        _origin.reserve(expected);
    }

    static Edge rot(Edge e) { return (e & ~3u) | ((e + 1) & 3u); }
    static Edge sym(Edge e) { return e ^ 2u; }
    static Edge invRot(Edge e) { return (e & ~3u) | ((e + 3) & 3u); }

    Edge onext(Edge e) const { return _onext[e]; }
    Edge oprev(Edge e) const { return rot(_onext[rot(e)]); }
    Edge lnext(Edge e) const { return rot(_onext[invRot(e)]); }
    Edge rprev(Edge e) const { return _onext[sym(e)]; }

    std::uint32_t origin(Edge e) const { return _origin[e]; }
    std::uint32_t destination(Edge e) const { return _origin[sym(e)]; }
    GridPoint const& from(Edge e) const { return _points[origin(e)]; }
    GridPoint const& to(Edge e) const { return _points[destination(e)]; }

    bool leftOf(GridPoint const& p, Edge e) const { return turn(from(e), to(e), p) > 0; }
    bool rightOf(GridPoint const& p, Edge e) const { return turn(from(e), to(e), p) < 0; }

    Edge make(std::uint32_t from, std::uint32_t to)
    {
        auto const e = Edge(_onext.size());
        _onext.insert(_onext.end(), {e, e + 3, e + 2, e + 1});
        _origin.insert(_origin.end(), {from, none, to, none});
        return e;
    }

    // Joins or parts the rings of edges around two origins.
    void splice(Edge a, Edge b)
    {
        Edge const alpha = rot(_onext[a]);
        Edge const beta = rot(_onext[b]);
        std::swap(_onext[a], _onext[b]);
        std::swap(_onext[alpha], _onext[beta]);
    }

    // A new edge from a's end to b's start, with the left face of both.
    Edge connect(Edge a, Edge b)
    {
        Edge const e = make(destination(a), origin(b));
        splice(e, lnext(a));
        splice(sym(e), b);
        return e;
    }

    void remove(Edge e)
    {
        splice(e, oprev(e));
        splice(sym(e), oprev(sym(e)));
        _origin[e] = _origin[sym(e)] = none;
    }

    bool removed(Edge e) const { return _origin[e] == none; }
    Edge size() const { return Edge(_onext.size()); }

private:
    static constexpr std::uint32_t none = 0xFFFFFFFF;

    std::vector<GridPoint> const& _points;
    std::vector<Edge> _onext;
    std::vector<std::uint32_t> _origin;
};

typedef QuadEdges::Edge Edge;

// The hull edge out of the leftmost point, counter-clockwise, and the one out of the rightmost, clockwise.
struct Hull {
    Edge left, right;
};

class Builder {
public:
    explicit Builder(std::vector<GridPoint> const& points)
        : _points(points)
        , _edges(points)
    {
    }

    Triangulation run()
    {
        Triangulation result;
        auto const count = std::uint32_t(_points.size());
        if (count == 1) result.outline = {0};
        if (count < 2) return result;
        Edge const start = build(0, count).left;
        result.triangles = triangles();
        Edge e = start;
        do {
            result.outline.push_back(_edges.origin(e));
            e = _edges.rprev(e);
        } while (e != start);
        result.outline.push_back(result.outline.front());
        return result;
    }

private:
    Hull build(std::uint32_t begin, std::uint32_t end)
    {
        std::uint32_t const count = end - begin;
        if (count == 2) {
            Edge const e = _edges.make(begin, begin + 1);
            return {e, QuadEdges::sym(e)};
        }
        if (count == 3) return buildThree(begin);
        std::uint32_t const middle = begin + count / 2;
        Hull const left = build(begin, middle);
        Hull const right = build(middle, end);
        return merge(left, right);
    }

    Hull buildThree(std::uint32_t first)
    {
        Edge const a = _edges.make(first, first + 1);
        Edge const b = _edges.make(first + 1, first + 2);
        _edges.splice(QuadEdges::sym(a), b);
        std::int64_t const side = turn(_points[first], _points[first + 1], _points[first + 2]);
        if (side == 0) return {a, QuadEdges::sym(b)};
        Edge const c = _edges.connect(b, a);
        if (side > 0) return {a, QuadEdges::sym(b)};
        return {QuadEdges::sym(c), c};
    }

    // The lower common tangent of two hulls, from right to left.
    Edge lowerTangent(Hull& left, Hull& right, Edge leftInner, Edge rightInner)
    {
        while (true) {
            if (_edges.leftOf(_edges.from(rightInner), leftInner)) {
                leftInner = _edges.lnext(leftInner);
            } else if (_edges.rightOf(_edges.from(leftInner), rightInner)) {
                rightInner = _edges.rprev(rightInner);
            } else {
                break;
            }
        }
        Edge const base = _edges.connect(QuadEdges::sym(rightInner), leftInner);
        if (_edges.origin(leftInner) == _edges.origin(left.left)) left.left = QuadEdges::sym(base);
        if (_edges.origin(rightInner) == _edges.origin(right.right)) right.right = base;
        return base;
    }

    bool above(Edge candidate, Edge base) const { return _edges.rightOf(_edges.to(candidate), base); }

    bool circleHolds(Edge base, Edge candidate, Edge other) const
    {
        return inCircle(_edges.to(base), _edges.from(base), _edges.to(candidate), _edges.to(other));
    }

    // The first edge up from the base on its left end; those that the Delaunay rule forbids go.
    Edge leftCandidate(Edge base)
    {
        Edge candidate = _edges.onext(QuadEdges::sym(base));
        if (!above(candidate, base)) return candidate;
        while (circleHolds(base, candidate, _edges.onext(candidate))) {
            Edge const next = _edges.onext(candidate);
            _edges.remove(candidate);
            candidate = next;
        }
        return candidate;
    }

    Edge rightCandidate(Edge base)
    {
        Edge candidate = _edges.oprev(base);
        if (!above(candidate, base)) return candidate;
        while (circleHolds(base, candidate, _edges.oprev(candidate))) {
            Edge const next = _edges.oprev(candidate);
            _edges.remove(candidate);
            candidate = next;
        }
        return candidate;
    }

    Hull merge(Hull left, Hull right)
    {
        Edge base = lowerTangent(left, right, left.right, right.left);
        while (true) {
            Edge const l = leftCandidate(base);
            Edge const r = rightCandidate(base);
            bool const leftUp = above(l, base);
            bool const rightUp = above(r, base);
            if (!leftUp && !rightUp) break;
            bool const takeRight =
                !leftUp || (rightUp && inCircle(_edges.to(l), _edges.from(l), _edges.from(r), _edges.to(r)));
            base = takeRight ? _edges.connect(r, QuadEdges::sym(base))
                             : _edges.connect(QuadEdges::sym(base), QuadEdges::sym(l));
        }
        return {left.left, right.right};
    }

    // Left faces with three edges, counter-clockwise; the outer face of a lone triangle runs clockwise.
    std::vector<std::array<std::uint32_t, 3>> triangles() const
    {
        std::vector<std::array<std::uint32_t, 3>> found;
        found.reserve(_points.size() * 2);
        std::vector<bool> seen(_edges.size(), false);
        for (Edge e = 0; e < _edges.size(); e += 2) {
            if (_edges.removed(e) || seen[e]) continue;
            Edge const second = _edges.lnext(e);
            Edge const third = _edges.lnext(second);
            if (_edges.lnext(third) != e || !_edges.leftOf(_edges.from(third), e)) continue;
            seen[e] = seen[second] = seen[third] = true;
            found.push_back({_edges.origin(e), _edges.origin(second), _edges.origin(third)});
        }
        return found;
    }

    std::vector<GridPoint> const& _points;
    QuadEdges _edges;
};

int sign(Wide value) { return value > 0 ? 1 : value < 0 ? -1 : 0; }

} // namespace

std::int64_t turn(GridPoint const& a, GridPoint const& b, GridPoint const& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// The determinant of the points lifted onto a paraboloid around d. Minors and lifts are exact in 64 bits;
// only their products need more, and are only computed when rounding could hide the sign.
bool inCircle(GridPoint const& a, GridPoint const& b, GridPoint const& c, GridPoint const& d)
{
    GridPoint const p[3] = {{a.x - d.x, a.y - d.y}, {b.x - d.x, b.y - d.y}, {c.x - d.x, c.y - d.y}};
    std::int64_t lift[3];
    std::int64_t minor[3];
    double sum = 0.0;
    double size = 0.0;
    for (int i = 0; i < 3; ++i) {
        GridPoint const& q = p[(i + 1) % 3];
        GridPoint const& r = p[(i + 2) % 3];
        lift[i] = p[i].x * p[i].x + p[i].y * p[i].y;
        minor[i] = q.x * r.y - q.y * r.x;
        double const term = double(lift[i]) * double(minor[i]);
        sum += term;
        size += std::fabs(term);
    }
    constexpr double rounding = 1e-15; // more than five roundings of 2^-53 each
    if (std::fabs(sum) > rounding * size) return sum > 0.0;
    Wide exact = 0;
    for (int i = 0; i < 3; ++i) exact += Wide(lift[i]) * minor[i];
    return sign(exact) > 0;
}

Triangulation delaunay(std::vector<GridPoint> const& sorted) { return Builder(sorted).run(); }

} // namespace Kes::Tess
