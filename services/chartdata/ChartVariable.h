#pragma once

#include "../logging/Export.h"
#include "../math/Vector3.h"
#include "../properties/PropertyAdaptor.h"
#include "ChartColumn.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QStringList>

#include <boost/shared_ptr.hpp>

#include <array>
#include <memory>
#include <vector>

class IVariableIter;

/// One data series of a chart: its columns of numbers, how it is drawn, and the axes it belongs to.
///
/// Columns are shared and immutable; copying a variable copies no numbers. A variable without x has its
/// points at x = index; without z at z = 0; without y it has no points that can be drawn. The number of
/// points is that of the longest column; a shorter column is undefined beyond its end, as is a NaN.
class FENVIS_EXPORT FenChartVariable : public FenProperties {
public:
    typedef Kes::Math::Vector3::Comp Comp;

    static QString const typeString;

    explicit FenChartVariable(FenModifiedGroup& group);
    /// Shares the columns of `other`.
    FenChartVariable(FenChartVariable const& other);
    FenChartVariable& operator=(FenChartVariable const& other);
    ~FenChartVariable() override;
    /// Takes along what refers to the variable by name in its chart.
    bool rename(QString const& name) override;

    FenPropertyAdaptor<QString> label; ///< the name is shown when empty, see `shownName`
    FenPropertyAdaptor<bool> visible;
    FenPropertyAdaptor<bool> legend; ///< has an entry in the legend
    FenPropertyAdaptor<QStringList> labels; ///< one text per point
    FenPropertyAdaptor<QString> xAxis; ///< name of an axis of the pair; empty: its first axis
    FenPropertyAdaptor<QString> yAxis;
    FenPropertyAdaptor<QString> zAxis;
    FenPropertyAdaptor<QString> unitX; ///< unit of the columns as they were set
    FenPropertyAdaptor<QString> unitY;
    FenPropertyAdaptor<QString> unitZ;
    FenPropertyAdaptor<QString>
        style; ///< FenChart::style...; as the next ones, unknown texts are the default
    FenPropertyAdaptor<QString> lineMode;
    FenPropertyAdaptor<QString> lineStyle; ///< stipple
    FenPropertyAdaptor<float> lineWidth; ///< [px]
    FenPropertyAdaptor<bool> lineSmooth;
    FenPropertyAdaptor<QColor> lineColor;
    FenPropertyAdaptor<bool> lineExtension; ///< dashed lines to the ends of the x axis
    FenPropertyAdaptor<QString> fillMode;
    FenPropertyAdaptor<QColor> fillColor;
    FenPropertyAdaptor<QColor> backColor;
    FenPropertyAdaptor<QString> fillPattern;
    FenPropertyAdaptor<QList<QColor>> colors; ///< of the gradient, from the lowest value to the highest
    FenPropertyAdaptor<QString> symbol;
    FenPropertyAdaptor<int> symbolSize; ///< [px]
    FenPropertyAdaptor<QColor> symbolColor;
    FenPropertyAdaptor<QColor> symbolOutlineColor;
    FenPropertyAdaptor<QColor> labelColor;
    FenPropertyAdaptor<double> barWidth; ///< as a multiple of the smallest distance in x
    FenPropertyAdaptor<bool> surface;
    FenPropertyAdaptor<bool> filter;
    FenPropertyAdaptor<double> filterRangeMin; ///< [data]
    FenPropertyAdaptor<double> filterRangeMax; ///< [data]
    FenPropertyAdaptor<double> displayFactor;
    FenPropertyAdaptor<int> ring; ///< of a pie, 0 innermost

    /// Sets a column; give an rvalue and nothing is copied. An empty one removes the column.
    void setData(Comp comp, std::vector<double> values);
    /// Sets a column that others may share; null removes it.
    void setColumn(Comp comp, FenChartColumn::Ptr column);
    /// Appends values to a column. Costs a copy of the numbers while anybody shares them.
    void appendData(Comp comp, std::vector<double> const& values);
    /// The numbers as they were set; empty without a column.
    std::vector<double> const& data(Comp comp) const;
    /// The column as it was set; null without one.
    FenChartColumn::Ptr const& sourceColumn(Comp comp) const { return _source[comp]; }
    /// The column in the unit that is shown: the converted one after `FenChartUpdateVariableUnits`, else
    /// the one that was set. Null without one. This is what is drawn, picked and measured.
    FenChartColumn::Ptr const& column(Comp comp) const;
    /// Number of points: the size of the longest column.
    std::size_t count() const;

    /// Value of point i in the unit that is shown, by the rules above; NaN where it is undefined.
    double value(Comp comp, std::size_t i) const;

    /// Walks over all points in the unit that is shown. The walk keeps the columns alive.
    boost::shared_ptr<IVariableIter> iter() const;

    /// The label, or the name where it is empty.
    QString shownName() const;
    /// The unit that is shown.
    QString unit(Comp comp) const;
    FenPropertyAdaptor<QString> const& axisName(Comp comp) const;
    FenPropertyAdaptor<QString> const& sourceUnit(Comp comp) const;

private:
    friend class FenChartUpdateVariableUnits;
    /// A column in the unit that is shown; kept as long as source, unit and factor stay the same.
    struct Converted {
        FenChartColumn::Ptr from; ///< null: nothing is converted
        FenChartColumn::Ptr column;
        QString sourceUnit, unit;
        double factor = 1.0;
    };
    void convert(Comp comp, QString const& shownUnit, double factor) const;

    std::array<FenChartColumn::Ptr, 3> _source;
    mutable std::array<Converted, 3> _converted;
};
