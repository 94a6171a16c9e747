#pragma once

#include "../../services/logging/Export.h"
#include "VisHitProperty.h"

#include <QString>

// The small qualifiers: values that say which part of its owner a hit means.

/// A data point of a variable.
class FENVIS_EXPORT FenVisHitDataPointQualifier : public FenVisHitProperty::IQualifier {
public:
    explicit FenVisHitDataPointQualifier(quint32 dataPointIdx, boost::shared_ptr<IQualifier> inner = {});
    ~FenVisHitDataPointQualifier() override;
    QString toString() const override;

    quint32 dataPointIdx; ///< index into the variable's data
    boost::shared_ptr<IQualifier> inner; ///< vector qualifier with the point's values [data]; may be empty
};

/// One number.
class FENVIS_EXPORT FenVisHitVector1Qualifier : public FenVisHitProperty::IQualifier {
public:
    explicit FenVisHitVector1Qualifier(double value);
    ~FenVisHitVector1Qualifier() override;
    QString toString() const override;

    double value; ///< [data]
};

/// Two numbers: a point of the plane, or column and row.
class FENVIS_EXPORT FenVisHitVector2Qualifier : public FenVisHitProperty::IQualifier {
public:
    FenVisHitVector2Qualifier(double x, double y);
    ~FenVisHitVector2Qualifier() override;
    QString toString() const override;

    double x, y; ///< [data]
};

/// Three numbers: a point in space.
class FENVIS_EXPORT FenVisHitVector3Qualifier : public FenVisHitProperty::IQualifier {
public:
    FenVisHitVector3Qualifier(double x, double y, double z);
    ~FenVisHitVector3Qualifier() override;
    QString toString() const override;

    double x, y, z; ///< [data]
};

/// Something that has a name.
class FENVIS_EXPORT FenVisHitNameQualifier : public FenVisHitProperty::IQualifier {
public:
    explicit FenVisHitNameQualifier(QString const& name);
    ~FenVisHitNameQualifier() override;
    QString toString() const override;

    QString name;
};

/// The slider at the lower end of a filter range.
class FENVIS_EXPORT FenVisHitRangeMinQualifier : public FenVisHitProperty::IQualifier {
public:
    explicit FenVisHitRangeMinQualifier(double value);
    ~FenVisHitRangeMinQualifier() override;
    QString toString() const override;

    double value; ///< [data]
};

/// The slider at the upper end of a filter range.
class FENVIS_EXPORT FenVisHitRangeMaxQualifier : public FenVisHitProperty::IQualifier {
public:
    explicit FenVisHitRangeMaxQualifier(double value);
    ~FenVisHitRangeMaxQualifier() override;
    QString toString() const override;

    double value; ///< [data]
};

/// Something that is told apart by its label.
class FENVIS_EXPORT FenVisHitLabelQualifier : public FenVisHitProperty::IQualifier {
public:
    explicit FenVisHitLabelQualifier(QString const& label);
    ~FenVisHitLabelQualifier() override;
    QString toString() const override;

    QString label;
};

/// The strip by which a box is moved.
struct FENVIS_EXPORT FenVisHitMoveQualifier : FenVisHitProperty::IQualifier {
    FenVisHitMoveQualifier();
    ~FenVisHitMoveQualifier() override;
    QString toString() const override;
};

/// A corner by which a box is resized.
struct FENVIS_EXPORT FenVisHitResizeQualifier : FenVisHitProperty::IQualifier {
    enum ResizeArea { TopLeft = 0, TopRight = 1, BottomLeft = 2, BottomRight = 3 };

    explicit FenVisHitResizeQualifier(ResizeArea area);
    ~FenVisHitResizeQualifier() override;
    QString toString() const override;

    ResizeArea area;
};
