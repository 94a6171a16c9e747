#include "tests/support/SceneBuilder.h"

#include "framework/IVisPropertyEdit.h"
#include "framework/UpdateContext.h"
#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitRecordQuery.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisScale.h"
#include "services/chartdata/ChartVariable.h"
#include "services/chartdata/ChartVariableListCache.h"

#include <boost/make_shared.hpp>

#include <cmath>

using Kes::Math::Vector3;

namespace {

/// Writes what a pass found into the tree and keeps a record.
class PassEdit : public IFenVisPropertyEdit {
public:
    PassEdit(QStringList& record, std::function<void()> const& onEdit)
        : _record(record)
        , _onEdit(onEdit)
    {
    }
    void beginEdit() override { _record << QStringLiteral("begin"); }
    void editProperty(FenProperties&, FenProperties& item, QString const& key, QString const& value) override
    {
        _record << item.name() + QLatin1Char('.') + key + QLatin1Char('=') + value;
        if (_onEdit) return _onEdit();
        item.setValue(key, value);
    }
    void endEdit() override { _record << QStringLiteral("end"); }

private:
    QStringList& _record;
    std::function<void()> const& _onEdit;
};

FenVisHitProperty hitOf(FenVisHitRecordList const& hits, FenVisHitRecord* record = nullptr)
{
    if (!FenVisHitRecordQuery::any(hits)) return FenVisHitProperty();
    FenVisualization const* source = nullptr;
    FenVisHitRecord const top = FenVisHitRecordQuery::top(hits, nullptr, &source);
    if (record) *record = top;
    return source->hitProperty(top.context());
}

} // namespace

QString describeHit(FenVisHitProperty const& hit)
{
    if (!hit.defined()) return QStringLiteral("nothing");
    QString const name = hit.property->name();
    QString text = name;
    if (dynamic_cast<FenChartVariable const*>(hit.property)) text = QStringLiteral("variable ") + name;
    if (dynamic_cast<FenChartAxis const*>(hit.property)) text = QStringLiteral("axis ") + name;
    return hit.qualifier ? text + QLatin1String(", ") + hit.qualifier->toString() : text;
}

ChartScene::ChartScene(QSize const& size)
    : cache(resource)
    , text(cache)
    , chart(std::make_unique<FenVisChart2D>(group))
    , _size(size)
    , _edit(boost::make_shared<PassEdit>(edits, onEdit))
{
    chart->enabled.set(true);
    chart->chart.xAxes.setFirst(QStringLiteral("x"), FenChartAxisContinuous::typeString);
    chart->chart.yAxes.setFirst(QStringLiteral("y"), FenChartAxisContinuous::typeString);
}

ChartScene::~ChartScene() = default;

FenChartVariable& ChartScene::columns(QString const& name, std::vector<double> x, std::vector<double> y)
{
    FenChartVariable& variable = chart->chart.variables.append(name);
    variable.setData(Vector3::CompX, std::move(x));
    variable.setData(Vector3::CompY, std::move(y));
    return variable;
}

FenChartVariable& ChartScene::add(QString const& name, Points const& points, QString const& style)
{
    std::vector<double> x, y;
    for (auto const& point : points) {
        x.push_back(point.first);
        y.push_back(point.second);
    }
    FenChartVariable& variable = columns(name, std::move(x), std::move(y));
    variable.style.set(style);
    return variable;
}

FenChartVariable& ChartScene::line(QString const& name, Points const& points)
{
    return add(name, points, FenChart::styleLine);
}

FenChartVariable& ChartScene::bars(QString const& name, Points const& points)
{
    FenChartVariable& variable = add(name, points, FenChart::styleBar);
    variable.fillMode.set(FenChart::fillSolid);
    variable.fillColor.set(Qt::blue);
    return variable;
}

FenChartVariable& ChartScene::marks(QString const& name, Points const& points)
{
    FenChartVariable& variable = add(name, points, FenChart::styleLine);
    variable.lineMode.set(FenChart::lineNone);
    variable.symbol.set(FenChart::symbolRect);
    variable.symbolSize.set(9);
    return variable;
}

FenChartAxisContinuous& ChartScene::axis(QString const& name)
{
    FenChartAxis* axis = chart->chart.xAxes.find(name);
    if (!axis) axis = chart->chart.yAxes.find(name);
    return dynamic_cast<FenChartAxisContinuous&>(*axis);
}

void ChartScene::categories(QStringList const& labels)
{
    auto* const axis = chart->chart.xAxes.setFirst(QStringLiteral("x"), FenChartAxisDiscrete::typeString);
    static_cast<FenChartAxisDiscrete*>(axis)->labels.set(labels);
}

void ChartScene::range(QString const& name, double min, double max)
{
    FenChartAxisContinuous& ranged = axis(name);
    ranged.autoRange.set(false);
    ranged.min.set(min);
    ranged.max.set(max);
}

FenVisualization::DrawContext ChartScene::context()
{
    return FenVisualization::DrawContext(geometry, cache, resource,
                                         FenOglViewport(0, 0, _size.width(), _size.height()), text, _edit,
                                         Kes::Math::NumberFormat());
}

void ChartScene::resize(QSize const& size)
{
    _size = size;
    layout();
}

void ChartScene::update()
{
    chart->update(context());
    layout();
}

void ChartScene::layout()
{
    if (!chart) return; // deleted in its update
    FenVisualization::DrawContext own = context();
    if (chart->getViewport(own.viewport, own.viewport)) chart->resize(own);
}

void ChartScene::draw()
{
    FenOglViewport own;
    FenVisualization::DrawContext const parent = context();
    if (!chart->getViewport(parent.viewport, own)) return;
    FenVisualization::UpdateDrawContext const derived(parent, own);
    if (!own.valid()) return;
    chart->draw3d(derived);
    chart->draw2d(derived);
}

FenVisHitRecordList ChartScene::select(QPoint const& point, int size)
{
    FenVisualization::SelectContext parent(geometry, cache, resource,
                                           FenOglViewport(0, 0, _size.width(), _size.height()), text,
                                           Kes::Math::NumberFormat());
    parent.point = point;
    parent.size = QSize(size, size);
    FenOglViewport own;
    chart->getViewport(parent.viewport, own);
    FenVisualization::UpdateSelectContext const derived(parent, own);
    if (!own.valid() || !derived.inside()) return FenVisHitRecordList();
    return chart->select2d(derived);
}

QString ChartScene::pick(QPoint const& point, int size) { return describeHit(hitOf(select(point, size))); }

QString ChartScene::hover(QPoint const& point, int size)
{
    FenVisHitRecordList const hits = select(point, size);
    FenVisHitRecord record;
    if (!hitOf(hits, &record).defined()) return QString();
    QString tooltip;
    hits.handler(0).lock()->OnMouseOver(record, FenStringBuilder(), tooltip);
    return tooltip;
}

bool ChartScene::leave()
{
    FenVisHitRecordList const hits = select(QPoint(0, 0), 1);
    QString tooltip;
    return hits.handler(0).lock()->OnMouseLeave(FenVisHitRecord(), FenStringBuilder(), tooltip);
}

bool ChartScene::click(QPoint const& point, int size)
{
    FenVisHitRecordList const hits = select(point, size);
    FenVisHitRecord record;
    return hitOf(hits, &record).defined() && hits.handler(0).lock()->OnMouseSelect(record);
}

QPoint ChartScene::pixelOf(QString const& name, std::size_t point) const
{
    FenChartVariable const& variable =
        *dynamic_cast<FenChartVariable const*>(chart->chart.variables.at(name));
    FenChartAxisPairScale const xScale(chart->chart.xAxes, FenChartVariableListCache(chart->chart.variables));
    FenChartAxisPairScale const yScale(chart->chart.yAxes, FenChartVariableListCache(chart->chart.variables));
    auto const pixel = [&](FenChartAxisPairScale const& scales, Vector3::Comp comp, int extent) {
        FenChartAxisScale const* const scale = scales.find(variable.axisName(comp).get());
        return int(
            std::floor((scale->mapping().chart(variable.value(comp, point)) + 1) * 0.5 * extent + 1e-7));
    };
    FenOglViewport const rectangle = data();
    return QPoint(rectangle.x() + pixel(xScale, Vector3::CompX, rectangle.width()),
                  rectangle.y() + pixel(yScale, Vector3::CompY, rectangle.height()));
}
