#include "charts/parallel/VisChartPCP.h"

#include "axes/ElidedText.h"
#include "charts/ChartMetrics.h"
#include "charts/multiaxis/ItemAxis.h"
#include "charts/multiaxis/ItemPass.h"
#include "charts/parallel/ParallelLayout.h"
#include "charts/parallel/VisChartPCP.handler.h"
#include "framework/DrawContext.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/select/VisPickScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglText.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <boost/make_shared.hpp>

#include <algorithm>

using Kes::Math::Vector2;

namespace {

constexpr float axisWidth = 1, highlightedAxisWidth = 3; // [px]
constexpr int tickLength = 4; // [px]
constexpr int narrowestTicks = 48; // [px] distance of axes that have labels beside them
constexpr int labelGap = 3; // [px] between a tick and its label, and around the label
} // namespace

/// Which of the texts in the rows above and below the axes have room beside their neighbours.
struct FenVisChartPCP::TextRoom {
    std::vector<bool> low, high, name; // one per position
};

struct FenVisChartPCP::Pass {
    DrawContext const& context;
    FenOglText& text;
    FenVisOglSelectWeakPtr select;
    TextRoom const& room;
};

FenVisChartPCP::TextRoom FenVisChartPCP::textRoom(FenOglText& text) const
{
    std::vector<int> centers, low, high, name;
    int const h = text.height();
    for (int k = 0; k < int(_axes->size()); ++k) {
        int const i = variableAt(k);
        centers.push_back(_layout->axisX(std::size_t(k)));
        low.push_back(_layout->horizontalLabels ? text.size(_minLabels[i]).width() : h);
        high.push_back(text.size(_maxLabels[i]).width());
        name.push_back(_layout->horizontalNames ? std::max(1, _layout->spacing - h) : h);
    }
    return {fen::textsWithRoom(centers, low), fen::textsWithRoom(centers, high),
            fen::textsWithRoom(centers, name)};
}

void FenVisChartPCP::drawParallelAxes(DrawContext const& context, FenVisOglSelectWeakPtr select) const
{
    FenOglText& text = context.text;
    text.clear();
    text.setPointSize(fen::ChartMetrics::labelPointSize);
    TextRoom const room = textRoom(text);
    Pass const pass{context, text, select, room};
    for (int k = 0; k < int(_axes->size()); ++k) {
        unsigned const i = unsigned(variableAt(k));
        if (!_validVariables.alive(i)) continue;
        FenChartVariable const& variable = _validVariables.variable(i);
        FenVisPickScope const name(select, hitProperties(), [&] {
            return FenVisHitProperty(&variable, boost::make_shared<FenVisHitNameQualifier>(variable.name()));
        });
        drawAxis(pass, k);
    }
    text.clear();
}

void FenVisChartPCP::drawAxis(Pass const& pass, int position) const
{
    int const i = variableAt(position);
    FenChartVariable const& variable = _validVariables.variable(unsigned(i));
    fen::ItemAxis const& axis = (*_axes)[std::size_t(i)];
    QList<QColor> const& colors = variable.colors.get();
    glColor(colors.isEmpty() ? QColor(Qt::black) : colors.first());
    bool const wide = !pass.select && _handler->hovered().isPropertyEqual(&variable);
    fen::lineWidth(wide ? highlightedAxisWidth : axisWidth);
    double low = 0, high = 1;
    if (axis.range.min < axis.range.max) {
        double min = 0, max = 0;
        GetFilteredMinMax(i, min, max);
        low = axis.fraction(min);
        high = axis.fraction(max);
        if (axis.inverted) std::swap(low, high);
    }
    float const x = float(_layout->axisX(std::size_t(position))) + 0.5f;
    fen::drawLine(Vector2(x, float(_layout->pixelY(low))), Vector2(x, float(_layout->pixelY(high)) + 1));

    FenOglText& text = pass.text;
    FenOglTextBatch const joined(text);
    text.setColor(variable.labelColor.get());
    int const column = _layout->axisX(std::size_t(position));
    QString const& below = axis.inverted ? _maxLabels[i] : _minLabels[i];
    QString const& above = axis.inverted ? _minLabels[i] : _maxLabels[i];
    if (pass.room.low[std::size_t(position)] && _layout->horizontalLabels) {
        text.setAlignment(Qt::AlignTop | Qt::AlignHCenter);
        text.draw(QPoint(column, _layout->lowAnchorY()), below);
    } else if (pass.room.low[std::size_t(position)]) {
        text.setOrientation(Kes::Math::Angle90);
        text.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        text.draw(QPoint(column, _layout->lowAnchorY()), fen::elided(text, below, _layout->labelRoom));
        text.setOrientation(Kes::Math::Angle0);
    }
    if (pass.room.high[std::size_t(position)]) {
        text.setAlignment(Qt::AlignBottom | Qt::AlignHCenter);
        text.draw(QPoint(column, _layout->highAnchorY()), above);
    }
    drawAxisTicks(pass, position);
    drawAxisName(pass, position);
}

/// Values beside the axes that two numbers do not explain: categories, dates, powers of ten.
void FenVisChartPCP::drawAxisTicks(Pass const& pass, int position) const
{
    int const index = variableAt(position);
    fen::ItemAxis const& axis = (*_axes)[std::size_t(index)];
    if (axis.plain() || _layout->spacing < narrowestTicks) return;
    FenOglText& text = pass.text;
    unsigned const count = unsigned(std::max(2, _layout->plot.height() / (3 * text.height())));
    QColor const labelColor = text.color();
    int const x = _layout->axisX(std::size_t(position));
    int const widest = _layout->spacing - tickLength - 3 * labelGap;
    bool const last = position + 1 == int(_axes->size());
    text.setAlignment((last ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    for (fen::ItemTick const& tick : axis.ticks(count, _numberFormat)) {
        int const y = qRound(_layout->pixelY(tick.fraction));
        int const side = last ? -1 : 1;
        // What the labels at the ends tell is not told again.
        bool const told = tick.label == _minLabels[index] || tick.label == _maxLabels[index];
        QString const label = told ? QString() : fen::elided(text, tick.label, widest);
        glColor(labelColor);
        fen::lineWidth(axisWidth);
        float const level = float(y) + 0.5f;
        fen::drawLine(Vector2(float(x), level), Vector2(float(x + side * (tickLength + 1)), level));
        if (label.isEmpty()) continue;
        QPoint const begin(x + side * (tickLength + labelGap), y);
        fen::drawTextGround(begin, text, label);
        text.draw(begin, label);
    }
}

void FenVisChartPCP::drawAxisName(Pass const& pass, int position) const
{
    if (!_layout->names || !pass.room.name[std::size_t(position)]) return;
    FenOglText& text = pass.text;
    QString const name = getAxisLabel(unsigned(variableAt(position)));
    int const x = _layout->axisX(std::size_t(position)), y = _layout->nameAnchorY();
    if (_layout->horizontalNames) {
        int const width = text.size(name).width(), whole = pass.context.viewport.width();
        text.setAlignment(Qt::AlignTop | Qt::AlignHCenter);
        text.draw(
            QPoint(std::clamp(x, (width + 1) / 2, std::max((width + 1) / 2, whole - (width + 1) / 2)), y),
            name);
        return;
    }
    text.setOrientation(Kes::Math::Angle90);
    text.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    text.draw(QPoint(x, y), fen::elided(text, name, _layout->nameRoom));
    text.setOrientation(Kes::Math::Angle0);
}
