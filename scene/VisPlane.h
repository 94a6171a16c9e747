#pragma once

#include "../framework/VisPassiveNode.h"
#include "../services/math/Vector3.h"

#include <QStringList>

/// Description of a plane and of how it is to be shown: as clip plane, polygon,
/// grid, solid or wire section, or with vectors. Takes part in no pass: hosts
/// read it and draw what it asks for.
///
/// Follows renames of the nodes that it names.
class FENVIS_EXPORT FenVisPlane : public FenVisPassiveNode {
public:
    static QString const typeString;

    /// Overlays for examining a mesh: its cells with their indices, and its edges.
    class FENVIS_EXPORT Debug : public FenProperties {
    public:
        explicit Debug(FenModifiedGroup& group);
        Debug(Debug const& other);
        Debug& operator=(Debug const&) = default;

        FenPropertyAdaptor<bool> indexCell;
        FenPropertyAdaptor<QColor> indexColor;
        FenPropertyAdaptor<bool> indexSolid;
        FenPropertyAdaptor<bool> meshCell;
        FenPropertyAdaptor<QColor> meshColor;
        FenPropertyAdaptor<bool> meshSolid;
    };

    FenPropertyAdaptor<Kes::Math::Vector3> position; ///< [scene] a point of the plane
    FenPropertyAdaptor<Kes::Math::Vector3> normal; ///< [scene] of any length
    FenPropertyAdaptor<bool> clip; ///< cuts off what lies on the side that the normal points to
    FenPropertyAdaptor<QStringList> clipObjects; ///< siblings that are cut
    FenPropertyAdaptor<bool> polygon;
    FenPropertyAdaptor<QColor> polygonColor;
    FenPropertyAdaptor<bool> grid;
    FenPropertyAdaptor<double> gridMajor; ///< [scene] distance of the strong lines
    FenPropertyAdaptor<QColor> gridMajorColor;
    FenPropertyAdaptor<double> gridMinor; ///< [scene] distance of the faint lines
    FenPropertyAdaptor<QColor> gridMinorColor;
    FenPropertyAdaptor<QString> colorMap; ///< name of a colour map among the siblings
    FenPropertyAdaptor<bool> solid;
    FenPropertyAdaptor<QColor> solidColor;
    FenPropertyAdaptor<double> solidTransparency; ///< [0..1] 0 is opaque
    FenPropertyAdaptor<bool> wireframe;
    FenPropertyAdaptor<QColor> wireframeColor;
    FenPropertyAdaptor<bool> vector;
    FenPropertyAdaptor<QColor> vectorColor;
    FenPropertyAdaptor<QString> vectorVariable; ///< name of the variable whose vectors are shown
    FenPropertyAdaptor<double> vectorScale; ///< length of a vector as a multiple of its value
    Debug debug;

    explicit FenVisPlane(FenModifiedGroup& group);
    FenVisPlane(FenVisPlane const& other);
    FenVisPlane& operator=(FenVisPlane const&) = default;
    ~FenVisPlane() override;

    void onDependentRename(QString const& oldName, QString const& newName) override;
    /// Kept for callers; does nothing.
    void planeCenter();
};
