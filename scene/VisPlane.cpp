#include "scene/VisPlane.h"

#include "services/properties/SiblingName.h"

QString const FenVisPlane::typeString = QStringLiteral("visualization.plane");

FenVisPlane::Debug::Debug(FenModifiedGroup& group)
    : FenProperties(group)
    , indexCell(*this, "indexCell", false, QString())
    , indexColor(*this, "indexColor", Qt::white, QString())
    , indexSolid(*this, "indexSolid", false, QString())
    , meshCell(*this, "meshCell", false, QString())
    , meshColor(*this, "meshColor", Qt::white, QString())
    , meshSolid(*this, "meshSolid", false, QString())
{
    rename(QStringLiteral("debug"));
    setType(QStringLiteral("debug"));
}

FenVisPlane::Debug::Debug(Debug const& other)
    : FenProperties(other)
    , indexCell(*this, other.indexCell)
    , indexColor(*this, other.indexColor)
    , indexSolid(*this, other.indexSolid)
    , meshCell(*this, other.meshCell)
    , meshColor(*this, other.meshColor)
    , meshSolid(*this, other.meshSolid)
{
}

FenVisPlane::FenVisPlane(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , position(*this, "position", Kes::Math::Vector0, QString())
    , normal(*this, "normal", Kes::Math::VectorZ, QString())
    , clip(*this, "clip", false, QString())
    , clipObjects(*this, "clipObjects", QStringList(), QString())
    , polygon(*this, "polygon", true, QString())
    , polygonColor(*this, "polygonColor", Qt::white, QString())
    , grid(*this, "grid", false, QString())
    , gridMajor(*this, "gridMajor", 1.0, QString())
    , gridMajorColor(*this, "gridMajorColor", Qt::blue, QString())
    , gridMinor(*this, "gridMinor", 0.1, QString())
    , gridMinorColor(*this, "gridMinorColor", Qt::cyan, QString())
    , colorMap(*this, "colorMap", QString(), QString())
    , solid(*this, "solid", true, QString())
    , solidColor(*this, "solidColor", Qt::blue, QString())
    , solidTransparency(*this, "solidTransparency", 0.0, QString())
    , wireframe(*this, "wireframe", true, QString())
    , wireframeColor(*this, "wireframeColor", Qt::cyan, QString())
    , vector(*this, "vector", false, QString())
    , vectorColor(*this, "vectorColor", Qt::white, QString())
    , vectorVariable(*this, "vectorVariable", QString(), QString())
    , vectorScale(*this, "vectorScale", 1.0, QString())
    , debug(group)
{
    rename(typeString);
    setType(typeString);
    insert(&debug, true);
}

FenVisPlane::FenVisPlane(FenVisPlane const& other)
    : FenVisPassiveNode(other)
    , position(*this, other.position)
    , normal(*this, other.normal)
    , clip(*this, other.clip)
    , clipObjects(*this, other.clipObjects)
    , polygon(*this, other.polygon)
    , polygonColor(*this, other.polygonColor)
    , grid(*this, other.grid)
    , gridMajor(*this, other.gridMajor)
    , gridMajorColor(*this, other.gridMajorColor)
    , gridMinor(*this, other.gridMinor)
    , gridMinorColor(*this, other.gridMinorColor)
    , colorMap(*this, other.colorMap)
    , solid(*this, other.solid)
    , solidColor(*this, other.solidColor)
    , solidTransparency(*this, other.solidTransparency)
    , wireframe(*this, other.wireframe)
    , wireframeColor(*this, other.wireframeColor)
    , vector(*this, other.vector)
    , vectorColor(*this, other.vectorColor)
    , vectorVariable(*this, other.vectorVariable)
    , vectorScale(*this, other.vectorScale)
    , debug(other.debug)
{
    rename(typeString);
    setType(typeString);
    insert(&debug, true);
}

FenVisPlane::~FenVisPlane() = default;

void FenVisPlane::onDependentRename(QString const& oldName, QString const& newName)
{
    FenVisPassiveNode::onDependentRename(oldName, newName);
    fen::followRename(clipObjects, oldName, newName);
    fen::followRename(colorMap, oldName, newName);
}

void FenVisPlane::planeCenter() { }
