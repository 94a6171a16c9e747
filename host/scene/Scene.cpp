#include "host/scene/Scene.h"

#include "host/Limits.h"
#include "host/scene/SceneParts.h"
#include "host/table/ChartKinds.h"

#include "scene/VisLight.h"
#include "scene/VisTriad.h"
#include "services/logging/Checks.h"

namespace {

constexpr char const* tooLarge = "The picture has no more than 16384 device pixels a side";
static_assert(fen::limits::pictureSide == 16384, "as the text says");

void touchAll(FenVisualization& node)
{
    node.modify();
    for (unsigned i = 0; i < node.size(); ++i) {
        if (auto* const child = dynamic_cast<FenVisualization*>(node.at(i))) touchAll(*child);
    }
}

} // namespace

void fen::prepareForScene(FenVisualization& node)
{
    ChartKind const* const kind = chartKindOf(node);
    if (kind && kind->prepare) kind->prepare(node);
    if (dynamic_cast<FenVisTriad const*>(&node)) node.lineColor.set(Qt::transparent); // no frame around it
}

FenVisScene::Parts::Parts(FenModifiedGroup* shared)
    : ownGroup(shared ? nullptr : std::make_unique<FenModifiedGroup>())
    , group(shared ? *shared : *ownGroup)
    , cache(resource)
    , text(cache)
    , root(group, QStringLiteral("node"))
    , lights(group)
    , defaultLights(group)
    , viewpoint(group)
    , passEdit(boost::make_shared<PassPropertyEdit>())
    , userEdit(boost::make_shared<FenUndoPropertyEdit>(undoStack))
{
    root.enabled.set(true);
    lights.rename(QStringLiteral("lights"));
    viewpoint.rename(QStringLiteral("viewpoint"));
    FenVisLight& light = defaultLights.child(QStringLiteral("light"), FenVisLight::typeString);
    light.enabled.set(true);
    light.ambient.set(QColor(70, 70, 70));
    light.diffuse.set(QColor(215, 215, 215));
    light.specular.set(QColor(60, 60, 60));
    light.position.set(Kes::Math::Vector3(-3e5F, 5e5F, 1e6F)); // far beyond any box: a direction
}

FenVisScene::FenVisScene(std::unique_ptr<Parts> parts)
    : _parts(std::move(parts))
    , background(_parts->root, QStringLiteral("background"), Qt::white, QString())
    , perspective(_parts->root, QStringLiteral("perspective"), false, QString())
{
    _parts->links = std::make_unique<FenLinkedSelection>(*this);
}

FenVisScene::FenVisScene()
    : FenVisScene(std::make_unique<Parts>())
{
}

FenVisScene::FenVisScene(FenModifiedGroup& group)
    : FenVisScene(std::make_unique<Parts>(&group))
{
}

FenVisScene::~FenVisScene()
{
    // Lists and textures of the nodes are deleted at once: their context is current or gone.
    FenOglContextScope const context(_parts->cache);
    FenVisList& nodes = _parts->root;
    while (nodes.size() > 0 && nodes.erase(nodes.FenProperties::at(nodes.size() - 1))) { }
}

FenModifiedGroup& FenVisScene::group() { return _parts->group; }
FenVisList& FenVisScene::root() { return _parts->root; }
FenVisList const& FenVisScene::root() const { return _parts->root; }
FenResource& FenVisScene::resource() { return _parts->resource; }
FenVisLightList& FenVisScene::lights() { return _parts->lights; }
FenVisLightList const& FenVisScene::lights() const { return _parts->lights; }
FenVisViewpoint& FenVisScene::viewpoint() { return _parts->viewpoint; }
FenPlanePainter& FenVisScene::planePainter() { return _parts->planePainter; }
FenVisViewpoint const& FenVisScene::viewpoint() const { return _parts->viewpoint; }
FenOglCache& FenVisScene::cache() { return _parts->cache; }
FenOglText& FenVisScene::text() { return _parts->text; }
FenOglGeometry& FenVisScene::geometry() { return _parts->geometry; }
QUndoStack& FenVisScene::undoStack() { return _parts->undoStack; }
FenUndoPropertyEdit& FenVisScene::propertyEdit() { return *_parts->userEdit; }
QSize FenVisScene::size() const { return _parts->viewport.size(); }
double FenVisScene::devicePixelRatio() const { return _parts->pixelRatio; }

void FenVisScene::insertNamed(std::unique_ptr<FenVisualization> node, QString const& name)
{
    FenVisList& nodes = _parts->root;
    QString const wanted = name.isEmpty() ? node->name() : name;
    QString free = wanted;
    for (int number = 2; nodes.at(free); ++number) free = wanted + QStringLiteral(".%1").arg(number);
    node->rename(free);
    nodes.insert(node.release(), false);
}

void FenVisScene::resize(QSize pixels, double devicePixelRatio)
{
    bool const usable = std::isfinite(devicePixelRatio) && devicePixelRatio > 0;
    double const ratio = usable ? devicePixelRatio : 1;
    double const most = double(fen::limits::pictureSide) / ratio;
    FENVIS_WARN_UNLESS(std::max(pixels.width(), pixels.height()) <= most, tooLarge, "@line72");
    auto const side = [&](int wanted) { return int(std::min(double(std::max(0, wanted)), most)); };
    FenOglViewport const viewport(0, 0, side(pixels.width()), side(pixels.height()));
    _parts->layoutStale =
        _parts->layoutStale || !(viewport == _parts->viewport) || ratio != _parts->pixelRatio;
    _parts->viewport = viewport;
    _parts->pixelRatio = ratio;
}

FenTableRows& FenVisScene::tableRows() { return _parts->tableRows; }
FenTableRows const& FenVisScene::tableRows() const { return _parts->tableRows; }
FenLinkedSelection& FenVisScene::links() { return *_parts->links; }

void FenVisScene::addObserver(IFenSceneObserver& observer) { _parts->observers.push_back(&observer); }
void FenVisScene::removeObserver(IFenSceneObserver& observer) { std::erase(_parts->observers, &observer); }

bool FenVisScene::modified() const { return _parts->layoutStale || _parts->root.watcher().modified(); }

void FenVisScene::touch() { touchAll(_parts->root); }

void FenVisScene::contextChanged()
{
    _parts->cache.contextChanged();
    touch();
}
