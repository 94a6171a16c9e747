#include "apps/fenvis/SceneInput.h"

#include "apps/fenvis/Command.h"

#include "host/file/SceneFile.h"

#include <QCommandLineParser>

QList<QCommandLineOption> command::SceneInput::pictureOptions()
{
    QList<QCommandLineOption> options;
    for (QCommandLineOption const& option : PictureOptions::options())
        if (!option.names().contains(QStringLiteral("theme"))) options.append(option);
    return options;
}

QCommandLineOption command::SceneInput::allowOption()
{
    return {QStringLiteral("allow"), QStringLiteral("a scene may refer to data below this folder too"),
            QStringLiteral("FOLDER")};
}

std::optional<int> command::SceneInput::load(QCommandLineParser const& parser, FenVisScene& scene)
{
    bool failed = false;
    for (FenSceneProblem const& problem : FenSceneFile::load(parser.positionalArguments().first(), scene,
                                                             parser.values(QStringLiteral("allow")))) {
        badInput(problem.text());
        failed = failed || problem.error;
    }
    return failed ? std::optional(BadInput) : std::nullopt;
}

std::optional<int> command::SceneInput::prepare(Call const& call, Command const& self,
                                                QCommandLineParser const& parser)
{
    QString error;
    if (!picture.read(parser, error)) return wrongUsage(self, error);
    canvas = std::make_unique<Canvas>(call.argc, call.argv);
    scene = std::make_unique<FenVisScene>();
    if (std::optional<int> const failure = load(parser, *scene)) return failure;
    bool const ownSize = !parser.isSet(QStringLiteral("size")) && !scene->size().isEmpty();
    if (ownSize) picture.size = scene->size();
    if (!canvas->prepare(picture, error)) return badInput(error);
    return {};
}
