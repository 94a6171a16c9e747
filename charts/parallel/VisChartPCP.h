#pragma once

#include "../../picking/select/VisOglSelect.h"
#include "../../services/chartdata/ChartMultiAxis.h"
#include "../../services/chartdata/ChartRange.h"
#include "../../services/chartdata/ChartValidVariableList.h"
#include "../../services/chartdata/ChartVariableListCache.h"
#include "../../services/math/NumberFormat.h"
#include "../VisChart.h"

#include <QRectF>
#include <QStringList>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <vector>

namespace fen {
class ItemPicture;
struct ItemAxis;
struct ParallelLayout;
} // namespace fen

/// Parallel coordinates: an upright axis per variable, side by side, and a line per record across them.
///
/// A variable whose "filter" is on has sliders at both ends of its filter range; records outside of a range
/// are drawn pale under the others. Dragging a slider shows its effect at once, and the release writes the
/// limit into the variable.
///
/// Owns its content (child "chart") and the handler. What comes from data (axes, ranges, which records are
/// valid) is rebuilt whole by `update`, what depends on pixels (layout, the picture of the lines) by
/// `resize`; an update empties the plot rectangle, so that nothing is drawn before the next resize. A drag
/// changes the live filter ranges and the picture in between.
class FENVIS_EXPORT FenVisChartPCP : public FenVisChart {
public:
    static QString const typeString;

    class HitDetectEventHandler;

    FenChartMultiAxis chart;

    explicit FenVisChartPCP(FenModifiedGroup& group);
    FenVisChartPCP(FenVisChartPCP const& other);
    FenVisChartPCP& operator=(FenVisChartPCP const& other) = default;
    ~FenVisChartPCP() override;

    /// [px] plot rectangle, relative to the node: its bottom and top are the ends of the axes.
    FenOglViewport getDataViewport() const override;
    void update(DrawContext const& context) override;
    void resize(DrawContext const& context) override;
    void draw3d(DrawContext const& context) const override;
    void draw2d(DrawContext const& context) const override;
    FenVisHitRecordList select3d(SelectContext const& context) const override;
    /// An axis is a variable with a name qualifier, a slider one with a range qualifier, a record the chart
    /// data object with a data point qualifier.
    FenVisHitRecordList select2d(SelectContext const& context) const override;
    Kes::Math::BoundingBox boundingBox() const override;

    FenChartValidVariableList validVariables() const override;
    FenChart* content() override { return &chart; }
    FenChartVariableList* variables() override { return &chart.variables; }
    std::vector<QPoint> drawnPixels(std::size_t limit = 4000) const override;
    void highlight(FenVisHitProperty const& part) override;
    /// Which records the filters in the properties let through; one flag per record.
    std::vector<bool> const& GetDataValid() const { return _dataValid; }
    /// Number of records: the size of the longest column.
    int GetMaxDataSize() const;

private:
    struct Pass;

    // VisChartPCP.update.cpp
    void findFilters();
    void layOut(DrawContext const& context);
    void applyFilters();
    void makePicture();
    std::vector<FenChartRange> filteredRanges() const;
    void GetFilteredMinMax(int index, double& min, double& max) const;
    QString getAxisLabel(unsigned index) const;
    int variableAt(int position) const;

    // VisChartPCP.draw.cpp
    void drawSelect2d(DrawContext const& context, QRectF const& area, FenVisOglSelectWeakPtr select) const;
    void drawParallelData(DrawContext const& context, QRectF const& area,
                          FenVisOglSelectWeakPtr select) const;
    void drawParallelSliders(DrawContext const& context, FenVisOglSelectWeakPtr select) const;
    void drawSlider(int position, bool low, FenVisOglSelectWeakPtr select) const;

    // VisChartPCP.axes.cpp
    void drawParallelAxes(DrawContext const& context, FenVisOglSelectWeakPtr select) const;
    void drawAxis(Pass const& pass, int position) const;
    void drawAxisTicks(Pass const& pass, int position) const;
    void drawAxisName(Pass const& pass, int position) const;
    struct TextRoom;
    TextRoom textRoom(FenOglText& text) const;

    FenChartVariableListCache _variableCache;
    FenChartValidVariableList _validVariables;
    std::vector<FenChartRange> _filterRanges; // [data] one per valid variable; a drag moves them
    std::vector<FenChartRange> _dataRanges; // [data] one per valid variable
    std::vector<bool> _dataValid; // one per record
    QStringList _minLabels; // one per valid variable
    QStringList _maxLabels;
    std::vector<double> _displayFactors; // one per valid variable
    int _first = 0; // index of the variable on the first axis
    Kes::Math::NumberFormat _numberFormat;
    std::shared_ptr<std::vector<fen::ItemAxis> const> _axes; // one per valid variable
    std::shared_ptr<fen::ParallelLayout const> _layout; // null before the first resize
    std::shared_ptr<fen::ItemPicture> _picture; // null before the first resize
    mutable boost::shared_ptr<IFenVisPropertyEdit> _propertyEdit; // of the last pass that can edit
    boost::shared_ptr<HitDetectEventHandler> _handler;

    friend class HitDetectEventHandler;
};
