#pragma once

#include "../../axes/VisAxesXY.h"
#include "../../axes/VisAxesXYZ.h"
#include "../../picking/select/VisOglSelect.h"
#include "../../services/chartdata/Chart2D.h"
#include "../../services/chartdata/ChartAxisPairScale.h"
#include "../../services/chartdata/ChartValidVariableList.h"
#include "../../services/math/BoundingBox.h"
#include "../../services/math/Vector2.h"
#include "../../services/math/Vector3.h"
#include "../VisChart.h"

#include <QPoint>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <vector>

class FenChartVariableListCache;
namespace fen {
struct DrawnVariable;
} // namespace fen

/// Two-dimensional chart: lines, splines, steps, bars and symbols of any number
/// of variables inside up to four axes.
///
/// Owns its content (child "chart"), its axes and the handler that shows
/// tooltips and remembers what is highlighted. There is one record per variable
/// that is to be drawn: `update` makes them anew from the data, `resize` gives
/// them what depends on pixels (reduced curves, labels) and finds the data
/// rectangle and the ticks. Drawing and picking only read. An update empties the data rectangle, so that
/// nothing is drawn before the next resize.
class FENVIS_EXPORT FenVisChart2D : public FenVisChart {
public:
    static QString const typeString;

    class HitDetectEventHandler;

    FenChart2D chart;

    explicit FenVisChart2D(FenModifiedGroup& group);
    FenVisChart2D(FenVisChart2D const& other);
    FenVisChart2D& operator=(FenVisChart2D const& other);
    ~FenVisChart2D() override;

    /// [px] rectangle of the data, relative to the node; empty between update and resize.
    FenOglViewport getDataViewport() const override;
    void update(DrawContext const& context) override;
    void resize(DrawContext const& context) override;
    void draw3d(DrawContext const& context) const override;
    void draw2d(DrawContext const& context) const override;
    FenVisHitRecordList select3d(SelectContext const& context) const override;
    FenVisHitRecordList select2d(SelectContext const& context) const override;
    /// [scene] box of the data in the 3D view; undefined otherwise.
    Kes::Math::BoundingBox boundingBox() const override;

    FenChartValidVariableList validVariables() const override;
    FenChart* content() override;
    FenChartVariableList* variables() override;
    FenChartAxisPair* axisPair(Kes::Math::Vector3::Comp direction) override;
    FenChartAxisPairScale const* flatScales(Kes::Math::Vector3::Comp direction) const override;
    bool colorRange(FenChartVariable const& variable, Kes::Math::Vector2& range) const override;
    Kes::Math::Vector3 offset() const;
    Kes::Math::Vector3 scaling() const;
    /// Range of values that a gradient of variable `i` spans.
    /// @param i      index of a variable that is visible, whether or not it is valid
    /// @param range  [data] set to (minimum, maximum)
    void gradientExtents(unsigned i, Kes::Math::Vector2& range) const;
    /// The scales that are shown, with their exact ranges.
    FenChartAxisPairScale const& xScale() const { return _xScale; }
    FenChartAxisPairScale const& yScale() const { return _yScale; }
    /// Curves, areas and bars every few pixels, symbols at their centres.
    std::vector<QPoint> drawnPixels(std::size_t limit = 4000) const override;
    void highlight(FenVisHitProperty const& part) override;

private:
    struct Pass; // one pass of drawing or picking
    struct Highlight; // what of a variable is highlighted
    struct Sheet; // a variable in the depth view

    void clearCaches();
    bool updateView3d(DrawContext const& context, FenChartVariableListCache const& variables);
    bool updateScales(unsigned divisions, DrawContext const& context);

    void drawSelect2d(DrawContext const& context, QPoint const& mouse, FenVisOglSelectWeakPtr select) const;
    void drawSelect3d(DrawContext const& context, QPoint const& mouse, FenVisOglSelectWeakPtr select) const;
    unsigned hitRoom() const;
    fen::DrawnVariable const* find(FenChartVariable const& variable) const;
    Highlight highlightOf(FenChartVariable const& variable, bool picking) const;

    // One variable that has a picture: VisChart2D.variables.cpp
    void drawVariable(Pass const& pass, fen::DrawnVariable const& one) const;
    void drawCurve(Pass const& pass, fen::DrawnVariable const& one, Highlight const& highlight) const;
    void drawSymbol(Pass const& pass, fen::DrawnVariable const& one, Highlight const& highlight) const;
    void nameSymbols(Pass const& pass, fen::DrawnVariable const& one) const;

    // The depth view: VisChart2D.depth.cpp
    void makeSheets(DrawContext const& context, Kes::Math::BoundingBox const& box);
    void drawSheet(DrawContext const& context, Sheet const& sheet) const;
    void pickSheet(Pass const& pass, Sheet const& sheet) const;
    void pickPoints(Pass const& pass, SelectContext const& context, Sheet const& sheet,
                    Kes::Math::Matrix const& toEye) const;

    FenVisAxesXY _axes;
    FenVisAxesXYZ _axes3d;
    FenOglViewport _dataViewport; // [px] relative to the node
    Kes::Math::BoundingBox _bounds; // [scene] 3D view only
    Kes::Math::Vector3 _scaling;
    Kes::Math::Vector3 _offset;
    FenChartAxisPairScale _xScale;
    FenChartAxisPairScale _yScale;
    std::vector<fen::DrawnVariable> _variables; // in the order of the list
    std::vector<fen::DrawnVariable> _sheets; // the same, mapped and drawn for the depth view
    std::vector<float> _sheetDepths; // [scene] one per sheet
    Kes::Math::BoundingBox _sheetBox; // [scene] around the sheets
    boost::shared_ptr<HitDetectEventHandler> _handler;

    friend class HitDetectEventHandler;
};
