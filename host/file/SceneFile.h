#pragma once

#include "../../services/logging/Export.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class FenVisScene;

/// Something about a scene file that whoever wrote it should know.
struct FENVIS_EXPORT FenSceneProblem {
    QString file;
    int line = 0; ///< from 1; 0: the file as a whole
    int column = 0; ///< [characters] from 1; 0 as above
    QString path; ///< where it is in the tree, as "scene/chart/xAxes/x"; empty: the file as a whole
    QString message;
    bool error = true; ///< false: a warning

    /// "file:line: column N: message", fit for a terminal.
    QString text() const;
};

/// Scenes as JSON files; docs/scene-file.md describes them.
///
/// Both ways whole or not at all: with an error among the problems, loading has changed nothing of the
/// scene and saving nothing of the file.
class FENVIS_EXPORT FenSceneFile {
public:
    typedef FenSceneProblem Problem;

    /// The version that is written; newer ones are refused.
    static constexpr int version = 1;

    /// Replaces the content of a scene: nodes, settings, number format, tables, and the size where the
    /// file has one. The scene's undo history ends, as its steps are about nodes that are gone.
    /// @param allowedFolders  data may lie below these too, not only below the scene file's folder
    static QList<Problem> load(QString const& path, FenVisScene& scene,
                               QStringList const& allowedFolders = QStringList());
    /// The same from memory. There is no folder, so files of data must lie in the allowed folders.
    /// @param name  stands for the file in problems
    static QList<Problem> parse(QByteArray const& text, QString const& name, FenVisScene& scene,
                                QStringList const& allowedFolders = QStringList());

    /// Writes what differs from the defaults. Columns of a table whose file lies below the folder of
    /// `path` are written as references to it, all others as numbers.
    static QList<Problem> save(FenVisScene const& scene, QString const& path);
    /// The text that `save` would write; empty when there is an error.
    /// @param problems  set to what whoever saves should know
    /// @param folder  of the file that it is for; empty: there is none, so no references
    static QByteArray text(FenVisScene const& scene, QString const& folder, QList<Problem>& problems);

    /// True for the name of a scene file, ".json" at its end; tables of data have others.
    static bool hasSceneName(QString const& path);

private:
    static QList<Problem> read(QByteArray const& text, QString const& name, QString const& folder,
                               FenVisScene& scene, QStringList const& allowedFolders);
    static void replaceContent(FenVisScene& scene, FenVisScene& loaded);
};
