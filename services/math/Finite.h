#pragma once

#include "services/math/Vector3.h"

#include <cmath>

namespace Kes::Math {

/// True when no component is NaN or infinite.
inline bool finite(Vector2 const& p) { return std::isfinite(p.x()) && std::isfinite(p.y()); }
inline bool finite(Vector3 const& p) { return finite(Vector2(p)) && std::isfinite(p.z()); }

} // namespace Kes::Math
