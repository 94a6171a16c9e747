#include "charts/chart2d/VisChart2D.h"
#include "charts/chart2d/DrawnVariable.h"
#include "charts/chart2d/VisChart2D.handler.h"
#include "charts/chart2d/VisChart2D.parts.h"
#include "charts/style/PointText.h"
#include "framework/DrawContext.h"
#include "picking/hits/VisHitProjectedPointQualifier.h"
#include "picking/select/VisPickScope.h"
#include "picking/select/VisWidePick.h"
#include "services/chartdata/ChartAxis.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <numeric>

using Kes::Math::BoundingBox;
using Kes::Math::Matrix;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

// The depth view: each variable stands in an upright sheet of its own, drawn as in the plane. Positions on a
// sheet are those of a data rectangle of `sheetSize`, which its matrix carries into the scene.

namespace {

constexpr int sheetSize = 2000; ///< [px] finer than a screen, so that a closer look shows no steps
constexpr std::size_t mostPoints = 9; ///< names of data points of one variable in a pick

/// [sheet px] to [scene]
Matrix sheetMatrix(BoundingBox const& box, float depth)
{
    Vector3 const size = box.extent();
    return Matrix::translation(Vector3(box.min().x(), box.min().y(), depth))
        * Matrix::scaling(Vector3(size.x() / sheetSize, size.y() / sheetSize, 1));
}

/// A whole axis: numbers between the ends of the box, or categories in equal intervals.
FenChartAxisMapping alongSheet(double low, double high, std::size_t categories)
{
    if (categories > 0) return FenChartAxisMapping(-0.5, double(categories) - 0.5, false);
    return FenChartAxisMapping(low, high, false);
}

/// What of a sheet may lie under a pick region [sheet px]; all of it where the view is along the sheet.
QRectF underPointer(FenVisualization::SelectContext const& context, Matrix const& toEye, float extra)
{
    QRectF const all(0, 0, sheetSize, sheetSize);
    double const dx = 0.5 * (std::max(1, context.size.width()) + double(extra));
    double const dy = 0.5 * (std::max(1, context.size.height()) + double(extra));
    double left = sheetSize, right = 0, bottom = sheetSize, top = 0;
    for (int corner = 0; corner < 4; ++corner) {
        QPointF at;
        if (!fen::onSheet(QPointF(context.point)
                              + QPointF(0.5 + (corner & 1 ? dx : -dx), 0.5 + (corner & 2 ? dy : -dy)),
                          context.viewport, toEye, context.projection, at))
            return all;
        left = std::min(left, at.x());
        right = std::max(right, at.x());
        bottom = std::min(bottom, at.y());
        top = std::max(top, at.y());
    }
    return QRectF(QPointF(left, bottom), QPointF(right, top)) & all;
}

bool isKnown(fen::CurveData const& data, std::size_t point)
{
    return point < data.count && !std::isnan(data.x(point)) && !std::isnan(data.y(point));
}

Vector3 onSheetAt(fen::CurveData const& data, std::size_t point, Matrix const& sheet)
{
    return sheet * Vector3(float(data.x(point)), float(data.y(point)), 0);
}

} // namespace

bool fen::onSheet(QPointF const& point, FenOglViewport const& viewport, Matrix const& toEye,
                  Matrix const& projection, QPointF& sheet)
{
    FenOglViewport const pixels(0, 0, viewport.width(), viewport.height());
    auto const at = [&](float depth) {
        return Vector3(float(point.x()), float(point.y()), depth).unProject(toEye, projection, pixels);
    };
    Vector3 const near = at(0), far = at(1);
    double const way = double(far.z()) - double(near.z());
    // A view along the sheet meets it nowhere, or far outside.
    double const share = way != 0 ? -double(near.z()) / way : -1;
    if (!(share >= 0 && share <= 1)) return false;
    sheet = QPointF(double(near.x()) + share * (double(far.x()) - double(near.x())),
                    double(near.y()) + share * (double(far.y()) - double(near.y())));
    constexpr double farthest = 20 * sheetSize;
    return std::abs(sheet.x()) < farthest && std::abs(sheet.y()) < farthest;
}

/// Pictures of all variables on their sheets.
/// @param box  [scene] before its rim
void FenVisChart2D::makeSheets(DrawContext const& context, BoundingBox const& box)
{
    _sheetBox = box;
    _sheets = _variables;
    Vector3 const low = box.min() / _scaling, high = box.max() / _scaling;
    std::vector<Vector3> x, y, z;
    _axes3d.GetDiscreteDivs(context, x, y, z);
    auto const count = [](std::vector<Vector3> const& divisions) {
        return divisions.empty() ? std::size_t(0) : divisions.size() - 1;
    };
    for (fen::DrawnVariable& one : _sheets) {
        one.x = alongSheet(double(low.x()), double(high.x()), count(x));
        one.y = alongSheet(double(low.y()), double(high.y()), count(y));
        one.discrete = !x.empty();
        // The box holds the data, not what it is measured from.
        one.base = std::clamp(one.base, double(low.y()), double(high.y()));
        one.xAxis = &one; // bars of others stand in front or behind, not beside
    }
    fen::makePictures(_sheets, QSize(sheetSize, sheetSize), context.text);
    _sheetDepths.assign(_sheets.size(), box.center().z());
    // The first variable lies in front, as it lies on top in the plane.
    for (std::size_t i = 0; i < _sheets.size() && _sheets.size() < z.size(); ++i) {
        std::size_t const slot = _sheets.size() - 1 - i;
        _sheetDepths[i] = 0.5f * (z[slot].z() + z[slot + 1].z());
    }
}

void FenVisChart2D::drawSelect3d(DrawContext const& context, QPoint const& mouse,
                                 FenVisOglSelectWeakPtr select) const
{
    if (!chart.view3D.get() || !_bounds.defined()) return;
    Matrix const view = glGetModelViewMatrix();
    _axes3d.Draw(context, &chart, select, _handler->hovered());
    fen::FlatScope const flat;
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    // Lines on an area are to be seen whole.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1, 1);
    std::vector<std::size_t> order(_sheets.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    // Areas may let others shine through: from the eye's far side to its near one.
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return view(2, 2) * _sheetDepths[a] < view(2, 2) * _sheetDepths[b];
    });
    for (std::size_t const i : order) {
        if (!_sheets[i].valid() || !_sheets[i].picture) continue;
        Sheet const sheet{_sheets[i], sheetMatrix(_sheetBox, _sheetDepths[i]), view};
        if (select)
            pickSheet({context, select, mouse, QRectF()}, sheet);
        else
            drawSheet(context, sheet);
    }
}

void FenVisChart2D::drawSheet(DrawContext const& context, Sheet const& sheet) const
{
    fen::VariablePicture const& picture = *sheet.one.picture;
    Highlight const highlight = highlightOf(sheet.one.variable(), false);
    {
        fen::MatrixScope const matrix(GL_MODELVIEW);
        glMultMatrix(sheet.toScene);
        if (highlight.whole()) fen::drawShapeGlow(picture.shape, picture.style, context.geometry);
        fen::drawShape(picture.shape, picture.style, context.cache);
    }
    fen::VariableStyle const& style = picture.style;
    if (highlight.on && !highlight.whole() && isKnown(picture.data, std::size_t(highlight.point)))
        context.geometry.drawHighlightedPoint(
            onSheetAt(picture.data, std::size_t(highlight.point), sheet.toScene), style.symbolSize + 2);
    if (style.symbol < 0) return;
    std::vector<Vector3> places;
    for (std::size_t const point : picture.symbolPoints)
        places.push_back(onSheetAt(picture.data, point, sheet.toScene));
    fen::pointSize(float(style.symbolSize));
    FenOglGeometry::drawTexturedPoints(context.cache, places, plotSymbols, unsigned(style.symbol),
                                       style.symbolColor, style.symbolOutline, false);
}

void FenVisChart2D::pickSheet(Pass const& pass, Sheet const& sheet) const
{
    auto const* const context = dynamic_cast<SelectContext const*>(&pass.context);
    if (!context) return;
    fen::VariablePicture const& picture = *sheet.one.picture;
    Matrix const toEye = sheet.toEye * sheet.toScene;
    QRectF const near = underPointer(*context, toEye, picture.style.stroke.width);
    // Widths are those of the screen: a pixel there is so many on the sheet.
    fen::VariableStyle style = picture.style;
    int const pixels = std::max(1, context->size.width()) + int(style.stroke.width);
    style.stroke.width =
        std::max(1.0f, float(std::min(near.width(), near.height())) * style.stroke.width / float(pixels));
    std::vector<Vector2> const quads = fen::shapeQuads(picture.shape, style, near);
    if (!quads.empty()) {
        FenVisPickScope const name(pass.select, hitProperties(), [&] {
            return FenVisHitProperty(
                &sheet.one.variable(),
                boost::make_shared<FenVisHitProjectedPointQualifier>(
                    toEye, pass.context.projection, pass.context.viewport, pass.mouse, _scaling, _offset));
        });
        fen::MatrixScope const matrix(GL_MODELVIEW);
        glMultMatrix(sheet.toScene);
        fen::drawArray(GL_QUADS, quads);
    }
    pickPoints(pass, *context, sheet, toEye);
}

/// Names the data points under the pointer, a little before the line that they lie on.
void FenVisChart2D::pickPoints(Pass const& pass, SelectContext const& context, Sheet const& sheet,
                               Matrix const& toEye) const
{
    fen::VariablePicture const& picture = *sheet.one.picture;
    bool const symbols = picture.style.symbol >= 0;
    if (!symbols && !picture.style.curveVisible()) return;
    int const size = symbols ? picture.style.symbolSize : 1;
    QRect const area = underPointer(context, toEye, float(size)).toAlignedRect();
    FenVisWidePick const wide(context, size);
    constexpr double before = 0.001; // [depth]
    glDepthRange(0, 1 - before);
    for (std::size_t const point : fen::pointsInside(picture.data, area, mostPoints)) {
        FenVisPickScope const name(pass.select, hitProperties(), [&] {
            return FenVisHitProperty(&sheet.one.variable(), fen::dataPoint(sheet.one.cache, point));
        });
        fen::drawArray(GL_POINTS, std::vector<Vector3>{onSheetAt(picture.data, point, sheet.toScene)});
    }
    glDepthRange(0, 1);
}
