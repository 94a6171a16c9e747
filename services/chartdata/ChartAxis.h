#pragma once

#include "../logging/Export.h"
#include "../properties/PropertyAdaptor.h"

#include <QColor>
#include <QString>
#include <QStringList>

/// One axis of a chart: how it looks and which range it shows. Either continuous or discrete.
class FENVIS_EXPORT FenChartAxis : public FenProperties {
public:
    ~FenChartAxis() override;
    /// Takes along what refers to the axis by name in its chart.
    bool rename(QString const& name) override;
    FenChartAxis& operator=(FenChartAxis const&) = default;
    /// A copy of the same class; the caller owns it.
    virtual FenChartAxis* clone() const = 0;

    FenPropertyAdaptor<QString> title;
    FenPropertyAdaptor<QColor> titleColor;
    FenPropertyAdaptor<QColor> titleBoxColor;
    FenPropertyAdaptor<QColor> color;
    FenPropertyAdaptor<QColor> gridColor;
    FenPropertyAdaptor<QColor> labelColor;
    FenPropertyAdaptor<bool> shown;
    FenPropertyAdaptor<bool> autoRange; ///< the range follows the data; min and max only tell it then
    FenPropertyAdaptor<double> min; ///< [data]; of a discrete axis i - 0.5 is where category i begins
    FenPropertyAdaptor<double> max; ///< [data]

protected:
    explicit FenChartAxis(FenModifiedGroup& group);
    FenChartAxis(FenChartAxis const& other);
};

/// An axis of numbers, linear or logarithmic, or of points in time.
class FENVIS_EXPORT FenChartAxisContinuous : public FenChartAxis {
public:
    static QString const typeString;

    explicit FenChartAxisContinuous(FenModifiedGroup& group);
    FenChartAxisContinuous(FenChartAxisContinuous const& other);
    FenChartAxisContinuous& operator=(FenChartAxisContinuous const& other);
    ~FenChartAxisContinuous() override;
    FenChartAxis* clone() const override;

    FenPropertyAdaptor<QString> unit;
    FenPropertyAdaptor<bool> logarithmic;
    FenPropertyAdaptor<double> factor; ///< labels show value / factor; 0 and what is not finite is 1
    FenPropertyAdaptor<bool> fixed; ///< drives the axis flags of a 3D chart
    /// "": numbers. "date": seconds since 1970-01-01 UTC, shown as dates and times; such an axis is
    /// linear and shows neither unit nor factor.
    FenPropertyAdaptor<QString> format;

    /// True when the numbers are points in time.
    bool date() const;
    /// The unit that numbers are shown in: `unit`, converted by the last `FenChartUpdateVariableUnits`.
    /// Empty on a date axis.
    QString shownUnit() const;
    /// The factor that labels are divided by: `factor`, or 1 on a date axis and for what is no factor.
    double shownFactor() const;

private:
    friend class FenChartUpdateVariableUnits;
    friend class FenChartAxisPairScale;
    struct Shown {
        QString unit, converted;
    };
    mutable Shown _shown; ///< `converted` stands for `unit`
    mutable bool _reportedUndefined = false; ///< the log has the line about values not above 0
};

/// An axis of categories 0, 1, 2 ... with a label each.
class FENVIS_EXPORT FenChartAxisDiscrete : public FenChartAxis {
public:
    static QString const typeString;

    explicit FenChartAxisDiscrete(FenModifiedGroup& group);
    FenChartAxisDiscrete(FenChartAxisDiscrete const& other);
    FenChartAxisDiscrete& operator=(FenChartAxisDiscrete const&) = default;
    ~FenChartAxisDiscrete() override;
    FenChartAxis* clone() const override;

    FenPropertyAdaptor<QStringList> labels;
};
