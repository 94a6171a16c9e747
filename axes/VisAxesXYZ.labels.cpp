#include "axes/VisAxesXYZ.h"
#include "axes/Ticks.h"
#include "axes/VisAxesXYZ.ruler.h"
#include "services/chartdata/ChartAxis.h"
#include "services/opengl/Gl.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglBoxedText.h"
#include "services/opengl/OglText.h"
#include "services/opengl/VertexArrays.h"
#include "services/properties/Labels.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Segment;
using Kes::Math::Vector2;

namespace {

constexpr float shortest = 20; // [px] below it an axis has neither ticks nor title
constexpr float tickLength = 5; // [px]
constexpr unsigned labelSize = 7; // [pt]
constexpr unsigned titleSize = 8; // [pt]
constexpr float labelDistance = 2; // in ticks
constexpr float titleDistance = 4; // in ticks, at least
constexpr float boxedDistance = 5; // in ticks, at least
constexpr float titleGap = 3; // [px] between labels and title
constexpr int boxMargin = 50; // [px] more than the text is wide
constexpr int boxLines = 2;
constexpr int border = 200; // percent darker than its box
constexpr int labelSpace = 4; // [px] between two labels

bool isKnown(Vector2 const& point) { return std::isfinite(point.x()) && std::isfinite(point.y()); }

/// How far a box of `size` [px] reaches from its middle in a direction of length 1.
float reach(QSizeF const& size, Vector2 const& direction)
{
    return float(
        0.5
        * (std::abs(double(direction.x())) * size.width() + std::abs(double(direction.y())) * size.height()));
}

/// The factor and unit of an axis behind its title; empty when there is nothing to say.
QString titleText(FenChartAxis const& axis, QString const& unit, double factor)
{
    QString text = axis.title.get();
    if (axis.titleColor.get().alpha() == 0 || (text.isEmpty() && unit.isEmpty() && factor == 1.0))
        return QString();
    auto const* const continuous = dynamic_cast<FenChartAxisContinuous const*>(&axis);
    bool const logarithmic = continuous && continuous->logarithmic.get();
    QString const shown =
        logarithmic ? fen::toLogLabel(QStringLiteral("10"), factor) : fen::toFactorLabel(factor);
    if (!shown.isEmpty()) text += QStringLiteral("  (%1)").arg(shown);
    if (!unit.isEmpty()) text += QStringLiteral("  [%1]").arg(unit);
    return text;
}

/// Along an edge, but never upside down: more than -90 up to 90 degrees.
Kes::Math::Angle uprightAngle(Segment const& place)
{
    double x = double(place.vectorAB().x()), y = double(place.vectorAB().y());
    if (x < 0 || (x == 0 && y < 0)) {
        x = -x;
        y = -y;
    }
    return Kes::Math::Angle(std::atan2(y, x));
}

} // namespace

std::vector<fen::Tick> FenVisAxesXYZ::placeTicks(FenOglText const& text, Ruler const& ruler)
{
    fen::AxisDivisions const& divisions = ruler.divisions;
    size_t const count = std::min(divisions.labels.size(), divisions.windowPoints.size());
    Vector2 const start(ruler.place.A()), way(ruler.place.vectorAB());
    float const length = std::hypot(way.x(), way.y());
    std::vector<int> pixels;
    for (size_t i = 0; i < count; ++i) {
        Vector2 const away = ruler.labelPoint(i) - start;
        pixels.push_back(int(std::lround((away.x() * way.x() + away.y() * way.y()) / length)));
    }
    fen::LabelRow row;
    row.label = [&](unsigned i) { return divisions.labels[i]; };
    // Upright texts in a slanting row are apart when they are so in x or in y.
    row.extent = [&](QString const& label) {
        QSizeF const size = text.size(label);
        return int(std::ceil(double(length)
                             * std::min(size.width() / std::max(1e-3, std::abs(double(way.x()))),
                                        size.height() / std::max(1e-3, std::abs(double(way.y()))))));
    };
    row.least = 1;
    row.space = labelSpace;
    return fen::thinnedTicks(pixels, row);
}

void FenVisAxesXYZ::DrawAxisLabels(FenOglText& text, Ruler const& ruler) const
{
    fen::AxisDivisions const& divisions = ruler.divisions;
    if (!ruler.style || divisions.windowPoints.size() < 2 || divisions.labels.empty()) return;
    Vector2 const way(ruler.place.vectorAB());
    if (!isKnown(way) || (std::abs(way.x()) < shortest && std::abs(way.y()) < shortest)) return;
    Vector2 const outward = fen::outwardNormal(ruler.place, ruler.direction);
    glDisable(GL_DEPTH_TEST);
    text.clear();
    text.setPointSize(labelSize);
    text.setColor(ruler.style->labelColor.get());
    text.setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    std::vector<fen::Tick> const ticks = placeTicks(text, ruler);
    std::vector<Vector2> marks;
    float depth = 0;
    {
        FenOglTextBatch const joined(text);
        for (size_t i = 0; i < ticks.size(); ++i) {
            Vector2 const mark = divisions.windowPoints[i];
            marks.insert(marks.end(), {mark, mark + outward * tickLength});
            if (!ticks[i].shown) continue;
            float const half = reach(text.size(ticks[i].label), outward);
            DrawLabel(text, ticks[i].label,
                      ruler.labelPoint(i) + outward * (labelDistance * tickLength + half), outward);
            depth = std::max(depth, 2 * half);
        }
    }
    glColor(ruler.style->color.get());
    fen::drawArray(GL_LINES, marks);
    QString const title = ruler.axis ? titleText(*ruler.axis, ruler.unit, divisions.factor) : QString();
    if (!title.isEmpty()) drawTitle(text, ruler, title, depth);
}

/// @param anchor  [px] middle of the text
void FenVisAxesXYZ::DrawLabel(FenOglText& text, QString const& label, Vector2 const& anchor,
                              Vector2 const& outward)
{
    // Kept off the tick by rounding away from it.
    auto const whole = [](float at, float side) { return side < 0 ? std::floor(at) : std::ceil(at); };
    text.draw(Vector2(whole(anchor.x(), outward.x()), whole(anchor.y(), outward.y())), label);
}

/// @param labelDepth  [px] that the labels reach outwards
void FenVisAxesXYZ::drawTitle(FenOglText& text, Ruler const& ruler, QString const& title, float labelDepth)
{
    Vector2 const outward = fen::outwardNormal(ruler.place, ruler.direction);
    Vector2 const middle = (Vector2(ruler.place.A()) + Vector2(ruler.place.B())) * 0.5f;
    float const behindLabels = labelDistance * tickLength + labelDepth + titleGap;
    text.setPointSize(titleSize);
    text.setColor(ruler.style->labelColor.get());
    QSize const size = text.size(title);
    QColor const box = ruler.axis->titleBoxColor.get();
    auto const anchor = [&](float ticks, int height) {
        return middle + outward * (std::max(ticks * tickLength, behindLabels) + 0.5f * float(height));
    };
    if (box.alpha() == 0) {
        text.setOrientation(uprightAngle(ruler.place));
        text.draw(anchor(titleDistance, size.height()), title);
        return;
    }
    FenOglBoxedText boxed(text);
    boxed.setColor(box, box.darker(border));
    boxed.setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    boxed.setOrientation(uprightAngle(ruler.place));
    QSize const room(size.width() + boxMargin, boxLines * size.height());
    boxed.draw(anchor(boxedDistance, room.height()), room, title);
}
