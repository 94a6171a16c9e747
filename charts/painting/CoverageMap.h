#pragma once

#include "services/math/Vector2.h"
#include "services/opengl/VertexArrays.h"

#include <QImage>
#include <QSize>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace fen {

/// Adds up, pixel by pixel, how much of the area of many shapes lies there and in which colours, so that a
/// crowd of lines becomes one picture that no line is missing from, whatever the order in which they come.
///
/// All positions are [device px] from the lower left corner of the map; what lies outside is cut off. At
/// first each column holds the changes from pixel to pixel upwards, so that a shape costs two additions per
/// column however high it is; `finish` turns them into sums, after which only bundles may change. Sums are
/// kept modulo 2^32: what was added can be taken away again exactly.
class CoverageMap {
public:
    /// Added to a map, or taken away again.
    enum class Change { Add, Remove };

    /// Sum of the shapes over one pixel: red, green and blue weighted with the coverage, and its weight.
    struct alignas(16) Cell {
        std::array<std::uint32_t, 4> sums{};

        std::uint32_t weight() const { return sums[3]; }
        void add(Cell const& o)
        {
            for (std::size_t k = 0; k < 4; ++k) sums[k] += o.sums[k];
        }
        void subtract(Cell const& o)
        {
            for (std::size_t k = 0; k < 4; ++k) sums[k] -= o.sums[k];
        }
    };

    /// The weight of a pixel that a shape covers whole.
    enum class Unit : std::uint32_t {
        Whole = 1, ///< pixels are covered or not; for crowds in which edges cannot be told
        Shares = 64 ///< edges are smooth
    };

    /// Lines between the same two columns.
    struct Bundle {
        int first = 0; ///< column
        int columns = 0; ///< from there to the end of the lines, whose own column is not covered
        int thickness = 1; ///< [device px] of level lines
        std::vector<float> from, to; ///< [device px] heights in the first and behind the last column
        std::vector<Rgba> colors;
    };

    CoverageMap(QSize const& size, Unit unit);

    QSize const& size() const { return _size; }
    std::uint32_t unit() const { return std::uint32_t(_unit); }

    /// A shape with smooth edges, counter-clockwise; a clockwise one counts negative.
    /// @param samples  1, 2 or 4 looks per column; more make steep edges smoother
    void addPolygon(std::vector<Kes::Math::Vector2> const& corners, Rgba const& color, int samples,
                    Change change);
    /// A line with smooth edges.
    void addLine(Kes::Math::Vector2 const& from, Kes::Math::Vector2 const& to, float thickness,
                 Rgba const& color, int samples, Change change);
    /// All lines of a bundle, without smooth edges.
    void addBundle(Bundle const& bundle, Change change);

    /// Turns changes into sums.
    void finish();
    bool finished() const { return _finished; }
    /// The cells of a column from the bottom: changes, or sums when finished.
    Cell const* column(int x) const { return _cells.data() + std::size_t(x) * _stride; }

private:
    void addEdge(Kes::Math::Vector2 from, Kes::Math::Vector2 to, Rgba const& color, int samples,
                 Change change);
    void addAt(int x, float y, Rgba const& color, std::uint32_t weight, bool add);

    QSize _size;
    Unit _unit;
    bool _finished = false;
    std::size_t _stride; ///< cells per column: one more than pixels
    std::vector<Cell> _cells;
};

/// How opaque a pixel is under so many whole shapes.
typedef std::function<double(double count)> OpacityOfCount;

/// Maps over each other, from the first to the last, as a picture. Points at the maps.
class CoveragePicture {
public:
    struct Layer {
        CoverageMap const* map;
        OpacityOfCount opacity;
    };

    CoveragePicture() = default;
    /// @param layers  one to three, all of one size, either all finished or none
    explicit CoveragePicture(std::vector<Layer> const& layers);

    /// Premultiplied.
    QImage image() const;
    /// Brings the pixels of a bundle up to date in a picture of finished maps.
    void update(QImage& image, CoverageMap::Bundle const& bundle) const;

private:
    void paint(QImage& picture, CoverageMap::Bundle const* bundle) const;
    template <std::size_t Maps>
    void paint(QImage& picture, CoverageMap::Bundle const* bundle) const;

    std::vector<CoverageMap const*> _maps;
    std::vector<std::vector<float>> _shares; ///< opacity divided by weight, for each weight
};

/// Opacity that tells one line from none and crowds from larger crowds: it grows with the logarithm of the
/// number of lines.
/// @param lines  in the picture
/// @param rows   [px] that they are spread over
OpacityOfCount crowdOpacity(std::size_t lines, int rows);

} // namespace fen
