#pragma once

#include "../logging/Export.h"

#include <QHash>
#include <QString>

#include <utility>

class FenPropertyAdaptorBase;

namespace Kes::Math {
class Vector3;
}

/// Writes vectors with the unit of a property.
class FENVIS_EXPORT FenQuantityTriple {
public:
    /// Takes the unit that the property has now.
    explicit FenQuantityTriple(FenPropertyAdaptorBase const& property);
    explicit FenQuantityTriple(QString const& unit);

    /// "x y z unit", or "v unit" when the three are equal; numbers have at most six
    /// digits, and without a unit there is no blank behind them.
    static QString ToStringWithUnit(FenQuantityTriple const& quantity, Kes::Math::Vector3 const& value);

private:
    QString _unit;
};

/// Tells in which unit, and by which factor, quantities are shown.
///
/// Units are plain texts; those that were not set are shown as they are.
class FENVIS_EXPORT FenUnitSystem {
public:
    FenUnitSystem() = default;

    /// Quantities in `from` are shown in `to`: 1 from = `factor` to. A factor that is not finite
    /// or is 0 changes nothing and logs a failed check.
    void setUnit(QString const& from, QString const& to, double factor);
    /// The unit in which a quantity in `from` is shown.
    QString unit(QString const& from) const;
    /// A value in `from` as a value in `unit(from)`.
    double convert(double value, QString const& from) const;

private:
    QHash<QString, std::pair<QString, double>> _units;
};
