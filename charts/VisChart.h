#pragma once

#include "../framework/Visualization.h"
#include "../picking/hits/VisHitRecord.h"
#include "../services/chartdata/ChartVariableList.h"
#include "../services/logging/Export.h"
#include "../services/math/Vector2.h"
#include "../services/math/Vector3.h"
#include "../services/opengl/OglViewport.h"
#include "../services/properties/Viewport.h"

#include <QPoint>
#include <QString>

#include <boost/weak_ptr.hpp>

#include <cstddef>
#include <functional>
#include <vector>

class FenChart;
class FenChartAxisPair;
class FenChartAxisPairScale;
class FenChartValidVariableList;
class FenVisHitProperty;
class FenVisHitRecordList;
class FenVisOglSelectWeakPtr;
class IFenVisEventHandler;

/// Base of every chart node.
///
/// Gives a chart its place in the parent (child "viewport"), the rule that
/// turns its rectangle into the rectangle of the data, its title, and the
/// assembly of pick results. The content of a chart (variables, axes, title)
/// is the child "chart" that each kind of chart owns.
class FENVIS_EXPORT FenVisChart : public FenVisualization {
public:
    static QString const typeString;
    /// Name of the image with the plot symbols.
    static QString const plotSymbols;

    FenViewport viewport;

    explicit FenVisChart(FenModifiedGroup& group);
    FenVisChart(FenVisChart const& other);
    FenVisChart& operator=(FenVisChart const& other) = default;
    ~FenVisChart() override;

    /// The rectangle of `viewport` in `parent`; a chart always has one of its own.
    bool getViewport(FenOglViewport const& parent, FenOglViewport& own) const override;
    /// The variables that the last update found fit to be drawn; a legend lists them.
    virtual FenChartValidVariableList validVariables() const;

    // What others ask of a chart without knowing its kind. A kind that has no such thing keeps the answer
    // of the base: null, or nothing.

    /// The chart data object, child "chart".
    virtual FenChart* content();
    /// All variables of the content.
    virtual FenChartVariableList* variables();
    /// The axes of one direction.
    virtual FenChartAxisPair* axisPair(Kes::Math::Vector3::Comp direction);
    /// Their scales, while they lie along the edges of the flat data rectangle: X below and above it, Y
    /// left and right. Null too while the chart shows a view in depth.
    virtual FenChartAxisPairScale const* flatScales(Kes::Math::Vector3::Comp direction) const;
    /// Values that the ends of a valid variable's colour ramp stand for [data].
    /// @param range  (minimum, maximum)
    /// @return false, and `range` untouched, for a variable that is not drawn
    virtual bool colorRange(FenChartVariable const& variable, Kes::Math::Vector2& range) const;
    /// Where ink lies in the data rectangle: [px] from its lower left corner, about `limit` places at most,
    /// spread evenly; empty before the first resize.
    virtual std::vector<QPoint> drawnPixels(std::size_t limit = 4000) const;
    /// Draws a part of the chart as if the pointer rested on it, until the pointer comes to the chart or it
    /// is updated; undefined: none.
    virtual void highlight(FenVisHitProperty const& part);

protected:
    /// Rectangle [px, relative to the node] inside the rim and below the title band.
    /// @return false when nothing is left of it
    static bool calcDataViewport(DrawContext const& context, FenChart const& chart, FenOglViewport& data);
    /// Title, centred in the band at the top; nothing for an empty one.
    static void drawTitle(DrawContext const& context, FenChart const& chart);
    /// One select pass: empties the table of names, has `draw` draw under names and hands out what was hit.
    /// @param hits  that the buffer has room for
    /// @param item  what the catch-all stands for: the chart data object
    FenVisHitRecordList pick(SelectContext const& context, unsigned hits, FenProperties const& item,
                             boost::weak_ptr<IFenVisEventHandler> const& handler,
                             std::function<void(FenVisOglSelectWeakPtr select)> const& draw) const;
    /// Hit list of this node: the catch-all, which stands for `item`, then `hits`.
    FenVisHitRecordList getHitRecords(std::vector<FenVisHitRecord> const& hits, FenProperties const* item,
                                      boost::weak_ptr<IFenVisEventHandler> handler,
                                      FenVisHitProperty const& property) const;
};
