#include "charts/parallel/VisChartPCP.h"

#include "charts/ChartMetrics.h"
#include "charts/multiaxis/ItemAxis.h"
#include "charts/multiaxis/ItemPicture.h"
#include "charts/parallel/FilterRanges.h"
#include "charts/parallel/ParallelLayout.h"
#include "charts/parallel/VisChartPCP.handler.h"
#include "framework/DrawContext.h"
#include "services/opengl/OglText.h"

#include <algorithm>

using Kes::Math::Vector2;

namespace {

constexpr int pad = 4; // [px] around the plot, for lines that run along its edges

} // namespace

void FenVisChartPCP::update(DrawContext const& context)
{
    _propertyEdit = context.propertyEdit;
    _numberFormat = context.numberFormat;
    _handler->forget();
    _layout.reset();
    _picture.reset();
    _axes = std::make_shared<std::vector<fen::ItemAxis> const>(
        fen::readItems(chart, _variableCache, _validVariables));
    _first = std::max(0, _validVariables.findIndexByName(chart.firstAxis.get()));
    findFilters();
    _dataValid = fen::validItems(*_axes, filteredRanges(), std::size_t(GetMaxDataSize()));
}

void FenVisChartPCP::findFilters()
{
    _filterRanges.clear();
    _dataRanges.clear();
    _minLabels.clear();
    _maxLabels.clear();
    _displayFactors.clear();
    for (unsigned i = 0; i < _validVariables.size(); ++i) {
        FenChartVariable const& variable = _validVariables.variable(i);
        fen::ItemAxis const& axis = (*_axes)[i];
        _dataRanges.push_back(axis.range);
        _filterRanges.push_back({variable.filterRangeMin.get(), variable.filterRangeMax.get()});
        _displayFactors.push_back(axis.displayFactor);
        double min = 0, max = 0;
        GetFilteredMinMax(int(i), min, max);
        _minLabels += axis.text(min, _numberFormat);
        _maxLabels += axis.text(max, _numberFormat);
    }
}

void FenVisChartPCP::GetFilteredMinMax(int index, double& min, double& max) const
{
    FenChartRange range = _dataRanges[std::size_t(index)];
    if (_validVariables.variable(unsigned(index)).filter.get())
        range = fen::filteredRange(range, _filterRanges[std::size_t(index)]);
    min = range.min;
    max = range.max;
}

std::vector<FenChartRange> FenVisChartPCP::filteredRanges() const
{
    std::vector<FenChartRange> ranges(_dataRanges.size());
    for (std::size_t i = 0; i < ranges.size(); ++i) GetFilteredMinMax(int(i), ranges[i].min, ranges[i].max);
    return ranges;
}

/// Shows the live filter ranges in the picture of the lines.
void FenVisChartPCP::applyFilters()
{
    if (_picture) _picture->setValid(fen::validItems(*_axes, filteredRanges(), _picture->items()));
}

QString FenVisChartPCP::getAxisLabel(unsigned index) const
{
    return fen::itemAxisLabel(_validVariables.variable(index));
}

int FenVisChartPCP::variableAt(int position) const { return (_first + position) % int(_axes->size()); }

void FenVisChartPCP::resize(DrawContext const& context)
{
    _propertyEdit = context.propertyEdit;
    _layout.reset();
    _picture.reset();
    if (_axes && _axes->size() > 1) layOut(context);
}

void FenVisChartPCP::layOut(DrawContext const& context)
{
    FenOglViewport area;
    if (!calcDataViewport(context, chart, area)) return;
    FenOglText& text = context.text;
    text.clear();
    text.setPointSize(fen::ChartMetrics::labelPointSize);
    std::vector<fen::ParallelTexts> texts;
    for (int k = 0; k < int(_axes->size()); ++k) {
        int const i = variableAt(k);
        // Longer names than the picture is wide are cut when they are drawn; they need not be measured whole.
        QString const name = getAxisLabel(unsigned(i)).left(area.width());
        texts.push_back({text.size(name).width(), text.size(_minLabels[i].left(area.width())).width(),
                         text.size(_maxLabels[i].left(area.width())).width()});
    }
    auto const layout =
        std::make_shared<fen::ParallelLayout const>(fen::layoutParallel(area, texts, text.height()));
    text.clear();
    if (!layout->plot.valid()) return;
    _layout = layout;
    makePicture();
    applyFilters();
}

void FenVisChartPCP::makePicture()
{
    std::size_t const axes = _axes->size(), items = _dataValid.size();
    std::vector<Vector2> points(axes * items);
    for (std::size_t k = 0; k < axes; ++k) {
        fen::ItemAxis const& axis = (*_axes)[std::size_t(variableAt(int(k)))];
        float const x = float(_layout->axisX(k)) + 0.5f; // lines run through pixel centres
        for (std::size_t i = 0; i < items; ++i)
            points[k * items + i] = Vector2(x, float(_layout->pixelY(axis.fraction(axis.value(i)))) + 0.5f);
    }
    FenOglViewport const& plot = _layout->plot;
    FenOglViewport const area(plot.x() - pad, plot.y() - pad, plot.width() + 2 * pad,
                              plot.height() + 2 * pad);
    fen::ItemLook look;
    look.colors = chart.itemColors.get();
    _picture = std::make_shared<fen::ItemPicture>(area, axes, std::move(points), _dataValid, look);
}
