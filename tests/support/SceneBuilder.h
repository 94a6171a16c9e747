#pragma once

#include "charts/chart2d/VisChart2D.h"
#include "framework/DrawContext.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/OglText.h"
#include "services/opengl/Resource.h"
#include "services/properties/ModifiedGroup.h"

#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

#include <boost/shared_ptr.hpp>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// Text of what a hit stands for: "variable a, dataPointIdx(3)", "axis x", "chart", "nothing".
QString describeHit(FenVisHitProperty const& hit);

/// A 2D chart with axes "x" (bottom) and "y" (left) and all that its passes need, filling a picture of
/// `size`. Needs a current OpenGL context, with a viewport of that size, for drawing and picking only.
/// Points are [px] from the bottom left.
class ChartScene {
public:
    typedef std::vector<std::pair<double, double>> Points;

    explicit ChartScene(QSize const& size = QSize(400, 300));
    ~ChartScene();

    FenChartVariable& add(QString const& name, Points const& points, QString const& style);
    FenChartVariable& line(QString const& name, Points const& points);
    FenChartVariable& bars(QString const& name, Points const& points);
    /// Marks without a line, 9 px wide.
    FenChartVariable& marks(QString const& name, Points const& points);
    FenChartVariable& columns(QString const& name, std::vector<double> x, std::vector<double> y);
    FenChartAxisContinuous& axis(QString const& name);
    /// Gives the x axis categories.
    void categories(QStringList const& labels);
    /// A fixed range of an axis.
    void range(QString const& axis, double min, double max);

    void resize(QSize const& size);
    /// Update and resize passes, whether or not something changed.
    void update();
    void layout();
    void draw();
    FenVisHitRecordList select(QPoint const& point, int size = 5);
    QString pick(QPoint const& point, int size = 5);
    /// Hovers over the winner of a pick; its tooltip.
    QString hover(QPoint const& point, int size = 5);
    bool leave();
    bool click(QPoint const& point, int size = 5);
    /// Where a data point lies.
    QPoint pixelOf(QString const& variable, std::size_t point) const;
    FenOglViewport data() const { return chart->getDataViewport(); }

    FenModifiedGroup group;
    FenResource resource;
    FenOglCache cache;
    FenOglText text;
    FenOglGeometry geometry;
    std::unique_ptr<FenVisChart2D> chart;
    QStringList edits; ///< "axis.key=value" and "begin", "end", as the passes wrote them
    std::function<void()> onEdit; ///< what a host does when it is told of an edit; the edit is then not made

private:
    FenVisualization::DrawContext context();

    QSize _size;
    boost::shared_ptr<IFenVisPropertyEdit> _edit;
};
