#pragma once

#include "charts/painting/CoverageMap.h"
#include "charts/painting/CurvePoints.h"
#include "services/math/Vector2.h"
#include "services/opengl/OglTexture.h"
#include "services/opengl/OglViewport.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QRectF>

#include <memory>
#include <vector>

namespace fen {

/// How the lines of items look.
struct ItemLook {
    QList<QColor> colors; ///< see `itemColor`
    bool closed = false; ///< the last point is joined to the first
    bool filled = false; ///< closed ones only
};

/// The lines of all items of a chart as one picture, from axis to axis.
///
/// Made by `resize` for one layout. Items that filters leave out lie under the others, gray and pale. When a
/// filter moves only the lines of the items that change sides are drawn again. Few items are drawn with
/// smooth edges; many become a density that counts every one.
class ItemPicture {
public:
    /// @param area    [px] that the picture covers
    /// @param points  [px] axis by axis, one per item; NaN where a value is missing
    /// @param valid   one flag per item
    ItemPicture(FenOglViewport const& area, std::size_t axes, std::vector<Kes::Math::Vector2> points,
                std::vector<bool> const& valid, ItemLook const& look);

    std::size_t items() const { return _valid.size(); }
    void setValid(std::vector<bool> const& valid);
    QColor color(std::size_t item) const;
    /// Line of an item [px], cut where a value is missing.
    Strips line(std::size_t item) const;
    /// Triangles that fill a closed item [px].
    std::vector<Kes::Math::Vector2> triangles(std::size_t item) const;
    /// The last `limit` items in drawing order whose lines meet an area [px], the topmost last.
    std::vector<std::size_t> itemsNear(QRectF const& area, std::size_t limit) const;
    /// The same for their filled areas.
    std::vector<std::size_t> fillsNear(QRectF const& area, std::size_t limit) const;
    /// Places on the lines [px], about `limit` at most, spread evenly over items and axes.
    std::vector<QPoint> ink(std::size_t limit) const;
    /// Draws the picture in a 2D pixel mode.
    void draw() const;

private:
    typedef std::vector<std::size_t> Items;

    Kes::Math::Vector2 const& point(std::size_t axis, std::size_t item) const;
    bool missing(std::size_t axis, std::size_t item) const;
    std::size_t gaps() const { return _look.closed ? _axes : _axes - 1; } ///< lines from axis to axis
    std::size_t behind(std::size_t axis) const { return axis + 1 < _axes ? axis + 1 : 0; }
    template <class Meets>
    Items topmost(std::size_t limit, Meets const& meets) const;
    Kes::Math::Vector2 center() const;

    bool bundled() const;
    Kes::Math::Vector2 onDevice(Kes::Math::Vector2 const& point) const;
    Rgba layerColor(std::size_t item, bool valid) const;
    void change(Items const& items, bool valid, CoverageMap::Change change);
    void changeLine(CoverageMap& map, std::size_t item, bool valid, CoverageMap::Change change) const;
    void changeLoneValues(CoverageMap& map, std::size_t item, bool valid, CoverageMap::Change change) const;
    CoverageMap::Bundle bundle(std::size_t gap, Items const& items, bool valid) const;
    void changeFill(std::size_t item, CoverageMap::Change change);
    void makePicture();
    void updatePicture(Items const& changed);

    FenOglViewport _area;
    double _ratio; ///< device pixels per logical one
    std::size_t _axes;
    std::vector<Kes::Math::Vector2> _points;
    std::vector<bool> _gappy; ///< one per item: some value is missing
    struct Span {
        float from, to;
    };
    std::vector<Span> _spans; ///< [px] what the lines behind each axis cover in x
    ItemLook _look;
    std::vector<bool> _valid;
    CoverageMap _lines;
    std::unique_ptr<CoverageMap> _filtered; ///< null as long as every item was valid
    std::unique_ptr<CoverageMap> _fill; ///< null unless filled
    CoveragePicture _painter; ///< of the maps that there are
    QImage _image;
    FenOglTexture _picture;
};

} // namespace fen
