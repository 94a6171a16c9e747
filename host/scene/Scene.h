#pragma once

#include "../../framework/VisList.h"
#include "../../picking/hits/VisHitRecordList.h"
#include "../../services/logging/Export.h"
#include "../../services/math/NumberFormat.h"
#include "../../services/properties/PropertyAdaptor.h"
#include "SceneTable.h"
#include "VisPick.h"

#include <QColor>
#include <QPoint>
#include <QSize>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <vector>

class FenModifiedGroup;
class FenPlanePainter;
class FenOglCache;
class FenOglGeometry;
class FenOglText;
class FenResource;
class FenLinkedSelection;
class FenTableRows;
class FenUndoPropertyEdit;
class FenVisLightList;
class FenVisViewpoint;
class IFenSceneObserver;
class QUndoStack;

namespace fen {

/// What `FenVisScene::add` gives a new node before it joins the scene. A chart
/// gets the axes without which nothing would be drawn: "x" at the bottom and
/// "y" at the left; pairs that have an axis keep it. Overload it for a class of
/// your own.
FENVIS_EXPORT void prepareForScene(FenVisualization& node);

} // namespace fen

/// A tree of nodes and everything that its passes need, without a window and
/// without an OpenGL context of its own.
///
/// Use: add nodes, and whenever a picture is wanted `resize`, `update` and
/// `draw` with a context current. All operations may be called in any order,
/// with any size and without a context; then they do what can be done and draw
/// nothing. `draw` and `select` leave all OpenGL state as they found it.
class FENVIS_EXPORT FenVisScene {
    struct Parts;
    std::unique_ptr<Parts> _parts; // first: the property below is declared on its root node

public:
    FenVisScene();
    ~FenVisScene();
    FenVisScene(FenVisScene const&) = delete;
    FenVisScene& operator=(FenVisScene const&) = delete;

    // === Content

    /// Colour that the picture is cleared to; key "background" of the root.
    FenPropertyAdaptor<QColor> background;
    /// The 3D part is drawn in perspective; key "perspective" of the root. False: parallel.
    FenPropertyAdaptor<bool> perspective;
    /// How numbers are written in labels and tooltips. After a change of it call `touch`.
    Kes::Math::NumberFormat numberFormat;
    /// Tables that columns of variables come from. A scene file refers to those with a file in place of
    /// their numbers.
    std::vector<FenSceneTable> tables;

    FenModifiedGroup& group();
    FenVisList& root();
    FenVisList const& root() const;
    FenResource& resource();
    /// Lights of the 3D pass, "lights"; as long as none of them is enabled, one light over the
    /// viewer's shoulder.
    FenVisLightList& lights();
    FenVisLightList const& lights() const;
    /// From where the 3D part is seen, "viewpoint"; see `FenCamera`. The identity stands for the
    /// isometric view of everything.
    FenVisViewpoint& viewpoint();
    FenVisViewpoint const& viewpoint() const;
    /// Shows the planes of the 3D part; switch it off to draw them otherwise.
    FenPlanePainter& planePainter();

    /// Makes an enabled node in the root. A name that is taken gets the suffix ".2", ".3" ...
    /// @return the node; it belongs to the root
    template <class Node>
    Node& add(QString const& name)
    {
        auto node = std::make_unique<Node>(group());
        node->enabled.set(true);
        {
            using fen::prepareForScene;
            prepareForScene(*node);
        }
        Node& added = *node;
        insertNamed(std::move(node), name);
        return added;
    }

    // === Passes

    /// @param pixels            [px] logical size of the picture; empty is allowed. More than
    ///     `fen::limits::pictureSide` device pixels a side are cut, with a line in the log.
    /// @param devicePixelRatio  framebuffer pixels per logical one
    void resize(QSize pixels, double devicePixelRatio = 1);
    QSize size() const; ///< [px]
    double devicePixelRatio() const;
    /// Brings what changed since the last call up to date: the update pass, then the layout of
    /// the nodes that were updated (of all nodes after a resize).
    void update();
    /// True when the next `update` has something to do.
    bool modified() const;
    /// Clears to the background and draws the 3D pass, then the 2D pass, into the current
    /// framebuffer.
    void draw();
    /// Picks in the layout of the last `update`.
    /// @param point  [px] centre of the pick region, origin at the bottom left
    /// @param size   [px] its extent
    FenVisHitRecordList select(QPoint point, QSize size);
    /// The hit that wins there; empty when nothing was hit.
    FenVisPick pick(QPoint point, QSize size) { return FenVisPick(select(point, size)); }

    /// The OpenGL context has gone or another one is used from now on: forgets every OpenGL
    /// name without deleting it and marks all nodes modified.
    void contextChanged();
    /// From now on `observer` is told after each update that did something, before anything is drawn.
    void addObserver(IFenSceneObserver& observer);
    void removeObserver(IFenSceneObserver& observer);
    /// Marks all nodes modified, so that the next `update` rebuilds everything.
    void touch();

    // === Services

    /// Which rows of tables the points of variables are.
    FenTableRows& tableRows();
    FenTableRows const& tableRows() const;
    /// What charts of one table share.
    FenLinkedSelection& links();

    FenOglCache& cache();
    FenOglText& text();
    FenOglGeometry& geometry();
    /// The user's edits, undo and redo.
    QUndoStack& undoStack();
    /// The editor that draw passes and panels write through: its writes are undo steps.
    FenUndoPropertyEdit& propertyEdit();

private:
    friend class FenSceneFile;
    /// An empty scene whose nodes may move into the scene of that group, which outlives it.
    explicit FenVisScene(FenModifiedGroup& group);
    explicit FenVisScene(std::unique_ptr<Parts> parts);

    void updatePasses();
    void insertNamed(std::unique_ptr<FenVisualization> node, QString const& name);
};
