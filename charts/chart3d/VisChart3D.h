#pragma once

#include "../../axes/VisAxesXYZ.h"
#include "../../picking/select/VisOglSelect.h"
#include "../../services/chartdata/Chart3D.h"
#include "../../services/chartdata/ChartValidVariableList.h"
#include "../../services/math/BoundingBox.h"
#include "../../services/math/Vector3.h"
#include "../VisChart.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <vector>

class FenChartAxisContinuous;
class FenVisHitUsabilityPlaneQualifier;

/// Three-dimensional chart: surfaces, lines, bars and symbols of any number of variables in a box with
/// axes.
///
/// Owns its content (child "chart"), its axes (child "axes") and the handler that shows tooltips and
/// remembers what is highlighted. `update` maps the data into the unit cube and records one display list
/// per variable; what has not changed since the last update is kept as it was recorded. The 3D pass
/// replays the lists; only what is translucent is put into order and drawn anew in each frame. Picks draw
/// only what lies near the pointer.
class FENVIS_EXPORT FenVisChart3D : public FenVisChart {
public:
    static QString const typeString;

    class HitDetectEventHandler;

    FenChart3D chart;
    FenVisAxesXYZ axes;

    explicit FenVisChart3D(FenModifiedGroup& group);
    /// Copies content and settings, nothing that an update finds.
    FenVisChart3D(FenVisChart3D const& other);
    FenVisChart3D& operator=(FenVisChart3D const& other);
    ~FenVisChart3D() override;

    /// [px] rectangle below the title, relative to the node; empty between update and resize.
    FenOglViewport getDataViewport() const override;
    void update(DrawContext const& context) override;
    void resize(DrawContext const& context) override;
    void draw3d(DrawContext const& context) const override;
    void draw2d(DrawContext const& context) const override;
    FenVisHitRecordList select3d(SelectContext const& context) const override;
    FenVisHitRecordList select2d(SelectContext const& context) const override;
    /// [scene] box of the data; undefined while nothing is drawn.
    Kes::Math::BoundingBox boundingBox() const override;

    FenChartValidVariableList validVariables() const override;
    FenChart* content() override;
    FenChartVariableList* variables() override;
    FenChartAxisPair* axisPair(Kes::Math::Vector3::Comp direction) override;
    /// scene = (data + offset) x scaling, per axis.
    Kes::Math::Vector3 offset() const;
    Kes::Math::Vector3 scaling() const;

private:
    typedef Kes::Math::Vector3 Vector3;
    struct Variable; // a valid variable as it is drawn
    struct Pick; // one select pass
    struct FoundAxes; // the three axes and their units
    typedef std::vector<std::unique_ptr<Variable>> Variables;

    // VisChart3D.update.cpp
    void clearCaches();
    FoundAxes findVariables();
    void normalise();
    void widenForBars();
    void BuildVariableCache(DrawContext const& context, bool firstPass);
    std::unique_ptr<Variable> makeVariable(unsigned index) const;
    void makeShapes(Variable& variable) const;
    static void CacheVariableData(FenChartVariable const& variable, std::vector<Vector3>& points);

    // VisChart3D.draw.cpp
    void DrawVariable(DrawContext const& context, Variable const& variable) const;
    void loadTextures(DrawContext const& context, Variable const& variable) const;
    void DrawHighlight(DrawContext const& context, Variable const& variable) const;
    void highlightShape(DrawContext const& context, Variable const& variable, Vector3 const& point) const;
    void drawTranslucent(DrawContext const& context) const;
    void selectVariable(Pick const& pick, Variable const& variable) const;

    // One shape: drawing, recorded into a list, and picking
    void makeBars(Variable& variable) const;
    void DrawBarVariable(DrawContext const& context, Variable const& variable) const;
    bool DrawBarVariable(Pick const& pick, Variable const& variable) const;
    static bool hasArea(Variable const& variable);
    void makeLine(Variable& variable) const;
    void DrawLineVariable(DrawContext const& context, Variable const& variable) const;
    void DrawLineVariable(Pick const& pick, Variable const& variable) const;
    void makeSurface(Variable& variable) const;
    void DrawSurfaceVariable(DrawContext const& context, Variable const& variable) const;
    void DrawSurfaceVariable(Pick const& pick, Variable const& variable) const;
    bool DrawSymbolVariable(DrawContext const& context, Variable const& variable) const;
    void DrawSymbolVariable(Pick const& pick, Variable const& variable) const;
    static void drawFaces(DrawContext const& context, Variable const& variable,
                          std::vector<unsigned> const& indices);
    void drawSymbols(DrawContext const& context, Variable const& variable,
                     std::vector<Vector3> const& places) const;

    Vector3 place(Vector3 const& point) const;
    boost::shared_ptr<FenVisHitUsabilityPlaneQualifier> makePlane(Pick const& pick) const;

    FenOglViewport _dataViewport; // [px] relative to the node
    Variables _variables; // one per valid variable, in their order
    Kes::Math::BoundingBox _bounds; // [scene]
    Vector3 _scaling{1, 1, 1};
    Vector3 _offset;
    quint32 _axisFlags = 0; // bit 0: the x axis is fixed, bit 1: the y axis is
    double _pixelRatio = 1; // that the lists were recorded with
    FenChartValidVariableList _validVariables;
    boost::shared_ptr<HitDetectEventHandler> _handler;

    friend class HitDetectEventHandler;
};
