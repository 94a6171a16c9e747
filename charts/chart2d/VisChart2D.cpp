#include "charts/chart2d/VisChart2D.h"

#include "charts/chart2d/VariablePicture.h"
#include "charts/chart2d/VisChart2D.handler.h"
#include "framework/DrawContext.h"

#include <boost/make_shared.hpp>

using Kes::Math::Vector3;

QString const FenVisChart2D::typeString = QStringLiteral("visualization.chart.2d");

FenVisChart2D::FenVisChart2D(FenModifiedGroup& group)
    : FenVisChart(group)
    , chart(group)
    , _axes(group)
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
    , _dataViewport(other._dataViewport)
    , _bounds(other._bounds)
    , _scaling(other._scaling)
    , _offset(other._offset)
    , _variableCache(other._variableCache)
    , _xScale(other._xScale)
    , _yScale(other._yScale)
    , _perVariableScaling(other._perVariableScaling)
    , _validVariables(other._validVariables)
    , _pictures(other._pictures)
    , _handler(other._handler)
{
    rename(typeString);
    setType(typeString);
    chart.rename(QStringLiteral("chart"));
    insert(&chart, true);
}

FenVisChart2D::~FenVisChart2D() = default;

FenOglViewport FenVisChart2D::getDataViewport() const { return _dataViewport; }

Kes::Math::BoundingBox FenVisChart2D::boundingBox() const { return _bounds; }

FenChartValidVariableList FenVisChart2D::validVariables() const { return _validVariables; }

FenChart* FenVisChart2D::content() { return &chart; }

FenChartVariableList* FenVisChart2D::variables() { return &chart.variables; }

FenChartAxisPair* FenVisChart2D::axes(Vector3::Comp direction)
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

bool FenVisChart2D::colorRange(FenChartVariable const& variable, Kes::Math::Vector2& range) const
{
    for (unsigned i = 0; i < _perVariableScaling.size(); ++i) {
        if (&_perVariableScaling.variable(i).variable() != &variable) continue;
        gradientExtents(i, range);
        return true;
    }
    return false;
}

Kes::Math::Vector3 FenVisChart2D::offset() const { return _offset; }

Kes::Math::Vector3 FenVisChart2D::scaling() const { return _scaling; }

void FenVisChart2D::gradientExtents(unsigned i, Kes::Math::Vector2& range) const
{
    double base = 0;
    _perVariableScaling.gradientExtents(i, Kes::Math::Vector3::CompY, range, base);
}

void FenVisChart2D::draw2d(DrawContext const& context) const
{
    drawSelect2d(context, QPoint(0, 0), FenVisOglSelectWeakPtr());
}

void FenVisChart2D::draw3d(DrawContext const& context) const
{
    drawSelect3d(context, QPoint(0, 0), FenVisOglSelectWeakPtr());
}
