#include "charts/chart2d/VariablePicture.h"

#include "charts/VisChart.h"
#include "charts/chart2d/ValueLabels.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartPerVariableScaling.h"
#include "services/opengl/PixelRatio.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace fen {

namespace {

/// Part of the distance of two x that a group of bars side by side takes.
constexpr double groupShare = 0.8;
/// [px] Filled bars narrower than this have no outline: it would hide them.
constexpr float narrowest = 3;

/// The place of a variable's bars among those of the other bar variables on the same axis.
struct BarSlot {
    unsigned index = 0, count = 1;
    double distance = 1; ///< [data] from bar to bar of one variable
};

bool drawable(FenChartPerVariableScaling const& scaling, unsigned i)
{
    if (!scaling.valid(i)) return false;
    FenChartVariableCache const& cache = scaling.variable(i);
    return cache.alive() && !cache.empty() && cache.variable().style.get() != FenChart::styleNone;
}

/// @return one slot per cached variable; those of other variables mean nothing
std::vector<BarSlot> barSlots(FenChartPerVariableScaling const& scaling,
                              std::vector<VariablePicture> const& all)
{
    struct Group {
        unsigned count = 0;
        double distance = 0;
    };
    // By range, as a variable may name its axis or leave it open; axes of one range have room for one group.
    auto const key = [&](unsigned i) {
        FenChartAxisMapping const m = scaling.mapping(i, Vector3::CompX);
        return std::pair(m.min, m.max);
    };
    std::map<std::pair<double, double>, Group> groups;
    std::vector<BarSlot> slots(all.size());
    for (unsigned i = 0; i < all.size(); ++i) {
        if (!all[i].drawn || !all[i].style.bars) continue;
        Group& group = groups[key(i)];
        slots[i].index = group.count++;
        bool const discrete = scaling.isAxisDiscrete(Vector3::CompX, i);
        double const distance = discrete ? 1.0 : scaling.variable(i).minXDelta();
        group.distance = group.distance > 0 ? std::min(group.distance, distance) : distance;
    }
    for (unsigned i = 0; i < all.size(); ++i) {
        if (!all[i].drawn || !all[i].style.bars) continue;
        Group const& group = groups[key(i)];
        slots[i].count = group.count;
        slots[i].distance = group.distance;
    }
    return slots;
}

/// Position of a height [px] on the colour ramp of the variable, 0 at the lowest value and 1 at the highest.
class Ramp {
public:
    Ramp(CurveData const& data, FenChartRange const& values)
        : _low(data.pixelY(values.min))
    {
        if (std::isnan(_low)) _low = 0;
        double const high = data.pixelY(values.max);
        if (high > _low) _length = high - _low;
    }
    Vector2 at(float y) const { return Vector2(0, float((double(y) - _low) / _length)); }
    std::vector<Vector2> at(std::vector<Vector2> const& points) const
    {
        std::vector<Vector2> ramp;
        ramp.reserve(points.size());
        for (Vector2 const& p : points) ramp.push_back(at(p.y()));
        return ramp;
    }
    StripsRamp at(Strips const& strips) const { return {at(strips.points), at(strips.spans)}; }

private:
    double _low;
    double _length = 1;
};

void makeBarShapes(VariablePicture& picture, double width, double base)
{
    picture.bars = makeBars(picture.data, {width, base});
    bool const filled = picture.style.fill.mode != FillStyle::None;
    for (Bar const& bar : picture.bars) {
        Vector2 const corners[] = {Vector2(bar.left, bar.base), Vector2(bar.right, bar.base),
                                   Vector2(bar.right, bar.top), Vector2(bar.left, bar.top)};
        if (filled) picture.barArea.insert(picture.barArea.end(), std::begin(corners), std::end(corners));
        // Lines of odd width run through pixel centres; bars that touch share one.
        Vector2 const center(0.5f, 0.5f);
        if (filled && bar.right - bar.left < narrowest) {
            picture.narrowBars.spans.push_back(corners[0] + center);
            picture.narrowBars.spans.push_back(corners[3] + center);
            continue;
        }
        Strips& line = picture.line;
        line.pieces.push_back({line.points.size(), 5});
        for (int k = 0; k < 5; ++k) line.points.push_back(corners[k % 4] + center);
        picture.corners.push_back(corners[0] + center);
    }
}

void makeCurveShapes(VariablePicture& picture, double base)
{
    VariableStyle const& style = picture.style;
    bool const stippled = style.line == VariableStyle::Line::Solid && !style.stroke.stipple.isEmpty();
    picture.line = curveStrips(picture.data, style.shape, stippled ? Reduction::Sparing : Reduction::Columns);
    picture.lineIndex = StripIndex(picture.line);
    if (style.fill.mode == FillStyle::None) return;
    picture.area = areaBand(areaStrips(picture.data, style.shape), base);
    picture.areaIndex = StripIndex(picture.area);
}

void makeExtensions(VariablePicture& picture)
{
    CurveData const& data = picture.data;
    std::size_t first = 0, last = data.count;
    auto const defined = [&](std::size_t i) { return !std::isnan(data.x(i)) && !std::isnan(data.y(i)); };
    while (first < last && !defined(first)) ++first;
    while (last > first && !defined(last - 1)) --last;
    if (first == last) return;
    double const width = data.size.width();
    auto const add = [&](std::size_t i, double end) {
        double const far = 10 * (width + data.size.height());
        float const y = float(std::clamp(data.y(i), -far, far));
        Strips& lines = picture.extensions;
        lines.pieces.push_back({lines.points.size(), 2});
        lines.points.push_back(Vector2(float(std::clamp(data.x(i), 0.0, width)), y));
        lines.points.push_back(Vector2(float(end), y));
    };
    if (data.x(first) > 0) add(first, 0);
    if (data.x(last - 1) < width) add(last - 1, width);
    picture.extensionIndex = StripIndex(picture.extensions);
}

void makeSymbols(VariablePicture& picture)
{
    VariableStyle const& style = picture.style;
    if (style.symbol < 0) return;
    SymbolPlaces places = symbolPlaces(picture.data, style.symbolSize, style.symbolsOpaque());
    FenOglSymbolStyle look;
    look.atlas = FenVisChart::plotSymbols;
    look.symbol = unsigned(style.symbol);
    look.size = style.symbolSize;
    look.fill = style.symbolColor;
    look.outline = style.symbolOutline;
    picture.symbols.setStyle(look);
    picture.symbols.setPositions(std::move(places.positions));
    picture.symbolPoints = std::move(places.indices);
}

void makePicture(VariablePicture& picture, FenChartPerVariableScaling const& scaling, unsigned i,
                 BarSlot const& slot)
{
    VariableStyle const& style = picture.style;
    FenChartRange values;
    double base = 0;
    scaling.gradientExtents(i, Vector3::CompY, values, base);
    double basePixel = picture.data.pixelY(base);
    if (std::isnan(basePixel)) basePixel = 0;
    picture.base = basePixel;
    if (style.bars) {
        double const share = slot.count > 1 ? groupShare / slot.count : 1.0;
        picture.data.shift = (slot.index - 0.5 * (slot.count - 1)) * share * slot.distance;
        makeBarShapes(picture, share * slot.distance * style.barWidth, basePixel);
    } else if (style.curveVisible()) {
        makeCurveShapes(picture, basePixel);
    }
    Ramp const ramp(picture.data, values);
    if (style.line == VariableStyle::Line::Gradient) picture.lineRamp = ramp.at(picture.line);
    if (style.fill.mode == FillStyle::Gradient) {
        picture.areaRamp = ramp.at(picture.area);
        picture.barRamp = ramp.at(picture.barArea);
    }
    if (hasCorners(style.stroke)) {
        std::vector<Vector2> const inner = notches(picture.line);
        picture.corners.insert(picture.corners.end(), inner.begin(), inner.end());
    }
    if (style.extensions && !style.bars && !scaling.isAxisDiscrete(Vector3::CompX, i))
        makeExtensions(picture);
    makeSymbols(picture);
}

} // namespace

ChartPictures makePictures(FenChartPerVariableScaling const& scaling, QSize const& size, FenOglText& text)
{
    ChartPictures pictures;
    pictures.variables.resize(scaling.size());
    for (unsigned i = 0; i < scaling.size(); ++i) {
        VariablePicture& picture = pictures.variables[i];
        picture.drawn = drawable(scaling, i);
        if (!picture.drawn) continue;
        FenChartVariableCache const& cache = scaling.variable(i);
        picture.style = VariableStyle(cache.variable());
        picture.data =
            CurveData(cache, scaling.mapping(i, Vector3::CompX), scaling.mapping(i, Vector3::CompY), size);
        picture.data.ratio = pixelRatio();
    }
    std::vector<BarSlot> const slots = barSlots(scaling, pictures.variables);
    LabelRoom room(size);
    for (unsigned i = 0; i < scaling.size(); ++i) {
        VariablePicture& picture = pictures.variables[i];
        if (!picture.drawn) continue;
        makePicture(picture, scaling, i, slots[i]);
        picture.labels = placeLabels(scaling.variable(i).variable().labels.get(), picture.data, picture.style,
                                     picture.base, text, room);
    }
    return pictures;
}

} // namespace fen
