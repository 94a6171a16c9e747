#pragma once

#include "../framework/VisPassiveNode.h"
#include "../services/math/Vector3.h"

#include <QStringList>

#include <vector>

/// Flat shadows of siblings on a plane, cast by a light at a place.
///
/// Plane and light are in eye coordinates, as the lights of the light list are:
/// what the model-view matrix makes of the scene is flattened onto the plane. So
/// a light and its shadow plane take the same numbers, and a host that turns the
/// scene under a fixed light has nothing to do.
///
/// A shadow falls wherever a ray from the light through an object meets the
/// plane, also for what lies behind the plane; what lies beyond the light casts
/// none. Draws in the 3D pass; follows renames of the objects.
class FENVIS_EXPORT FenVisShadowPlane : public FenVisPassiveNode {
public:
    static QString const typeString;

    FenPropertyAdaptor<Kes::Math::Vector3> position; ///< [eye] a point of the plane
    FenPropertyAdaptor<Kes::Math::Vector3> normal; ///< [eye] of any length
    FenPropertyAdaptor<Kes::Math::Vector3> light; ///< [eye] where the light is, not in the plane
    FenPropertyAdaptor<QStringList> objects; ///< names of the siblings that cast shadows
    FenPropertyAdaptor<QColor> color; ///< of the shadow; usually translucent

    explicit FenVisShadowPlane(FenModifiedGroup& group);
    FenVisShadowPlane(FenVisShadowPlane const& other);
    FenVisShadowPlane& operator=(FenVisShadowPlane const&) = default;
    ~FenVisShadowPlane() override;

    void onDependentRename(QString const& oldName, QString const& newName) override;
    /// Draws the enabled siblings that are named, flattened and all in the shadow's
    /// colour; a name without a sibling is logged, once in each pass. Touches
    /// nothing when there is no sibling to draw or no shadow to be had, and while
    /// shadows are being cast: a shadow plane casts none.
    void draw3d(DrawContext const& context) const override;
    /// Around the shadows of the objects' boxes, for a model-view matrix that is the
    /// identity; undefined without any.
    Kes::Math::BoundingBox boundingBox() const override;

private:
    /// One sibling for each different name; null where there is none.
    std::vector<FenVisualization const*> namedSiblings() const;
    bool castsShadows() const;
};
