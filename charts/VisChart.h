#pragma once

#include <vector>

#include <QString>

#include <boost/weak_ptr.hpp>

#include "../framework/Visualization.h"
#include "../picking/hits/VisHitRecord.h"
#include "../services/logging/Export.h"
#include "../services/opengl/OglViewport.h"
#include "../services/properties/Viewport.h"

class FenChart;
class FenChartValidVariableList;
class FenVisHitProperty;
class FenVisHitRecordList;
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

protected:
    /// Rectangle [px, relative to the node] inside the rim and below the title band.
    /// @return false when nothing is left of it
    static bool calcDataViewport(DrawContext const& context, FenChart const& chart, FenOglViewport& data);
    /// Title, centred in the band at the top; nothing for an empty one.
    static void drawTitle(DrawContext const& context, FenChart const& chart);
    /// Hit list of this node: the catch-all, which stands for `item`, then `hits`.
    FenVisHitRecordList getHitRecords(std::vector<FenVisHitRecord> const& hits, FenProperties const* item,
                                      boost::weak_ptr<IFenVisEventHandler> handler,
                                      FenVisHitProperty const& property) const;
};
