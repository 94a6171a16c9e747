#include "charts/spider/VisChartSpider.h"

#include "charts/ChartMetrics.h"
#include "charts/multiaxis/ItemAxis.h"
#include "charts/multiaxis/ItemPicture.h"
#include "charts/spider/SpiderLayout.h"
#include "charts/spider/VisChartSpider.handler.h"
#include "framework/DrawContext.h"
#include "picking/hits/VisHitRecordList.h"
#include "services/math/BoundingBox.h"
#include "services/opengl/OglText.h"

#include <boost/make_shared.hpp>

#include <limits>

namespace {

constexpr int inkStep = 2; // [px] between samples of a name
constexpr int pad = 4; // [px] around the circle, for lines that run along its edge

} // namespace

QString const FenVisChartSpider::typeString = QStringLiteral("visualization.chart.spider");

FenVisChartSpider::FenVisChartSpider(FenModifiedGroup& group)
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

FenVisChartSpider::FenVisChartSpider(FenVisChartSpider const& other)
    : FenVisChart(other)
    , chart(other.chart)
    , _variableCache(other._variableCache)
    , _validVariables(other._validVariables)
    , _dataValid(other._dataValid)
    , _numberFormat(other._numberFormat)
    , _dataViewport(other._dataViewport)
    , _axes(other._axes)
    , _ticks(other._ticks)
    , _layout(other._layout)
    , _picture(other._picture)
    , _handler(other._handler)
{
    rename(typeString);
    setType(typeString);
    chart.rename(QStringLiteral("chart"));
    insert(&chart, true);
}

FenVisChartSpider::~FenVisChartSpider() = default;

FenOglViewport FenVisChartSpider::getDataViewport() const { return _dataViewport; }

Kes::Math::BoundingBox FenVisChartSpider::boundingBox() const { return Kes::Math::BoundingBox(); }

FenChartValidVariableList FenVisChartSpider::validVariables() const { return _validVariables; }

int FenVisChartSpider::GetMaxDataSize() const
{
    std::size_t const longest = _variableCache.maxScalarLen();
    return int(std::min<std::size_t>(longest, std::numeric_limits<int>::max()));
}

void FenVisChartSpider::update(DrawContext const& context)
{
    _numberFormat = context.numberFormat;
    _handler->forget();
    _dataViewport.reset();
    _layout.reset();
    _picture.reset();
    _axes = std::make_shared<std::vector<fen::ItemAxis> const>(
        fen::readItems(chart, _variableCache, _validVariables));
    _dataValid = fen::validItems(*_axes, {}, std::size_t(GetMaxDataSize()));
}

void FenVisChartSpider::resize(DrawContext const& context)
{
    _dataViewport.reset();
    _layout.reset();
    _picture.reset();
    if (!_axes || !calcDataViewport(context, chart, _dataViewport)) return;
    FenOglText& text = context.text;
    text.clear();
    text.setPointSize(fen::ChartMetrics::labelPointSize);
    int const h = text.height();
    std::vector<int> names;
    for (unsigned i = 0; i < _axes->size(); ++i) {
        // Longer names than the picture is wide are cut when they are drawn; they need not be measured whole.
        QString const name = fen::itemAxisLabel(_validVariables.variable(i)).left(_dataViewport.width());
        names.push_back(text.size(name).width());
    }
    text.clear();
    auto layout = fen::layoutSpider(_dataViewport, names, h);
    if (layout.radius <= 0) return;
    layout.ticks = fen::spiderTicks(context.viewport.size(), h);
    _layout = std::make_shared<fen::SpiderLayout const>(layout);
    std::vector<std::vector<fen::ItemTick>> ticks;
    for (fen::ItemAxis const& axis : *_axes) ticks.push_back(axis.ticks(layout.ticks, _numberFormat));
    _ticks = std::make_shared<std::vector<std::vector<fen::ItemTick>> const>(std::move(ticks));
    makePicture();
}

void FenVisChartSpider::makePicture()
{
    std::size_t const axes = _axes->size(), items = _dataValid.size();
    std::vector<Kes::Math::Vector2> points(axes * items);
    for (std::size_t k = 0; k < axes; ++k) {
        fen::ItemAxis const& axis = (*_axes)[k];
        for (std::size_t i = 0; i < items; ++i)
            points[k * items + i] = _layout->point(k, axis.fraction(axis.value(i)));
    }
    int const reach = _layout->radius + pad;
    QPoint const corner = _layout->center - QPoint(reach, reach);
    FenOglViewport const area(corner.x(), corner.y(), 2 * reach + 1,
                              2 * reach + 1); // its middle is the centre's
    fen::ItemLook look;
    look.colors = chart.itemColors.get();
    look.closed = true;
    look.filled = chart.fillMode.get() == FenChart::fillSolid;
    _picture = std::make_shared<fen::ItemPicture>(area, axes, std::move(points), _dataValid, look);
}

void FenVisChartSpider::draw2d(DrawContext const& context) const
{
    drawSelect2d(context, QRectF(), FenVisOglSelectWeakPtr());
}

std::vector<QPoint> FenVisChartSpider::drawnPixels(std::size_t limit) const
{
    std::vector<QPoint> places = _picture ? _picture->ink(limit) : std::vector<QPoint>();
    // Names are small, but must not be hidden.
    for (std::size_t i = 0; _layout && i < _layout->labels.size(); ++i) {
        QRect const& name = _layout->labels[i].shown;
        for (int x = name.left(); x <= name.right(); x += inkStep)
            for (int y = name.top(); y <= name.bottom(); y += inkStep) places.emplace_back(x, y);
    }
    for (QPoint& place : places) place -= getDataViewport().origin();
    return places;
}

void FenVisChartSpider::highlight(FenVisHitProperty const& part) { _handler->setHovered(part); }

void FenVisChartSpider::draw3d(DrawContext const&) const { }

FenVisHitRecordList FenVisChartSpider::select3d(SelectContext const&) const { return FenVisHitRecordList(); }
