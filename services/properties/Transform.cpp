#include "services/properties/Transform.h"

FenTransform::FenTransform(FenModifiedGroup& group)
    : FenProperties(group)
    , value(*this, "matrix", Kes::Math::Matrix::Identity, QString())
{
    rename("transform");
    setType("transform");
}

FenTransform::FenTransform(FenTransform const& other)
    : FenProperties(other)
    , value(*this, other.value)
{
}

Kes::Math::Matrix FenTransform::matrix() const { return value.get(); }
