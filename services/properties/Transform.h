#pragma once

#include "../math/Matrix.h"
#include "PropertyAdaptor.h"

/// A placement in space as a property object; the identity by default.
class FENVIS_EXPORT FenTransform : public FenProperties {
public:
    explicit FenTransform(FenModifiedGroup& group);
    FenTransform(FenTransform const& other);
    FenTransform& operator=(FenTransform const&) = default;

    Kes::Math::Matrix matrix() const;

    FenPropertyAdaptor<Kes::Math::Matrix> value; ///< key "matrix"
};
