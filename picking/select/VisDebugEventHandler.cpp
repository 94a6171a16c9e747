#include "picking/select/VisDebugEventHandler.h"

#include "framework/Visualization.h"
#include "picking/hits/VisHitRecord.h"
#include "services/logging/DebugLogger.h"

#include <QPoint>
#include <QString>

FenVisDebugEventHandler::FenVisDebugEventHandler(FenVisualization const* node)
    : _node(node)
{
}

bool FenVisDebugEventHandler::OnMouseDrag(FenVisHitRecord const& hit, QPoint)
{
    return log("\tOnMouseDrag:\tvis(", hit, false);
}

bool FenVisDebugEventHandler::OnMouseClick(FenVisHitRecord const& hit)
{
    return log("\tOnMouseClick:\tvis(", hit, false);
}

void FenVisDebugEventHandler::LogDebugInfo(FenVisHitRecord const& hit) { log("\tvis(", hit, true); }

bool FenVisDebugEventHandler::OnMouseOver(FenVisHitRecord const& hit, QString& tooltip)
{
    FenVisualization const* const node = _node.get();
    if (!node) return false;
    tooltip = QStringLiteral("top record: ") + node->name()
        + QString::asprintf("->name(%u) depth(%f)", hit.context(), hit.depth());
    return true;
}

bool FenVisDebugEventHandler::log(char const* before, FenVisHitRecord const& hit, bool withLayer) const
{
    FenVisualization const* const node = _node.get();
    if (!node) return false;
    kesdebug::dbgostream& out = fen::debug_logger::debuglogger().dout;
    out << before << node->type().toStdString() << ": " << node->name().toStdString() << ") \trecord("
        << hit.context() << ", " << hit.depth() << ")";
    if (withLayer) out << "\tlayer(" << node->layer.get() << ")";
    out << std::endl;
    return true;
}
