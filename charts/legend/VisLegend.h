#pragma once

#include "../../framework/Visualization.h"
#include "../../services/chartdata/ChartLegend.h"
#include "../../services/logging/Export.h"
#include "../../services/math/NiceIntervals.h"
#include "../../services/opengl/OglViewport.h"
#include "../../services/properties/ViewPtr.h"
#include "LegendCorrelation.h"
#include "LegendLayout.h"

#include <boost/shared_ptr.hpp>

#include <vector>

class FenChartVariable;
class FenVisChart;

/// Legend of one chart, drawn over the chart's data rectangle.
///
/// A sibling of its chart, which it finds by the name in "legend"/"chart" and
/// depends on, so that it is updated with the chart; while there is no such chart
/// or it is disabled, it depends on the list. Lists the chart's valid
/// variables whose "legend" is true, each with its own line, symbol and fill;
/// variables with a gradient show the colour ramp and its values. For a
/// correlation chart it is one bar of its bins.
///
/// Place: child "legend"/"viewport". Untouched it means the place where the
/// legend hides least, found by each resize; else "placement", "x" and "y" of
/// the box, whose size always follows from the entries. A drag writes it.
///
/// `update` links it; entries, layout and the automatic place are made when they are first asked for after
/// that or after a `resize`, so that it does not matter whether the legend or its chart is visited first.
/// Drawing remembers the rectangles that picks are compared with.
class FENVIS_EXPORT FenVisLegend : public FenVisualization {
public:
    static QString const typeString;

    class HitDetectEventHandler;

    FenChartLegend legend;

    explicit FenVisLegend(FenModifiedGroup& group);
    /// Copies the settings; the copy is linked by its own next update.
    FenVisLegend(FenVisLegend const& other);
    FenVisLegend& operator=(FenVisLegend const& other);
    ~FenVisLegend() override;

    void onDependentRename(QString const& oldName, QString const& newName) override;
    /// The chart's data rectangle [px]; false while unlinked.
    bool getViewport(FenOglViewport const& parent, FenOglViewport& own) const override;
    void update(DrawContext const& context) override;
    void resize(DrawContext const& context) override;
    void draw3d(DrawContext const& context) const override;
    void draw2d(DrawContext const& context) const override;
    FenVisHitRecordList select3d(SelectContext const& context) const override;
    /// Name i + 1 stands for the variable of entry i, name 0 for the legend.
    FenVisHitRecordList select2d(SelectContext const& context) const override;
    Kes::Math::BoundingBox boundingBox() const override;

    /// The variables listed, in the order of the entries; those that are gone are left out.
    std::vector<FenChartVariable const*> entries() const;
    /// [px] box of the last draw, relative to the chart's data rectangle; invalid when nothing was drawn.
    FenOglViewport box() const { return _box; }
    /// [px] rectangle of entry i of the last draw, relative to the chart's data rectangle.
    FenOglViewport entryRectangle(unsigned i) const;

private:
    struct Variable; // one entry
    /// What an entry shows at its left.
    enum class Sample {
        Series = 1, ///< line, symbol and fill as in the chart
        Patch = 2, ///< a patch of the fill colour
        Items, ///< a patch of the items' colour
        Bins ///< no entries: one bar for all bins
    };
    /// How the legend of one kind of chart is drawn.
    struct Kind {
        bool (*matches)(FenVisualization const& chart);
        Sample sample;
        bool ramps; ///< entries with a gradient show its values
    };

    static std::vector<Kind> const& kinds();
    Kind const* kind() const;
    bool empty() const { return _entries.empty() && _bins.empty(); }
    void unlink();
    void dependOn(FenVisualization& source);
    void collectEntries() const;
    void collectItems(FenVisChart const& chart) const;
    void layOut(FenOglText& text, QSize const& area) const;

    fen::LegendLayout arrange(std::vector<fen::LegendEntrySize> const& sizes, FenOglText const& text,
                              QSize const& area) const;
    fen::LegendLayout sizeLegend(FenOglText& text, QSize const& area, bool ramps) const;
    void drawLegend(FenOglCache& cache, FenOglText& text, FenOglViewport const& viewport,
                    Sample sample) const;
    void drawEntry(FenOglCache& cache, FenOglText& text, unsigned i, fen::LegendLayout::Entry const& entry,
                   Sample sample) const;
    FenOglViewport calcLegendViewport(QSize const& size, FenOglViewport const& viewport) const;
    bool placedAutomatically() const;
    fen::LegendLayout sizeBins(FenOglText& text, int lines) const;
    void drawBins(FenOglText& text, FenOglViewport const& viewport) const;
    void decorate(QColor const& textColor) const;
    bool CanExpandVariable(unsigned i) const;
    QString entryText(FenOglText const& text, unsigned i, bool ramps, int width) const;

    mutable std::vector<Variable> _entries;
    mutable std::size_t _unlisted = 0; // items that no legend has room for
    mutable fen::LegendBins _bins; // of a correlation chart
    mutable bool _collected = true; // `_entries` are those of the last update
    mutable fen::LegendLayout _layout;
    mutable QSize _layoutArea; // [px] for which `_layout` and `_place` were made; invalid: none
    mutable QPoint _place; // [px] automatic place of the box
    Kes::Math::NumberFormat _numberFormat; // of the last update
    fen::view_ptr<FenVisualization> _chart; // null while unlinked
    fen::view_ptr<FenVisualization>
        _source; // whose changes mark this: the chart, or the list while it has none
    boost::shared_ptr<HitDetectEventHandler> _handler;
    mutable std::vector<FenOglViewport> _rectangles; // [px] of the entries as last drawn
    mutable FenOglViewport _box; // [px] as last drawn
    mutable FenOglViewport _area; // [px] data rectangle of the last draw, its origin at (0, 0)
};
