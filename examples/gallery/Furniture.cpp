#include "examples/gallery/Gallery.h"

#include "host/camera/Camera.h"
#include "host/scene/Scene.h"

#include "framework/DrawContext.h"
#include "scene/Vis2DTest.h"
#include "scene/VisAnnotation.h"
#include "scene/VisImage.h"
#include "scene/VisLight.h"
#include "scene/VisLightList.h"
#include "scene/VisPlane.h"
#include "scene/VisShadowPlane.h"
#include "scene/VisTeapot.h"
#include "scene/VisText.h"
#include "scene/VisTriad.h"
#include "scene/VisViewpoint.h"
#include "services/math/Matrix.h"
#include "services/opengl/OglText.h"
#include "services/opengl/Resource.h"

using Kes::Math::Matrix;
using Kes::Math::Vector3;

namespace {

/// An annotation with lines of text: what a class that derives from it has to do.
class Note : public FenVisAnnotation {
public:
    using FenVisAnnotation::FenVisAnnotation;

    QStringList lines;

    void doDraw2d(DrawContext const& context) const override
    {
        constexpr int margin = 6; // [px]
        context.text.clear();
        context.text.setPointSize(9);
        context.text.setColor(QColor(70, 62, 30));
        context.text.setAlignment(Qt::AlignRight | Qt::AlignBottom);
        FenOglTextBatch const batch(context.text);
        int y = context.viewport.height() - margin;
        for (QString const& line : lines) {
            context.text.draw(QPoint(margin, y), line);
            y -= context.text.height() + 2;
        }
    }
};

/// From the colour of a clear sky to white, from the top down.
QImage skyPicture()
{
    constexpr int height = 128;
    QImage sky(1, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        int const part = 255 * y / height;
        sky.setPixelColor(0, y, QColor(200 + part * 55 / 255, 222 + part * 33 / 255, 245 + part * 10 / 255));
    }
    return sky;
}

void addLight(FenVisScene& scene, QString const& name, Vector3 const& place, QColor const& color)
{
    FenVisLight& light = scene.lights().child(name, FenVisLight::typeString);
    light.enabled.set(true);
    light.position.set(place);
    light.diffuse.set(color);
    light.specular.set(Qt::black);
}

} // namespace

/// Furnishes a chart: a picture behind it, a logo, and a note that can be moved and resized.
void gallery::furnishChart(FenVisScene& scene)
{
    scene.resource().setImage(QStringLiteral("sky"), skyPicture());
    FenVisImage& sky = scene.add<FenVisImage>(QStringLiteral("sky"));
    sky.texture.set(QStringLiteral("sky"));
    sky.layer.set(-1); // below the chart

    FenVisText& logo = scene.add<FenVisText>(QStringLiteral("logo"));
    logo.text.set({QStringLiteral("<b>Fen<font color=\"#e69f00\">Vis")});
    logo.color.set(QColor(0, 80, 140));
    logo.shadow.set(QColor(255, 255, 255, 200));
    logo.fontSize.set(18);

    Note& note = scene.add<Note>(QStringLiteral("note"));
    note.lines = QStringList{QStringLiteral("Each spring the forests of the north wake up"),
                             QStringLiteral("and take in carbon dioxide: a wave of 6 ppm"),
                             QStringLiteral("a year upon the rise.")};
    note.viewport.placement.set(QStringLiteral("topLeft"));
    note.viewport.x.set(90);
    note.viewport.y.set(70);
    note.viewport.width.set(300);
    note.viewport.height.set(58);
    note.backgroundColor.set(QColor(255, 250, 222, 235));
    note.borderColor.set(QColor(176, 158, 96));
    note.borderSize.set(1);
    note.moveable.set(true);
    note.resizeable.set(true);
}

/// Texts in pixels: boxed ones on every side of an anchor, and marks at known places.
void gallery::buildTextPlacement(FenVisScene& scene)
{
    FenVis2DTest& test = scene.add<FenVis2DTest>(QStringLiteral("placement"));
    test.color.set(QColor(190, 40, 40));
}

/// A white teapot under three coloured lights, and the directions of the axes.
void gallery::buildTeapotLights(FenVisScene& scene)
{
    scene.background.set(QColor(24, 26, 30));
    scene.add<FenVisTeapot>(QStringLiteral("teapot"));
    FenVisTriad& triad = scene.add<FenVisTriad>(QStringLiteral("triad"));
    triad.pixelSize.set(90);
    // In eye coordinates: x to the right, y up, z to the viewer.
    addLight(scene, QStringLiteral("red"), Vector3(-25, 4, 8), QColor(210, 40, 30));
    addLight(scene, QStringLiteral("green"), Vector3(0, 30, -2), QColor(30, 150, 60));
    addLight(scene, QStringLiteral("blue"), Vector3(25, 2, 8), QColor(40, 80, 220));
}

/// A teapot and its shadow on the floor that it stands on.
void gallery::buildTeapotShadow(FenVisScene& scene)
{
    FenVisTeapot& teapot = scene.add<FenVisTeapot>(QStringLiteral("teapot"));
    FenVisShadowPlane& shadow = scene.add<FenVisShadowPlane>(QStringLiteral("shadow"));
    shadow.objects.set({teapot.name()});
    shadow.color.set(QColor(20, 30, 60, 110));
    FenVisPlane& floor = scene.add<FenVisPlane>(QStringLiteral("floor"));
    floor.solidColor.set(QColor(236, 232, 222));
    floor.polygonColor.set(QColor(190, 184, 170));
    floor.wireframe.set(false);
    floor.grid.set(true);
    floor.gridMajorColor.set(QColor(205, 199, 186));
    floor.gridMinor.set(0.5);
    floor.gridMinorColor.set(QColor(224, 219, 208));
    FenVisTriad& triad = scene.add<FenVisTriad>(QStringLiteral("triad"));
    triad.pixelSize.set(80);

    // Light and plane are in eye coordinates: the places in the scene are turned as the scene is.
    FenCamera(scene).turn(30, 25);
    Matrix const turned = scene.viewpoint().modelView.get().orientation();
    Vector3 const lightPlace(-3, -3, 18);
    shadow.normal.set(turned * Vector3(0, 0, 1));
    shadow.light.set(turned * lightPlace);
    addLight(scene, QStringLiteral("lamp"), turned * lightPlace, QColor(235, 225, 205));
    addLight(scene, QStringLiteral("sky"), Vector3(0, 0, 30), QColor(60, 66, 80));
}
