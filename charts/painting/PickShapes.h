#pragma once

#include "charts/painting/CurvePoints.h"

#include <QPoint>
#include <QRectF>

#include <vector>

namespace fen {

/// Boxes of runs of a strip's vertices, to find those near a place quickly.
class StripIndex {
public:
    StripIndex() = default;
    explicit StripIndex(Strips const& strips);

    /// First vertices of the segments (or, with a step of 2, pairs of vertices) that may meet `area`.
    /// @param step  how many vertices on a segment ends
    std::vector<std::size_t> near(Strips const& strips, QRectF const& area, std::size_t step) const;
    /// First ends of the spans that may meet `area`.
    std::vector<std::size_t> spansNear(Strips const& strips, QRectF const& area) const;

private:
    static constexpr std::size_t runLength = 64;
    struct Box {
        float left, right, bottom, top;

        void insert(Kes::Math::Vector2 const& point);
        bool meets(QRectF const& area) const;
    };
    static std::vector<Box> boxes(std::vector<Kes::Math::Vector2> const& points);

    std::vector<Box> _boxes; // each holds the two vertices behind its run as well
    std::vector<Box> _spanBoxes;
};

/// What a line covers beyond its middle.
struct LineShape {
    float width = 1; ///< [px]
    bool smooth = false; ///< even to both sides; a plain one is cut upright or level, as OpenGL does
    std::vector<Kes::Math::Vector2> const* corners = nullptr; ///< of squares that are drawn in addition
};
/// Corners of quads that cover the parts of a line that may meet `area` [px].
std::vector<Kes::Math::Vector2> lineQuads(Strips const& line, StripIndex const& index, QRectF const& area,
                                          LineShape const& shape);
/// Corners of quads that cover the parts of a band, made by `areaBand`, that may meet `area`.
std::vector<Kes::Math::Vector2> bandQuads(Strips const& band, StripIndex const& index, QRectF const& area);
/// Corners of the bars that meet `area`.
std::vector<Kes::Math::Vector2> barQuads(std::vector<Bar> const& bars, QRectF const& area);

/// [px] The square of pixels around the mouse that a pick looks at.
/// @param size  each extent is raised to at least 1
QRect pickedPixels(QPoint const& point, QSize const& size);

/// Points whose pixel lies in `area`, at most the last `limit` of them, in ascending order.
/// @param area  [px] whole pixels
std::vector<std::size_t> pointsInside(CurveData const& data, QRect const& area, std::size_t limit);

/// The data point that a place on a curve stands for: the nearest in x; on a stair the one whose value is
/// held there; the nearest of all where x does not ascend.
/// @param at  [px]
/// @return `data.count` when no point is defined
std::size_t nearestPoint(CurveData const& data, CurveShape shape, QPointF const& at);

} // namespace fen
