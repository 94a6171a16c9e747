#pragma once

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

class QCommandLineParser;
class QImage;

namespace command {

// Exit statuses of the program.
inline constexpr int Success = 0;
inline constexpr int BadInput = 1; ///< files, their contents, what cannot be done with them
inline constexpr int WrongUsage = 2; ///< words that no command knows

/// What a sub-command gets to work with.
struct Call {
    QStringList arguments; ///< behind the sub-command's name
    int& argc; ///< of `main`, for the application object
    char** argv;
};

/// A sub-command: `fenvis NAME ...`.
struct Command {
    char const* name;
    char const* operands; ///< as in a usage line
    char const* summary;
    QList<QCommandLineOption> (*options)();
    int (*run)(Call const& call, Command const& self);
};

QList<QCommandLineOption> chartOptions();
int runChart(Call const& call, Command const& self);
QList<QCommandLineOption> pickOptions();
int runPick(Call const& call, Command const& self);
QList<QCommandLineOption> columnsOptions();
int runColumns(Call const& call, Command const& self);
QList<QCommandLineOption> noOptions();
int runView(Call const& call, Command const& self);
int runTypes(Call const& call, Command const& self);
QList<QCommandLineOption> renderOptions();
int runRender(Call const& call, Command const& self);
QList<QCommandLineOption> checkOptions();
int runCheck(Call const& call, Command const& self);
QList<QCommandLineOption> galleryOptions();
int runGallery(Call const& call, Command const& self);

/// Parses the arguments of a sub-command, whose operands are between `least` and `most`.
/// @param status  set to the exit status when there is nothing left to do: help was asked for, or
///                the usage is wrong (said on standard error)
/// @return true to go on
bool parse(Call const& call, Command const& self, int least, int most, QCommandLineParser& parser,
           int& status);

/// Says what is wrong on standard error; the exit status to return.
int badInput(QString const& message);
int wrongUsage(Command const& self, QString const& message);
/// Says what the user may want to know but need not act upon, on standard error; of many lines the first.
void remark(QStringList const& lines);
/// -o, --output
QCommandLineOption outputOption();
/// True, said on standard error, for an output that is the file which is read.
bool isInput(QString const& output, QCommandLineParser const& parser);
/// Writes a picture as PNG; the exit status to return.
int writePicture(QString const& path, QImage const& picture);
/// A text on standard output.
void print(QString const& text);
QString helpText(Command const& self);

} // namespace command
