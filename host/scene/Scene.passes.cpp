#include "host/camera/CameraPose.h"
#include "host/scene/SceneParts.h"

#include "framework/UpdateContext.h"
#include "services/math/BoundingBox.h"
#include "services/math/Matrix.h"
#include "services/opengl/Gl.h"
#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/PixelRatio.h"

namespace {

bool hasContext() { return glGetString(GL_VERSION) != nullptr; }

/// Known OpenGL state for the passes of one frame; everything is as before at scope end. The
/// matrices are kept here and not pushed: the projection stack may be just two deep, and the
/// passes need both.
class FrameState {
public:
    FrameState()
        : _attributes(GL_ALL_ATTRIB_BITS)
        , _projection(glGetProjectionMatrix())
        , _modelView(glGetModelViewMatrix())
    {
        glGetIntegerv(GL_ARRAY_BUFFER_BINDING, &_arrayBuffer);
        glGetIntegerv(GL_CURRENT_PROGRAM, &_program);
        if (_arrayBuffer != 0) glBindBuffer(GL_ARRAY_BUFFER, 0);
        if (_program != 0) glUseProgram(0);
        glActiveTexture(GL_TEXTURE0);
        static GLenum const switches[] = {GL_ALPHA_TEST,
                                          GL_BLEND,
                                          GL_COLOR_LOGIC_OP,
                                          GL_COLOR_MATERIAL,
                                          GL_CULL_FACE,
                                          GL_DEPTH_TEST,
                                          GL_FOG,
                                          GL_LIGHTING,
                                          GL_LINE_SMOOTH,
                                          GL_LINE_STIPPLE,
                                          GL_POINT_SMOOTH,
                                          GL_POLYGON_SMOOTH,
                                          GL_POLYGON_STIPPLE,
                                          GL_SCISSOR_TEST,
                                          GL_STENCIL_TEST,
                                          GL_TEXTURE_1D,
                                          GL_TEXTURE_2D};
        for (GLenum const name : switches) glDisable(name);
        glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
        glDepthMask(GL_TRUE);
        glDepthFunc(GL_LESS);
        glDepthRange(0, 1);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        glShadeModel(GL_SMOOTH);
        glEnable(GL_NORMALIZE);
    }
    ~FrameState()
    {
        glMatrixMode(GL_PROJECTION);
        glLoadMatrix(_projection);
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrix(_modelView);
        if (_arrayBuffer != 0) glBindBuffer(GL_ARRAY_BUFFER, GLuint(_arrayBuffer));
        if (_program != 0) glUseProgram(GLuint(_program));
    }
    FrameState(FrameState const&) = delete;
    FrameState& operator=(FrameState const&) = delete;

private:
    fen::AttribScope _attributes;
    Kes::Math::Matrix _projection;
    Kes::Math::Matrix _modelView;
    GLint _arrayBuffer = 0;
    GLint _program = 0;
};

/// What holds around each pass of a scene.
class Frame {
public:
    Frame(FenOglCache& cache, double pixelRatio)
        : _ratio(pixelRatio)
        , _context(cache)
    {
    }

private:
    fen::PixelRatioScope _ratio;
    FenOglContextScope _context;
    FrameState _state;
};

/// How the 3D pass is seen, while it lives: by the matrices of the whole picture, and by what every
/// node in it that has a viewport of its own makes of the camera.
class View3d {
public:
    View3d(FenVisScene& scene, FenVisualization::DrawContext& context)
        : _pose(fen::CameraPose::of(scene.viewpoint().modelView.get(), scene.root().boundingBox(),
                                    double(context.viewport.width()) / context.viewport.height()))
        , _view(_pose.view(scene.perspective.get() ? perspectiveAngle : 0))
    {
        context.modelView = _pose.rotation();
        glViewport(context.viewport);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(context.viewport, scene.root().boundingBox(), context.modelView);
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrix(context.modelView);
        context.projection = glGetProjectionMatrix();
    }

private:
    static constexpr double perspectiveAngle = 35; // [deg] as a picture at arm's length

    fen::CameraPose _pose;
    fen::FittedViewScope _view;
};

bool anyEnabled(FenVisLightList const& lights)
{
    for (unsigned i = 0; i < lights.size(); ++i)
        if (lights.at(i) && lights.at(i)->enabled.get()) return true;
    return false;
}

/// Matrices of the 2D pass: one unit is one pixel.
void setMatrices2d(FenVisualization::DrawContext& context)
{
    glViewport(context.viewport);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluOrtho2D(context.viewport);
    context.projection = Kes::Math::Matrix();
    context.modelView = glGetModelViewMatrix();
}

void clearTo(QColor const& color)
{
    QColor const fill = color.isValid() ? color : QColor(Qt::white);
    glClearColor(float(fill.redF()), float(fill.greenF()), float(fill.blueF()), float(fill.alphaF()));
    glClearDepth(1);
    glClearStencil(0);
    glStencilMask(~0u);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
}

/// The enabled children that the next update pass will update, in the order of their layers.
std::vector<fen::view_ptr<FenVisualization>> modifiedChildren(FenVisList& nodes)
{
    std::vector<fen::view_ptr<FenVisualization>> modified;
    for (unsigned i = 0; i < nodes.size(); ++i) {
        FenVisualization* const child = nodes.at(i);
        if (child && child->enabled.get() && child->watcher().modified()) modified.emplace_back(child);
    }
    std::stable_sort(modified.begin(), modified.end(),
                     [](auto const& a, auto const& b) { return a->layer.get() < b->layer.get(); });
    return modified;
}

/// The resize pass of one child, as its list would run it.
void resizeChild(FenVisualization& child, FenVisualization::DrawContext const& context)
{
    FenOglViewport own;
    if (!child.getViewport(context.viewport, own)) {
        child.resize(context);
        return;
    }
    FenVisualization::UpdateDrawContext const derived(context, own);
    if (own.valid()) child.resize(derived);
}

} // namespace

void FenVisScene::update()
{
    if (!modified()) return;
    updatePasses();
    bool changed = false;
    for (IFenSceneObserver* const observer : std::vector(_parts->observers))
        changed = observer->sceneUpdated() || changed;
    if (changed && modified()) updatePasses(); // once: what this moves again is less than a pixel
}

void FenVisScene::updatePasses()
{
    Parts& parts = *_parts;
    Frame const frame(parts.cache, parts.pixelRatio);
    FenVisualization::DrawContext context = parts.drawContext(parts.passEdit, numberFormat);
    setMatrices2d(context);
    auto const changed = modifiedChildren(parts.root);
    parts.root.update(context);
    if (parts.layoutStale) {
        parts.root.resize(context);
    } else {
        // An update empties layouts, so each node that had one is laid out again; no other is.
        for (fen::view_ptr<FenVisualization> const& child : changed)
            if (child) resizeChild(*child, context);
    }
    parts.layoutStale = false;
    parts.recordedWithoutContext = !hasContext();
    // What a node changed in another one during the passes is found by the next update.
    if (modifiedChildren(parts.root).empty()) parts.root.watcher().reset();
}

void FenVisScene::draw()
{
    Parts& parts = *_parts;
    if (!parts.viewport.valid() || !hasContext()) return;
    if (parts.recordedWithoutContext) {
        contextChanged();
        update();
    }
    Frame const frame(parts.cache, parts.pixelRatio);
    FenVisualization::DrawContext context = parts.drawContext(parts.userEdit, numberFormat);
    clearTo(background.get());

    {
        View3d const view(*this, context);
        (anyEnabled(parts.lights) ? parts.lights : parts.defaultLights).setLighting();
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_MULTISAMPLE); // where the framebuffer has samples
        parts.planePainter.draw(parts.root, FenPlanePainter::Opaque, context);
        parts.root.draw3d(context);
        parts.planePainter.draw(parts.root, FenPlanePainter::Translucent, context);
    }
    glDisable(GL_MULTISAMPLE); // lines in the plane have better edges by blending
    glDisable(GL_DEPTH_TEST);
    setMatrices2d(context);
    parts.root.draw2d(context);
}

FenVisHitRecordList FenVisScene::select(QPoint point, QSize size)
{
    FenVisHitRecordList hits;
    Parts& parts = *_parts;
    if (!parts.viewport.contains(point) || !hasContext()) return hits;
    Frame const frame(parts.cache, parts.pixelRatio);
    FenVisualization::SelectContext context(parts.geometry, parts.cache, parts.resource, parts.viewport,
                                            parts.text, numberFormat);
    context.point = point;
    context.size = size.expandedTo(QSize(1, 1));

    {
        View3d const view(*this, context);
        glEnable(GL_DEPTH_TEST);
        hits.insert(parts.root.select3d(context));
    }
    glDisable(GL_DEPTH_TEST);
    setMatrices2d(context);
    hits.insert(parts.root.select2d(context));
    return hits;
}
