#include "axes/AxisDivisions.h"

#include "services/logging/Checks.h"
#include "services/math/Matrix.h"
#include "services/math/NiceIntervals.h"
#include "services/opengl/OglViewport.h"

#include <algorithm>
#include <cmath>

using Kes::Math::NiceIntervals;
using Kes::Math::Segment;
using Kes::Math::Vector3;

namespace fen {

namespace {

constexpr double pixelsPerDivision = 50.0;
constexpr double share = 0.5; ///< of the divisions that would fit
constexpr double mostDivisions = 1000;

} // namespace

void AxisDivisions::add(Vector3 const& point, ScreenProjection const& project)
{
    points.push_back(point);
    windowPoints.push_back(project(point));
}

AxisDivisions discreteDivisions(Segment const& edge, int p_divisions, ScreenProjection const& project)
{
    AxisDivisions divisions;
    if (!(edge.vectorAB().length() > 0)) return divisions;
    if (!FENVIS_ENSURE(p_divisions >= 1, "p_divisions >= 1") && p_divisions < 0) return divisions;
    int const parts = std::max(1, p_divisions);
    for (int i = 0; i <= p_divisions; ++i)
        divisions.add(edge.A() + edge.vectorAB() * (float(i) / float(parts)), project);
    return divisions;
}

AxisDivisions continuousDivisions(Segment const& edge, AxisNumbers const& numbers, unsigned count,
                                  Kes::Math::NumberFormat const& format, ScreenProjection const& project)
{
    Vector3::Comp const k = numbers.axis;
    double const scaling = numbers.scaling[k] == 0 ? 1.0 : double(numbers.scaling[k]);
    double const offset = double(numbers.offset[k]);
    auto const data = [&](Vector3 const& point) { return double(point[k]) / scaling - offset; };
    double low = data(edge.A()), high = data(edge.B());
    if (low == high) {
        low -= 1.0;
        high += 1.0;
    }
    NiceIntervals const nice(low, high, count, true, true, format);
    AxisDivisions divisions;
    divisions.factor = nice.factor();
    for (unsigned i = 0; i < nice.size(); ++i) {
        Vector3 point = edge.A();
        point[k] = float(scaling * (nice.value(i) + offset));
        divisions.add(point, project);
        divisions.labels.push_back(QString::fromStdString(nice.label(i)));
    }
    return divisions;
}

unsigned divisionCount(FenOglViewport const& viewport, Kes::Math::Matrix const& modelView)
{
    double const pixels = std::max(viewport.width(), viewport.height());
    double const count = std::ceil(pixels * double(modelView.scale().x()) / pixelsPerDivision * share);
    return std::isfinite(count) ? unsigned(std::clamp(count, 2.0, mostDivisions)) : 2u;
}

} // namespace fen
