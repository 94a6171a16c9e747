#include "apps/fenvis/Command.h"
#include "apps/fenvis/Drawing.h"

#include "examples/gallery/Gallery.h"
#include "host/output/FileOutput.h"
#include "host/output/MessageText.h"
#include "host/scene/Scene.h"

#include <QCommandLineParser>
#include <QDir>
#include <QRegularExpression>

namespace {

/// A word as a shell takes it.
QString shellWord(QString const& word)
{
    static QRegularExpression const plain(QStringLiteral("^[A-Za-z0-9_./,:=+-]+$"));
    if (plain.match(word).hasMatch()) return word;
    QString quoted = word;
    return QLatin1Char('\'') + quoted.replace(QLatin1Char('\''), QLatin1String("'\\''")) + QLatin1Char('\'');
}

QString shellLine(gallery::Scene const& scene)
{
    QStringList words{QStringLiteral("fenvis"), QStringLiteral("chart")};
    for (QString const& word : scene.command) words.append(shellWord(word));
    words += {QStringLiteral("-o"), scene.name + QStringLiteral(".png")};
    return words.join(QLatin1Char(' '));
}

/// What was asked for besides the scenes themselves.
QString pictureWords(command::PictureOptions const& picture)
{
    QString words;
    if (picture.size != command::PictureOptions().size)
        words += QStringLiteral(" --size %1x%2").arg(picture.size.width()).arg(picture.size.height());
    if (picture.scale != 1) words += QStringLiteral(" --scale %1").arg(picture.scale);
    return words;
}

QString page(command::PictureOptions const& picture)
{
    QString text = QStringLiteral(
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<title>FenVis gallery</title>\n<style>\n"
        "body { font: 15px sans-serif; max-width: 1400px; margin: 2em auto; padding: 0 1em; }\n"
        "main { display: grid; grid-template-columns: 1fr 1fr; gap: 2em; }\n"
        "figure { margin: 0; min-width: 0; }\n"
        "img { width: 100%; border: 1px solid #ddd; }\n"
        "pre { font-size: 12px; white-space: pre-wrap; background: #f4f4f4; padding: 0.6em; }\n"
        "</style>\n</head>\n<body>\n<h1>FenVis gallery</h1>\n<main>\n");
    for (gallery::Scene const& scene : gallery::scenes()) {
        QString const how = scene.command.isEmpty()
            ? QStringLiteral("Made by code: examples/gallery, scene \"%1\".").arg(scene.name)
            : shellLine(scene) + pictureWords(picture);
        text += QStringLiteral("<figure>\n<a href=\"%1.png\"><img src=\"%1.png\" alt=\"%2\"></a>\n"
                               "<figcaption>%2</figcaption>\n<pre>%3</pre>\n</figure>\n")
                    .arg(scene.name, scene.title.toHtmlEscaped(), how.toHtmlEscaped());
    }
    return text + QStringLiteral("</main>\n</body>\n</html>\n");
}

} // namespace

QList<QCommandLineOption> command::galleryOptions()
{
    QList<QCommandLineOption> options = PictureOptions::options();
    options.removeLast(); // each scene has its own theme
    return options;
}

int command::runGallery(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 1, 1, parser, status)) return status;
    PictureOptions picture;
    QString error;
    if (!picture.read(parser, error)) return wrongUsage(self, error);
    Canvas canvas(call.argc, call.argv);
    if (!canvas.prepare(picture, error)) return badInput(error);

    QDir const folder(parser.positionalArguments().first());
    if (!folder.mkpath(QStringLiteral(".")))
        return badInput(fen::messageText(folder.path()) + QStringLiteral(": cannot make the folder"));
    for (gallery::Scene const& one : gallery::scenes()) {
        FenVisScene scene;
        one.build(scene);
        QByteArray const png = pngBytes(canvas.draw(scene, picture));
        if (!fen::writeFile(folder.filePath(one.name + QStringLiteral(".png")), png, error))
            return badInput(error);
    }
    if (!fen::writeFile(folder.filePath(QStringLiteral("index.html")), page(picture).toUtf8(), error))
        return badInput(error);
    return Success;
}
