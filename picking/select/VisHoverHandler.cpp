#include "picking/select/VisHoverHandler.h"

#include "framework/Visualization.h"
#include "picking/hits/VisHitRecord.h"

#include <QPoint>

FenVisHoverHandler::FenVisHoverHandler(FenVisualization& node)
    : _node(&node)
{
}

FenVisHoverHandler::~FenVisHoverHandler() = default;

bool FenVisHoverHandler::OnMouseOver(FenVisHitRecord const& hit, FenStringBuilder const& builder,
                                     QString& tooltip)
{
    FenVisHitProperty const found = lookUp(hit);
    if (!found.defined()) return false;
    if (_hovered.defined() && isSame(found, _hovered)) return false;
    if (!describe(found, builder, tooltip)) return false;
    _hovered = found;
    return true;
}

bool FenVisHoverHandler::OnMouseLeave(FenVisHitRecord const& hit, FenStringBuilder const&, QString& tooltip)
{
    FenVisHitProperty const found = lookUp(hit);
    if (!found.defined() || !_hovered.defined() || !isSame(found, _hovered)) return false;
    if (tooltip == node()->name()) tooltip = QString();
    forget();
    return true;
}

bool FenVisHoverHandler::OnMouseDrag(FenVisHitRecord const&, QPoint) { return false; }

bool FenVisHoverHandler::OnMouseRelease(FenVisHitRecord const&) { return false; }

bool FenVisHoverHandler::OnMouseReserved(FenVisHitRecord const&) { return false; }

bool FenVisHoverHandler::OnMouseSelect(FenVisHitRecord const&) { return false; }

void FenVisHoverHandler::LogDebugInfo(FenVisHitRecord const&) { }

FenVisHitProperty FenVisHoverHandler::lookUp(FenVisHitRecord const& hit) const
{
    FenVisualization const* const node = _node.get();
    return node ? node->hitProperty(hit.context()) : FenVisHitProperty();
}

bool FenVisHoverHandler::isSame(FenVisHitProperty const& a, FenVisHitProperty const& b) const
{
    return a.isPropertyEqual(b);
}

bool FenVisHoverHandler::describe(FenVisHitProperty const& hit, FenStringBuilder const&, QString& tooltip)
{
    if (hit.isPropertyEqual(node())) tooltip = node()->name();
    return true;
}
