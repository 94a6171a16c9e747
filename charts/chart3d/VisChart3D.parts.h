#pragma once

#include "charts/chart3d/BarFootprint.h"
#include "charts/chart3d/BoxTree.h"
#include "charts/chart3d/DrawRules.h"
#include "charts/chart3d/SurfaceMesh.h"
#include "charts/chart3d/VisChart3D.h"
#include "charts/style/VariableStyle.h"
#include "framework/DrawContext.h"
#include "services/chartdata/ChartVariable.h"
#include "services/opengl/OglDisplayList.h"
#include "services/properties/ModifiedWatcher.h"

#include <array>

/// A valid variable as it is drawn: what depends on its data, its style and the mapping into the scene.
struct FenVisChart3D::Variable {
    explicit Variable(FenChartVariable const& drawn)
        : variable(&drawn)
        , watcher(&drawn)
    {
    }

    fen::view_ptr<FenChartVariable const> variable;

    /// All that the shapes below are made of. As long as it stays the same, so do they.
    struct Source {
        std::array<FenChartColumn::Ptr, 3> columns;
        Kes::Math::Vector2 minmax; ///< [data] range of z
        double base = 0; ///< [data] base line of bars and fills
        unsigned mode = 0; ///< axis flags
        Vector3 scaling, offset;

        bool operator==(Source const&) const = default;
    };
    Source source;
    FenModifiedWatcher watcher; ///< of the variable's properties

    fen::VariableStyle style;
    fen::Shape3D shape = fen::Shape3D::Nothing;
    std::vector<Vector3> points; ///< [data] those that are known
    Kes::Math::Vector2 barDelta; ///< [data] footprint of a bar
    std::vector<Vector3> places; ///< [scene] of the points

    fen::BarStand bars;
    fen::VertexArrays boxes; ///< of bars: eight corners each
    std::vector<unsigned> boxOf; ///< point of each bar that is drawn
    fen::VertexArrays line;
    fen::VertexArrays area; ///< between line and base line, a strip
    fen::SurfaceMesh surface;
    std::vector<unsigned> faces; ///< indices of bars or surface, in the order of the data

    fen::BoxTree pointTree; ///< of `places`
    fen::BoxTree shapeTree; ///< of bars or of the pieces of the line
    bool translucent = false; ///< its faces are drawn from back to front
    bool translucentSymbols = false;
    FenOglDisplayList list;

    bool outlined() const { return style.line != fen::VariableStyle::Line::None; }
    /// Whether there is more to see than symbols.
    bool visible() const { return outlined() || filled(); }
    /// Symbols alone take the colours of a gradient fill; a line has an area under it instead.
    bool fillsSymbols() const
    {
        return shape == fen::Shape3D::Line && hasSymbols() && !outlined()
            && style.fill.mode == fen::FillStyle::Gradient;
    }
    bool filled() const { return style.fill.mode != fen::FillStyle::None; }
    /// Place of a height on the colour ramp, 0 at the lowest value and 1 at the highest.
    float ramp(float z) const
    {
        float const low = source.minmax.x(), size = source.minmax.y() - low;
        return size > 0 ? (z - low) / size : 0.0f;
    }
    bool hasSymbols() const { return style.symbol >= 0 && !places.empty(); }
};

/// One select pass.
struct FenVisChart3D::Pick {
    SelectContext const& context;
    FenVisOglSelectWeakPtr select;
    std::size_t most; ///< names that one variable may take

    /// @param extra  [px] by which a thing is wider than the point or line that stands for it
    fen::PickVolume volume(int extra) const
    {
        return fen::PickVolume(context.point, context.size + QSize(extra, extra), context.viewport,
                               context.projection * context.modelView);
    }
};

namespace fen {

/// Things that may be picked, with their depths.
struct Candidate {
    float depth; ///< [depth]
    std::size_t index;
};
/// The `most` nearest of them, the later ones first among equals, in the order of their indices.
std::vector<Candidate> nearest(std::vector<Candidate> all, std::size_t most);

/// Indices of faces in groups of `corners`, those farthest from the eye first.
std::vector<unsigned> backToFront(std::vector<unsigned> const& faces, std::size_t corners,
                                  std::vector<Kes::Math::Vector3> const& places,
                                  Kes::Math::Matrix const& modelView);

} // namespace fen
