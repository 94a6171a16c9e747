#pragma once

#include "../../services/logging/Export.h"

class FenStringBuilder;
class FenVisHitRecord;
class QPoint;
class QString;

/// What a node does when the pointer meets something it reported in a pick.
///
/// Each answer is true when the event was consumed and changed something, so
/// that the host draws again. Handlers are owned by their nodes through shared
/// pointers that know the concrete class, and never deleted through this one.
class FENVIS_EXPORT IFenVisEventHandler {
public:
    /// The pointer rests on the hit. May set the tooltip, with numbers written by `builder`.
    virtual bool OnMouseOver(FenVisHitRecord const& hit, FenStringBuilder const& builder,
                             QString& tooltip) = 0;
    /// The pointer left what it rested on. May clear the tooltip.
    virtual bool OnMouseLeave(FenVisHitRecord const& hit, FenStringBuilder const& builder,
                              QString& tooltip) = 0;
    /// The pointer moved with the button held on the hit.
    /// @param offset  [px] previous minus current position, y up: subtract it
    virtual bool OnMouseDrag(FenVisHitRecord const& hit, QPoint offset) = 0;
    /// The drag that began on the hit ends.
    virtual bool OnMouseRelease(FenVisHitRecord const& hit) = 0;
    /// Kept for later use.
    virtual bool OnMouseReserved(FenVisHitRecord const& hit) = 0;
    /// A click selects the hit.
    virtual bool OnMouseSelect(FenVisHitRecord const& hit) = 0;
    /// Writes a description of the hit to the debug log.
    virtual void LogDebugInfo(FenVisHitRecord const& hit) = 0;

protected:
    ~IFenVisEventHandler() = default;
};
