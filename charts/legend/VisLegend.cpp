#include "charts/legend/VisLegend.h"

#include "charts/VisChart.h"
#include "charts/correlation/VisChartCorrelation.h"
#include "charts/legend/LegendMultiAxis.h"
#include "charts/legend/LegendSpiderAxes.h"
#include "charts/legend/VisLegend.handler.h"
#include "charts/legend/VisLegend.parts.h"
#include "charts/painting/PickShapes.h"
#include "charts/parallel/VisChartPCP.h"
#include "charts/spider/VisChartSpider.h"
#include "framework/DrawContext.h"
#include "framework/VisList.h"
#include "picking/hits/VisHitRecordList.h"
#include "services/chartdata/ChartValidVariableList.h"
#include "services/chartdata/ChartVariable.h"
#include "services/math/BoundingBox.h"
#include "services/math/Vector2.h"
#include "services/opengl/BoxPlacement.h"
#include "services/properties/SiblingName.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace {

/// Values beside a colour ramp, at most.
constexpr unsigned rampIntervals = 17;

} // namespace

QString const FenVisLegend::typeString = QStringLiteral("visualization.legend");

FenVisLegend::FenVisLegend(FenModifiedGroup& group)
    : FenVisualization(group)
    , legend(group)
    , _handler(boost::make_shared<HitDetectEventHandler>(*this))
{
    legend.rename(QStringLiteral("legend"));
    insert(&legend, true);
    rename(typeString);
    setType(typeString);
    layer.set(100);
    thumbnail.set(false);
    lineColor.set(Qt::transparent);
    fillColor.set(Qt::transparent);
    selectable.set(true);
}

FenVisLegend::FenVisLegend(FenVisLegend const& other)
    : FenVisualization(other)
    , legend(other.legend)
    , _handler(other._handler)
{
    legend.rename(QStringLiteral("legend"));
    insert(&legend, true);
    rename(typeString);
    setType(typeString);
}

FenVisLegend& FenVisLegend::operator=(FenVisLegend const& other)
{
    if (this == &other) return *this;
    unlink(); // the link is this node's own; the next update makes it anew
    FenVisualization::operator=(other);
    legend = other.legend;
    _handler = other._handler;
    return *this;
}

FenVisLegend::~FenVisLegend() { unlink(); }

void FenVisLegend::onDependentRename(QString const& oldName, QString const& newName)
{
    FenVisualization::onDependentRename(oldName, newName);
    fen::followRename(legend.chart, oldName, newName);
}

bool FenVisLegend::getViewport(FenOglViewport const& parent, FenOglViewport& own) const
{
    FenVisualization const* const chart = _chart.get();
    if (!chart) return false;
    FenOglViewport place;
    if (!chart->getViewport(parent, place)) place = parent;
    FenOglViewport const data = chart->getDataViewport();
    own = FenOglViewport(place.x() + data.x(), place.y() + data.y(), data.width(), data.height());
    return true;
}

void FenVisLegend::unlink()
{
    if (FenVisualization* const source = _source.get()) source->depend().erase(*this);
    _source = fen::view_ptr<FenVisualization>();
    _chart = fen::view_ptr<FenVisualization>();
}

void FenVisLegend::dependOn(FenVisualization& source)
{
    _source = fen::view_ptr<FenVisualization>(&source);
    source.depend().insert(*this);
}

void FenVisLegend::update(DrawContext const& context)
{
    _entries.clear();
    _unlisted = 0;
    _bins = fen::LegendBins();
    _collected = true;
    _layoutArea = QSize();
    _rectangles.clear();
    _box.reset();
    unlink();
    auto* const list = dynamic_cast<FenVisList*>(parent());
    if (!list || legend.chart.get().isEmpty()) return;
    FenVisualization* const chart = list->at(legend.chart.get());
    if (!chart || chart == this || !chart->enabled.get()) {
        dependOn(*list); // the chart may come, or be enabled again
        return;
    }
    dependOn(*chart);
    _chart = fen::view_ptr<FenVisualization>(chart);
    _numberFormat = context.numberFormat;
    _collected = false; // the chart's own update may still come
}

void FenVisLegend::collectEntries() const
{
    if (_collected) return;
    _collected = true;
    auto const* const chart = dynamic_cast<FenVisChart const*>(_chart.get());
    if (!chart) return;
    if (dynamic_cast<FenChartMultiAxis const*>(const_cast<FenVisChart*>(chart)->content()))
        return collectItems(*chart);
    if (auto const* const matrix = dynamic_cast<FenVisChartCorrelation const*>(chart)) {
        for (double const edge : matrix->binEdges())
            _bins.edges.append(QString::fromStdString(_numberFormat.format(edge)));
        _bins.colors = matrix->binColors();
    }
    FenChartValidVariableList const variables = chart->validVariables();
    for (unsigned i = 0; i < variables.size(); ++i) {
        if (!variables.alive(i)) continue;
        FenChartVariable const& variable = variables.variable(i);
        if (!variable.legend.get()) continue;
        Kes::Math::Vector2 range = variables.minmax(i);
        chart->colorRange(variable, range);
        Variable entry{&variable, fen::VariableStyle(variable), {}, {}, {}};
        if (range.y() > range.x())
            entry.intervals = Kes::Math::NiceIntervals(double(range.x()), double(range.y()), rampIntervals,
                                                       true, true, _numberFormat);
        _entries.push_back(entry);
    }
}

/// The valid items, and the axes of a spider, which has no other place for their ranges.
void FenVisLegend::collectItems(FenVisChart const& chart) const
{
    auto const* const spider = dynamic_cast<FenVisChartSpider const*>(&chart);
    auto const* const parallel = dynamic_cast<FenVisChartPCP const*>(&chart);
    if (!spider && !parallel) return;
    FenChartMultiAxis const& content = spider ? spider->chart : parallel->chart;
    fen::LegendItems const items =
        fen::legendItems(content, spider ? spider->GetDataValid() : parallel->GetDataValid());
    _unlisted = items.others;
    for (fen::LegendItem const& item : items.listed) {
        Variable entry;
        entry.text = item.label;
        entry.color = item.color;
        _entries.push_back(entry);
    }
    FenChartValidVariableList const variables = chart.validVariables();
    for (unsigned i = 0; spider && i < variables.size(); ++i) {
        if (!variables.alive(i) || !variables.variable(i).legend.get()) continue;
        FenChartVariable const& variable = variables.variable(i);
        Variable entry;
        entry.variable = fen::view_ptr<FenChartVariable const>(&variable);
        entry.text = fen::spiderAxisText(content, variable, _numberFormat);
        entry.color = variable.colors.get().isEmpty() ? QColor(Qt::black) : variable.colors.get().first();
        _entries.push_back(entry);
    }
}

bool FenVisLegend::placedAutomatically() const { return fen::BoxPlacement(legend.viewport).untouched(); }

void FenVisLegend::resize(DrawContext const& context)
{
    _layoutArea = QSize();
    auto const items = [](Variable const& entry) { return entry.items(); };
    if (_chart && std::any_of(_entries.begin(), _entries.end(), items)) {
        // The axes that there was no room for may have some now.
        _entries.clear();
        _unlisted = 0;
        _collected = false;
    }
    layOut(context.text, context.viewport.size());
}

FenOglViewport FenVisLegend::calcLegendViewport(QSize const& size, FenOglViewport const& viewport) const
{
    QPoint corner = _place;
    if (fen::BoxDrag const& drag = _handler->drag(); drag.active())
        corner = drag.box().origin();
    else if (!placedAutomatically())
        corner = fen::BoxPlacement(legend.viewport, size).within(viewport).origin();
    FenOglViewport const box(corner.x(), corner.y(), size.width(), size.height());
    return fen::keptInside(box, FenOglViewport(0, 0, viewport.width(), viewport.height()));
}

std::vector<FenChartVariable const*> FenVisLegend::entries() const
{
    collectEntries();
    std::vector<FenChartVariable const*> alive;
    for (Variable const& entry : _entries)
        if (entry.variable) alive.push_back(entry.variable.get());
    return alive;
}

FenOglViewport FenVisLegend::entryRectangle(unsigned i) const
{
    return i < _rectangles.size() ? _rectangles[i] : FenOglViewport();
}

void FenVisLegend::draw3d(DrawContext const&) const { }

FenVisHitRecordList FenVisLegend::select3d(SelectContext const&) const { return FenVisHitRecordList(); }

FenVisHitRecordList FenVisLegend::select2d(SelectContext const& context) const
{
    FenVisHitTable& names = hitProperties();
    names.clear();
    if (!_chart || empty() || !_box.valid()) return FenVisHitRecordList();
    QRect const picked = fen::pickedPixels(context.point, context.size);
    auto const meets = [&](FenOglViewport const& rectangle) {
        return rectangle.valid() && picked.intersects(QRect(rectangle.origin(), rectangle.size()));
    };
    if (!meets(_box)) return FenVisHitRecordList();

    std::vector<FenVisHitRecord> records{FenVisHitRecord::catchall()};
    names.insert(FenVisHitRecord::DEFAULT_NAME, FenVisHitProperty(this));
    for (unsigned i = 0; i < _entries.size(); ++i) {
        FenChartVariable const* const variable = _entries[i].variable.get();
        if (!variable || !meets(entryRectangle(i))) continue;
        quint32 const name = FenVisHitRecord::START_NAME + i;
        names.insert(name, FenVisHitProperty(variable));
        records.emplace_back(name, double(FenVisHitRecord::OVERLAY_DEPTH));
    }
    return FenVisHitRecordList(records, _handler, this, layer.get());
}

Kes::Math::BoundingBox FenVisLegend::boundingBox() const { return Kes::Math::BoundingBox(); }
