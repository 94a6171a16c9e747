#pragma once

#include "framework/DrawContext.h"
#include "framework/VisPassiveNode.h"
#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitRecord.h"
#include "picking/hits/VisHitRecordList.h"

#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <vector>

/// A node of coloured squares [px, y up] that can be picked without drawing, and a handler that
/// writes down each call: "over 2", "drag 1 (3,-4)". Dragging counts into "moved", releasing
/// writes it into "x".
class ProbeNode : public FenVisPassiveNode {
public:
    class Handler : public IFenVisEventHandler {
    public:
        explicit Handler(ProbeNode& node)
            : _node(&node)
        {
        }
        bool OnMouseOver(FenVisHitRecord const& hit, FenStringBuilder const&, QString& tooltip) override
        {
            note("over", hit);
            tooltip = QStringLiteral("square %1").arg(hit.context());
            return true;
        }
        bool OnMouseLeave(FenVisHitRecord const& hit, FenStringBuilder const&, QString&) override
        {
            return note("leave", hit);
        }
        bool OnMouseDrag(FenVisHitRecord const& hit, QPoint offset) override
        {
            note("drag", hit, QStringLiteral(" (%1,%2)").arg(offset.x()).arg(offset.y()));
            _node->moved -= offset.x();
            return _node->takesDrags;
        }
        bool OnMouseRelease(FenVisHitRecord const& hit) override
        {
            note("release", hit);
            _node->x.set(_node->x.get() + std::exchange(_node->moved, 0));
            return true;
        }
        bool OnMouseReserved(FenVisHitRecord const& hit) override { return note("reserved", hit); }
        bool OnMouseSelect(FenVisHitRecord const& hit) override { return note("select", hit); }
        void LogDebugInfo(FenVisHitRecord const&) override { }

    private:
        /// The name must stand for this node, whichever picks were made since.
        bool note(char const* what, FenVisHitRecord const& hit, QString const& more = QString())
        {
            bool const known = _node->hitProperty(hit.context()).isPropertyEqual(_node->owner(hit.context()));
            _node->calls << QStringLiteral("%1 %2%3%4")
                                .arg(QLatin1String(what))
                                .arg(hit.context())
                                .arg(more, known ? QString() : QStringLiteral(" unknown"));
            return true;
        }
        ProbeNode* _node;
    };

    explicit ProbeNode(FenModifiedGroup& group)
        : FenVisPassiveNode(group)
        , x(*this, QStringLiteral("x"), 0, QString())
        , handler(boost::make_shared<Handler>(*this))
    {
        selectable.set(true);
    }

    FenPropertyAdaptor<int> x;
    std::vector<QRect> squares; ///< name i + 1
    std::vector<std::unique_ptr<FenProperties>> owners; ///< of the squares; the node when there is none
    QStringList calls;
    bool takesDrags = true;
    int moved = 0;
    int updates = 0;
    int resizes = 0;
    mutable int picks = 0;
    boost::shared_ptr<Handler> handler;

    QStringList takeCalls() { return std::exchange(calls, QStringList()); }
    FenProperties const* owner(quint32 name) const
    {
        return name > 0 && name <= owners.size() ? owners[name - 1].get() : this;
    }

    void update(DrawContext const&) override { ++updates; }
    void resize(DrawContext const&) override { ++resizes; }
    FenVisHitRecordList select2d(SelectContext const& context) const override
    {
        ++picks;
        hitProperties().clear();
        std::vector<FenVisHitRecord> records;
        for (quint32 i = 0; i < squares.size(); ++i) {
            if (!squares[i].contains(context.point)) continue;
            records.emplace_back(i + 1, 0.5);
            hitProperties().insert(i + 1, FenVisHitProperty(owner(i + 1)));
        }
        return FenVisHitRecordList(records, handler, this, layer.get());
    }
};
