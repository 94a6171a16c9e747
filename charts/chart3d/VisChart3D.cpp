#include "charts/chart3d/VisChart3D.h"

#include "charts/chart3d/VisChart3D.handler.h"
#include "charts/chart3d/VisChart3D.parts.h"
#include "services/opengl/OglGeometry.h"

#include <boost/make_shared.hpp>

using Kes::Math::Vector3;

QString const FenVisChart3D::typeString = QStringLiteral("visualization.chart.3d");

FenVisChart3D::FenVisChart3D(FenModifiedGroup& group)
    : FenVisChart(group)
    , chart(group)
    , axes(group)
    , _handler(boost::make_shared<HitDetectEventHandler>(*this))
{
    rename(typeString);
    setType(typeString);
    layer.set(90);
    thumbnail.set(false);
    chart.rename(QStringLiteral("chart"));
    insert(&chart, true);
    axes.rename(QStringLiteral("axes"));
    insert(&axes, true);
    selectable.set(true);
}

FenVisChart3D::FenVisChart3D(FenVisChart3D const& other)
    : FenVisChart(other)
    , chart(other.chart)
    , axes(other.axes)
    , _handler(boost::make_shared<HitDetectEventHandler>(*this))
{
    rename(typeString);
    setType(typeString);
    chart.rename(QStringLiteral("chart"));
    insert(&chart, true);
    axes.rename(QStringLiteral("axes"));
    insert(&axes, true);
}

FenVisChart3D& FenVisChart3D::operator=(FenVisChart3D const& other)
{
    if (this == &other) return *this;
    FenVisChart::operator=(other);
    chart = other.chart;
    axes = other.axes;
    return *this;
}

FenVisChart3D::~FenVisChart3D() = default;

FenOglViewport FenVisChart3D::getDataViewport() const { return _dataViewport; }

Kes::Math::BoundingBox FenVisChart3D::boundingBox() const { return _bounds; }

FenChartValidVariableList FenVisChart3D::validVariables() const { return _validVariables; }

FenChart* FenVisChart3D::content() { return &chart; }

FenChartVariableList* FenVisChart3D::variables() { return &chart.variables; }

FenChartAxisPair* FenVisChart3D::axisPair(Vector3::Comp direction)
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

Vector3 FenVisChart3D::offset() const { return _offset; }

Vector3 FenVisChart3D::scaling() const { return _scaling; }

Vector3 FenVisChart3D::place(Vector3 const& point) const
{
    return FenOglGeometry::Project(point, _scaling, _offset);
}

void FenVisChart3D::draw2d(DrawContext const& context) const { drawTitle(context, chart); }

FenVisHitRecordList FenVisChart3D::select2d(SelectContext const&) const { return FenVisHitRecordList(); }
