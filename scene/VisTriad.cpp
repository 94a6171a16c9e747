#include "scene/VisTriad.h"

#include "framework/DrawContext.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/select/VisOglSelectBuffer.h"
#include "picking/select/VisPickScope.h"
#include "scene/NodeLighting.h"
#include "scene/VisTriad.handler.h"
#include "services/opengl/BoxPlacement.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/OglText.h"
#include "services/opengl/PixelRatio.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

using Kes::Math::Matrix;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace {

// Lengths in halves of the viewport: an arrow with its label stays inside in every direction.
constexpr float shaftLength = 0.36f;
constexpr float tipLength = 0.26f;
constexpr float labelDistance = 0.8f;
constexpr double shaftRadius = 0.065;
constexpr double tipRadius = 0.18;

constexpr int labelMargin = 2; // [px] between the text of the isometric view and the corner
constexpr unsigned pickBuffer = 10; // hits
constexpr QColor highlightColor(255, 170, 0);
constexpr QColor isoColor(110, 110, 110);

/// True while the three axes point equally far to or from the viewer.
bool isometric(Matrix const& orientation)
{
    constexpr float tolerance = 0.01f;
    float const third = std::sqrt(1.0f / 3.0f);
    return std::abs(std::abs(orientation(2, 0)) - third) < tolerance
        && std::abs(std::abs(orientation(2, 1)) - third) < tolerance
        && std::abs(std::abs(orientation(2, 2)) - third) < tolerance;
}

/// Empties the depth buffer below the triad: it is drawn over the scene.
void clearDepth(FenOglViewport const& area)
{
    fen::AttribScope const attributes(GL_SCISSOR_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_SCISSOR_TEST);
    fen::scissor(area.x(), area.y(), area.width(), area.height());
    glDepthMask(GL_TRUE);
    glClearDepth(1);
    glClear(GL_DEPTH_BUFFER_BIT);
}

/// A cube from -1 to 1 in the middle of the viewport: the camera's zoom is not for the triad.
Matrix projectionFor(FenOglViewport const& viewport)
{
    float const side = float(std::min(viewport.width(), viewport.height()));
    return Matrix::scaling(
        Vector3(side / float(viewport.width()), side / float(viewport.height()), -0.5f));
}

void drawArrow(Vector3 const& end, Vector3 const& tip)
{
    FenOglGeometry::drawSolidCylinder(Vector3(), end, shaftRadius, shaftRadius, 0, 0);
    FenOglGeometry::drawSolidCone(end, end + tip, tipRadius);
}

} // namespace

/// One of the six directions.
struct FenVisTriad::Arrow {
    QString label;
    Vector3 direction;
    QColor color;
};

QString const FenVisTriad::typeString = QStringLiteral("visualization.triad");

FenVisTriad::FenVisTriad(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , labelPosX(*this, "labelPosX", "X", QString())
    , labelPosY(*this, "labelPosY", "Y", QString())
    , labelPosZ(*this, "labelPosZ", "Z", QString())
    , labelNegX(*this, "labelNegX", "-X", QString())
    , labelNegY(*this, "labelNegY", "-Y", QString())
    , labelNegZ(*this, "labelNegZ", "-Z", QString())
    , labelISO(*this, "labelISO", "iso", QString())
    , viewport(group)
    , pixelSize(*this, "size", 65, QString())
    , _handler(boost::make_shared<HitDetectEventHandler>(*this))
{
    insert(&viewport, true);
    rename(typeString);
    setType(typeString);
    layer.set(1000);
    selectable.set(true);
}

FenVisTriad::FenVisTriad(FenVisTriad const& other)
    : FenVisPassiveNode(other)
    , labelPosX(*this, other.labelPosX)
    , labelPosY(*this, other.labelPosY)
    , labelPosZ(*this, other.labelPosZ)
    , labelNegX(*this, other.labelNegX)
    , labelNegY(*this, other.labelNegY)
    , labelNegZ(*this, other.labelNegZ)
    , labelISO(*this, other.labelISO)
    , viewport(other.viewport)
    , pixelSize(*this, other.pixelSize)
    , _handler(boost::make_shared<HitDetectEventHandler>(*this))
{
    insert(&viewport, true);
    rename(typeString);
    setType(typeString);
}

FenVisTriad& FenVisTriad::operator=(FenVisTriad const& other)
{
    if (this == &other) return *this;
    FenVisPassiveNode::operator=(other); // with the texts and the size
    viewport = other.viewport;
    return *this; // the handler stays: it is about this node
}

FenVisTriad::~FenVisTriad() = default;

bool FenVisTriad::getViewport(FenOglViewport const& parent, FenOglViewport& own) const
{
    bool const untouched = viewport.width.get() == 1.0 && viewport.height.get() == 1.0;
    int const side = std::min({pixelSize.get(), parent.width(), parent.height()});
    fen::BoxPlacement const place =
        untouched ? fen::BoxPlacement(viewport, QSize(side, side)) : fen::BoxPlacement(viewport);
    own = untouched && side < 2 ? FenOglViewport() : place.within(parent);
    return true;
}

std::vector<FenVisTriad::Arrow> FenVisTriad::arrows() const
{
    // Red, green and blue for x, y and z; the negative directions show only while they are hovered.
    return {{labelPosX.get(), Vector3(1, 0, 0), QColor(205, 55, 50)},
            {labelPosY.get(), Vector3(0, 1, 0), QColor(45, 150, 65)},
            {labelPosZ.get(), Vector3(0, 0, 1), QColor(55, 95, 215)},
            {labelNegX.get(), Vector3(-1, 0, 0), Qt::transparent},
            {labelNegY.get(), Vector3(0, -1, 0), Qt::transparent},
            {labelNegZ.get(), Vector3(0, 0, -1), Qt::transparent}};
}

bool FenVisTriad::hovers(QString const& label) const
{
    QString const hovered = _handler->hoveredLabel();
    return !hovered.isNull() && hovered == label;
}

void FenVisTriad::drawAxis(QString const& label, Vector3 const& end, Vector3 const& tip, QColor const& color,
                           QColor const& highlight, FenOglGeometry&, FenVisOglSelectWeakPtr select) const
{
    FenVisPickScope const name(select, hitProperties(), [&] {
        return FenVisHitProperty(this, boost::make_shared<FenVisHitLabelQualifier>(label));
    });
    bool const highlighted = !select && hovers(label);
    if (!highlighted && color.alpha() == 0) return;
    glColor(highlighted ? highlight : color);
    drawArrow(end, tip);
}

void FenVisTriad::drawTriad3D(DrawContext const& context, FenVisOglSelectWeakPtr select) const
{
    fen::NodeLighting const lit(*this, context);
    fen::MatrixScope const matrix(GL_MODELVIEW);
    glLoadMatrix(_orientation); // of the scene the triad shows only how it is turned
    for (Arrow const& arrow : arrows())
        drawAxis(arrow.label, arrow.direction * shaftLength, arrow.direction * tipLength, arrow.color,
                 highlightColor, context.geometry, select);
}

void FenVisTriad::drawOutline() const
{
    for (Arrow const& arrow : arrows())
        if (arrow.color.alpha() > 0) drawArrow(arrow.direction * shaftLength, arrow.direction * tipLength);
}

void FenVisTriad::drawTriad2D(DrawContext const& context) const
{
    Vector2 const half(float(context.viewport.width()) / 2, float(context.viewport.height()) / 2);
    float const unit = std::min(half.x(), half.y());
    FenOglText& text = context.text;
    text.clear();
    FenOglTextBatch const batch(text);
    text.setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    for (Arrow const& arrow : arrows()) {
        bool const highlighted = hovers(arrow.label);
        if (!highlighted && arrow.color.alpha() == 0) continue;
        Vector3 const place = _orientation * (arrow.direction * labelDistance);
        text.setColor(highlighted ? highlightColor : arrow.color);
        text.draw(half + Vector2(place.x(), place.y()) * unit, arrow.label);
    }
    if (!isometric(_orientation)) return;
    text.setAlignment(Qt::AlignRight | Qt::AlignBottom);
    text.setColor(isoColor);
    text.draw(QPoint(labelMargin, context.viewport.height() - labelMargin), labelISO.get());
}

void FenVisTriad::draw3d(DrawContext const& context) const
{
    if (context.flags & KeepLightingFlag) {
        drawOutline();
        return;
    }
    _orientation = context.modelView.orientation();
    clearDepth(context.viewport);
    fen::MatrixScope const projection(GL_PROJECTION);
    glLoadMatrix(projectionFor(context.viewport));
    drawTriad3D(context, FenVisOglSelectWeakPtr());
}

void FenVisTriad::draw2d(DrawContext const& context) const { drawTriad2D(context); }

FenVisHitRecordList FenVisTriad::select3d(SelectContext const& context) const
{
    hitProperties().clear();
    _orientation = context.modelView.orientation();
    FenVisOglSelectBuffer buffer(pickBuffer);
    SelectContext own(context);
    own.projection = projectionFor(context.viewport);
    {
        FenVisOglSelect select(own, buffer);
        drawTriad3D(select, select);
    }
    return FenVisHitRecordList(buffer.records(), _handler, this, layer.get());
}
