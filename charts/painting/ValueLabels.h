#pragma once

#include "charts/painting/CurveData.h"
#include "charts/style/VariableStyle.h"

#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>

#include <vector>

class FenOglText;

namespace fen {

/// A value label and where it goes.
struct ValueLabel {
    QPoint anchor; ///< [px]
    Qt::Alignment alignment;
    QString text;
};

/// Which parts of a data rectangle labels have taken already.
class LabelRoom {
public:
    explicit LabelRoom(QSize const& size); ///< [px]
    QSize const& size() const { return _size; }
    /// True when a rectangle lies inside and nothing in it is taken.
    bool free(QRect const& rect) const;
    void take(QRect const& rect);

private:
    static constexpr int cell = 2; // [px]
    QSize _size;
    int _columns;
    std::vector<bool> _taken;
};

/// Places the labels of a variable: beside a point, above or below a bar. A label that finds no free place
/// there is left out.
/// @param labels  one text per point; empty ones are not drawn
/// @param room    what the labels of other variables have taken
std::vector<ValueLabel> placeLabels(QStringList const& labels, CurveData const& data,
                                    VariableStyle const& style, double base, FenOglText& text,
                                    LabelRoom& room);

/// Draws placed labels relative to the data rectangle.
void drawLabels(std::vector<ValueLabel> const& labels, QColor const& color, FenOglText& text);

} // namespace fen
