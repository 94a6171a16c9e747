#pragma once

#include "charts/pie/PieLayout.h"
#include "charts/style/VariableStyle.h"
#include "services/opengl/VertexArrays.h"

#include <QColor>
#include <QList>
#include <QString>

#include <array>
#include <vector>

class FenOglText;

namespace fen {

/// How the slice of one variable is drawn.
struct PieStyle {
    FillStyle fill; ///< a gradient counts as solid over the back colour
    StrokeStyle stroke;
    bool outlined = false;
    QColor label; ///< transparent: none

    PieStyle() = default;
    explicit PieStyle(FenChartVariable const& variable);
    /// True when the slice may share its draw calls with others.
    bool plain() const;
    /// True when the outline of a slice is drawn: that of a narrow one would hide its area.
    bool outlines(PieSegment const& segment) const;
};

/// What a pie chart draws, made for one size of its data rectangle. All places are [px].
struct PiePicture {
    struct Label {
        Kes::Math::Vector2 middle;
        QString text;
        QColor color;
    };
    /// Outlines of one width, as pairs of ends.
    struct Outlines {
        float width;
        bool smooth;
        std::vector<Kes::Math::Vector2> ends;
        std::vector<Rgba> colors;
    };
    /// Neighbours that are too narrow to be told apart. One area shows the colours under its pixels; many
    /// slivers would take a renderer far longer.
    struct Crowd {
        QList<QColor> colors; ///< along the arc
        std::vector<Kes::Math::Vector2> triangles;
        /// Places of the corners among the colours, times the radius and divided by it again, so that a
        /// colour fills a ray.
        std::vector<std::array<float, 4>> places;
    };
    PieLayout layout;
    std::vector<PieStyle> styles; ///< one per item
    std::vector<PieLayout::Slice const*> single; ///< slices that are drawn one by one
    std::vector<Kes::Math::Vector2> triangles; ///< areas of all others, three corners each
    std::vector<Rgba> colors; ///< one per corner
    std::vector<Outlines> outlines;
    std::vector<Crowd> crowds;
    std::vector<Label> labels;

    /// @param percent  with labels, where they fit into their slices
    /// @param text     measures them
    PiePicture(FenOglViewport const& data, std::vector<PieItem> const& items,
               std::vector<PieStyle> itemStyles, bool percent, FenOglText& text);
    PiePicture(PiePicture const&) = delete; // `single` points into `layout`
    PiePicture& operator=(PiePicture const&) = delete;

private:
    void addRing(PieLayout::Ring const& ring);
    bool crowded(PieLayout::Slice const& slice) const;
    void addCrowd(PieLayout::Ring const& ring, std::size_t first, std::size_t end);
    void addSlice(PieLayout::Slice const& slice);
    void addOutline(PieSegment const& segment, StrokeStyle const& stroke);
    void addLabels(PieLayout::Ring const& ring, FenOglText& text);
};

} // namespace fen
