#pragma once

#include "../logging/Export.h"
#include "Vector3.h"

class QString;

/// Walks over sample points, starting before the first.
class FENVIS_EXPORT IVariableIter {
public:
    virtual ~IVariableIter() = default;

    /// Back to before the first point.
    virtual void Reset() = 0;
    /// To the next point; false at the end.
    virtual bool MoveNext() = 0;
    /// [data] the point; components that are undefined have no meaning.
    virtual Kes::Math::Vector3 Current() const = 0;
    virtual bool IsUndefined(Kes::Math::Vector3::Comp component) const = 0;
    virtual QString Unit(Kes::Math::Vector3::Comp component) const = 0;
};
