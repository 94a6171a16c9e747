#pragma once

#include "../framework/VisPassiveNode.h"
#include "../picking/select/VisOglSelect.h"
#include "../services/logging/Export.h"
#include "../services/opengl/OglViewport.h"
#include "Ticks.h"

#include <QString>

#include <vector>

class FenChartAxis;
class FenChartAxisPair;
class FenChartAxisPairScale;
class FenChartAxisScale;
class FenOglText;
class FenVisChart2D;

/// The four axes around the data rectangle of a 2D chart.
///
/// Holds nothing between calls: the chart that owns it hands over pairs, scales
/// and the rectangle. All lengths are whole pixels relative to the chart's
/// viewport. Takes part in no pass of its own; the chart calls `Draw`.
class FENVIS_EXPORT FenVisAxesXY : public FenVisPassiveNode {
public:
    static QString const typeString;
    static constexpr int unlimited = 1 << 20; ///< [px] wider than any chart

    explicit FenVisAxesXY(FenModifiedGroup& group);
    FenVisAxesXY(FenVisAxesXY const& other);
    FenVisAxesXY& operator=(FenVisAxesXY const& other) = default;
    ~FenVisAxesXY() override;

    /// What the axes' labels and titles leave of `viewport`.
    /// @return [px] the data rectangle; empty when there is no room
    FenOglViewport GetDataViewport(FenOglText& text, FenChartAxisPair const& x, FenChartAxisPair const& y,
                                   FenChartAxisPairScale const& xScale, FenChartAxisPairScale const& yScale,
                                   FenOglViewport const& viewport) const;

    /// Grid, ticks, labels, titles and axis lines around `dataViewport` [px]. With a live select handle
    /// the grid is left out, and each axis gets a name for its labels and title and one for its line.
    /// @param highlighted  the axis that owns it gets a wider line
    /// @param chartWidth   [px] labels end before it
    void Draw(FenOglText& text, FenVisChart2D const& chart, FenChartAxisPairScale const& xScale,
              FenChartAxisPairScale const& yScale, FenOglViewport const& dataViewport,
              FenVisOglSelectWeakPtr select, FenVisHitProperty const& highlighted,
              int chartWidth = FenVisAxesXY::unlimited) const;

private:
    enum Side { Bottom, Top, Left, Right };
    /// An axis that is shown, and where.
    struct Placed {
        Side side;
        FenChartAxis const& axis;
        FenChartAxisScale const& scale;
        std::vector<fen::Tick> ticks = {}; ///< along its side of the data rectangle

        bool vertical() const { return side == Left || side == Right; }
        bool visible() const; // has a colour
    };
    typedef std::vector<Placed> PlacedAxes; // bottom, top, left, right

    // Room and texts: VisAxesXY.layout.cpp
    static PlacedAxes placeAxes(FenChartAxisPair const& x, FenChartAxisPair const& y,
                                FenChartAxisPairScale const& xScale, FenChartAxisPairScale const& yScale);
    static int axisTitleHeight(FenChartAxis const& axis, int lineHeight);
    static int divLabelMaxWidth(FenChartAxisScale const& scale, FenOglText const& text);
    static int getAxisMargin(FenChartAxisScale const* scale, FenChartAxis const* axis, FenOglText const& text,
                             int lineHeight, bool vertical);
    static QString getAxisTitle(FenChartAxis const& axis);
    static std::vector<int> calcGridPoints(FenChartAxisScale const& scale, int origin, int length);
    static std::vector<fen::Tick> placeTicks(Placed const& axis, FenOglViewport const& data,
                                             FenOglText const& text);

    // VisAxesXY.draw.cpp
    static void drawGrid(PlacedAxes const& axes, FenOglViewport const& data);
    static void drawVertGrid(std::vector<int> const& points, FenOglViewport const& data);
    static void drawHorzGrid(std::vector<int> const& points, FenOglViewport const& data);
    void drawAxes(FenVisChart2D const& chart, PlacedAxes const& axes, FenOglViewport const& data,
                  FenVisOglSelectWeakPtr select, FenVisHitProperty const& highlighted) const;
    static void drawAxesLabels(FenOglText& text, FenVisChart2D const& chart, PlacedAxes const& axes,
                               FenOglViewport const& data, FenVisOglSelectWeakPtr select, int chartWidth);
    static void drawTicks(Placed const& axis, FenOglViewport const& data);
    static void drawRow(FenOglText& text, Placed const& axis, FenOglViewport const& data, int chartWidth);
    static void drawColumn(FenOglText& text, Placed const& axis, FenOglViewport const& data, int chartWidth);
    static void drawTitle(FenOglText& text, Placed const& axis, FenOglViewport const& data);
};
