#include "services/properties/Viewport.h"

FenViewport::FenViewport(FenModifiedGroup& group)
    : FenProperties(group)
    , placement(*this, "placement", "bottomLeft", QString())
    , x(*this, "x", 0.0, QString())
    , y(*this, "y", 0.0, QString())
    , width(*this, "width", 1.0, QString())
    , height(*this, "height", 1.0, QString())
{
    rename("viewport");
    setType("viewport");
}

FenViewport::FenViewport(FenViewport const& other)
    : FenProperties(other)
    , placement(*this, other.placement)
    , x(*this, other.x)
    , y(*this, other.y)
    , width(*this, other.width)
    , height(*this, other.height)
{
}
