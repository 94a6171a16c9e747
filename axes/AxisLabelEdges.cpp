#include "axes/AxisLabelEdges.h"

#include "services/logging/Checks.h"
#include "services/logging/DebugLogger.h"
#include "services/math/BoundingBox.h"
#include "services/math/IVariableIter.h"
#include "services/math/Tessellate.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <vector>

using Kes::Math::BoundingBox;
using Kes::Math::Segment;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace fen {

namespace {

/// [px] Corners closer than this on the screen are one; so near to the outline they belong to it.
constexpr float samePlace = 0.05f;
/// Rise of a segment that counts as lying flat. The probe beside it is one pixel away, so this is also
/// how far in pixels the probe may lie outside.
constexpr float flatSlope = 0.01f;
constexpr float screenLimit = 2147483648.0f;

/// The corners of a box as distinct points on the screen.
class AxisLabelLocationGenerator : public IVariableIter {
public:
    AxisLabelLocationGenerator(BoundingBox const& box, ScreenProjection const& project)
    {
        Vector3 const ends[2] = {box.min(), box.max()};
        for (int bits = 0; bits < 8; ++bits) {
            Vector3 const corner(ends[bits & 1].x(), ends[bits >> 1 & 1].y(), ends[bits >> 2].z());
            _corners.push_back({corner, project(corner)});
        }
        Reset();
    }

    void Reset() override { _at = -1; }
    bool MoveNext() override
    {
        while (++_at < int(_corners.size()))
            if (firstOf(_corners[size_t(_at)].screen) == _at) return true;
        _at = int(_corners.size());
        return false;
    }
    Vector3 Current() const override
    {
        return _at >= 0 && _at < int(_corners.size()) ? Vector3(_corners[size_t(_at)].screen) : Vector3();
    }
    bool IsUndefined(Vector3::Comp) const override { return false; }
    QString Unit(Vector3::Comp) const override { return QString(); }

    /// False when the eye does not see all corners in front of it.
    bool complete() const
    {
        return std::all_of(_corners.begin(), _corners.end(), [](Corner const& corner) {
            return std::isfinite(corner.screen.x()) && std::isfinite(corner.screen.y());
        });
    }
    Vector3 getOriginalVertex(Vector2 const& screen) const
    {
        int const at = firstOf(screen);
        return FENVIS_ENSURE(at >= 0, "false") ? _corners[size_t(at)].place : Vector3();
    }
    Vector2 getProjectedPoint(Vector3 const& place) const
    {
        for (Corner const& corner : _corners)
            if (corner.place == place) return corner.screen;
        FENVIS_ENSURE(false, "false");
        return Vector2();
    }
    /// All distinct points on the screen.
    std::vector<Vector2> points() const
    {
        std::vector<Vector2> found;
        for (int i = 0; i < int(_corners.size()); ++i)
            if (firstOf(_corners[size_t(i)].screen) == i) found.push_back(_corners[size_t(i)].screen);
        return found;
    }

private:
    struct Corner {
        Vector3 place; // [scene]
        Vector2 screen; // [px]
    };
    int firstOf(Vector2 const& screen) const
    {
        for (size_t i = 0; i < _corners.size(); ++i) {
            Vector2 const away = _corners[i].screen - screen;
            if (std::abs(away.x()) < samePlace && std::abs(away.y()) < samePlace) return int(i);
        }
        return -1;
    }

    std::vector<Corner> _corners; // the minimum corner first
    int _at;
};

float cross(Vector2 const& a, Vector2 const& b) { return a.x() * b.y() - a.y() * b.x(); }
float dot(Vector2 const& a, Vector2 const& b) { return a.x() * b.x() + a.y() * b.y(); }

struct Triangle {
    Vector2 corners[3]; // counter-clockwise

    bool holds(Vector2 const& point) const
    {
        for (int i = 0; i < 3; ++i) {
            Vector2 const side = corners[(i + 1) % 3] - corners[i];
            float const length = std::hypot(side.x(), side.y());
            if (cross(side, point - corners[i]) < -flatSlope * length) return false;
        }
        return true;
    }
};

/// The projected box: its outline, closed and counter-clockwise, and the triangles inside it [px].
struct Silhouette {
    std::vector<Vector2> outline;
    std::vector<Triangle> triangles;

    explicit Silhouette(AxisLabelLocationGenerator& corners)
    {
        BoundingBox const screen(Vector3(-screenLimit, -screenLimit, 0),
                                 Vector3(screenLimit, screenLimit, 0));
        Kes::Tess::Tessellate tessellation(corners, screen);
        Vector3 a, b, c;
        while (tessellation.MoveNext()) {
            tessellation.Current(a, b, c);
            triangles.push_back({{Vector2(a), Vector2(b), Vector2(c)}});
        }
        for (Vector3 const& point : tessellation.Boundary()) addWithThoseBefore(Vector2(point), corners);
    }

    bool holds(Vector2 const& point) const
    {
        return std::any_of(triangles.begin(), triangles.end(),
                           [&](Triangle const& triangle) { return triangle.holds(point); });
    }
    float middleHeight() const { return 0.5f * (Vector2::min(outline).y() + Vector2::max(outline).y()); }

private:
    /// A corner that rounding has put beside the line from the last point to `next` belongs between them:
    /// without it the line would run across a face.
    void addWithThoseBefore(Vector2 const& next, AxisLabelLocationGenerator const& corners)
    {
        if (!outline.empty()) {
            Vector2 const from = outline.back(), way = next - from;
            float const length = std::hypot(way.x(), way.y());
            std::vector<std::pair<float, Vector2>> between;
            for (Vector2 const& point : corners.points()) {
                float const along = dot(point - from, way) / length;
                bool const beside = std::abs(cross(way, point - from)) < samePlace * length;
                if (beside && along > samePlace && along < length - samePlace)
                    between.emplace_back(along, point);
            }
            std::sort(between.begin(), between.end(),
                      [](auto const& a, auto const& b) { return a.first < b.first; });
            for (auto const& [along, point] : between) outline.push_back(point);
        }
        outline.push_back(next);
    }
};

int agreeing(Vector3 const& a, Vector3 const& b)
{
    return int(a.x() == b.x()) + int(a.y() == b.y()) + int(a.z() == b.z());
}

/// The edges of the box that are part of the outline, by axis and in its positive direction [scene].
typedef std::array<std::vector<Segment>, 3> Candidates;

Candidates findCandidates(Silhouette const& silhouette, AxisLabelLocationGenerator const& corners,
                          Vector3 const& minimum)
{
    std::ostream& log = debug_logger::debuglogger().dlog;
    Candidates found;
    for (size_t i = 0; i + 1 < silhouette.outline.size(); ++i) {
        Vector3 start = corners.getOriginalVertex(silhouette.outline[i]);
        Vector3 end = corners.getOriginalVertex(silhouette.outline[i + 1]);
        if (agreeing(start, minimum) < 2) std::swap(start, end);
        log << '\t' << start << " -> " << end << '\n';
        Vector3 const direction = Vector3::normalize(end - start);
        int const axis = direction.dominant();
        if (direction[axis] != 1.0f && direction[axis] != -1.0f) {
            log << "ignoring segment in direction :" << direction << '\n';
            continue;
        }
        if (direction[axis] == -1.0f) std::swap(start, end);
        found[size_t(axis)].push_back(Segment(start, end));
    }
    return found;
}

/// The lower of two edges that run across the screen, the left of two that run up.
Segment const& choose(std::vector<Segment> const& two, AxisLabelLocationGenerator const& corners)
{
    Vector2 const first = corners.getProjectedPoint(two[0].A());
    Vector2 const second = corners.getProjectedPoint(two[1].A());
    Vector2 const way = corners.getProjectedPoint(two[0].B()) - first;
    bool const across = std::abs(way.x()) >= std::abs(way.y());
    return (across ? first.y() > second.y() : first.x() > second.x()) ? two[1] : two[0];
}

float labelDirection(Segment const& place, Silhouette const& silhouette)
{
    Vector2 const middle = (Vector2(place.A()) + Vector2(place.B())) * 0.5f;
    // On a flat edge the probe lies on the edge itself: the box is above or below.
    if (liesFlat(place)) return middle.y() <= silhouette.middleHeight() ? -1.0f : 1.0f;
    return silhouette.holds(middle + Vector2(1.0f, 0.0f)) ? -1.0f : 1.0f;
}

void logOutline(std::vector<Vector2> const& outline)
{
    std::ostream& log = debug_logger::debuglogger().dlog;
    for (Vector2 const& point : outline) log << point << ' ';
    log << "\tmin: " << Vector2::min(outline) << '\n';
}

} // namespace

bool liesFlat(Segment const& segment)
{
    Vector3 const way = segment.vectorAB();
    return std::abs(way.y()) <= flatSlope * std::abs(way.x());
}

Vector2 outwardNormal(Segment const& segment, float direction)
{
    Vector3 const way = segment.vectorAB();
    float const length = std::hypot(way.x(), way.y());
    if (!(length > 0)) return Vector2();
    Vector2 const normal(-way.y() / length, way.x() / length);
    float const side = liesFlat(segment) ? normal.y() : normal.x();
    return (side < 0) == (direction < 0) ? normal : normal * -1.0f;
}

AxisLabelEdges placeAxisLabels(BoundingBox const& box, ScreenProjection const& project)
{
    AxisLabelEdges result;
    for (size_t axis = 0; axis < 3; ++axis) {
        Vector3 end = box.min();
        end[axis] = box.max()[axis];
        result.edges[axis] = Segment(box.min(), end);
    }
    AxisLabelLocationGenerator corners(box, project);
    if (!corners.complete()) return result;
    Silhouette const silhouette(corners);
    if (silhouette.outline.empty()) return result;
    logOutline(silhouette.outline);
    Candidates const candidates = findCandidates(silhouette, corners, box.min());
    for (size_t axis = 0; axis < 3; ++axis) {
        std::vector<Segment> const& of = candidates[axis];
        if (!of.empty()) result.edges[axis] = of.size() == 2 ? choose(of, corners) : of.front();
        Segment const& edge = result.edges[axis];
        Segment const place(corners.getProjectedPoint(edge.A()), corners.getProjectedPoint(edge.B()));
        result.directions[axis] = labelDirection(place, silhouette);
    }
    debug_logger::debuglogger().dlog << "Axis XYZ: Label direction:" << result.directions[0] << ' '
                                     << result.directions[1] << ' ' << result.directions[2] << '\n';
    return result;
}

} // namespace fen
