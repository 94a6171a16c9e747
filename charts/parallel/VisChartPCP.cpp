#include "charts/parallel/VisChartPCP.h"

#include "charts/multiaxis/ItemAxis.h"
#include "charts/multiaxis/ItemPicture.h"
#include "charts/parallel/ParallelLayout.h"
#include "charts/parallel/VisChartPCP.handler.h"
#include "picking/hits/VisHitRecordList.h"
#include "services/math/BoundingBox.h"

#include <boost/make_shared.hpp>

#include <limits>

QString const FenVisChartPCP::typeString = QStringLiteral("visualization.chart.parallel");

FenVisChartPCP::FenVisChartPCP(FenModifiedGroup& group)
    : FenVisChart(group)
    , chart(group)
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

FenVisChartPCP::FenVisChartPCP(FenVisChartPCP const& other)
    : FenVisChart(other)
    , chart(other.chart)
    , _variableCache(other._variableCache)
    , _validVariables(other._validVariables)
    , _filterRanges(other._filterRanges)
    , _dataRanges(other._dataRanges)
    , _dataValid(other._dataValid)
    , _minLabels(other._minLabels)
    , _maxLabels(other._maxLabels)
    , _displayFactors(other._displayFactors)
    , _first(other._first)
    , _numberFormat(other._numberFormat)
    , _axes(other._axes)
    , _layout(other._layout)
    , _picture(other._picture)
    , _propertyEdit(other._propertyEdit)
    , _handler(other._handler)
{
    rename(typeString);
    setType(typeString);
    chart.rename(QStringLiteral("chart"));
    insert(&chart, true);
}

FenVisChartPCP::~FenVisChartPCP() = default;

FenOglViewport FenVisChartPCP::getDataViewport() const { return _layout ? _layout->plot : FenOglViewport(); }

Kes::Math::BoundingBox FenVisChartPCP::boundingBox() const { return Kes::Math::BoundingBox(); }

FenChartValidVariableList FenVisChartPCP::validVariables() const { return _validVariables; }

int FenVisChartPCP::GetMaxDataSize() const
{
    std::size_t const longest = _variableCache.maxScalarLen();
    return int(std::min<std::size_t>(longest, std::numeric_limits<int>::max()));
}

void FenVisChartPCP::draw2d(DrawContext const& context) const
{
    _propertyEdit = context.propertyEdit;
    drawSelect2d(context, QRectF(), FenVisOglSelectWeakPtr());
}

std::vector<QPoint> FenVisChartPCP::drawnPixels(std::size_t limit) const
{
    std::vector<QPoint> places = _picture ? _picture->ink(limit) : std::vector<QPoint>();
    for (QPoint& place : places) place -= getDataViewport().origin();
    return places;
}

void FenVisChartPCP::highlight(FenVisHitProperty const& part) { _handler->setHovered(part); }

void FenVisChartPCP::draw3d(DrawContext const&) const { }

FenVisHitRecordList FenVisChartPCP::select3d(SelectContext const&) const { return FenVisHitRecordList(); }
