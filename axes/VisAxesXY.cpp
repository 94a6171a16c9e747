#include "axes/VisAxesXY.h"

#include "framework/DrawContext.h"
#include "services/math/BoundingBox.h"

QString const FenVisAxesXY::typeString = QStringLiteral("visualization.axesXY");

FenVisAxesXY::FenVisAxesXY(FenModifiedGroup& group)
    : FenVisualization(group)
{
    rename(typeString);
    setType(typeString);
}

FenVisAxesXY::FenVisAxesXY(FenVisAxesXY const& other)
    : FenVisualization(other)
{
    rename(typeString);
    setType(typeString);
}

FenVisAxesXY::~FenVisAxesXY() = default;

bool FenVisAxesXY::getViewport(FenOglViewport const&, FenOglViewport&) const { return false; }

void FenVisAxesXY::update(DrawContext const&) { }

void FenVisAxesXY::resize(DrawContext const&) { }

void FenVisAxesXY::draw3d(DrawContext const&) const { }

void FenVisAxesXY::draw2d(DrawContext const&) const { }

FenVisHitRecordList FenVisAxesXY::select3d(SelectContext const&) const { return FenVisHitRecordList(); }

FenVisHitRecordList FenVisAxesXY::select2d(SelectContext const&) const { return FenVisHitRecordList(); }

Kes::Math::BoundingBox FenVisAxesXY::boundingBox() const { return Kes::Math::BoundingBox(); }
