#pragma once

#include "framework/VisList.h"
#include "services/math/BoundingBox.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/OglText.h"
#include "services/opengl/Resource.h"

#include <cstring>
#include <functional>
#include <new>
#include <optional>

/// Node that writes down which of its passes ran, and does in them what a test tells it to; it may be
/// destroyed in any of them, and fails loudly when it is used afterwards.
class RecordingNode : public FenVisualization {
public:
    explicit RecordingNode(FenModifiedGroup& group, QString const& name = {}, QStringList* passes = nullptr)
        : FenVisualization(group)
        , _passes(passes)
    {
        rename(name);
        enabled.set(true);
        selectable.set(true);
    }
    static void* operator new(std::size_t size) { return ::operator new(size); }
    static void operator delete(void* place, std::size_t size)
    {
        std::memset(place, 0xDD, size);
        ::operator delete(place);
    }

    bool getViewport(FenOglViewport const&, FenOglViewport& result) const override
    {
        if (own) result = *own;
        return own.has_value();
    }
    void update(DrawContext const& context) override { record("update", context); }
    void resize(DrawContext const& context) override { record("resize", context); }
    void draw3d(DrawContext const& context) const override { record("draw3d", context); }
    void draw2d(DrawContext const& context) const override { record("draw2d", context); }
    FenVisHitRecordList select3d(SelectContext const& in) const override { return pick("select3d", in); }
    FenVisHitRecordList select2d(SelectContext const& in) const override { return pick("select2d", in); }
    Kes::Math::BoundingBox boundingBox() const override { return box; }

    std::optional<FenOglViewport> own; ///< its own viewport
    Kes::Math::BoundingBox box;
    std::function<void(DrawContext const&)> inside; ///< called by every pass, last of all
    mutable QPoint picked; ///< pick point of the last select pass

private:
    void record(char const* pass, DrawContext const& context) const
    {
        if (_passes) _passes->append(name() + '.' + pass);
        if (auto const call = inside) call(context);
    }
    FenVisHitRecordList pick(char const* pass, SelectContext const& context) const
    {
        picked = context.point;
        FenVisHitRecordList const hits({FenVisHitRecord::catchall()}, {}, this, layer.get());
        record(pass, context);
        return hits;
    }

    QStringList* _passes;
};

/// Hit records as texts "name@depth ", with depths of few digits.
inline QString describe(std::vector<FenVisHitRecord> const& records)
{
    QString text;
    for (FenVisHitRecord const& record : records)
        text += QString("%1@%2 ").arg(record.context()).arg(record.depth(), 0, 'g', 3);
    return text;
}

/// What contexts refer to, and contexts of a size.
struct Passes {
    FenVisualization::DrawContext draw() { return {geometry, cache, resource, viewport, text, {}, {}}; }
    FenVisualization::SelectContext select(QPoint const& point, QSize const& size = QSize(3, 3))
    {
        FenVisualization::SelectContext context(geometry, cache, resource, viewport, text, {});
        context.point = point;
        context.size = size;
        return context;
    }

    FenOglViewport viewport = FenOglViewport(0, 0, 400, 300);
    FenResource resource;
    FenOglCache cache{resource};
    FenOglText text{cache};
    FenOglGeometry geometry;
};
