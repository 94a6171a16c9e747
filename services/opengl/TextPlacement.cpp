#include "services/opengl/TextPlacement.h"

#include <cmath>

namespace fen {

QPoint alignedOrigin(Qt::Alignment alignment, QSize const& size)
{
    QPoint origin(0, 0);
    if (alignment & Qt::AlignLeft)
        origin.rx() = -size.width();
    else if (alignment & Qt::AlignHCenter)
        origin.rx() = -(size.width() / 2);
    if (alignment & Qt::AlignBottom)
        origin.ry() = -size.height();
    else if (alignment & Qt::AlignVCenter)
        origin.ry() = -(size.height() / 2);
    return origin;
}

Direction directionOf(Kes::Math::Angle const& angle)
{
    double const degrees = angle.degrees();
    if (!std::isfinite(degrees)) return {};
    constexpr double nearlyNothing = 1e-4; // [deg] what float angles are off by
    double const quarters = std::round(degrees / 90);
    if (std::abs(degrees - 90 * quarters) > nearlyNothing)
        return {float(std::cos(angle.radians())), float(std::sin(angle.radians()))};
    switch (int(std::fmod(std::fmod(quarters, 4) + 4, 4))) {
    case 1:
        return {0, 1};
    case 2:
        return {-1, 0};
    case 3:
        return {0, -1};
    default:
        return {1, 0};
    }
}

} // namespace fen
