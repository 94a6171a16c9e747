#pragma once

#include "../../picking/select/VisOglSelect.h"
#include "../../services/chartdata/ChartPie.h"
#include "../../services/chartdata/ChartVariableListCache.h"
#include "../VisChart.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace fen {
struct FillStyle;
struct PiePicture;
struct PieSegment;
struct PieStyle;
} // namespace fen

/// Pie of one or several rings: each visible variable is a segment, as large as its share of its ring.
///
/// Owns its content (child "chart") and the handler that remembers what is
/// highlighted. A ring without any amount is a faint dashed placeholder.
///
/// The variables are cached by `update`, all places, areas and labels by
/// `resize`; drawing and picking only read them. The segments of a picture share
/// their draw calls, so that ten thousand of them are drawn as fast as ten.
class FENVIS_EXPORT FenVisChartPie : public FenVisChart {
public:
    static QString const typeString;

    class HitDetectEventHandler;

    FenChartPie chart;

    explicit FenVisChartPie(FenModifiedGroup& group);
    FenVisChartPie(FenVisChartPie const& other);
    FenVisChartPie& operator=(FenVisChartPie const& other) = default;
    ~FenVisChartPie() override;

    /// [px] rectangle that the pie is centred in, relative to the node; empty between update and resize.
    FenOglViewport getDataViewport() const override;
    void update(DrawContext const& context) override;
    void resize(DrawContext const& context) override;
    void draw3d(DrawContext const& context) const override;
    void draw2d(DrawContext const& context) const override;
    FenVisHitRecordList select3d(SelectContext const& context) const override;
    FenVisHitRecordList select2d(SelectContext const& context) const override;
    /// Undefined: there is no 3D drawing.
    Kes::Math::BoundingBox boundingBox() const override;
    /// All visible variables, those without an amount too.
    FenChartValidVariableList validVariables() const override;
    FenChart* content() override;
    FenChartVariableList* variables() override;
    std::vector<QPoint> drawnPixels(std::size_t limit = 4000) const override;

private:
    void drawSelect2d(DrawContext const& context, FenVisOglSelectWeakPtr select) const;
    void drawPlaceholders(FenOglCache& cache) const;
    void drawShared(FenOglCache& cache) const;
    void nameSlices(SelectContext const& context, FenVisOglSelectWeakPtr select) const;
    void drawSegment(FenOglCache& cache, fen::PieSegment const& segment, fen::PieStyle const& style,
                     bool picking) const;
    void drawHighlight(DrawContext const& context) const;
    void drawLabels(FenOglText& text) const;

    FenOglViewport _dataViewport; // [px] relative to the node
    FenChartVariableListCache _variableCache;
    std::shared_ptr<fen::PiePicture const> _picture; // null between update and resize
    boost::shared_ptr<HitDetectEventHandler> _handler;

    friend class HitDetectEventHandler;
};
