#include "apps/fenvis/Command.h"

#include "host/Limits.h"

#include "services/logging/DebugLogger.h"
#include "services/logging/Logger.h"

#include <QLoggingCategory>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace {

using command::Command;

std::vector<Command> const& commands()
{
    static std::vector<Command> const table{
        {"chart", "DATA.csv [options] -o OUT.png [--save SCENE.json]", "Draws a chart of a CSV file.",
         command::chartOptions, command::runChart},
        {"render", "SCENE.json [options] -o OUT.png", "Draws a scene file.", command::renderOptions,
         command::runRender},
        {"check", "SCENE.json", "Reads a scene file and says what is wrong with it.", command::checkOptions,
         command::runCheck},
        {"pick", "SCENE.json|DATA.csv [options] --at X,Y",
         "Says as JSON what lies at a point of the picture.", command::pickOptions, command::runPick},
        {"columns", "DATA.csv [options]",
         "Lists the columns of a CSV file: name, type, unit, range, missing values, and which would be x.",
         command::columnsOptions, command::runColumns},
        {"view", "[SCENE.json|DATA.csv]", "Shows a scene or a CSV file in a window.", command::noOptions,
         command::runView},
        {"types", "[TYPE]", "Lists all types; of one type all settings with their types, defaults and units.",
         command::noOptions, command::runTypes},
        {"gallery", "FOLDER", "Draws the gallery of sample charts into a folder, with an index.html.",
         command::galleryOptions, command::runGallery},
    };
    return table;
}

QString overview()
{
    QString text = QStringLiteral("usage: fenvis COMMAND ...\n\n");
    for (Command const& one : commands())
        text += QStringLiteral("  %1 %2\n")
                    .arg(QString::fromLatin1(one.name), -8)
                    .arg(QString::fromLatin1(one.summary));
    return text
        + QStringLiteral(
               "\n  fenvis COMMAND --help   its options\n"
               "  fenvis --limits         what files may hold\n"
               "  fenvis --version\n\n"
               "Exit status: 0; 1 for bad input, told as \"file:line: message\"; 2 for wrong usage.\n");
}

QString noSuchCommand()
{
    QStringList names;
    for (Command const& one : commands()) names.append(QString::fromLatin1(one.name));
    return QStringLiteral("fenvis: no such command; there are: %1\n").arg(names.join(QStringLiteral(", ")));
}

QString limits()
{
    QString text;
    for (fen::limits::Limit const& limit : fen::limits::table())
        text += QStringLiteral("%1  %2\n")
                    .arg(limit.value, 12)
                    .arg(limit.unit.isEmpty() ? limit.what
                                              : limit.what + QStringLiteral(" [%1]").arg(limit.unit));
    return text;
}

/// Texts of Qt about the surroundings are of no use to whoever wants a picture.
void onlySevere(QtMsgType type, QMessageLogContext const&, QString const& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(message));
}

/// Warnings of the library end with the function that they come from, which is of no use here.
void showWarning(std::string const& tag, std::string const& line)
{
    if (tag != "Err") return;
    std::string_view const text = std::string_view(line).substr(0, line.rfind(" - "));
    std::fprintf(stderr, "fenvis: %.*s\n", int(text.size()), text.data());
}

int run(int& argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
    QString const first = arguments.value(0);
    if (first == QLatin1String("--help") || first == QLatin1String("-h"))
        command::print(overview());
    else if (first == QLatin1String("--limits"))
        command::print(limits());
    else if (first == QLatin1String("--version"))
        command::print(QStringLiteral("fenvis " FENVIS_VERSION "\n"));
    else {
        for (Command const& one : commands())
            if (first == QLatin1String(one.name)) return one.run({arguments.mid(1), argc, argv}, one);
        std::fputs(qUtf8Printable(first.isEmpty() ? overview() : noSuchCommand()), stderr);
        return command::WrongUsage;
    }
    return command::Success;
}

} // namespace

int main(int argc, char** argv)
{
    // A full disk, a limit or a closed pipe is an error of that write, not the end of the program.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    qInstallMessageHandler(onlySevere);
    fen::debug_logger::debuglogger().setSink(showWarning);
    int const status = run(argc, argv);
    bool const written = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    if (written || errno == EPIPE) return status; // who closes a pipe has read enough
    std::fputs("fenvis: cannot write to standard output\n", stderr);
    return command::BadInput;
}
