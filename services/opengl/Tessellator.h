#pragma once

#include "../logging/Export.h"

namespace Kes::Math {
class Vector3;
}

/// Cuts polygons into triangles: contours of one polygon, nested ones are holes
/// (odd winding rule).
class FENVIS_EXPORT FenTessellator {
public:
    virtual ~FenTessellator() = default;

    virtual void beginPolygon() = 0;
    virtual void beginContour() = 0;
    virtual void vertex(Kes::Math::Vector3 const& point) = 0;
    /// z = 0
    virtual void vertex(float x, float y) = 0;
    /// True: edges inside the polygon are marked, so that line mode
    /// (glPolygonMode) shows its boundary alone. False from the start.
    virtual void boundary(bool flag) = 0;
    virtual void endContour() = 0;
    virtual void endPolygon() = 0;
};
