#include "charts/legend/LegendCorrelation.h"

#include "services/math/Vector2.h"
#include "services/opengl/Gl.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglText.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>

using Kes::Math::Vector2;

namespace fen {

namespace {

constexpr int barWidth = 14; // [px]
constexpr int gap = 4; // [px] between bar, tick and text

int widestEdge(FenOglText const& text, LegendBins const& bins)
{
    int widest = 0;
    for (QString const& edge : bins.edges) widest = std::max(widest, text.size(edge).width());
    return widest;
}

/// [px] One text along the bar, half of which sticks out at either end.
int textExtent(FenOglText const& text, LegendBins const& bins, bool vertical)
{
    return vertical ? text.height() : widestEdge(text, bins) + 2 * gap;
}

} // namespace

int edgeStride(int bins, int most)
{
    int const intervals = std::max(1, most - 1);
    int const least = std::max(1, (bins + intervals - 1) / intervals);
    int const even = bins % 2 == 0 ? bins / 2 : bins;
    for (int stride = least; stride <= even; ++stride)
        if (even % stride == 0) return stride;
    return bins;
}

QSize sizeCorrelationLegend(FenOglText const& text, LegendBins const& bins, int length, bool vertical)
{
    int const along = length + textExtent(text, bins, vertical);
    int const across = barWidth + 2 * gap + (vertical ? widestEdge(text, bins) : text.height());
    return vertical ? QSize(across, along) : QSize(along, across);
}

void drawCorrelationLegend(FenOglText& text, LegendBins const& bins, QRect const& area, bool vertical)
{
    int const extent = textExtent(text, bins, vertical);
    int const length = (vertical ? area.height() : area.width()) - extent;
    // From the lowest bin on; a place along the bar and one across it, which is counted from the texts.
    auto const at = [&](int along, int across) {
        int const x = area.x() + (vertical ? barWidth - across : extent / 2 + along);
        int const y = area.y() + (vertical ? extent / 2 + along : area.height() - barWidth + across);
        return Vector2(float(x), float(y));
    };
    int const count = int(bins.colors.size());
    for (int i = 0; i < count; ++i) {
        Vector2 const from = at(length * i / count, 0), to = at(length * (i + 1) / count, barWidth);
        glColor(bins.colors[std::size_t(i)]);
        drawRectangle(from.x(), from.y(), to.x(), to.y());
    }
    text.setAlignment(vertical ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignHCenter | Qt::AlignBottom);
    int const stride = edgeStride(count, length / extent + 1);
    for (int i = 0; i <= count; i += stride) {
        int const along = std::min(length * i / count, length - 1);
        Vector2 const half(0.5f, 0.5f);
        glColor(text.color());
        drawLine(at(along, 0) + half, at(along, 1 - gap) + half);
        text.draw(at(along, -2 * gap), bins.edges[i]);
    }
}

} // namespace fen
