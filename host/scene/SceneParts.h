#pragma once

#include "framework/DrawContext.h"
#include "framework/IVisPropertyEdit.h"
#include "host/edit/UndoPropertyEdit.h"
#include "host/link/LinkedSelection.h"
#include "host/scene/PlanePainter.h"
#include "host/scene/Scene.h"
#include "host/scene/SceneObserver.h"
#include "host/table/TableRows.h"
#include "scene/VisLightList.h"
#include "scene/VisViewpoint.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/OglText.h"
#include "services/opengl/OglViewport.h"
#include "services/opengl/Resource.h"
#include "services/properties/ModifiedGroup.h"
#include "services/properties/Properties.h"

#include <QUndoStack>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

/// Editor of the update and resize passes: writes what a pass has found, silently. A text that
/// is there already is no change.
class PassPropertyEdit : public IFenVisPropertyEdit {
public:
    void beginEdit() override { }
    void editProperty(FenProperties&, FenProperties& item, QString const& key, QString const& value) override
    {
        item.setValue(key, value);
    }
    void endEdit() override { }
};

/// The root: clip planes among its children cut those that they name.
class SceneRoot : public FenVisList {
public:
    using FenVisList::FenVisList;

protected:
    void drawChild3d(FenVisualization const& child, DrawContext const& context) const override
    {
        fen::ClipScope const clipped(child);
        FenVisList::drawChild3d(child, context);
    }
    FenVisHitRecordList selectChild3d(FenVisualization const& child,
                                      SelectContext const& context) const override
    {
        fen::ClipScope const clipped(child);
        return FenVisList::selectChild3d(child, context);
    }
};

/// What a scene owns, in the order of its making: the group outlives all that belongs to it.
struct FenVisScene::Parts {
    /// @param shared  null: a group of its own
    explicit Parts(FenModifiedGroup* shared = nullptr);

    std::unique_ptr<FenModifiedGroup> ownGroup;
    FenModifiedGroup& group;
    FenResource resource;
    FenOglGeometry geometry;
    FenOglCache cache;
    FenOglText text;
    SceneRoot root;
    FenPlanePainter planePainter;
    FenVisLightList lights;
    FenVisLightList defaultLights; // in their place where none is enabled
    FenVisViewpoint viewpoint;
    QUndoStack undoStack;
    boost::shared_ptr<IFenVisPropertyEdit> passEdit;
    boost::shared_ptr<FenUndoPropertyEdit> userEdit;

    FenOglViewport viewport; // [px]
    double pixelRatio = 1;
    bool layoutStale = true; // size or ratio differ from those of the last layout
    bool recordedWithoutContext = false;
    std::vector<IFenSceneObserver*> observers;
    FenTableRows tableRows;
    std::unique_ptr<FenLinkedSelection> links; // never null once the scene is made

    /// Context of an update, resize or draw pass over the whole picture.
    FenVisualization::DrawContext drawContext(boost::shared_ptr<IFenVisPropertyEdit> const& edit,
                                              Kes::Math::NumberFormat const& numberFormat)
    {
        return FenVisualization::DrawContext(geometry, cache, resource, viewport, text, edit, numberFormat);
    }
};
