#include "apps/fenvis/Command.h"

#include "apps/viewer/Viewer.h"

#include <QCommandLineParser>

int command::runView(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 0, 1, parser, status)) return status;
    bool const display = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (!display) return badInput(QStringLiteral("fenvis: there is no display to open a window on"));
    return runViewer(call.argc, call.argv, parser.positionalArguments().value(0));
}
