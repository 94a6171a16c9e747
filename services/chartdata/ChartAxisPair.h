#pragma once

#include "../logging/Export.h"
#include "../math/Vector3.h"
#include "../properties/Properties.h"

#include <QStringList>

class FenChartAxis;

/// The two axes of one direction: bottom and top, or left and right. Either may be missing.
///
/// Owns its axes; they are its children, and their names differ. A pair starts empty.
class FENVIS_EXPORT FenChartAxisPair : public FenProperties {
public:
    typedef Kes::Math::Vector3::Comp Comp;

    static QString const typeString;

    /// @param comp  the direction that the axes measure
    explicit FenChartAxisPair(FenModifiedGroup& group, Comp comp = Kes::Math::Vector3::CompX);
    /// Copies the axes.
    FenChartAxisPair(FenChartAxisPair const& other);
    /// Axes of the same names and types are assigned, others are replaced by copies. Keeps the direction.
    FenChartAxisPair& operator=(FenChartAxisPair const& other);
    ~FenChartAxisPair() override;

    Comp comp() const { return _comp; }
    FenChartAxis* first() const { return _slots[0]; }
    FenChartAxis* second() const { return _slots[1]; }
    /// The axis of that name, or null.
    FenChartAxis* find(QString const& name) const;
    /// The axis that a variable means by that name: an empty one is the first axis there is. Or null.
    FenChartAxis* resolve(QString const& name) const;
    /// Names of the axes there are.
    QStringList names() const;

    /// Makes the first (second) axis in the place of the one there was.
    /// @param name  empty: "first" ("second")
    /// @param type  `FenChartAxisContinuous::typeString`, `FenChartAxisDiscrete::typeString`; empty: the
    ///              axis is removed
    /// @return the axis; null when it was removed, and when the type is unknown or the other axis has the
    ///     name, which changes nothing and logs a line
    FenChartAxis* setFirst(QString const& name, QString const& type);
    FenChartAxis* setSecond(QString const& name, QString const& type);

    /// Only axes, and no more than two: an axis goes to the first free place. False for anything else.
    bool insert(FenProperties* child, bool nested) override;
    bool remove(FenProperties* child) override;
    bool erase(FenProperties* child) override;

protected:
    FenProperties* makeChild(QString const& name, QString const& type) override;

private:
    FenChartAxis* set(unsigned slot, QString const& name, QString const& type);
    void place(unsigned slot, FenChartAxis* axis);
    void vacate(FenProperties const* child);

    Comp _comp;
    FenChartAxis* _slots[2] = {nullptr, nullptr};
};
