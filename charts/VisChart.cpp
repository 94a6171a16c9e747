#include "charts/VisChart.h"

#include "axes/ElidedText.h"
#include "charts/ChartMetrics.h"
#include "framework/DrawContext.h"
#include "picking/hits/VisHitProperty.h"
#include "picking/hits/VisHitRecordList.h"
#include "picking/select/VisOglSelect.h"
#include "picking/select/VisOglSelectBuffer.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartValidVariableList.h"
#include "services/opengl/OglText.h"

namespace {

constexpr int chartLayer = 90;

} // namespace

QString const FenVisChart::typeString = QStringLiteral("visualization.chart");
QString const FenVisChart::plotSymbols = QStringLiteral("plotSymbols.png");

FenVisChart::FenVisChart(FenModifiedGroup& group)
    : FenVisualization(group)
    , viewport(group)
{
    rename(typeString);
    setType(typeString);
    viewport.rename(QStringLiteral("viewport"));
    insert(&viewport, true);
    layer.set(chartLayer);
    thumbnail.set(false);
}

FenVisChart::FenVisChart(FenVisChart const& other)
    : FenVisualization(other)
    , viewport(other.viewport)
{
    rename(typeString);
    setType(typeString);
    viewport.rename(QStringLiteral("viewport"));
    insert(&viewport, true);
}

FenVisChart::~FenVisChart() = default;

bool FenVisChart::getViewport(FenOglViewport const& parent, FenOglViewport& own) const
{
    own = FenOglViewport::fitToParent(parent, viewport);
    return true;
}

FenChartValidVariableList FenVisChart::validVariables() const { return FenChartValidVariableList(); }

FenChart* FenVisChart::content() { return nullptr; }

FenChartVariableList* FenVisChart::variables() { return nullptr; }

FenChartAxisPair* FenVisChart::axisPair(Kes::Math::Vector3::Comp) { return nullptr; }

FenChartAxisPairScale const* FenVisChart::flatScales(Kes::Math::Vector3::Comp) const { return nullptr; }

bool FenVisChart::colorRange(FenChartVariable const& variable, Kes::Math::Vector2& range) const
{
    FenChartValidVariableList const valid = validVariables();
    for (unsigned i = 0; i < valid.size(); ++i) {
        if (!valid.alive(i) || &valid.variable(i) != &variable) continue;
        range = valid.minmax(i);
        return true;
    }
    return false;
}

std::vector<QPoint> FenVisChart::drawnPixels(std::size_t) const { return {}; }

bool FenVisChart::calcDataViewport(DrawContext const& context, FenChart const& chart, FenOglViewport& data)
{
    FenOglText& text = context.text;
    text.clear();
    text.setPointSize(fen::ChartMetrics::titlePointSize);
    int const h = text.height();
    text.clear();
    int const margin = (h + 1) / 2;
    int height = context.viewport.height() - 2 * margin;
    if (!chart.title.get().isEmpty()) height -= h + margin;
    data = FenOglViewport(margin, margin, context.viewport.width() - 2 * margin, height);
    return data.valid();
}

void FenVisChart::drawTitle(DrawContext const& context, FenChart const& chart)
{
    FenOglText& text = context.text;
    text.clear();
    text.setPointSize(fen::ChartMetrics::titlePointSize);
    int const h = text.height();
    QString const title = fen::elided(text, chart.title.get(), context.viewport.width() - h);
    if (!title.isEmpty()) {
        QPoint const anchor(context.viewport.width() / 2, context.viewport.height() - (h + 1) / 2);
        text.setColor(chart.titleColor.get());
        text.setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
        text.draw(anchor, title);
    }
    text.clear();
}

void FenVisChart::highlight(FenVisHitProperty const&) { }

FenVisHitRecordList FenVisChart::pick(SelectContext const& context, unsigned hits, FenProperties const& item,
                                      boost::weak_ptr<IFenVisEventHandler> const& handler,
                                      std::function<void(FenVisOglSelectWeakPtr select)> const& draw) const
{
    hitProperties().clear();
    FenVisOglSelectBuffer buffer(hits);
    {
        FenVisOglSelect select(context, buffer);
        draw(FenVisOglSelectWeakPtr(select));
    }
    return getHitRecords(buffer.records(), &item, handler, FenVisHitProperty());
}

FenVisHitRecordList FenVisChart::getHitRecords(std::vector<FenVisHitRecord> const& hits,
                                               FenProperties const* item,
                                               boost::weak_ptr<IFenVisEventHandler> handler,
                                               FenVisHitProperty const&) const
{
    hitProperties().insert(FenVisHitRecord::DEFAULT_NAME, FenVisHitProperty(item));
    std::vector<FenVisHitRecord> records;
    records.reserve(hits.size() + 1);
    records.push_back(FenVisHitRecord::catchall());
    records.insert(records.end(), hits.begin(), hits.end());
    return FenVisHitRecordList(records, handler, this, layer.get());
}
