#pragma once

#include "../../services/logging/Export.h"
#include "../../services/properties/ViewPtr.h"
#include "../hits/IVisEventHandler.h"

class FenVisualization;

/// Logs the events of one node; for use while developing.
///
/// Abstract: derive from it and supply the remaining events. Its own
/// `OnMouseOver` has no builder and stands beside the interface's, not in its
/// place. Points at the node; when that is gone it logs nothing and answers false.
class FENVIS_EXPORT FenVisDebugEventHandler : public IFenVisEventHandler {
public:
    explicit FenVisDebugEventHandler(FenVisualization const* node);

    bool OnMouseDrag(FenVisHitRecord const& hit, QPoint offset) override;
    void LogDebugInfo(FenVisHitRecord const& hit) override;

    using IFenVisEventHandler::OnMouseOver;
    /// Logs nothing; the tooltip tells node, name and depth.
    virtual bool OnMouseOver(FenVisHitRecord const& hit, QString& tooltip);
    virtual bool OnMouseClick(FenVisHitRecord const& hit);

protected:
    ~FenVisDebugEventHandler() = default;

private:
    bool log(char const* before, FenVisHitRecord const& hit, bool withLayer) const;

    fen::view_ptr<FenVisualization const> _node;
};
