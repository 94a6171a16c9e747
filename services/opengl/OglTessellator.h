#pragma once

#include "../logging/Export.h"
#include "Tessellator.h"

#include <memory>

/// Tessellator on GLU that draws the triangles in the current colour at the end
/// of each polygon, as one array, also while picking or recording a list.
///
/// Points that are not finite are left out, a polygon that GLU cannot cut draws
/// nothing; each is logged. Calls out of order are ignored.
class FENVIS_EXPORT FenOglTessellator : public FenTessellator {
public:
    FenOglTessellator();
    ~FenOglTessellator() override;
    FenOglTessellator(FenOglTessellator const&) = delete;
    FenOglTessellator& operator=(FenOglTessellator const&) = delete;

    void beginPolygon() override;
    void beginContour() override;
    void vertex(Kes::Math::Vector3 const& point) override;
    void vertex(float x, float y) override;
    void boundary(bool flag) override;
    void endContour() override;
    void endPolygon() override;

private:
    struct Work;
    std::unique_ptr<Work> _work;
};
