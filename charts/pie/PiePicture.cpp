#include "charts/pie/PiePicture.h"

#include "services/chartdata/ChartVariable.h"
#include "services/opengl/OglBoxedText.h"
#include "services/opengl/OglText.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;

namespace fen {

namespace {

constexpr double outlineShare = 3; // least arc of an outlined slice, in widths of its outline
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
        for (PieLayout::Slice const& slice : ring.slices) addSlice(slice);
        if (percent) addLabels(ring, text);
    }
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
        labels.push_back({pixel, label, color});
        if (ring.empty) break; // the labels of all its slices would lie on each other
    }
}

} // namespace fen
