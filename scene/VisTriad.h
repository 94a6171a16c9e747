#pragma once

#include "../framework/VisPassiveNode.h"
#include "../services/math/Matrix.h"
#include "../services/math/Vector3.h"
#include "../services/properties/Viewport.h"

#include <boost/shared_ptr.hpp>

class FenOglGeometry;
class FenVisOglSelectWeakPtr;

/// The directions of the axes: three arrows with labels in a small viewport,
/// turned as the scene is and drawn over it. An arrow can be picked, for example
/// to look along it, and tells its label.
///
/// Place: child "viewport"; while its width and height are untouched, a square of
/// "size" pixels. The labels are drawn in the 2D pass, where the last 3D pass put
/// the arrows.
class FENVIS_EXPORT FenVisTriad : public FenVisPassiveNode {
public:
    static QString const typeString;

    class HitDetectEventHandler;

    FenPropertyAdaptor<QString> labelPosX;
    FenPropertyAdaptor<QString> labelPosY;
    FenPropertyAdaptor<QString> labelPosZ;
    FenPropertyAdaptor<QString> labelNegX;
    FenPropertyAdaptor<QString> labelNegY;
    FenPropertyAdaptor<QString> labelNegZ;
    FenPropertyAdaptor<QString> labelISO; ///< shown while all three axes point equally far to the viewer
    FenViewport viewport;
    FenPropertyAdaptor<int> pixelSize; ///< [px] key "size"

    explicit FenVisTriad(FenModifiedGroup& group);
    FenVisTriad(FenVisTriad const& other);
    FenVisTriad& operator=(FenVisTriad const& other);
    ~FenVisTriad() override;

    bool getViewport(FenOglViewport const& parent, FenOglViewport& own) const override;
    void draw3d(DrawContext const& context) const override;
    void draw2d(DrawContext const& context) const override;
    /// The arrows under the pick, each as a label qualifier; no entry without one.
    FenVisHitRecordList select3d(SelectContext const& context) const override;

protected:
    /// Draws one arrow, a cylinder and a cone, or names it while picking.
    /// @param end        where the cylinder ends, from the origin
    /// @param tip        from there to the tip of the cone
    /// @param color      transparent: neither drawn nor picked unless it is hovered
    /// @param highlight  colour while it is hovered
    void drawAxis(QString const& label, Kes::Math::Vector3 const& end, Kes::Math::Vector3 const& tip,
                  QColor const& color, QColor const& highlight, FenOglGeometry& geometry,
                  FenVisOglSelectWeakPtr select) const;

private:
    struct Arrow;
    std::vector<Arrow> arrows() const;
    bool hovers(QString const& label) const;
    void drawTriad3D(DrawContext const& context, FenVisOglSelectWeakPtr select) const;
    /// The arrows in the caller's matrix and colour, as a shadow needs them.
    void drawOutline() const;
    void drawTriad2D(DrawContext const& context) const;

    boost::shared_ptr<HitDetectEventHandler> _handler;
    mutable Kes::Math::Matrix _orientation; // of the last 3D pass
};
