#pragma once

#include "apps/fenvis/Drawing.h"

#include "host/scene/Scene.h"

#include <QStringList>

#include <optional>

namespace command {

struct Call;
struct Command;

/// A scene file and the picture that is made of it.
class SceneInput {
public:
    /// --size and --scale
    static QList<QCommandLineOption> pictureOptions();
    /// --allow
    static QCommandLineOption allowOption();

    /// Reads the file into a scene; problems go to standard error.
    /// @return empty, or the exit status after an error
    static std::optional<int> load(QCommandLineParser const& parser, FenVisScene& scene);

    /// Reads options, file and canvas, in this order.
    std::optional<int> prepare(Call const& call, Command const& self, QCommandLineParser const& parser);

    PictureOptions picture;
    std::unique_ptr<Canvas> canvas; ///< after `prepare`; outlives the scene
    std::unique_ptr<FenVisScene> scene; ///< after `prepare`
};

} // namespace command
