#pragma once

#include "../logging/Export.h"
#include "../math/Vector3.h"
#include "VertexArrays.h"

#include <QColor>

#include <memory>
#include <vector>

class FenOglCache;
class QString;

namespace Kes::Math {
class Matrix;
}

/// Stock geometry in model coordinates of the current matrix and, unless a colour
/// is given, in the current colour.
///
/// Everything is drawn from vertex arrays, so it may be recorded and picked.
/// Solids carry outward normals and are wound counter-clockwise. Sizes that are
/// not finite draw nothing.
class FENVIS_EXPORT FenOglGeometry {
public:
    using Vector3 = Kes::Math::Vector3;
    using Matrix = Kes::Math::Matrix;

    FenOglGeometry();

    // Boxes and sections: OglGeometry.boxes.cpp

    static void drawSolidBox(double x0, double y0, double z0, double x1, double y1, double z1);
    static void drawWireBox(double x0, double y0, double z0, double x1, double y1, double z1);
    /// Solid box with texture coordinate t = t0 at z0 and t1 at z1.
    /// @param texCoords  1: s = 0 everywhere (colour ramps); 2: s runs 0..1 along x
    static void drawTexturedBox(unsigned texCoords, double t0, double t1, double x0, double y0, double z0,
                                double x1, double y1, double z1);
    /// Area between the segment and the height `base`, as one triangle strip; where
    /// the segment passes through the base the strip is cut there.
    /// @param count  pieces along the segment, at least 1
    /// @param alongZ  true: the base is a height in z, false: in y
    static void drawSectionSolidTriangleStrip(unsigned count, bool alongZ, double base, double x0, double y0,
                                              double z0, double x1, double y1, double z1);
    /// The same with texture coordinate (0, tBase) at the base, (0, t0) and (0, t1) at the ends.
    static void drawSectionTexturedTriangleStrip(unsigned count, bool alongZ, double base, double x0,
                                                 double y0, double z0, double x1, double y1, double z1,
                                                 double tBase, double t0, double t1);
    /// Rectangle with opposite corners `min` and `max` in a plane of constant z
    /// (that of `min`), transformed by `matrix`.
    static void drawSolidRectangle(Vector3 const& min, Vector3 const& max, Matrix const& matrix);
    static void drawWireRectangle(Vector3 const& min, Vector3 const& max, Matrix const& matrix);

    // Round bodies: OglGeometry.solids.cpp

    static void drawSolidSphere(Vector3 const& center, double radius);
    static void drawWireSphere(Vector3 const& center, double radius);
    /// Cone with a closed base.
    /// @param tip  [scene] position of the tip
    static void drawSolidCone(Vector3 const& base, Vector3 const& tip, double radius);
    /// Cylinder or frustum from a (radius r0) to b (radius r1).
    /// @param hole0, hole1  radii of the holes in its end discs; 0 closes an end
    static void drawSolidCylinder(Vector3 const& a, Vector3 const& b, double r0, double r1, double hole0,
                                  double hole1);

    // Points and highlights: OglGeometry.points.cpp

    /// Plot symbol as point sprite in the current glPointSize.
    /// @param texture  resource name of a symbol atlas
    /// @param outline  a transparent one takes the fill colour
    /// @param smooth  edge pixels are blended; else they are drawn whole or not at all,
    ///                which keeps the depth buffer right for any drawing order
    static void drawTexturedPoint(FenOglCache& cache, Vector3 const& position, QString const& texture,
                                  unsigned symbol, QColor const& color, QColor const& outline, bool smooth);
    /// Many of them with one change of state: faster by far.
    /// @param colors  [one per position] in place of `color`, when given
    static void drawTexturedPoints(FenOglCache& cache, std::vector<Vector3> const& positions,
                                   QString const& texture, unsigned symbol, QColor const& color,
                                   QColor const& outline, bool smooth,
                                   std::vector<fen::Rgba> const& colors = {});
    /// Round glow around a point.
    /// @param width  [px] of the thing that glows
    void drawHighlightedPoint(Vector3 const& position, double width) const;
    /// Glow along a line, widest first.
    /// @param width  [px] of the line that glows
    /// @param closed  joins the last point to the first
    void drawHighlightedLine(double width, std::vector<Vector3> const& points, bool closed = false) const;

    /// [px] how much wider than the thing its glow is; 8 unless set, clamped to 0..64.
    int highlightWidth() const { return _highlightWidth; }
    void setHighlightWidth(int width);
    QColor const& highlightColor() const { return _highlightColor; }
    void setHighlightColor(QColor const& color) { _highlightColor = color; }
    /// Colour of ring n [px wider than the thing] of a glow: the highlight colour at
    /// n = 0, paler and more transparent outwards.
    QColor calcHighlightColorGradient(int n) const;
    /// The same for a colour of the caller's.
    static QColor calcHighlightColorGradient(FenOglGeometry const& geometry, QColor const& color, int n);

    // Data to scene

    /// (point + offset) x scaling per component
    static Vector3 Project(Vector3 const& point, Vector3 const& scaling, Vector3 const& offset);
    static Vector3 Project(double x, double y, double z, Vector3 const& scaling, Vector3 const& offset);
    /// The inverse; a scaling of 0 counts as 1.
    static Vector3 UnProject(Vector3 const& point, Vector3 const& scaling, Vector3 const& offset);
    /// Normal of a surface after Project: divided by the scaling and normalised. A
    /// normal that this leaves without length is returned unchanged.
    static Vector3 ProjectNormal(Vector3 const& normal, Vector3 const& scaling, Vector3 const& offset);

private:
    int _highlightWidth = 8;
    QColor _highlightColor;
    struct Glow;
    mutable std::shared_ptr<Glow> _glow; ///< picture of the last drawHighlightedPoint
};
