#include "charts/pie/PiePicture.h"

#include "services/chartdata/ChartVariable.h"
#include "services/opengl/OglBoxedText.h"
#include "services/opengl/OglText.h"
#include "services/properties/ColorSchemes.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;

namespace fen {

namespace {

constexpr double outlineShare = 3; // least arc of an outlined slice, in widths of its outline
constexpr double crowdedArc = 6; // [px] below that neighbours share an area
constexpr std::size_t leastCrowd = 16; // of them
constexpr double colorsPerPixel = 2; // along the outer arc of a crowd
constexpr int mostColors = 4096; // of a gradient
constexpr double shortestLabelledArc = 8; // [px] no text fits into a narrower slice

} // namespace

PieStyle::PieStyle(FenChartVariable const& variable)
{
    VariableStyle const style(variable);
    fill = style.fill;
    if (fill.mode == FillStyle::Gradient) {
        fill.mode = FillStyle::Sparse;
        fill.pattern = QString(); // without holes
    }
    bool const back = fill.mode == FillStyle::Sparse && fill.back.alpha() > 0;
    if (fill.color.alpha() == 0 && !back) fill.mode = FillStyle::None;
    stroke = style.stroke;
    outlined = style.line != VariableStyle::Line::None && stroke.color.alpha() > 0;
    label = style.labelColor;
}

bool PieStyle::plain() const
{
    bool const plainFill = fill.mode == FillStyle::None || fill.mode == FillStyle::Solid;
    return plainFill && stroke.stipple.isEmpty();
}

bool PieStyle::outlines(PieSegment const& segment) const
{
    bool const wide = segment.outerArc() >= outlineShare * double(stroke.width);
    return outlined && (wide || fill.mode == FillStyle::None);
}

PiePicture::PiePicture(FenOglViewport const& data, std::vector<PieItem> const& items,
                       std::vector<PieStyle> itemStyles, bool percent, FenOglText& text)
    : layout(data, items)
    , styles(std::move(itemStyles))
{
    for (PieLayout::Ring const& ring : layout.rings) {
        addRing(ring);
        if (percent) addLabels(ring, text);
    }
}

void PiePicture::addRing(PieLayout::Ring const& ring)
{
    for (std::size_t first = 0; first < ring.slices.size();) {
        std::size_t end = first;
        while (end < ring.slices.size() && crowded(ring.slices[end])) ++end;
        if (end - first >= leastCrowd) {
            addCrowd(ring, first, end);
        } else {
            end = std::max(end, first + 1);
            for (std::size_t i = first; i < end; ++i) addSlice(ring.slices[i]);
        }
        first = end;
    }
}

bool PiePicture::crowded(PieLayout::Slice const& slice) const
{
    PieStyle const& style = styles[slice.item];
    return slice.segment.outerArc() < crowdedArc && style.plain() && style.fill.mode == FillStyle::Solid;
}

void PiePicture::addCrowd(PieLayout::Ring const& ring, std::size_t first, std::size_t end)
{
    for (std::size_t i = first; i < end; ++i) {
        PieStyle const& style = styles[ring.slices[i].item];
        if (style.outlines(ring.slices[i].segment)) addOutline(ring.slices[i].segment, style.stroke);
    }
    PieSegment const& begin = ring.slices[first].segment;
    PieSegment const whole{begin.start, ring.slices[end - 1].segment.end, begin.innerRadius,
                           begin.outerRadius};
    double const span = whole.end - whole.start;
    if (!(span > 0)) return;
    Crowd crowd;
    int const count = std::clamp(int(std::ceil(whole.outerArc() * colorsPerPixel)), 1, mostColors);
    for (int i = 0; i < count; ++i) {
        double const angle = whole.start + (i + 0.5) / count * span;
        while (first + 1 < end && ring.slices[first].segment.end <= angle) ++first;
        crowd.colors.append(styles[ring.slices[first].item].fill.color);
    }
    appendTriangles(whole, layout.circle, crowd.triangles);
    forEachCorner(whole, layout.circle.step, [&](double angle, double radius) {
        crowd.places.push_back({0.0f, float((angle - whole.start) / span * radius), 0.0f, float(radius)});
    });
    crowds.push_back(std::move(crowd));
}

void PiePicture::addSlice(PieLayout::Slice const& slice)
{
    PieSegment const& segment = slice.segment;
    PieStyle const& style = styles[slice.item];
    if (!(segment.end > segment.start)) return;
    if (!style.plain()) {
        single.push_back(&slice);
        return;
    }
    if (style.fill.mode == FillStyle::Solid) {
        appendTriangles(segment, layout.circle, triangles);
        colors.resize(triangles.size(), Rgba(style.fill.color));
    }
    if (style.outlines(segment)) addOutline(segment, style.stroke);
}

void PiePicture::addOutline(PieSegment const& segment, StrokeStyle const& stroke)
{
    auto const same = [&](Outlines const& one) {
        return one.width == stroke.width && one.smooth == stroke.smooth;
    };
    auto found = std::ranges::find_if(outlines, same);
    if (found == outlines.end())
        found = outlines.insert(found, Outlines{stroke.width, stroke.smooth, {}, {}});
    appendOutlineLines(segment, layout.circle, found->ends);
    found->colors.resize(found->ends.size(), Rgba(stroke.color));
}

void PiePicture::addLabels(PieLayout::Ring const& ring, FenOglText& text)
{
    text.clear();
    FenOglBoxedText const box(text);
    for (PieLayout::Slice const& slice : ring.slices) {
        PieSegment const& segment = slice.segment;
        QColor const color = styles[slice.item].label;
        if (color.alpha() == 0 || (!ring.empty && segment.outerArc() < shortestLabelledArc)) continue;
        QString const label = percentText(ring, slice);
        Vector2 const middle = layout.circle.point(segment.middleAngle(), segment.middleRadius());
        Vector2 const pixel(std::floor(middle.x()), std::floor(middle.y()));
        QSizeF const size = box.size(label);
        QRectF const place(
            QPointF(double(pixel.x()) - size.width() / 2, double(pixel.y()) - size.height() / 2), size);
        if (!holds(ring.empty ? ring.whole : segment, layout.circle, place)) continue;
        labels.push_back({pixel, label, ring.empty ? readableOn(Qt::white) : color}); // as placeholders are
        if (ring.empty) break; // the labels of all its slices would lie on each other
    }
}

} // namespace fen
