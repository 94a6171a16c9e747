#pragma once

#include "../logging/Export.h"

#include <numbers>

namespace Kes::Math {

/// An angle; never reduced to one turn.
class FENVIS_EXPORT Angle {
public:
    constexpr Angle() = default;
    explicit constexpr Angle(double radians)
        : _radians(radians)
    {
    }
    /// Quarters of a turn and their halves are exact both ways.
    static constexpr Angle fromDegrees(double degrees) { return Angle(degrees / 180.0 * std::numbers::pi); }

    constexpr double degrees() const { return _radians / std::numbers::pi * 180.0; }
    constexpr double radians() const { return _radians; }

    constexpr Angle operator+(Angle o) const { return Angle(_radians + o._radians); }
    constexpr Angle operator-(Angle o) const { return Angle(_radians - o._radians); }
    constexpr Angle operator-() const { return Angle(-_radians); }

    constexpr bool operator<(Angle o) const { return _radians < o._radians; }
    constexpr bool operator>(Angle o) const { return _radians > o._radians; }
    constexpr bool operator==(Angle o) const { return _radians == o._radians; }

private:
    double _radians = 0.0; // [rad]
};

inline constexpr Angle Angle0 = Angle::fromDegrees(0.0);
inline constexpr Angle Angle45 = Angle::fromDegrees(45.0);
inline constexpr Angle Angle90 = Angle::fromDegrees(90.0);
inline constexpr Angle Angle180 = Angle::fromDegrees(180.0);
inline constexpr Angle Angle270 = Angle::fromDegrees(270.0);

} // namespace Kes::Math
