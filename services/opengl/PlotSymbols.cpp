#include "services/opengl/PlotSymbols.h"

#include "services/opengl/LogOnce.h"
#include "services/opengl/PixelRatio.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace fen {

char const* const plotSymbolsName = "plotSymbols.png";

namespace {

/// Square in which the middle line of a symbol's outline lies [device px, y down].
struct Frame {
    double low, high;
    double middle() const { return 0.5 * (low + high); }
    double side() const { return high - low; }
};

QPainterPath polygon(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(QList<QPointF>(points)));
    path.closeSubpath();
    return path;
}

QPainterPath rect(Frame const& f)
{
    QPainterPath path;
    path.addRect(f.low, f.low, f.side(), f.side());
    return path;
}

QPainterPath ellipse(Frame const& f)
{
    QPainterPath path;
    path.addEllipse(f.low, f.low, f.side(), f.side());
    return path;
}

/// Equilateral, centred by its height; both ends on the pixel grid of the frame.
QPainterPath triangle(Frame const& f)
{
    double const inset = std::floor(0.5 * f.side() * (1 - std::numbers::sqrt3 / 2));
    return polygon({{f.middle(), f.low + inset}, {f.high, f.high - inset}, {f.low, f.high - inset}});
}

QPainterPath uTriangle(Frame const& f)
{
    return polygon({{f.middle(), f.low}, {f.high, f.high}, {f.low, f.high}});
}

QPainterPath dTriangle(Frame const& f)
{
    return polygon({{f.middle(), f.high}, {f.low, f.low}, {f.high, f.low}});
}

QPainterPath lTriangle(Frame const& f)
{
    return polygon({{f.low, f.middle()}, {f.high, f.low}, {f.high, f.high}});
}

QPainterPath rTriangle(Frame const& f)
{
    return polygon({{f.high, f.middle()}, {f.low, f.high}, {f.low, f.low}});
}

/// Its slanted edges run through the middles of pixels; so tips are a pixel wide in even sizes.
QPainterPath diamond(Frame const& f)
{
    double const tip = std::fmod(f.low + f.high, 2) == 0 ? 0.5 : 0; // half the width
    double const near = f.middle() - tip, far = f.middle() + tip;
    return polygon({{near, f.low},
                    {far, f.low},
                    {f.high, near},
                    {f.high, far},
                    {far, f.high},
                    {near, f.high},
                    {f.low, far},
                    {f.low, near}});
}

/// Points left and right, flat above and below.
QPainterPath hexagon(Frame const& f)
{
    double const inset = std::floor(0.5 * f.side() * (1 - std::numbers::sqrt3 / 2));
    double const quarter = 0.25 * f.side();
    double const top = f.low + inset, bottom = f.high - inset;
    return polygon({{f.low, f.middle()},
                    {f.low + quarter, top},
                    {f.high - quarter, top},
                    {f.high, f.middle()},
                    {f.high - quarter, bottom},
                    {f.low + quarter, bottom}});
}

/// Five points, one upwards, filling the frame's height.
QPainterPath star(Frame const& f)
{
    constexpr int corners = 10;
    constexpr double innerShare = 0.42;
    constexpr double fifth = std::numbers::pi / 5;
    double const radius = f.side() / (1 + std::cos(fifth)); // top to the lower points
    QPolygonF points;
    for (int i = 0; i < corners; ++i) {
        double const r = i % 2 == 0 ? radius : innerShare * radius;
        points << QPointF(f.middle() + r * std::sin(i * fifth), f.low + radius - r * std::cos(i * fifth));
    }
    QPainterPath path;
    path.addPolygon(points);
    path.closeSubpath();
    return path;
}

/// Upright cross with arms `thick` wide between the middle lines of its outline.
QPainterPath crossOf(double low, double high, double thick)
{
    double const a = 0.5 * (low + high - thick), b = a + thick;
    return polygon({{a, low},
                    {b, low},
                    {b, a},
                    {high, a},
                    {high, b},
                    {b, b},
                    {b, high},
                    {a, high},
                    {a, b},
                    {low, b},
                    {low, a},
                    {a, a}});
}

/// [device px] width of a cross's arms, of the size's parity so that they are symmetric
int armWidth(int size)
{
    constexpr int roomy = 10; // from here on there is room for an outline
    int const third = std::max(1, (size + 1) / 3);
    if ((size - third) % 2 == 0) return third;
    return third == 1 || (third == 3 && size >= roomy) ? third + 1 : third - 1;
}

struct Shape {
    char const* name;
    QPainterPath (*path)(Frame const&); ///< null for the crosses
};
constexpr Shape shapes[] = {
    {"rect", rect},           {"ellipse", ellipse},     {"triangle", triangle},   {"uTriangle", uTriangle},
    {"dTriangle", dTriangle}, {"lTriangle", lTriangle}, {"rTriangle", rTriangle}, {"diamond", diamond},
    {"hexagon", hexagon},     {"star", star},           {"cross", nullptr},       {"xCross", nullptr},
};

QImage blank(int size)
{
    QImage mask(size, size, QImage::Format_Alpha8);
    mask.fill(0);
    return mask;
}

/// Mean of the square of `side` pixels at (x, y).
uchar average(QImage const& mask, int x, int y, int side)
{
    int sum = 0;
    for (int row = y; row < y + side; ++row)
        sum = std::accumulate(mask.constScanLine(row) + x, mask.constScanLine(row) + x + side, sum);
    return uchar((sum + side * side / 2) / (side * side));
}

/// Paints the path several times larger and averages: Qt's own smoothing is not symmetric.
QImage painted(int size, QPainterPath const& path, QPen const& pen, QBrush const& brush)
{
    int const scale = size <= 64 ? 4 : 1;
    QImage large = blank(scale * size);
    QPainter painter(&large);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.setPen(pen);
    painter.setBrush(brush);
    painter.drawPath(path);
    painter.end();

    QImage mask = blank(size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) mask.scanLine(y)[x] = average(large, x * scale, y * scale, scale);
    return mask;
}

/// Turned by 45 degrees about the middle of a picture.
QTransform diagonal(int size)
{
    double const middle = 0.5 * size;
    return QTransform().translate(middle, middle).rotate(45).translate(-middle, -middle);
}

/// Middle line of a cross's outline for a picture of `size`; thin crosses have no outline.
QPainterPath crossPath(int size, double pen, bool turned)
{
    double const thick = armWidth(size);
    double const inset = thick < 3 * pen ? 0 : 0.5 * pen;
    if (!turned) return crossOf(inset, size - inset, thick - 2 * inset);
    // Turned by 45 degrees the arms reach the corners, less half their width.
    // A thin one takes the width that covers the pixels of its diagonals wholly.
    double const width = inset == 0 ? std::numbers::sqrt2 : 0.9 * thick;
    double const reach = 0.5 * (size * std::numbers::sqrt2 - width);
    return diagonal(size).map(
        crossOf(0.5 * size - reach + inset, 0.5 * size + reach - inset, width - 2 * inset));
}

unsigned knownSymbol(unsigned symbol)
{
    if (symbol < std::size(shapes)) return symbol;
    warnOnce("A plot symbol of an unknown number is drawn as a rectangle.", "@line 219");
    return 0;
}

using Channel = unsigned;

/// Premultiplied colour times coverage.
struct Premultiplied {
    Channel r, g, b, a;
    Premultiplied(QColor const& color, Channel coverage)
        : a(unsigned(color.alpha()) * coverage / 255)
    {
        r = unsigned(color.red()) * a / 255;
        g = unsigned(color.green()) * a / 255;
        b = unsigned(color.blue()) * a / 255;
    }
};

Channel over(Channel above, Channel below, Channel alphaAbove)
{
    return above + (below * (255 - alphaAbove) + 127) / 255;
}

} // namespace

QStringList const& plotSymbolNames()
{
    static QStringList const names = [] {
        QStringList list;
        for (Shape const& shape : shapes) list << QLatin1String(shape.name);
        return list;
    }();
    return names;
}

int plotSymbolIndex(QString const& name) { return int(plotSymbolNames().indexOf(name)); }

PlotSymbolMasks plotSymbolMasks(unsigned symbol, int size, double pen)
{
    constexpr int most = 255;
    int const side = std::clamp(size, 1, most);
    double const width = std::clamp(pen, 0.5, 0.5 * side + 0.5);
    unsigned const known = knownSymbol(symbol);
    QPen const stroke(Qt::black, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    QPen const square(Qt::black, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);

    if (auto const path = shapes[known].path) {
        QPainterPath const outline = path({0.5 * width, side - 0.5 * width});
        return {painted(side, outline, Qt::NoPen, Qt::black),
                painted(side, outline, known == 0 ? square : stroke, Qt::NoBrush)};
    }
    bool const turned = known == std::size(shapes) - 1;
    QPainterPath const cross = crossPath(side, width, turned);
    return {painted(side, cross, Qt::NoPen, Qt::black),
            armWidth(side) < 3 * width ? blank(side) : painted(side, cross, square, Qt::NoBrush)};
}

PlotSymbolMasks cutPlotSymbol(QImage const& atlas, unsigned symbol, int size)
{
    int const cell = std::max(1, atlas.height() / 2);
    int const columns = std::max(1, atlas.width() / cell);
    int const x = int(std::min(symbol, unsigned(columns - 1))) * cell;
    int const side = std::max(1, size);
    auto const cut = [&](int row) {
        QImage const part = atlas.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                                .copy(x, row * cell, cell, cell)
                                .scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        return part.convertToFormat(QImage::Format_Alpha8);
    };
    return {cut(0), cut(1)};
}

PlotSymbolMasks plotSymbolMasksOf(QImage const& atlas, unsigned symbol, int size)
{
    if (!atlas.isNull()) return cutPlotSymbol(atlas, symbol, size);
    return plotSymbolMasks(symbol, size, std::max(1.0, std::round(pixelRatio())));
}

QImage plotSymbolPicture(PlotSymbolMasks const& masks, QColor const& fill, QColor const& outline)
{
    bool const oneColor = outline.alpha() == 0 || outline == fill;
    QImage picture(masks.fill.size(), QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < picture.height(); ++y) {
        uchar const* const area = masks.fill.constScanLine(y);
        uchar const* const edge = masks.outline.constScanLine(y);
        uchar* pixel = picture.scanLine(y);
        for (int x = 0; x < picture.width(); ++x, pixel += 4) {
            Channel const both = 255 - (255u - area[x]) * (255u - edge[x]) / 255;
            Premultiplied const below(fill, oneColor ? both : area[x]);
            Premultiplied const above(outline, oneColor ? 0u : edge[x]);
            pixel[0] = uchar(over(above.r, below.r, above.a));
            pixel[1] = uchar(over(above.g, below.g, above.a));
            pixel[2] = uchar(over(above.b, below.b, above.a));
            pixel[3] = uchar(over(above.a, below.a, above.a));
        }
    }
    return picture;
}

QImage plotSymbolAtlas(int cell)
{
    int const side = std::clamp(cell, 4, 255);
    QImage atlas(side * int(std::size(shapes)), 2 * side, QImage::Format_ARGB32);
    atlas.fill(QColor(255, 255, 255, 0));
    double const pen = side / 12.0;
    for (unsigned i = 0; i < std::size(shapes); ++i) {
        PlotSymbolMasks const masks = plotSymbolMasks(i, side, pen);
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                int const column = int(i) * side + x;
                atlas.setPixel(column, y, qRgba(255, 255, 255, masks.fill.constScanLine(y)[x]));
                atlas.setPixel(column, side + y, qRgba(255, 255, 255, masks.outline.constScanLine(y)[x]));
            }
    }
    return atlas;
}

} // namespace fen
