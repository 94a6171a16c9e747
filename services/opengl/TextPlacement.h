#pragma once

#include "services/math/Angle.h"

#include <QPoint>
#include <QSize>
#include <Qt>

namespace fen {

/// [px] lower left corner of a box of `size` relative to its anchor: the flags
/// name the side of the anchor on which it lies. Without flags it lies right and above.
QPoint alignedOrigin(Qt::Alignment alignment, QSize const& size);

/// Direction of a baseline; exact for quarter turns, along x when the angle is not finite.
struct Direction {
    float cos = 1, sin = 0;
};
Direction directionOf(Kes::Math::Angle const& angle);

} // namespace fen
