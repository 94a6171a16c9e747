#pragma once

#include "../services/logging/Export.h"

class FenProperties;
class QString;

/// The host's editor, through which nodes write values back into the tree.
///
/// Held by shared pointers that know the concrete class, never deleted through
/// this one. Every write stands between a `beginEdit` and an `endEdit`; writes
/// inside one bracket belong together.
class FENVIS_EXPORT IFenVisPropertyEdit {
public:
    virtual void beginEdit() = 0;
    /// Sets one key of `item`.
    /// @param chart  the chart data object
    /// @param item   the axis or variable inside it
    /// @param value  as stored; numbers with 6 significant digits
    virtual void editProperty(FenProperties& chart, FenProperties& item, QString const& key,
                              QString const& value) = 0;
    virtual void endEdit() = 0;

protected:
    ~IFenVisPropertyEdit() = default;
};
