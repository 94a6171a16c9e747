#include "charts/correlation/VisChartCorrelation.h"

#include "charts/correlation/CorrelationPicture.h"
#include "charts/correlation/VisChartCorrelation.handler.h"
#include "framework/DrawContext.h"
#include "services/math/BoundingBox.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

namespace {

/// Numbers from one to another, at most `step` apart, both ends among them.
std::vector<int> steps(int from, int to, int step)
{
    std::vector<int> places;
    for (int place = from; place < to; place += step) places.push_back(place);
    places.push_back(to);
    return places;
}

} // namespace

QString const FenVisChartCorrelation::typeString = QStringLiteral("visualization.chart.correlation");

FenVisChartCorrelation::FenVisChartCorrelation(FenModifiedGroup& group)
    : FenVisChart(group)
    , chart(group)
    , _handler(boost::make_shared<HitDetectEventHandler>(*this))
{
    rename(typeString);
    setType(typeString);
    chart.rename(QStringLiteral("chart"));
    insert(&chart, true);
    selectable.set(true);
}

FenVisChartCorrelation::FenVisChartCorrelation(FenVisChartCorrelation const& other)
    : FenVisChart(other)
    , chart(other.chart)
    , _dataViewport(other._dataViewport)
    , _matrix(other._matrix)
    , _picture(other._picture)
    , _handler(other._handler)
{
    rename(typeString);
    setType(typeString);
    chart.rename(QStringLiteral("chart"));
    insert(&chart, true);
}

FenVisChartCorrelation::~FenVisChartCorrelation() = default;

FenOglViewport FenVisChartCorrelation::getDataViewport() const { return _dataViewport; }

Kes::Math::BoundingBox FenVisChartCorrelation::boundingBox() const { return Kes::Math::BoundingBox(); }

FenChart* FenVisChartCorrelation::content() { return &chart; }

FenChartVariableList* FenVisChartCorrelation::variables() { return &chart.variables; }

std::vector<double> FenVisChartCorrelation::binEdges() const
{
    return _matrix ? _matrix->bins.edges() : std::vector<double>();
}

std::vector<QColor> FenVisChartCorrelation::binColors() const
{
    std::vector<QColor> colors;
    for (unsigned bin = 0; _matrix && bin < _matrix->bins.count(); ++bin)
        colors.push_back(_matrix->color(bin));
    return colors;
}

double FenVisChartCorrelation::value(unsigned row, unsigned column) const
{
    return _matrix ? _matrix->value(row, column) : std::nan("");
}

/// The matrix and the places of the names, on a grid.
std::vector<QPoint> FenVisChartCorrelation::drawnPixels(std::size_t limit) const
{
    std::vector<QPoint> ink;
    if (!_picture || !_picture->layout.matrix.valid() || limit == 0) return ink;
    FenOglViewport const& area = _picture->layout.matrix;
    QPoint const corner = area.origin() - _dataViewport.origin();
    double const pixels = double(_dataViewport.width()) * _dataViewport.height();
    int const step = std::max(1, int(std::ceil(std::sqrt(pixels / double(limit)))));
    int const right = corner.x() + area.width() - 1, top = corner.y() + area.height() - 1;
    for (int const y : steps(corner.y(), top, step)) // row names and cells
        for (int const x : steps(0, right, step)) ink.emplace_back(x, y);
    for (int const y : steps(top + 1, _dataViewport.height() - 1, step)) // column names
        for (int const x : steps(corner.x(), right, step)) ink.emplace_back(x, y);
    return ink;
}

void FenVisChartCorrelation::draw3d(DrawContext const&) const { }

FenVisHitRecordList FenVisChartCorrelation::select3d(SelectContext const&) const
{
    return FenVisHitRecordList();
}
