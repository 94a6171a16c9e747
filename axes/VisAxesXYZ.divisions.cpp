#include "axes/VisAxesXYZ.h"
#include "axes/AxisDivisions.h"
#include "axes/VisAxesXYZ.ruler.h"
#include "framework/DrawContext.h"
#include "services/chartdata/ChartAxis.h"
#include "services/logging/Checks.h"
#include "services/opengl/GlWrappers.h"

using Kes::Math::Segment;
using Kes::Math::Vector3;

namespace {

fen::ScreenProjection screenOf(FenVisAxesXYZ::Projector const& projector)
{
    return [&projector](Vector3 const& point) { return projector.onScreen(point); };
}

std::vector<QString> texts(QStringList const& labels)
{
    return std::vector<QString>(labels.begin(), labels.end());
}

} // namespace

std::vector<FenVisAxesXYZ::Ruler> FenVisAxesXYZ::makeRulers(DrawContext const& context,
                                                            Projector const& projector) const
{
    fen::AxisLabelEdges const labels = fen::placeAxisLabels(_bounds, screenOf(projector));
    unsigned const count = CalcDivsCount(projector);
    std::vector<Ruler> rulers;
    for (Vector3::Comp const k : {Vector3::CompX, Vector3::CompY, Vector3::CompZ}) {
        Ruler ruler;
        ruler.k = k;
        ruler.style = styleOf(k);
        ruler.axis = axis(k);
        ruler.unit = _units[k];
        Segment const& edge = labels.edges[k];
        ruler.direction = labels.directions[k];
        ruler.place = Segment(projector.onScreen(edge.A()), projector.onScreen(edge.B()));
        ruler.discrete = !_discreteLabels[k].isEmpty();
        if (ruler.discrete) {
            ruler.divisions = CalcAxisDivs(edge, int(_discreteLabels[k].size()), projector);
            ruler.divisions.labels = texts(_discreteLabels[k]);
        } else {
            ruler.divisions = CalcContAxisDivs(edge, k, count, context.numberFormat, projector);
        }
        ruler.divisions.add(edge.B(), screenOf(projector));
        rulers.push_back(std::move(ruler));
    }
    return rulers;
}

fen::AxisDivisions FenVisAxesXYZ::CalcAxisDivs(Segment const& edge, int p_divisions,
                                               Projector const& projector) const
{
    return fen::discreteDivisions(edge, p_divisions, screenOf(projector));
}

fen::AxisDivisions FenVisAxesXYZ::CalcContAxisDivs(Segment const& edge, Vector3::Comp k, unsigned count,
                                                   Kes::Math::NumberFormat const& format,
                                                   Projector const& projector) const
{
    return fen::continuousDivisions(edge, {k, _scaling, _offset}, count, format, screenOf(projector));
}

unsigned FenVisAxesXYZ::CalcDivsCount(Projector const& projector)
{
    return fen::divisionCount(projector.viewport(), projector.modelView());
}

void FenVisAxesXYZ::GetDiscreteDivs(DrawContext const& context, std::vector<Vector3>& x,
                                    std::vector<Vector3>& y, std::vector<Vector3>& z) const
{
    std::vector<Vector3>* const results[] = {&x, &y, &z};
    for (std::vector<Vector3>* const result : results) result->clear();
    if (!FENVIS_ENSURE(_bounds.defined(), "_bounds.defined()")) return;
    Projector const projector(context.modelView, context.projection, context.viewport);
    for (unsigned k = 0; k < 3; ++k) {
        if (_discreteLabels[k].isEmpty()) continue;
        Segment const edge(_bounds.min(), axisEnd(k));
        *results[k] = CalcAxisDivs(edge, int(_discreteLabels[k].size()), projector).points;
    }
}
