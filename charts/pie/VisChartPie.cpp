#include "charts/pie/VisChartPie.h"

#include "charts/pie/PiePicture.h"
#include "charts/pie/VisChartPie.handler.h"
#include "framework/DrawContext.h"
#include "services/chartdata/ChartValidVariableList.h"
#include "services/math/BoundingBox.h"
#include "services/opengl/OglText.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

QString const FenVisChartPie::typeString = QStringLiteral("visualization.chart.pie");

FenVisChartPie::FenVisChartPie(FenModifiedGroup& group)
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

FenVisChartPie::FenVisChartPie(FenVisChartPie const& other)
    : FenVisChart(other)
    , chart(other.chart)
    , _dataViewport(other._dataViewport)
    , _variableCache(other._variableCache)
    , _picture(other._picture)
    , _handler(other._handler)
{
    rename(typeString);
    setType(typeString);
    chart.rename(QStringLiteral("chart"));
    insert(&chart, true);
}

FenVisChartPie::~FenVisChartPie() = default;

FenOglViewport FenVisChartPie::getDataViewport() const { return _dataViewport; }

Kes::Math::BoundingBox FenVisChartPie::boundingBox() const { return Kes::Math::BoundingBox(); }

FenChart* FenVisChartPie::content() { return &chart; }

FenChartVariableList* FenVisChartPie::variables() { return &chart.variables; }

FenChartValidVariableList FenVisChartPie::validVariables() const
{
    FenChartValidVariableList list;
    for (unsigned i = 0; i < _variableCache.size(); ++i)
        if (_variableCache.cache(i).alive()) list.push_back(_variableCache.cache(i));
    return list;
}

void FenVisChartPie::update(DrawContext const&)
{
    _dataViewport.reset();
    _picture.reset();
    _handler->forget();
    _variableCache = FenChartVariableListCache(chart.variables);
}

void FenVisChartPie::resize(DrawContext const& context)
{
    _picture.reset();
    _dataViewport.reset();
    FenOglViewport data;
    if (!calcDataViewport(context, chart, data)) return;
    _dataViewport = data;
    std::vector<fen::PieItem> items;
    std::vector<fen::PieStyle> styles;
    for (unsigned i = 0; i < _variableCache.size(); ++i) {
        FenChartVariableCache const& cache = _variableCache.cache(i);
        items.push_back({cache.variable().ring.get(), cache.y(0)});
        styles.emplace_back(cache.variable());
    }
    _picture = std::make_shared<fen::PiePicture const>(data, items, std::move(styles),
                                                       chart.showPercent.get(), context.text);
    context.text.clear();
}

/// The disc, on a grid, and its edge.
std::vector<QPoint> FenVisChartPie::drawnPixels(std::size_t limit) const
{
    std::vector<QPoint> ink;
    if (!_picture || _picture->layout.radius < 1 || limit == 0) return ink;
    int const radius = _picture->layout.radius;
    QPoint const middle(_dataViewport.width() / 2, _dataViewport.height() / 2);
    int const step = std::max(1, int(std::ceil(2 * radius / std::sqrt(double(limit)))));
    for (double angle = 0; angle < 6.3; angle += double(step) / radius)
        ink.push_back(middle + QPoint(int(std::sin(angle) * radius), int(std::cos(angle) * radius)));
    for (int y = -radius; y <= radius; y += step)
        for (int x = -radius; x <= radius; x += step)
            if (std::hypot(x, y) <= radius) ink.push_back(middle + QPoint(x, y));
    return ink;
}

void FenVisChartPie::draw2d(DrawContext const& context) const
{
    drawSelect2d(context, FenVisOglSelectWeakPtr());
}

void FenVisChartPie::draw3d(DrawContext const&) const { }

FenVisHitRecordList FenVisChartPie::select3d(SelectContext const&) const { return FenVisHitRecordList(); }
