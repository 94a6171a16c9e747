#pragma once

#include "../../services/chartdata/ChartCorrelation.h"
#include "../VisChart.h"

#include <QColor>
#include <QList>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <vector>

namespace fen {
struct CorrelationMatrix;
struct CorrelationPicture;
} // namespace fen

/// Matrix of cells, one row and one column per variable, coloured by the bins of their values.
///
/// Owns its content (child "chart") and the handler that shows tooltips and
/// remembers the cell under the pointer. Row i, counted from the top, is the y
/// column of the i-th visible variable, which has one value for each variable
/// of the list; hidden ones drop out of rows and columns alike. Cells without a
/// value (NaN) stay blank. Numbers stand in the cells as long as they fit, names
/// that would overlap are left out.
///
/// The values are rebuilt whole by `update`, all places by `resize`; drawing and
/// picking only read them. Picking asks the layout and needs no OpenGL.
class FENVIS_EXPORT FenVisChartCorrelation : public FenVisChart {
public:
    static QString const typeString;

    class HitDetectEventHandler;

    FenChartCorrelation chart;

    explicit FenVisChartCorrelation(FenModifiedGroup& group);
    FenVisChartCorrelation(FenVisChartCorrelation const& other);
    FenVisChartCorrelation& operator=(FenVisChartCorrelation const& other) = default;
    ~FenVisChartCorrelation() override;

    /// [px] rectangle of matrix and names, relative to the node; empty between update and resize.
    FenOglViewport getDataViewport() const override;
    void update(DrawContext const& context) override;
    void resize(DrawContext const& context) override;
    void draw3d(DrawContext const& context) const override;
    void draw2d(DrawContext const& context) const override;
    FenVisHitRecordList select3d(SelectContext const& context) const override;
    FenVisHitRecordList select2d(SelectContext const& context) const override;
    /// Undefined: there is no 3D drawing.
    Kes::Math::BoundingBox boundingBox() const override;
    FenChart* content() override;
    FenChartVariableList* variables() override;
    std::vector<QPoint> drawnPixels(std::size_t limit = 4000) const override;

    /// Edges of the bins that the last update found; empty when there is nothing to draw.
    std::vector<double> binEdges() const;
    /// Colours of the bins, one less than there are edges.
    std::vector<QColor> binColors() const;
    /// Value in a cell; NaN beyond the matrix.
    double value(unsigned row, unsigned column) const;

private:
    bool readMatrix(fen::CorrelationMatrix& matrix) const;
    void drawCorrelationData(DrawContext const& context) const;
    void drawCorrelationGrid(DrawContext const& context) const;
    void drawHighlight() const;

    FenOglViewport _dataViewport; // [px] relative to the node
    std::shared_ptr<fen::CorrelationMatrix const> _matrix; // null when there is nothing to draw
    std::shared_ptr<fen::CorrelationPicture const> _picture; // null between update and resize
    boost::shared_ptr<HitDetectEventHandler> _handler;

    friend class HitDetectEventHandler;
};
