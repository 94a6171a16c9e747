#include "apps/fenvis/Drawing.h"

#include "host/Limits.h"
#include "host/camera/Camera.h"
#include "host/headless/OffscreenContext.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"

#include "services/math/BoundingBox.h"

#include <QBuffer>
#include <QCommandLineParser>
#include <QRegularExpression>

#include <cmath>

command::PictureOptions::PictureOptions()
    : theme(&FenTheme::light())
{
}

QList<QCommandLineOption> command::PictureOptions::options()
{
    return {
        {QStringLiteral("size"), QStringLiteral("in pixels; default 1280x800"), QStringLiteral("WxH")},
        {QStringLiteral("scale"), QStringLiteral("the same layout with S times the pixels; default 1"),
         QStringLiteral("S")},
        {QStringLiteral("view"), QStringLiteral("of a 3D chart: front, back, left, right, top, bottom, iso"),
         QStringLiteral("V")},
        {QStringLiteral("azimuth"), QStringLiteral("of the 3D view in degrees: 0 front, 90 right"),
         QStringLiteral("DEG")},
        {QStringLiteral("elevation"), QStringLiteral("of the 3D view in degrees, -90 to 90: 90 looks down"),
         QStringLiteral("DEG")},
        {QStringLiteral("zoom"), QStringLiteral("of the 3D view; 1: all of it fits"), QStringLiteral("F")},
        {QStringLiteral("perspective"), QStringLiteral("3D charts in perspective")},
        {QStringLiteral("samples"), QStringLiteral("per pixel, for smooth edges in 3D; default 4"),
         QStringLiteral("N")},
        {QStringLiteral("theme"), QStringLiteral("light or dark; default light"), QStringLiteral("T")},
    };
}

void command::PictureOptions::readCamera(QCommandLineParser const& parser, QString& error)
{
    auto const number = [&](char const* name, double least, double most, auto& target) {
        QString const key = QString::fromLatin1(name);
        if (!parser.isSet(key)) return;
        bool good = false;
        double const value = parser.value(key).toDouble(&good);
        if (good && value >= least && value <= most)
            target = value;
        else
            error = QStringLiteral("--%1: expected a number from %2 to %3").arg(key).arg(least).arg(most);
    };
    number("azimuth", -360, 360, azimuth);
    number("elevation", -90, 90, elevation);
    number("zoom", 0.1, 100, zoom);
    std::optional<double> perPixel;
    number("samples", 0, 16, perPixel);
    if (perPixel) samples = int(*perPixel);
    perspective = parser.isSet(QStringLiteral("perspective"));
    static QStringList const views{QStringLiteral("front"), QStringLiteral("back"), QStringLiteral("left"),
                                   QStringLiteral("right"), QStringLiteral("top"),  QStringLiteral("bottom"),
                                   QStringLiteral("iso")};
    view = parser.value(QStringLiteral("view"));
    if (parser.isSet(QStringLiteral("view")) && !views.contains(view))
        error = QStringLiteral("--view: expected one of: ") + views.join(QStringLiteral(", "));
}

bool command::PictureOptions::read(QCommandLineParser const& parser, QString& error)
{
    if (parser.isSet(QStringLiteral("size"))) {
        static QRegularExpression const pattern(QStringLiteral("^([0-9]{1,9})x([0-9]{1,9})$"));
        QRegularExpressionMatch const match = pattern.match(parser.value(QStringLiteral("size")));
        if (!match.hasMatch()) error = QStringLiteral("--size: expected a size such as 1280x800");
        size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    }
    if (parser.isSet(QStringLiteral("scale"))) {
        bool number = false;
        scale = parser.value(QStringLiteral("scale")).toDouble(&number);
        if (!number || !std::isfinite(scale)) error = QStringLiteral("--scale: expected a number");
    }
    if (parser.isSet(QStringLiteral("theme"))) {
        theme = FenTheme::find(parser.value(QStringLiteral("theme")));
        if (!theme) error = QStringLiteral("--theme: expected one of: light, dark");
    }
    readCamera(parser, error);
    return error.isEmpty();
}

QSize command::PictureOptions::deviceSize() const
{
    double const most = 2.0 * double(fen::limits::pictureSide); // keeps the product an integer
    auto const side = [&](int pixels) { return int(std::lround(std::min(pixels * scale, most))); };
    return {side(size.width()), side(size.height())};
}

QString command::PictureOptions::sizeError() const
{
    QSize const device = deviceSize();
    bool const small =
        size.width() < 1 || size.height() < 1 || !(scale > 0) || device.width() < 1 || device.height() < 1;
    bool const large = std::max(device.width(), device.height()) > fen::limits::pictureSide;
    if (!small && !large) return {};
    return QStringLiteral(
               "fenvis: a picture of %1x%2 at scale %3 cannot be drawn: from 1 to %4 pixels a side")
        .arg(size.width())
        .arg(size.height())
        .arg(scale)
        .arg(fen::limits::pictureSide);
}

namespace {

constexpr int defaultSamples = 4;

/// The surroundings of an application without windows.
int& withoutDisplay(int& argc)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return argc;
}

} // namespace

command::Canvas::Canvas(int& argc, char** argv)
    : _application(withoutDisplay(argc), argv)
{
}

command::Canvas::~Canvas() = default;

bool command::Canvas::prepare(PictureOptions const& options, QString& error)
{
    error = options.sizeError();
    if (!error.isEmpty()) return false;
    _context = std::make_unique<FenOffscreenContext>(options.deviceSize());
    if (!_context->valid())
        error = QStringLiteral("fenvis: cannot draw: ") + _context->error();
    else if (_context->size() != options.deviceSize())
        error = QStringLiteral("fenvis: the driver cannot draw more than %1x%2 pixels")
                    .arg(_context->size().width())
                    .arg(_context->size().height());
    return error.isEmpty();
}

QImage command::Canvas::draw(FenVisScene& scene, PictureOptions const& options)
{
    scene.resize(options.size, options.scale);
    scene.update();
    FenCamera camera(scene);
    if (!options.view.isEmpty()) camera.look(options.view);
    if (options.azimuth || options.elevation)
        camera.turn(options.azimuth.value_or(camera.azimuth()),
                    options.elevation.value_or(camera.elevation()));
    if (options.zoom) camera.zoomTo(*options.zoom);
    if (options.perspective) camera.setPerspective(true);
    bool const flat = !scene.root().boundingBox().defined();
    _context->setSamples(options.samples.value_or(flat ? 0 : defaultSamples));
    scene.update();
    scene.draw();
    return _context->grab();
}

QByteArray command::pngBytes(QImage const& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    bool const written = image.convertToFormat(QImage::Format_RGB32).save(&buffer, "PNG");
    return written ? bytes : QByteArray();
}
