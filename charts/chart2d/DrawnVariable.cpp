#include "charts/chart2d/DrawnVariable.h"

#include "charts/painting/DenseCurve.h"
#include "charts/style/BarSlots.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartPerVariableScaling.h"
#include "services/opengl/PixelRatio.h"

#include <algorithm>
#include <cmath>
#include <utility>

using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace fen {

namespace {

bool drawable(DrawnVariable const& one)
{
    return one.valid() && !one.cache.empty() && one.variable().style.get() != FenChart::styleNone;
}

/// Position of a height [px] on the colour ramp of the variable, 0 at the lowest value and 1 at the highest.
std::function<float(Vector2 const&)> rampAlongY(CurveData const& data, FenChartRange const& values)
{
    double low = data.pixelY(values.min);
    if (std::isnan(low)) low = 0;
    double const high = data.pixelY(values.max);
    double const length = high > low ? high - low : 1;
    return [low, length](Vector2 const& p) { return float((double(p.y()) - low) / length); };
}

ShapePicture makeShape(VariablePicture const& picture, BarSlot const& slot)
{
    VariableStyle const& style = picture.style;
    CurveData const& data = picture.data;
    if (style.shape == CurveShape::Bars) return barShape(style, makeBars(data, {slot.width, picture.base}));
    if (!style.curveVisible()) return {};
    bool const stippled = style.line == VariableStyle::Line::Solid && !style.stroke.stipple.isEmpty();
    Strips line = curveStrips(data, style.shape, stippled ? Reduction::Sparing : Reduction::Columns);
    Strips band;
    bool const filled = style.fill.mode != FillStyle::None;
    if (data.ascending()) {
        if (filled) band = areaBand(areaStrips(data, style.shape), picture.base);
    } else {
        if (filled) band = bandOrCover(areaStrips(data, style.shape), picture.base, data.size, data.ratio);
        line = lineOrCover(std::move(line), data.size, data.ratio);
    }
    return curveShape(style, std::move(line), std::move(band));
}

void makeExtensions(VariablePicture& picture)
{
    CurveData const& data = picture.data;
    auto const [left, right] = data.outermost();
    if (left == data.count) return;
    double const width = data.size.width();
    auto const add = [&](std::size_t i, double end) {
        double const far = 10 * (width + data.size.height());
        float const y = float(std::clamp(data.y(i), -far, far));
        Strips& lines = picture.extensions;
        lines.pieces.push_back({lines.points.size(), 2});
        lines.points.push_back(Vector2(float(std::clamp(data.x(i), 0.0, width)), y));
        lines.points.push_back(Vector2(float(end), y));
    };
    if (data.x(left) > 0) add(left, 0);
    if (data.x(right) < width) add(right, width);
    picture.extensionIndex = StripIndex(picture.extensions);
}

void makeSymbols(VariablePicture& picture)
{
    VariableStyle const& style = picture.style;
    if (style.symbol < 0) return;
    SymbolPlaces places = symbolPlaces(picture.data, style.symbolSize, style.symbolsOpaque());
    picture.symbols.setStyle(symbolLook(style));
    picture.symbols.setPositions(std::move(places.positions));
    picture.symbolPoints = std::move(places.indices);
}

std::shared_ptr<VariablePicture> begunPicture(DrawnVariable const& one, QSize const& size)
{
    auto picture = std::make_shared<VariablePicture>();
    picture->style = VariableStyle(one.variable());
    picture->data = CurveData(one.cache, one.x, one.y, size);
    picture->data.ratio = pixelRatio();
    double const base = picture->data.pixelY(one.base);
    picture->base = std::isnan(base) ? 0 : base;
    return picture;
}

void finishPicture(VariablePicture& picture, DrawnVariable const& one, BarSlot const& slot)
{
    picture.data.shift = slot.shift;
    picture.shape = makeShape(picture, slot);
    addRamps(picture.shape, picture.style, rampAlongY(picture.data, one.range));
    bool const curve = picture.style.shape != CurveShape::Bars;
    if (picture.style.extensions && curve && !one.discrete) makeExtensions(picture);
    makeSymbols(picture);
}

} // namespace

DrawnVariables drawnVariables(FenChartPerVariableScaling const& scaling,
                              std::vector<void const*> const& xAxes)
{
    DrawnVariables variables(scaling.size());
    for (unsigned i = 0; i < scaling.size(); ++i) {
        DrawnVariable& one = variables[i];
        one.cache = scaling.variable(i);
        one.resolved = scaling.valid(i);
        one.x = scaling.mapping(i, Vector3::CompX);
        one.y = scaling.mapping(i, Vector3::CompY);
        one.discrete = scaling.isAxisDiscrete(Vector3::CompX, i);
        one.xAxis = i < xAxes.size() ? xAxes[i] : nullptr;
        one.matrix = scaling.matrix(i);
        scaling.gradientExtents(i, Vector3::CompY, one.range, one.base);
    }
    return variables;
}

void makePictures(DrawnVariables& variables, QSize const& size, FenOglText& text)
{
    std::vector<std::shared_ptr<VariablePicture>> pictures;
    std::vector<BarVariable> bars;
    for (DrawnVariable const& one : variables) {
        pictures.push_back(drawable(one) ? begunPicture(one, size) : nullptr);
        if (!pictures.back() || pictures.back()->style.shape != CurveShape::Bars) continue;
        bars.push_back(
            {one.xAxis, one.discrete ? 1.0 : one.cache.minXDelta(), pictures.back()->style.barWidth});
    }
    std::vector<BarSlot> const places = barSlots(bars);
    auto place = places.begin();
    LabelRoom room(size);
    for (std::size_t i = 0; i < variables.size(); ++i) {
        DrawnVariable& one = variables[i];
        one.picture.reset();
        if (!pictures[i]) continue;
        VariablePicture& picture = *pictures[i];
        finishPicture(picture, one, picture.style.shape == CurveShape::Bars ? *place++ : BarSlot());
        picture.labels =
            placeLabels(one.variable().labels.get(), picture.data, picture.style, picture.base, text, room);
        one.picture = pictures[i];
    }
}

} // namespace fen
