#pragma once

#include "../../picking/select/VisOglSelect.h"
#include "../../services/chartdata/ChartMultiAxis.h"
#include "../../services/chartdata/ChartValidVariableList.h"
#include "../../services/chartdata/ChartVariableListCache.h"
#include "../../services/math/NumberFormat.h"
#include "../VisChart.h"

#include <QRectF>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <vector>

namespace fen {
class ItemPicture;
struct ItemAxis;
struct ItemTick;
struct SpiderLayout;
} // namespace fen

/// Spider chart: the axes of all variables radiate from one centre, each with a scale of its own, and every
/// item is a closed line across them, which may be filled.
///
/// Owns its content (child "chart") and the handler. What comes from data is rebuilt whole by `update`, what
/// depends on pixels (layout, ticks, the picture of the items) by `resize`; an update empties the data
/// rectangle, so that nothing is drawn before the next resize.
class FENVIS_EXPORT FenVisChartSpider : public FenVisChart {
public:
    static QString const typeString;

    class HitDetectEventHandler;

    FenChartMultiAxis chart;

    explicit FenVisChartSpider(FenModifiedGroup& group);
    FenVisChartSpider(FenVisChartSpider const& other);
    FenVisChartSpider& operator=(FenVisChartSpider const& other) = default;
    ~FenVisChartSpider() override;

    /// [px] the rectangle inside rim and title, relative to the node.
    FenOglViewport getDataViewport() const override;
    void update(DrawContext const& context) override;
    void resize(DrawContext const& context) override;
    void draw3d(DrawContext const& context) const override;
    void draw2d(DrawContext const& context) const override;
    FenVisHitRecordList select3d(SelectContext const& context) const override;
    /// An axis is its variable, an item the chart data object with a data point qualifier.
    FenVisHitRecordList select2d(SelectContext const& context) const override;
    Kes::Math::BoundingBox boundingBox() const override;

    FenChartValidVariableList validVariables() const override;
    FenChart* content() override { return &chart; }
    FenChartVariableList* variables() override { return &chart.variables; }
    std::vector<QPoint> drawnPixels(std::size_t limit = 4000) const override;
    void highlight(FenVisHitProperty const& part) override;
    /// Which items have a value on every axis' column; one flag per item.
    std::vector<bool> const& GetDataValid() const { return _dataValid; }
    /// Number of items: the size of the longest column.
    int GetMaxDataSize() const;

private:
    void makePicture();
    void drawSelect2d(DrawContext const& context, QRectF const& area, FenVisOglSelectWeakPtr select) const;
    void drawSpiderAxes(FenVisOglSelectWeakPtr select) const;
    void drawAxis(unsigned index, bool wide) const;
    void drawSpiderAxesLabels(FenOglText& text, FenVisOglSelectWeakPtr select) const;
    void drawTickLabels(FenOglText& text) const;
    void drawSpiderData(DrawContext const& context, QRectF const& area, FenVisOglSelectWeakPtr select) const;

    FenChartVariableListCache _variableCache;
    FenChartValidVariableList _validVariables;
    std::vector<bool> _dataValid; // one per item
    Kes::Math::NumberFormat _numberFormat;
    FenOglViewport _dataViewport; // [px] relative to the node
    std::shared_ptr<std::vector<fen::ItemAxis> const> _axes; // one per valid variable
    std::shared_ptr<std::vector<std::vector<fen::ItemTick>> const> _ticks; // one list per axis
    std::shared_ptr<fen::SpiderLayout const> _layout; // null before the first resize
    std::shared_ptr<fen::ItemPicture> _picture; // null before the first resize
    boost::shared_ptr<HitDetectEventHandler> _handler;

    friend class HitDetectEventHandler;
};
