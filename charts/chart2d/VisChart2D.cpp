#include "charts/chart2d/VisChart2D.h"

#include "charts/chart2d/DrawnVariable.h"
#include "charts/chart2d/VisChart2D.handler.h"
#include "framework/DrawContext.h"
#include "services/chartdata/FloatRange.h"

#include <boost/make_shared.hpp>

using Kes::Math::Vector2;
using Kes::Math::Vector3;

QString const FenVisChart2D::typeString = QStringLiteral("visualization.chart.2d");

FenVisChart2D::FenVisChart2D(FenModifiedGroup& group)
    : FenVisChart(group)
    , chart(group)
    , _axes(group)
    , _axes3d(group)
    , _scaling(Kes::Math::Vector1)
    , _handler(boost::make_shared<HitDetectEventHandler>(*this))
{
    rename(typeString);
    setType(typeString);
    layer.set(90);
    thumbnail.set(false);
    chart.rename(QStringLiteral("chart"));
    insert(&chart, true);
    selectable.set(true);
}

FenVisChart2D::FenVisChart2D(FenVisChart2D const& other)
    : FenVisChart(other)
    , chart(other.chart)
    , _axes(other._axes)
    , _axes3d(other._axes3d)
    , _dataViewport(other._dataViewport)
    , _bounds(other._bounds)
    , _scaling(other._scaling)
    , _offset(other._offset)
    , _xScale(other._xScale)
    , _yScale(other._yScale)
    , _variables(other._variables)
    , _sheets(other._sheets)
    , _sheetDepths(other._sheetDepths)
    , _sheetBox(other._sheetBox)
    , _handler(other._handler)
{
    rename(typeString);
    setType(typeString);
    chart.rename(QStringLiteral("chart"));
    insert(&chart, true);
}

FenVisChart2D& FenVisChart2D::operator=(FenVisChart2D const& other) = default;

FenVisChart2D::~FenVisChart2D() = default;

FenOglViewport FenVisChart2D::getDataViewport() const { return _dataViewport; }

Kes::Math::BoundingBox FenVisChart2D::boundingBox() const { return _bounds; }

FenChartValidVariableList FenVisChart2D::validVariables() const
{
    FenChartValidVariableList valid;
    for (fen::DrawnVariable const& one : _variables)
        if (one.valid()) valid.push_back(one.cache);
    return valid;
}

FenChart* FenVisChart2D::content() { return &chart; }

FenChartVariableList* FenVisChart2D::variables() { return &chart.variables; }

FenChartAxisPair* FenVisChart2D::axisPair(Vector3::Comp direction)
{
    switch (direction) {
    case Vector3::CompX:
        return &chart.xAxes;
    case Vector3::CompY:
        return &chart.yAxes;
    default:
        return &chart.zAxes;
    }
}

FenChartAxisPairScale const* FenVisChart2D::flatScales(Vector3::Comp direction) const
{
    if (chart.view3D.get() || direction == Vector3::CompZ) return nullptr;
    return direction == Vector3::CompX ? &_xScale : &_yScale;
}

fen::DrawnVariable const* FenVisChart2D::find(FenChartVariable const& variable) const
{
    for (fen::DrawnVariable const& one : _sheets.empty() ? _variables : _sheets)
        if (one.cache.alive() && &one.variable() == &variable) return &one;
    return nullptr;
}

bool FenVisChart2D::colorRange(FenChartVariable const& variable, Vector2& range) const
{
    fen::DrawnVariable const* const one = find(variable);
    if (!one || !one->valid()) return false;
    range = Vector2(fen::toFloat(one->range.min), fen::toFloat(one->range.max));
    return true;
}

Kes::Math::Vector3 FenVisChart2D::offset() const { return _offset; }

Kes::Math::Vector3 FenVisChart2D::scaling() const { return _scaling; }

void FenVisChart2D::gradientExtents(unsigned i, Vector2& range) const
{
    FenChartRange const exact = i < _variables.size() ? _variables[i].range : FenChartRange{0.0, 0.0};
    range = Vector2(fen::toFloat(exact.min), fen::toFloat(exact.max));
}

void FenVisChart2D::draw2d(DrawContext const& context) const
{
    drawSelect2d(context, QPoint(0, 0), FenVisOglSelectWeakPtr());
}

void FenVisChart2D::highlight(FenVisHitProperty const& part) { _handler->setHovered(part); }

void FenVisChart2D::draw3d(DrawContext const& context) const
{
    drawSelect3d(context, QPoint(0, 0), FenVisOglSelectWeakPtr());
}
