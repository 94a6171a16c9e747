#pragma once

#include "../framework/VisPassiveNode.h"
#include "../picking/select/VisOglSelect.h"
#include "../services/logging/Export.h"
#include "../services/math/BoundingBox.h"
#include "../services/math/Matrix.h"
#include "../services/math/Vector2.h"
#include "../services/opengl/OglViewport.h"
#include "../services/properties/ViewPtr.h"

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

class FenChart;
class FenChartAxis;
class FenChartAxisContinuous;
class FenChartVariableListCache;
class FenOglText;
class FenVisChart2D;
class FenVisChart3D;

namespace Kes::Math {
class Segment;
}
namespace fen {
struct AxisDivisions;
struct Tick;
} // namespace fen

/// Axis lines, grid, ticks, labels and titles of the box of a three-dimensional chart.
///
/// The axis lines start at the minimum corner of the box; hidden parts of them are dotted. Labels stand on
/// the outline of the box on the screen, outside, chosen anew for every frame. A discrete axis has an
/// interval per label, from one division to the next; its data and its label stand in the middle of it.
///
/// Owns nothing: both updates copy what they need from the chart that it belongs to and point at the axes,
/// which may go meanwhile. Takes part in no pass of its own; the chart calls `Draw`.
class FENVIS_EXPORT FenVisAxesXYZ : public FenVisPassiveNode {
public:
    static QString const typeString;

    class Projector;

    explicit FenVisAxesXYZ(FenModifiedGroup& group);
    FenVisAxesXYZ(FenVisAxesXYZ const& other);
    /// Takes the settings, not what the updates of the other chart left.
    FenVisAxesXYZ& operator=(FenVisAxesXYZ const& other);
    ~FenVisAxesXYZ() override;

    /// Takes box, scaling and offset of a chart, its axes, and the units after their titles.
    void Update(FenVisChart3D const& chart, FenChartAxisContinuous const* x, FenChartAxisContinuous const* y,
                FenChartAxisContinuous const* z, QString const& xUnit, QString const& yUnit,
                QString const& zUnit);
    /// The same for the depth view of a 2D chart: the axes of its first variable, and along z an interval
    /// for each variable, under its name.
    void Update(FenVisChart2D const& chart, FenChartVariableListCache const& variables);

    /// Draws into the viewport of the context, in the matrices in force. With a live select handle only
    /// the axis lines are drawn, each under a name in the hit table of the chart's node.
    /// @param highlight  the axis that owns it glows
    void Draw(DrawContext const& context, FenChart const* chart, FenVisOglSelectWeakPtr select,
              FenVisHitProperty const& highlight) const;

    /// The divisions of the discrete axes on the box's edges from its minimum corner [scene]: the ends of
    /// the intervals, one more than there are labels; none for an axis of numbers.
    void GetDiscreteDivs(DrawContext const& context, std::vector<Kes::Math::Vector3>& x,
                         std::vector<Kes::Math::Vector3>& y, std::vector<Kes::Math::Vector3>& z) const;

private:
    typedef Kes::Math::Vector3 Vector3;
    typedef Kes::Math::Vector2 Vector2;
    /// What is drawn along one axis in one frame.
    struct Ruler;

    void reset();
    FenChartAxis const* axis(unsigned k) const { return _axes[k].get(); }
    FenChartAxis const* styleOf(unsigned k) const;
    Vector3 axisEnd(unsigned k) const;

    // VisAxesXYZ.divisions.cpp
    std::vector<Ruler> makeRulers(DrawContext const& context, Projector const& projector) const;
    fen::AxisDivisions CalcAxisDivs(Kes::Math::Segment const& edge, int p_divisions,
                                    Projector const& projector) const;
    fen::AxisDivisions CalcContAxisDivs(Kes::Math::Segment const& edge, Vector3::Comp k, unsigned count,
                                        Kes::Math::NumberFormat const& format,
                                        Projector const& projector) const;
    static unsigned CalcDivsCount(Projector const& projector);

    // VisAxesXYZ.draw.cpp
    void DrawAxes(DrawContext const& context, FenVisOglSelectWeakPtr select,
                  FenVisHitProperty const& highlight) const;
    void drawAxisLines() const;
    void DrawGridLines(std::vector<Vector3> const& points, Vector3 const& a, Vector3 const& b,
                       Vector3 const& origin, QColor const& color, Vector3::Comp k) const;

    // VisAxesXYZ.labels.cpp
    void DrawAxisLabels(FenOglText& text, Ruler const& ruler) const;
    static std::vector<fen::Tick> placeTicks(FenOglText const& text, Ruler const& ruler);
    static void DrawLabel(FenOglText& text, QString const& label, Vector2 const& anchor,
                          Vector2 const& outward);
    static void drawTitle(FenOglText& text, Ruler const& ruler, QString const& title, float labelDepth);

    Vector3 _scaling{1, 1, 1};
    Vector3 _offset;
    std::array<QString, 3> _units;
    Kes::Math::BoundingBox _bounds; // [scene]
    std::array<fen::view_ptr<FenChartAxis const>, 3> _axes; // z null in a depth view
    std::array<QStringList, 3> _discreteLabels; // not empty: a discrete axis
    fen::view_ptr<FenProperties const> _chart;
    fen::view_ptr<FenVisualization const> _node; // its hit table takes the names
};

/// From the scene to the pixels of a viewport, with the matrices of one frame.
class FENVIS_EXPORT FenVisAxesXYZ::Projector {
public:
    Projector(Kes::Math::Matrix const& modelView, Kes::Math::Matrix const& projection,
              FenOglViewport const& viewport);

    Kes::Math::Matrix const& modelView() const { return _modelView; }
    FenOglViewport const& viewport() const { return _viewport; }
    /// x, y [px] and depth [depth].
    Kes::Math::Vector3 project(Kes::Math::Vector3 const& point) const;
    /// x, y [px]; NaN for a point that is not in front of the eye.
    Kes::Math::Vector2 onScreen(Kes::Math::Vector3 const& point) const;

private:
    Kes::Math::Matrix _modelView;
    Kes::Math::Matrix _projection;
    Kes::Math::Matrix _toClip;
    FenOglViewport _viewport;
};
