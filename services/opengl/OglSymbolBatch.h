#pragma once

#include "../logging/Export.h"

#include <QColor>
#include <QPoint>
#include <QString>

#include <memory>
#include <vector>

class FenOglCache;
class FenOglViewport;

/// How all symbols of a batch look.
struct FENVIS_EXPORT FenOglSymbolStyle {
    QString atlas; ///< resource name; empty = the built-in atlas
    unsigned symbol = 0; ///< index in the atlas
    int size = 5; ///< [px]
    QColor fill = Qt::black;
    QColor outline = Qt::black;

    bool operator==(FenOglSymbolStyle const&) const = default;
};

/// Many equal plot symbols at whole pixels, in order: a later one covers an
/// earlier one.
///
/// Few symbols are one array of textured quads; many are put together in one
/// picture that is kept until positions, style or pixel ratio change. Draws in
/// a 2D pixel mode over `area`, never into display lists and never for picking
/// (draw points or quads there). Copies share the kept picture.
class FENVIS_EXPORT FenOglSymbolBatch {
public:
    FenOglSymbolBatch();
    ~FenOglSymbolBatch();
    FenOglSymbolBatch(FenOglSymbolBatch const&);
    FenOglSymbolBatch& operator=(FenOglSymbolBatch const&);

    void setStyle(FenOglSymbolStyle const& style);
    FenOglSymbolStyle const& style() const;
    /// @param positions  [px] centres: the symbol covers position - size / 2 (integer
    ///                   division) and the `size - 1` pixels after it
    void setPositions(std::vector<QPoint> positions);
    std::vector<QPoint> const& positions() const;

    /// Draws the symbols from index `first` up to, not including, `last`.
    /// @param area  [px] visible rectangle in the coordinates of the positions;
    ///              what lies outside may be left out
    void draw(FenOglCache& cache, FenOglViewport const& area, std::size_t first, std::size_t last) const;
    void draw(FenOglCache& cache, FenOglViewport const& area) const;

private:
    struct State;
    std::unique_ptr<State> _state;
};
