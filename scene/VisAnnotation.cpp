#include "scene/VisAnnotation.h"

#include "picking/hits/VisHitRecordList.h"
#include "framework/DrawContext.h"
#include "scene/AnnotationFrame.h"
#include "scene/VisAnnotation.handler.h"
#include "services/opengl/BoxPlacement.h"

#include <boost/make_shared.hpp>

namespace {

typedef FenVisHitResizeQualifier::ResizeArea ResizeArea;

constexpr quint32 moveName = FenVisHitRecord::START_NAME;
constexpr quint32 resizeName = moveName + 1;

/// A pick along one axis: the interval that it reaches over.
struct Reach {
    Reach(int point, int size)
        : from(qint64(point) - size)
        , to(qint64(point) + size)
    {
    }
    /// Whether it meets the interval from `least` to `most`, ends included.
    bool meets(qint64 least, qint64 most) const { return to >= least && from <= most; }
    /// Whether it lies further than `width` from both ends of 0..`last`.
    bool inside(qint64 width, qint64 last) const { return from >= width && to <= last - width; }

    qint64 from, to;
};

} // namespace

QString const FenVisAnnotation::typeString = QStringLiteral("visualization.annotation");

FenVisAnnotation::FenVisAnnotation(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , backgroundColor(*this, "backgroundColor", Qt::transparent, QString())
    , borderColor(*this, "borderColor", Qt::black, QString())
    , borderSize(*this, "borderSize", 0.0f, QString())
    , resizeable(*this, "resizeable", false, QString())
    , moveable(*this, "moveable", false, QString())
    , viewport(group)
    , _handler(boost::make_shared<HitDetectEventHandler>(*this))
{
    insert(&viewport, true);
    rename(typeString);
    setType(typeString);
    layer.set(200);
    lineColor.set(Qt::transparent);
    fillColor.set(Qt::transparent);
    thumbnail.set(false);
    selectable.set(true);
}

FenVisAnnotation::FenVisAnnotation(FenVisAnnotation const& other)
    : FenVisPassiveNode(other)
    , backgroundColor(*this, other.backgroundColor)
    , borderColor(*this, other.borderColor)
    , borderSize(*this, other.borderSize)
    , resizeable(*this, other.resizeable)
    , moveable(*this, other.moveable)
    , viewport(other.viewport)
    , _handler(boost::make_shared<HitDetectEventHandler>(*this))
{
    insert(&viewport, true);
    rename(typeString);
    setType(typeString);
}

FenVisAnnotation& FenVisAnnotation::operator=(FenVisAnnotation const& other)
{
    if (this == &other) return *this;
    FenVisPassiveNode::operator=(other); // with the settings of its own
    viewport = other.viewport;
    return *this; // the handler stays: it is about this node
}

FenVisAnnotation::~FenVisAnnotation() = default;

bool FenVisAnnotation::getViewport(FenOglViewport const& parent, FenOglViewport& own) const
{
    _parent = parent;
    _box = _handler->dragging() ? _handler->box() : fen::BoxPlacement(viewport).within(parent);
    own = _box.valid() ? fen::annotationFrame(_box) : FenOglViewport();
    return true;
}

bool FenVisAnnotation::isMove(QPoint p, QSize s) const
{
    return Reach(p.x(), s.width()).meets(fen::annotationRim, _box.width() + 2)
        && Reach(p.y(), s.height()).meets(_box.height() + fen::stripFrom, _box.height() + fen::stripTo);
}

bool FenVisAnnotation::isResize(QPoint p, QSize s, ResizeArea& area) const
{
    constexpr int corner = 10; // [px] a corner's part of an edge
    int const right = _box.width() + fen::annotationWider - 1, top = _box.height() + fen::annotationHigher - 1;
    Reach const x(p.x(), s.width()), y(p.y(), s.height());
    if (!x.meets(0, right) || x.inside(corner, right)) return false;
    if (!y.meets(0, top) || y.inside(corner, top)) return false;
    if (x.inside(fen::annotationRim, right) && y.inside(fen::annotationRim, top)) return false;
    bool const lower = p.y() < (top + 1) / 2, atRight = p.x() >= (right + 1) / 2;
    if (atRight) {
        area = lower ? ResizeArea::BottomRight : ResizeArea::TopRight;
    } else {
        area = lower ? ResizeArea::BottomLeft : ResizeArea::TopLeft;
    }
    return true;
}

FenVisHitRecordList FenVisAnnotation::select2d(SelectContext const& context) const
{
    FenVisHitTable& names = hitProperties();
    names.clear();
    std::vector<FenVisHitRecord> records;
    auto const add = [&](quint32 name, FenVisHitProperty const& what) {
        records.emplace_back(name, double(FenVisHitRecord::OVERLAY_DEPTH));
        names.insert(name, what);
    };
    add(FenVisHitRecord::DEFAULT_NAME, FenVisHitProperty(this));
    ResizeArea area{};
    if (isMove(context.point, context.size))
        add(moveName, FenVisHitProperty(this, boost::make_shared<FenVisHitMoveQualifier>()));
    if (isResize(context.point, context.size, area))
        add(resizeName, FenVisHitProperty(this, boost::make_shared<FenVisHitResizeQualifier>(area)));
    return FenVisHitRecordList(records, _handler, this, layer.get());
}

void FenVisAnnotation::doDraw2d(DrawContext const&) const { }
