#include "framework/VisPassiveNode.h"

#include "services/math/BoundingBox.h"

FenVisPassiveNode::~FenVisPassiveNode() = default;

bool FenVisPassiveNode::getViewport(FenOglViewport const&, FenOglViewport&) const { return false; }
void FenVisPassiveNode::update(DrawContext const&) { }
void FenVisPassiveNode::resize(DrawContext const&) { }
void FenVisPassiveNode::draw3d(DrawContext const&) const { }
void FenVisPassiveNode::draw2d(DrawContext const&) const { }
FenVisHitRecordList FenVisPassiveNode::select3d(SelectContext const&) const { return FenVisHitRecordList(); }
FenVisHitRecordList FenVisPassiveNode::select2d(SelectContext const&) const { return FenVisHitRecordList(); }
Kes::Math::BoundingBox FenVisPassiveNode::boundingBox() const { return Kes::Math::BoundingBox(); }
