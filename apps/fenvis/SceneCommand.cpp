#include "apps/fenvis/Command.h"
#include "apps/fenvis/SceneInput.h"

#include "host/output/MessageText.h"

#include <QCommandLineParser>

QList<QCommandLineOption> command::renderOptions()
{
    return SceneInput::pictureOptions()
        + QList<QCommandLineOption>{SceneInput::allowOption(), outputOption()};
}

int command::runRender(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 1, 1, parser, status)) return status;
    if (!parser.isSet(QStringLiteral("o"))) return wrongUsage(self, QStringLiteral("-o FILE is missing"));
    QString const output = parser.value(QStringLiteral("o"));
    if (isInput(output, parser)) return BadInput;

    SceneInput input;
    if (std::optional<int> const failure = input.prepare(call, self, parser)) return *failure;
    return writePicture(output, input.canvas->draw(*input.scene, input.picture));
}

QList<QCommandLineOption> command::checkOptions() { return {SceneInput::allowOption()}; }

int command::runCheck(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 1, 1, parser, status)) return status;
    FenVisScene scene;
    if (std::optional<int> const failure = SceneInput::load(parser, scene)) return *failure;
    print(QStringLiteral("%1: no errors\n").arg(fen::messageText(parser.positionalArguments().first())));
    return Success;
}
