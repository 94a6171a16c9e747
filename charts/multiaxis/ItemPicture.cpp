#include "charts/multiaxis/ItemPicture.h"

#include "charts/multiaxis/ItemAxis.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/PixelRatio.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;

namespace fen {

namespace {

constexpr std::size_t fewItems = 60; ///< have wider lines
constexpr std::size_t smoothestItems = 400;
constexpr std::size_t smoothItems = 2500; ///< of more the edges cannot be told
constexpr float fewWidth = 1.6f; ///< [px]
constexpr float loneLength = 3; ///< [px] of a value without neighbours, to either side
constexpr double filteredOpacity = 0.35; ///< of what a valid item has
constexpr double fillOpacity = 0.22; ///< of one filled item

CoverageMap emptyMap(FenOglViewport const& area, double ratio, std::size_t items)
{
    QSize const size(qRound(area.width() * ratio), qRound(area.height() * ratio));
    return CoverageMap(size, items > smoothItems ? CoverageMap::Unit::Whole : CoverageMap::Unit::Shares);
}

/// Whether a line from a to b meets a rectangle (Liang and Barsky: what each edge leaves of it).
bool lineMeets(Vector2 const& a, Vector2 const& b, QRectF const& area)
{
    double from = 0, to = 1;
    auto const cut = [&](double start, double way, double low, double high) {
        if (way == 0) return start >= low && start <= high; // false for NaN
        double const first = (low - start) / way, last = (high - start) / way;
        from = std::max(from, std::min(first, last));
        to = std::min(to, std::max(first, last));
        return from <= to;
    };
    return cut(double(a.x()), double(b.x()) - double(a.x()), area.left(), area.right())
        && cut(double(a.y()), double(b.y()) - double(a.y()), area.top(), area.bottom());
}

bool insideTriangle(Vector2 const& a, Vector2 const& b, Vector2 const& c, QPointF const& p)
{
    auto const side = [&](Vector2 const& from, Vector2 const& to) {
        return (double(to.x()) - double(from.x())) * (p.y() - double(from.y()))
            - (double(to.y()) - double(from.y())) * (p.x() - double(from.x()));
    };
    double const ab = side(a, b), bc = side(b, c), ca = side(c, a);
    return (ab >= 0 && bc >= 0 && ca >= 0) || (ab <= 0 && bc <= 0 && ca <= 0);
}

} // namespace

ItemPicture::ItemPicture(FenOglViewport const& area, std::size_t axes, std::vector<Vector2> points,
                         std::vector<bool> const& valid, ItemLook const& look)
    : _area(area)
    , _ratio(pixelRatio())
    , _axes(axes)
    , _points(std::move(points))
    , _gappy(valid.size(), false)
    , _look(look)
    , _valid(valid)
    , _lines(emptyMap(area, _ratio, valid.size()))
{
    if (_look.filled) _fill = std::make_unique<CoverageMap>(emptyMap(area, _ratio, valid.size()));
    _spans.assign(_axes, {float(area.width()), -1e9f});
    for (std::size_t axis = 0; axis < _axes; ++axis) {
        for (std::size_t i = 0; i < items(); ++i) {
            if (missing(axis, i)) {
                _gappy[i] = true;
                continue;
            }
            for (std::size_t const k : {axis, axis > 0 ? axis - 1 : _axes - 1}) {
                float const x = point(axis, i).x();
                _spans[k] = {std::min(_spans[k].from, x), std::max(_spans[k].to, x)};
            }
        }
    }
    Items in, out;
    for (std::size_t i = 0; i < items(); ++i) (_valid[i] ? in : out).push_back(i);
    change(out, false, CoverageMap::Change::Add);
    change(in, true, CoverageMap::Change::Add);
    makePicture();
}

void ItemPicture::setValid(std::vector<bool> const& valid)
{
    Items in, out;
    for (std::size_t i = 0; i < items() && i < valid.size(); ++i)
        if (valid[i] != _valid[i]) (valid[i] ? in : out).push_back(i);
    if (in.empty() && out.empty()) return;
    bool whole = !_filtered; // there is one more map to paint
    for (Items const* const changed : {&in, &out})
        for (std::size_t const i : *changed) whole = whole || _gappy[i];
    change(out, true, CoverageMap::Change::Remove);
    change(out, false, CoverageMap::Change::Add);
    change(in, false, CoverageMap::Change::Remove);
    change(in, true, CoverageMap::Change::Add);
    _valid = valid;
    in.insert(in.end(), out.begin(), out.end());
    if (whole || !bundled() || 4 * in.size() > items())
        makePicture();
    else
        updatePicture(in);
}

Vector2 const& ItemPicture::point(std::size_t axis, std::size_t item) const
{
    return _points[axis * items() + item];
}

bool ItemPicture::missing(std::size_t axis, std::size_t item) const
{
    return std::isnan(point(axis, item).y());
}

QColor ItemPicture::color(std::size_t item) const { return itemColor(_look.colors, item); }

Rgba ItemPicture::layerColor(std::size_t item, bool valid) const
{
    return Rgba(valid ? color(item) : QColor(0x8C, 0x90, 0x96));
}

bool ItemPicture::bundled() const { return items() > smoothItems && !_look.closed; }

Vector2 ItemPicture::center() const
{
    return Vector2(float(_area.x()) + float(_area.width()) / 2, float(_area.y()) + float(_area.height()) / 2);
}

Strips ItemPicture::line(std::size_t item) const
{
    Strips strips;
    std::size_t first = 0;
    std::size_t const last = _look.closed ? _axes + 1 : _axes; // a closed line comes back to its beginning
    for (std::size_t k = 0; k <= last; ++k) {
        if (k < last && !missing(k % _axes, item)) {
            strips.points.push_back(point(k % _axes, item));
            continue;
        }
        std::size_t const count = strips.points.size() - first;
        if (count > 1) strips.pieces.push_back({first, count});
        first = strips.points.size();
    }
    return strips;
}

std::vector<Vector2> ItemPicture::triangles(std::size_t item) const
{
    std::vector<Vector2> corners;
    for (std::size_t axis = 0; axis < gaps(); ++axis) {
        if (missing(axis, item) || missing(behind(axis), item)) continue;
        for (Vector2 const& corner : {center(), point(axis, item), point(behind(axis), item)})
            corners.push_back(corner);
    }
    return corners;
}

template <class Meets>
ItemPicture::Items ItemPicture::topmost(std::size_t limit, Meets const& meets) const
{
    Items found;
    for (bool const valid : {true, false}) {
        for (std::size_t i = items(); i-- > 0 && found.size() < limit;)
            if (_valid[i] == valid && meets(i)) found.push_back(i);
    }
    std::reverse(found.begin(), found.end());
    return found;
}

ItemPicture::Items ItemPicture::itemsNear(QRectF const& area, std::size_t limit) const
{
    Items near; // gaps whose lines may meet the area
    for (std::size_t k = 0; k < gaps(); ++k)
        if (double(_spans[k].from) <= area.right() && double(_spans[k].to) >= area.left()) near.push_back(k);
    return topmost(limit, [&](std::size_t i) {
        return std::any_of(near.begin(), near.end(),
                           [&](std::size_t k) { return lineMeets(point(k, i), point(behind(k), i), area); });
    });
}

ItemPicture::Items ItemPicture::fillsNear(QRectF const& area, std::size_t limit) const
{
    if (!_fill) return {};
    return topmost(limit, [&](std::size_t i) {
        std::vector<Vector2> const corners = triangles(i);
        for (std::size_t k = 0; _valid[i] && k + 2 < corners.size(); k += 3)
            if (insideTriangle(corners[k], corners[k + 1], corners[k + 2], area.center())) return true;
        return false;
    });
}

std::vector<QPoint> ItemPicture::ink(std::size_t limit) const
{
    constexpr std::size_t perLine = 8;
    std::vector<QPoint> places;
    std::size_t const all = items() * gaps() * perLine, stride = all / std::max<std::size_t>(1, limit) + 1;
    for (std::size_t n = 0; n < all; n += stride) {
        std::size_t const i = n / perLine / gaps(), k = n / perLine % gaps();
        if (missing(k, i) || missing(behind(k), i)) continue;
        Vector2 const a = point(k, i), way = point(behind(k), i) - a;
        float const share = float(n % perLine) / perLine;
        places.emplace_back(int(a.x() + way.x() * share), int(a.y() + way.y() * share));
    }
    return places;
}

Vector2 ItemPicture::onDevice(Vector2 const& p) const
{
    return Vector2(float((double(p.x()) - _area.x()) * _ratio), float((double(p.y()) - _area.y()) * _ratio));
}

void ItemPicture::change(Items const& changed, bool valid, CoverageMap::Change change)
{
    if (changed.empty()) return;
    if (!valid && !_filtered) _filtered = std::make_unique<CoverageMap>(emptyMap(_area, _ratio, items()));
    CoverageMap& map = valid ? _lines : *_filtered;
    bool const bundles = bundled();
    for (std::size_t const i : changed) {
        if (!bundles) changeLine(map, i, valid, change);
        if (_gappy[i]) changeLoneValues(map, i, valid, change);
        if (_fill && valid) changeFill(i, change);
    }
    for (std::size_t k = 0; bundles && k < gaps(); ++k) map.addBundle(bundle(k, changed, valid), change);
}

void ItemPicture::changeLine(CoverageMap& map, std::size_t item, bool valid, CoverageMap::Change change) const
{
    float const thickness = float(_ratio) * (items() <= fewItems ? fewWidth : 1.0f);
    int const samples = items() <= smoothestItems ? 4 : 1;
    for (std::size_t k = 0; k < gaps(); ++k) {
        if (missing(k, item) || missing(behind(k), item)) continue;
        map.addLine(onDevice(point(k, item)), onDevice(point(behind(k), item)), thickness,
                    layerColor(item, valid), samples, change);
    }
}

/// A value between missing ones has no line: it is a short dash.
void ItemPicture::changeLoneValues(CoverageMap& map, std::size_t item, bool valid,
                                   CoverageMap::Change change) const
{
    auto const absent = [&](std::size_t axis, bool beyond) { return beyond || missing(axis, item); };
    for (std::size_t k = 0; k < _axes; ++k) {
        bool const first = k == 0 && !_look.closed, last = k + 1 == _axes && !_look.closed;
        if (missing(k, item) || !absent(behind(k), last) || !absent(k > 0 ? k - 1 : _axes - 1, first))
            continue;
        Vector2 const at = onDevice(point(k, item)), aside(loneLength * float(_ratio), 0);
        Rgba const color = layerColor(item, valid);
        if (bundled())
            map.addBundle({int(at.x() - aside.x()), int(2 * aside.x()), 1, {at.y()}, {at.y()}, {color}},
                          change);
        else
            map.addLine(at - aside, at + aside, float(_ratio), color, 1, change);
    }
}

/// Lines between upright axes share their columns, which makes very many of them fast.
CoverageMap::Bundle ItemPicture::bundle(std::size_t gap, Items const& changed, bool valid) const
{
    CoverageMap::Bundle bundle;
    bundle.first = int(onDevice(Vector2(_spans[gap].from, 0)).x());
    bundle.columns = int(onDevice(Vector2(_spans[gap].to, 0)).x()) - bundle.first;
    bundle.thickness = std::max(1, qRound(_ratio));
    for (std::size_t const i : changed) {
        if (missing(gap, i) || missing(gap + 1, i)) continue;
        bundle.from.push_back(onDevice(point(gap, i)).y());
        bundle.to.push_back(onDevice(point(gap + 1, i)).y());
        bundle.colors.push_back(layerColor(i, valid));
    }
    return bundle;
}

void ItemPicture::changeFill(std::size_t item, CoverageMap::Change change)
{
    std::vector<Vector2> const corners = triangles(item);
    // Axes follow one another clockwise; areas are added counter-clockwise.
    for (std::size_t k = 0; k + 2 < corners.size(); k += 3)
        _fill->addPolygon({onDevice(corners[k]), onDevice(corners[k + 2]), onDevice(corners[k + 1])},
                          layerColor(item, true), 1, change);
}

void ItemPicture::makePicture()
{
    std::vector<CoveragePicture::Layer> layers;
    if (_fill)
        layers.push_back({_fill.get(), [](double count) { return 1 - std::pow(1 - fillOpacity, count); }});
    OpacityOfCount const opacity = crowdOpacity(items(), _area.height());
    if (_filtered)
        layers.push_back(
            {_filtered.get(), [opacity](double count) { return filteredOpacity * opacity(count); }});
    layers.push_back({&_lines, opacity});
    _painter = CoveragePicture(layers);
    if (bundled()) _lines.finish();
    if (bundled() && _filtered) _filtered->finish();
    _image = _painter.image();
    _picture = FenOglTexture(_image, FenOglTexture::Nearest, FenOglTexture::Clamp);
}

/// The same for a few items that changed sides.
void ItemPicture::updatePicture(Items const& changed)
{
    for (std::size_t k = 0; k < gaps(); ++k) _painter.update(_image, bundle(k, changed, true));
    _picture = FenOglTexture(_image, FenOglTexture::Nearest, FenOglTexture::Clamp);
}

void ItemPicture::draw() const
{
    FlatScope const flat;
    FlatScope::enableTexture(GL_REPLACE);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    _picture.set();
    float const x0 = float(_area.x()), x1 = float(_area.x() + _picture.width() / _ratio);
    float const y0 = float(_area.y()), y1 = float(_area.y() + _picture.height() / _ratio);
    drawTexturedArray(GL_TRIANGLE_STRIP, {Vector2(x0, y0), Vector2(x1, y0), Vector2(x0, y1), Vector2(x1, y1)},
                      {Vector2(0, 0), Vector2(1, 0), Vector2(0, 1), Vector2(1, 1)});
}

} // namespace fen
