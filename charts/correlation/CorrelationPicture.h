#pragma once

#include "charts/correlation/CorrelationBins.h"
#include "charts/correlation/CorrelationLayout.h"
#include "services/math/NumberFormat.h"
#include "services/opengl/OglTexture.h"

#include <QColor>
#include <QList>
#include <QPoint>
#include <QString>

#include <cstddef>
#include <vector>

class FenOglText;

namespace fen {

/// A correlation matrix as it was at the last update.
struct CorrelationMatrix {
    CorrelationBins bins;
    QList<QColor> colors; ///< the bins are spread over them; never empty
    std::vector<QString> names; ///< one per variable
    std::vector<double> values; ///< row by row, as many columns as there are names
    int widestName = 0; ///< [px]
    int numberWidth = 0; ///< [px] of "-0.00"

    unsigned count() const { return unsigned(names.size()); }
    /// NaN beyond the matrix.
    double value(unsigned row, unsigned column) const;
    /// Colour of a bin.
    QColor color(unsigned bin) const;
};

/// What a correlation chart draws, made for one size of its data rectangle. All places are [px].
struct CorrelationPicture {
    struct Text {
        QPoint anchor;
        QString text;
        QColor color; ///< of numbers only
    };
    CorrelationLayout layout;
    std::vector<Text> rowNames; ///< end at their anchors
    std::vector<Text> columnNames; ///< run upwards from their anchors
    std::vector<Text> numbers; ///< centred at their anchors; none where cells have no room
    /// One texel per cell, transparent where there is no value: faster by far than a quad for each.
    FenOglTexture cells;
    bool opaque = true; ///< no texel shines through

    CorrelationPicture() = default;
    /// @param text  measures the names and numbers
    CorrelationPicture(CorrelationMatrix const& matrix, FenOglViewport const& data, FenOglText& text,
                       Kes::Math::NumberFormat const& format);

private:
    void addNames(CorrelationMatrix const& matrix, FenOglText const& text, int room);
    void addCells(CorrelationMatrix const& matrix);
    void addNumbers(CorrelationMatrix const& matrix, FenOglText const& text,
                    Kes::Math::NumberFormat const& format);
};

} // namespace fen
