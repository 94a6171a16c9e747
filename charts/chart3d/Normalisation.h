#pragma once

#include "services/math/BoundingBox.h"

namespace fen {

/// A box in which no extent is 0: one that is reaches from 1 below its number to 1 above. Numbers so large
/// that adding 1 changes nothing are left by a share of themselves. An undefined box stays undefined.
Kes::Math::BoundingBox widened(Kes::Math::BoundingBox const& box);

/// How data comes into the scene: scene = (data + offset) x scaling, per axis.
struct Normalisation {
    Kes::Math::Vector3 scaling{1, 1, 1};
    Kes::Math::Vector3 offset;
    Kes::Math::BoundingBox bounds; ///< [scene] of the box that was given
};

/// Maps a box of data onto the unit cube. An axis without extent keeps the scaling 1; an undefined box
/// changes nothing.
Normalisation normalised(Kes::Math::BoundingBox const& data);

} // namespace fen
