#include "charts/chart3d/VisChart3D.h"
#include "charts/chart3d/Normalisation.h"
#include "charts/chart3d/VisChart3D.handler.h"
#include "charts/chart3d/VisChart3D.parts.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartUpdateVariableUnits.h"
#include "services/chartdata/ChartVariableCache.h"
#include "services/chartdata/FloatRange.h"
#include "services/math/IVariableIter.h"
#include "services/opengl/GlScopes.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/PixelRatio.h"

#include <algorithm>

using Kes::Math::BoundingBox;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

/// The axes of the first variables that have them.
struct FenVisChart3D::FoundAxes {
    FenChartAxisContinuous const* axes[3] = {nullptr, nullptr, nullptr};
    QString units[3];

    bool complete() const { return axes[0] && axes[1] && axes[2]; }
    bool fixed(Vector3::Comp comp) const { return axes[comp] && axes[comp]->fixed.get(); }
    void look(FenChart3D const& chart, FenChartVariable const& variable)
    {
        FenChartAxisPair const* const pairs[] = {&chart.xAxes, &chart.yAxes, &chart.zAxes};
        boost::shared_ptr<IVariableIter> const data = variable.iter();
        for (Vector3::Comp const comp : {Vector3::CompX, Vector3::CompY, Vector3::CompZ}) {
            FenChartAxis const* const axis = pairs[comp]->resolve(variable.axisName(comp).get());
            axes[comp] = dynamic_cast<FenChartAxisContinuous const*>(axis);
            units[comp] = data->Unit(comp);
            if (axes[comp] && units[comp].isEmpty()) units[comp] = axes[comp]->shownUnit();
        }
    }
};

void FenVisChart3D::clearCaches()
{
    _bounds.reset();
    _dataViewport.reset();
    _scaling = Kes::Math::Vector1;
    _offset = Kes::Math::Vector0;
    _axisFlags = 0;
    _validVariables.clear();
    hitProperties().clear();
    // Whatever was highlighted may have gone, or be something else by now.
    _handler->forget();
}

void FenVisChart3D::update(DrawContext const& context)
{
    clearCaches();
    FoundAxes const found = findVariables();
    if (!found.complete() || found.fixed(Vector3::CompZ) || !_bounds.defined()
        || _validVariables.size() == 0) {
        _bounds.reset();
        _variables.clear();
        return;
    }
    _bounds = fen::widened(_bounds);
    if (found.fixed(Vector3::CompX)) _axisFlags |= 1u;
    if (found.fixed(Vector3::CompY)) _axisFlags |= 2u;
    fen::AttribScope const state(0xFFFFF);
    if (chart.normalize.get()) normalise();
    auto const updateAxes = [&] {
        axes.Update(*this, found.axes[0], found.axes[1], found.axes[2], found.units[0], found.units[1],
                    found.units[2]);
    };
    updateAxes();
    BuildVariableCache(context, true);
    BuildVariableCache(context, false);
    widenForBars();
    updateAxes(); // they see the widened bounds now
}

/// Collects the variables to draw, with the box of their data, and the axes.
FenVisChart3D::FoundAxes FenVisChart3D::findVariables()
{
    FoundAxes found;
    FenChartUpdateVariableUnits convert(chart.unitSystem, chart.xAxes, chart.yAxes, chart.zAxes,
                                        chart.variables);
    for (FenChartVariable const* const variable : convert()) {
        if (!found.complete()) found.look(chart, *variable);
        BoundingBox const box = FenChartVariableCache(*variable).boundingBox();
        _bounds.insert(box);
        BoundingBox const ranged = box.min().z() == box.max().z() ? fen::widened(box) : box;
        _validVariables.push_back(*variable, Vector2(ranged.min().z(), ranged.max().z()));
    }
    return found;
}

void FenVisChart3D::normalise()
{
    fen::Normalisation const mapped = fen::normalised(_bounds);
    _scaling = mapped.scaling;
    _offset = mapped.offset;
    _bounds = mapped.bounds;
}

void FenVisChart3D::widenForBars()
{
    Vector2 largest;
    for (auto const& variable : _variables)
        for (int i = 0; i < 2; ++i)
            largest[i] =
                std::max(largest[i], fen::toFloat(double(variable->barDelta[i]) * double(_scaling[i])));
    _bounds = fen::withOverhang(_bounds, largest);
}

/// The first pass makes the shapes and loads textures, which a list that is being recorded could only
/// load again each time it is drawn; the second records.
void FenVisChart3D::BuildVariableCache(DrawContext const& context, bool firstPass)
{
    fen::MatrixScope const matrix(GL_MODELVIEW);
    if (!firstPass) {
        for (auto const& variable : _variables) {
            if (variable->list.compiled() && _pixelRatio == fen::pixelRatio()) continue;
            fen::ListScope const recording(variable->list);
            DrawVariable(context, *variable);
        }
        _pixelRatio = fen::pixelRatio();
        return;
    }
    Variables kept = std::move(_variables);
    _variables.clear();
    for (unsigned i = 0; i < _validVariables.size(); ++i) {
        std::unique_ptr<Variable> made = makeVariable(i);
        auto const same = std::find_if(kept.begin(), kept.end(), [&](std::unique_ptr<Variable> const& old) {
            return old && old->variable.get() == made->variable.get() && !old->watcher.modified()
                && old->source == made->source;
        });
        if (same != kept.end())
            made = std::move(*same);
        else
            makeShapes(*made);
        loadTextures(context, *made);
        _variables.push_back(std::move(made));
    }
}

std::unique_ptr<FenVisChart3D::Variable> FenVisChart3D::makeVariable(unsigned index) const
{
    FenChartVariable const& source = _validVariables.variable(index);
    auto made = std::make_unique<Variable>(source);
    for (Vector3::Comp const comp : {Vector3::CompX, Vector3::CompY, Vector3::CompZ})
        made->source.columns[comp] = source.column(comp);
    made->source.minmax = _validVariables.minmax(index);
    made->source.base = _validVariables.fillBaseLine(index);
    made->source.mode = _axisFlags;
    made->source.scaling = _scaling;
    made->source.offset = _offset;
    return made;
}

void FenVisChart3D::makeShapes(Variable& variable) const
{
    FenChartVariable const& source = *variable.variable;
    variable.watcher.reset();
    variable.style = fen::VariableStyle(source);
    variable.shape = fen::shapeOf(variable.source.mode, source.surface.get(), source.style.get());
    CacheVariableData(source, variable.points);
    if (source.style.get() == FenChart::styleBar) variable.barDelta = fen::barFootprint(variable.points);
    variable.places.reserve(variable.points.size());
    for (Vector3 const& point : variable.points) variable.places.push_back(place(point));
    switch (variable.shape) {
    case fen::Shape3D::Nothing:
        variable.places.clear();
        break;
    case fen::Shape3D::Bars:
        makeBars(variable);
        break;
    case fen::Shape3D::Line:
        makeLine(variable);
        break;
    case fen::Shape3D::Surface:
        makeSurface(variable);
        break;
    }
    if (variable.shape == fen::Shape3D::Line && (!variable.visible() || variable.fillsSymbols()))
        variable.pointTree = fen::BoxTree(variable.places);
    else if (variable.hasSymbols() || variable.visible())
        variable.pointTree = fen::BoxTree(variable.places.size(), [&](std::size_t i) {
            return BoundingBox(variable.places[i], variable.places[i]);
        });
    fen::VariableStyle const& style = variable.style;
    variable.translucentSymbols = variable.hasSymbols() && !style.symbolsOpaque();
}

/// The points of which all coordinates are known.
void FenVisChart3D::CacheVariableData(FenChartVariable const& variable, std::vector<Vector3>& points)
{
    if (!points.empty()) return;
    points.reserve(variable.count());
    boost::shared_ptr<IVariableIter> const data = variable.iter();
    data->Reset();
    while (data->MoveNext()) {
        bool const undefined = data->IsUndefined(Vector3::CompX) || data->IsUndefined(Vector3::CompY)
            || data->IsUndefined(Vector3::CompZ);
        if (!undefined) points.push_back(data->Current());
    }
}

void FenVisChart3D::resize(DrawContext const& context)
{
    if (!calcDataViewport(context, chart, _dataViewport)) _dataViewport.reset();
    // Widths and symbols are recorded in device pixels.
    if (_pixelRatio == fen::pixelRatio()) return;
    fen::AttribScope const state(0xFFFFF);
    for (auto const& variable : _variables) loadTextures(context, *variable);
    BuildVariableCache(context, false);
}
