#include "apps/fenvis/Command.h"
#include "apps/fenvis/Drawing.h"

#include "host/output/FileOutput.h"
#include "host/output/MessageText.h"

#include <QCommandLineParser>
#include <QFile>

#include <filesystem>
#include <system_error>

namespace {

/// True when both are there and are one regular file, through whatever links.
bool sameFile(QString const& a, QString const& b)
{
    std::error_code ignored;
    std::filesystem::path const first(QFile::encodeName(a).toStdString());
    std::filesystem::path const second(QFile::encodeName(b).toStdString());
    return std::filesystem::is_regular_file(first, ignored)
        && std::filesystem::equivalent(first, second, ignored);
}

} // namespace

QCommandLineOption command::outputOption()
{
    return {{QStringLiteral("o"), QStringLiteral("output")},
            QStringLiteral("the picture to write (PNG)"),
            QStringLiteral("FILE")};
}

int command::writePicture(QString const& path, QImage const& picture)
{
    QByteArray const png = pngBytes(picture);
    if (png.isEmpty()) return badInput(QStringLiteral("fenvis: not enough memory for the picture"));
    QString error;
    if (!fen::writeFile(path, png, error)) return badInput(error);
    return Success;
}

bool command::isInput(QString const& output, QCommandLineParser const& parser)
{
    if (!sameFile(output, parser.positionalArguments().first())) return false;
    badInput(fen::messageText(output) + QStringLiteral(": is the file that is read; write to another one"));
    return true;
}
