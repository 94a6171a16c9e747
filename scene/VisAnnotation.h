#pragma once

#include "../framework/VisPassiveNode.h"
#include "../picking/hits/VisHitQualifiers.h"
#include "../services/properties/Viewport.h"

#include <QPoint>
#include <QSize>

#include <boost/shared_ptr.hpp>

/// A box over the charts: a background and a border, a title strip by which it is
/// moved and corners by which it is resized, when its settings allow that.
/// Classes that derive from it draw its content.
///
/// Its "viewport" child places the box, W x H, in the parent. The node's own
/// rectangle begins at the same corner and is larger, W + 6 by H + 24: the box
/// lies in it with a rim of 3 px around, and the strip above. Whether a point
/// hits strip or corner is a matter of numbers, without OpenGL selection.
///
/// While it is dragged it is drawn where it is dragged to; the release writes
/// "viewport".
class FENVIS_EXPORT FenVisAnnotation : public FenVisPassiveNode {
public:
    static QString const typeString;

    class HitDetectEventHandler;

    FenPropertyAdaptor<QColor> backgroundColor; ///< of the box
    FenPropertyAdaptor<QColor> borderColor; ///< of border, strip and grips
    FenPropertyAdaptor<float> borderSize; ///< [px] width of the border, inside the box
    FenPropertyAdaptor<bool> resizeable; ///< may be resized, and moved too
    FenPropertyAdaptor<bool> moveable;
    FenViewport viewport;

    explicit FenVisAnnotation(FenModifiedGroup& group);
    FenVisAnnotation(FenVisAnnotation const& other);
    FenVisAnnotation& operator=(FenVisAnnotation const& other);
    ~FenVisAnnotation() override;

    bool getViewport(FenOglViewport const& parent, FenOglViewport& own) const override;
    void draw2d(DrawContext const& context) const override;
    /// The node itself as name 0, the strip as name 1, a corner as name 2, all of one depth: a corner
    /// wins over the strip, and both over the rest.
    FenVisHitRecordList select2d(SelectContext const& context) const override;
    /// Draws the content; here nothing.
    /// @param context  its viewport is the box
    virtual void doDraw2d(DrawContext const& context) const;

    /// Draws background, border and strip, and the grips while the pointer rests on it.
    /// @param context  its viewport is the node's own rectangle
    void decorate(DrawContext const& context) const;
    /// Whether a pick meets the title strip.
    /// @param p  [px] relative to the corner of the box
    /// @param s  [px] reach of the pick in every direction
    bool isMove(QPoint p, QSize s) const;
    /// Whether a pick meets a corner of the rim, and which.
    bool isResize(QPoint p, QSize s, FenVisHitResizeQualifier::ResizeArea& area) const;

private:
    bool draggable() const { return moveable.get() || resizeable.get(); }
    void drawGrips(QSize const& size) const;

    boost::shared_ptr<HitDetectEventHandler> _handler;
    mutable FenOglViewport _parent; // [px, window] of the last getViewport
    mutable FenOglViewport _box; // [px, window] the box in it
};
