#include "scene/VisViewpoint.h"

QString const FenVisViewpoint::typeString = QStringLiteral("visualization.viewpoint");

FenVisViewpoint::FenVisViewpoint(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , modelView(*this, "modelView", Kes::Math::Matrix(), QString())
{
    rename(typeString);
    setType(typeString);
}

FenVisViewpoint::FenVisViewpoint(FenVisViewpoint const& other)
    : FenVisPassiveNode(other)
    , modelView(*this, other.modelView)
{
    rename(typeString);
    setType(typeString);
}

FenVisViewpoint::~FenVisViewpoint() = default;
