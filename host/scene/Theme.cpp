#include "host/scene/Theme.h"

#include "host/scene/Scene.h"
#include "host/table/ChartKinds.h"

#include "charts/VisChart.h"
#include "charts/legend/VisLegend.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisPair.h"
#include "services/chartdata/ChartVariable.h"
#include "services/chartdata/ChartVariableList.h"

namespace {

FenTheme makeLight()
{
    FenTheme theme;
    theme.name = QStringLiteral("light");
    theme.background = QColor(0xFF, 0xFF, 0xFF);
    theme.title = QColor(0x1F, 0x23, 0x28);
    theme.text = QColor(0x42, 0x47, 0x4D);
    theme.axis = QColor(0x8E, 0x94, 0x9B);
    theme.grid = QColor(0xE6, 0xE8, 0xEA);
    theme.palette = {
        QColor(0x00, 0x72, 0xB2), // blue
        QColor(0xE6, 0x9F, 0x00), // orange
        QColor(0x00, 0x9E, 0x73), // green
        QColor(0xD5, 0x5E, 0x00), // vermillion
        QColor(0xCC, 0x79, 0xA7), // pink
        QColor(0x56, 0xB4, 0xE9), // sky
        QColor(0x55, 0x55, 0x55), // gray
        QColor(0xC9, 0xB8, 0x00), // yellow, darker for a white ground
    };
    theme.lineWidth = 1.5F;
    theme.symbolSize = 9;
    theme.fillOpacity = 0.25;
    theme.barWidth = 0.8;
    return theme;
}

FenTheme makeDark()
{
    FenTheme theme = makeLight();
    theme.name = QStringLiteral("dark");
    theme.background = QColor(0x1B, 0x1F, 0x24);
    theme.title = QColor(0xF2, 0xF4, 0xF7);
    theme.text = QColor(0xC6, 0xCB, 0xD1);
    theme.axis = QColor(0x6B, 0x72, 0x7B);
    theme.grid = QColor(0x33, 0x38, 0x3F);
    theme.palette = {
        QColor(0x56, 0xB4, 0xE9), // sky
        QColor(0xE6, 0x9F, 0x00), // orange
        QColor(0x2C, 0xC0, 0x95), // green, lighter for a dark ground
        QColor(0xF0, 0x7F, 0x3C), // vermillion, lighter
        QColor(0xDD, 0x97, 0xBE), // pink, lighter
        QColor(0xF0, 0xE4, 0x42), // yellow
        QColor(0xB4, 0xBA, 0xC0), // gray
        QColor(0x4B, 0x93, 0xF0), // blue, lighter
    };
    return theme;
}

QColor withOpacity(QColor color, double opacity)
{
    color.setAlphaF(float(opacity));
    return color;
}

} // namespace

FenTheme const& FenTheme::light()
{
    static FenTheme const theme = makeLight();
    return theme;
}

FenTheme const& FenTheme::dark()
{
    static FenTheme const theme = makeDark();
    return theme;
}

FenTheme const* FenTheme::find(QString const& name)
{
    for (FenTheme const* theme : {&light(), &dark()})
        if (theme->name == name) return theme;
    return nullptr;
}

QColor FenTheme::color(unsigned index) const
{
    constexpr int darker = 165; // [%]
    constexpr int lighter = 145; // [%]
    auto const size = unsigned(palette.size());
    QColor const own = palette[qsizetype(index % size)];
    unsigned const round = index / size % 3;
    return round == 0 ? own : round == 1 ? own.darker(darker) : own.lighter(lighter);
}

void FenTheme::apply(FenVisScene& scene) const { scene.background.set(background); }

void FenTheme::apply(FenVisualization& node) const
{
    if (auto* const legend = dynamic_cast<FenVisLegend*>(&node)) legend->legend.textColor.set(text);
    FenChart* const chart = dynamic_cast<FenVisChart*>(&node) ? fen::contentOf(node) : nullptr;
    if (!chart) return;
    chart->titleColor.set(title);
    chart->textColor.set(text);
    for (unsigned child = 0; child < chart->size(); ++child) {
        if (auto* const pair = dynamic_cast<FenChartAxisPair*>(chart->at(child))) {
            for (FenChartAxis* item : {pair->first(), pair->second()})
                if (item) apply(*item);
            // Two grids over each other cannot be read.
            if (pair->first() && pair->second()) pair->second()->gridColor.set(Qt::transparent);
        }
        if (auto* const variables = dynamic_cast<FenChartVariableList*>(chart->at(child)))
            for (unsigned i = 0; i < variables->size(); ++i) apply((*variables)[i], i);
    }
    fen::ChartKind const* const kind = fen::chartKindOf(node);
    if (kind && kind->dress) kind->dress(node, *this);
}

void FenTheme::apply(FenChartAxis& item) const
{
    item.color.set(axis);
    item.gridColor.set(grid);
    item.labelColor.set(text);
    item.titleColor.set(text);
}

void FenTheme::apply(FenChartVariable& variable, unsigned index) const
{
    QColor const own = color(index);
    bool const bars = variable.style.get() == FenChart::styleBar;
    variable.lineColor.set(own);
    variable.lineWidth.set(bars ? 1.0F : lineWidth);
    variable.symbolColor.set(own);
    variable.symbolOutlineColor.set(background);
    variable.symbolSize.set(symbolSize);
    variable.labelColor.set(text);
    bool const dots = variable.fillMode.get() == FenChart::fillSparse; // leave enough ground free
    variable.fillColor.set(bars || dots ? own : withOpacity(own, fillOpacity));
    variable.colors.set({withOpacity(own, 0.0), own});
    variable.barWidth.set(barWidth);
}
