#pragma once

#include "../framework/VisPassiveNode.h"
#include "../services/opengl/OglDisplayList.h"
#include "../services/properties/Transform.h"

/// A teapot, for trying out lights, cameras and shadows.
///
/// Its surface is recorded once by `update`; drawing places it by "transform".
/// Without a transform it stands on z = 0 with its spout along +x, 3.15 high.
class FENVIS_EXPORT FenVisTeapot : public FenVisPassiveNode {
public:
    static QString const typeString;

    FenTransform transform; ///< child "transform": from the teapot's own space to [scene]

    explicit FenVisTeapot(FenModifiedGroup& group);
    FenVisTeapot(FenVisTeapot const& other);
    FenVisTeapot& operator=(FenVisTeapot const&) = default;
    ~FenVisTeapot() override;

    void update(DrawContext const& context) override;
    void draw3d(DrawContext const& context) const override;
    /// Around the teapot where "transform" puts it [scene]; undefined when that is nowhere.
    Kes::Math::BoundingBox boundingBox() const override;

private:
    FenOglDisplayList _surface;
};
