#pragma once

#include "../logging/Export.h"

#include <numbers>

namespace Kes::Math {

/// An angle; never reduced to one turn.
class FENVIS_EXPORT Angle {
public:
    static Angle const Angle0, Angle45, Angle90, Angle180, Angle270; ///< as the constants of the namespace

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

inline constexpr Angle Angle::Angle0 = Math::Angle0;
inline constexpr Angle Angle::Angle45 = Math::Angle45;
inline constexpr Angle Angle::Angle90 = Math::Angle90;
inline constexpr Angle Angle::Angle180 = Math::Angle180;
inline constexpr Angle Angle::Angle270 = Math::Angle270;

} // namespace Kes::Math
