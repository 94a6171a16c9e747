#pragma once

#include "../picking/hits/VisHitProperty.h"
#include "../picking/hits/VisHitRecordList.h"
#include "../services/logging/Export.h"
#include "../services/opengl/OglViewport.h"
#include "../services/properties/ModifiedWatcher.h"
#include "../services/properties/Properties.h"
#include "../services/properties/PropertyAdaptor.h"

#include <QColor>
#include <QString>

namespace Kes::Math {
class BoundingBox;
}

/// Base of every visualization node: a node of the property tree that can be
/// drawn and picked.
///
/// Its parent, a node list, drives the passes: `update` when something changed,
/// then `resize`, `draw2d`, `draw3d`, `select2d` and `select3d`, each on the
/// enabled children in ascending order of "layer". A node keeps what `update`
/// and `resize` computed until its watcher reports a change. Draw and select
/// are const and may run any number of times in between.
///
/// Owns its settings (adaptors below, in the order of the store) and the table
/// of pick names. A concrete class sets its type string in the constructor,
/// copies with `Class(Class const&)`, and assigns by default: base first, then
/// the members in order. Moving copies.
class FENVIS_EXPORT FenVisualization : public FenProperties {
public:
    class DrawContext;
    class SelectContext;
    class UpdateDrawContext;
    class UpdateSelectContext;

    /// Bits of a context's `flags`.
    enum Flag : quint32 {
        /// The caller has set lighting and colour: leave GL_LIGHTING and the current colour alone.
        KeepLightingFlag = 1,
        /// Only nodes with "thumnbnail" set are resized, drawn and picked.
        ThumbnailFlag = 2
    };

    FenPropertyAdaptor<bool> enabled; ///< takes part in the passes at all
    FenPropertyAdaptor<bool> lighting; ///< lights its 3D drawing, else switches lighting off
    FenPropertyAdaptor<int> layer; ///< lower layers come first; the highest wins a pick
    FenPropertyAdaptor<bool> thumbnail; ///< key "thumnbnail", kept as it was always written
    FenPropertyAdaptor<QString> status; ///< free text
    FenPropertyAdaptor<QColor> lineColor; ///< frame around the node's own viewport
    FenPropertyAdaptor<QColor> fillColor; ///< veil over the node's own viewport
    FenPropertyAdaptor<bool> selectable; ///< takes part in picking

    explicit FenVisualization(FenModifiedGroup& group);
    FenVisualization(FenVisualization const& other);
    FenVisualization& operator=(FenVisualization const& other) = default;
    ~FenVisualization() override;

    /// Rectangle of the data [px]; here the current OpenGL viewport.
    virtual FenOglViewport getDataViewport() const;
    /// Asks for the node's own rectangle [px, window] inside its parent's.
    /// @return false: none, it draws in the parent's
    virtual bool getViewport(FenOglViewport const& parent, FenOglViewport& own) const = 0;
    /// Brings up to date what depends on properties and data. The context's
    /// viewport is the parent's: what depends on pixels belongs into `resize`.
    virtual void update(DrawContext const& context) = 0;
    /// Brings up to date what depends on the size of the viewport.
    virtual void resize(DrawContext const& context) = 0;
    virtual void draw3d(DrawContext const& context) const = 0;
    virtual void draw2d(DrawContext const& context) const = 0;
    virtual FenVisHitRecordList select3d(SelectContext const& context) const = 0;
    virtual FenVisHitRecordList select2d(SelectContext const& context) const = 0;
    /// Box around the 3D drawing [scene]; undefined for none.
    virtual Kes::Math::BoundingBox boundingBox() const = 0;
    /// Reports whether anything below changed since the last update; reset by the parent.
    virtual FenModifiedWatcher& watcher();

    /// What the names of the last select pass stand for; filled while picking.
    FenVisHitTable& hitProperties() const { return _hitProperties; }
    /// @return undefined for an unknown name and for one whose owner is gone
    FenVisHitProperty hitProperty(quint32 name) const;

private:
    mutable FenVisHitTable _hitProperties;
    FenModifiedWatcher _watcher;
};

#include "DrawContext.h" // the contexts are part of the class above
