#pragma once

#include "../../services/logging/Export.h"
#include "../../services/properties/ViewPtr.h"
#include "../hits/IVisEventHandler.h"
#include "../hits/VisHitProperty.h"

#include <QString>

class FenVisualization;

/// Event handler that remembers what the pointer rests on; base of the nodes'
/// handlers, which override only what differs.
///
/// Points at its node; when the node is gone, or the hit's name is no longer in
/// the node's table, every event is answered with false and changes nothing.
class FENVIS_EXPORT FenVisHoverHandler : public IFenVisEventHandler {
public:
    explicit FenVisHoverHandler(FenVisualization& node);

    /// Remembers the hit and describes it; false for the same thing again.
    bool OnMouseOver(FenVisHitRecord const& hit, FenStringBuilder const& builder, QString& tooltip) override;
    /// Forgets the hit when it is the remembered one; clears the tooltip if it is still the node's name.
    bool OnMouseLeave(FenVisHitRecord const& hit, FenStringBuilder const& builder, QString& tooltip) override;
    bool OnMouseDrag(FenVisHitRecord const& hit, QPoint offset) override;
    bool OnMouseRelease(FenVisHitRecord const& hit) override;
    bool OnMouseReserved(FenVisHitRecord const& hit) override;
    bool OnMouseSelect(FenVisHitRecord const& hit) override;
    void LogDebugInfo(FenVisHitRecord const& hit) override;

    /// What the pointer rests on; undefined for nothing and when its owner is gone.
    FenVisHitProperty const& hovered() const { return _hovered; }
    void setHovered(FenVisHitProperty const& hit) { _hovered = hit; }
    /// Nothing is hovered any more.
    void forget() { _hovered = FenVisHitProperty(); }

protected:
    ~FenVisHoverHandler();

    /// The node, or null when it is gone.
    FenVisualization* node() const { return _node.get(); }
    /// The node as the class that made the handler.
    template <class Node>
    Node* nodeAs() const
    {
        return static_cast<Node*>(_node.get());
    }
    /// What the hit's name stands for in the node's table; undefined when unknown.
    FenVisHitProperty lookUp(FenVisHitRecord const& hit) const;

    /// Whether two defined hits are the same thing; here: have the same owner.
    virtual bool isSame(FenVisHitProperty const& a, FenVisHitProperty const& b) const;
    /// Sets the tooltip of a new hit; here the node's name when the node itself is hit.
    /// @return false: not ours, change nothing and answer false
    virtual bool describe(FenVisHitProperty const& hit, FenStringBuilder const& builder, QString& tooltip);

private:
    fen::view_ptr<FenVisualization> _node;
    FenVisHitProperty _hovered;
};
