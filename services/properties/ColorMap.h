#pragma once

#include "PropertyAdaptor.h"

#include <QColor>
#include <QList>

/// Colours by value: a list of colours spread evenly over a range.
class FENVIS_EXPORT FenColorMap : public FenProperties {
public:
    explicit FenColorMap(FenModifiedGroup& group);
    FenColorMap(FenColorMap const& other);
    FenColorMap& operator=(FenColorMap const&) = default;

    /// Linear between the two nearest colours, alpha included; the outermost colours beyond the
    /// range, black without colours and for NaN. A range may run downwards; in one of no extent
    /// all up to it take the first colour, all above it the last.
    /// @param value  [data]
    QColor color(double value) const;

    FenPropertyAdaptor<QList<QColor>> colors; ///< at `min` first
    FenPropertyAdaptor<double> min; ///< [data]
    FenPropertyAdaptor<double> max; ///< [data]
};
