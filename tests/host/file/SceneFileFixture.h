#pragma once

#include "host/file/SceneFile.h"
#include "host/scene/Scene.h"
#include "tests/support/LogCapture.h"

#include "charts/chart2d/VisChart2D.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

inline QByteArray const head = "{\"format\": \"fenvis scene\", \"version\": 1, ";

/// A scene of one chart whose object has these members besides.
inline QByteArray chartWith(QByteArray const& members)
{
    return head + "\"scene\": [\n{\"name\": \"c\", \"type\": \"visualization.chart.2d\",\n" + members + "}]}";
}

inline QByteArray variableWith(QByteArray const& members)
{
    return chartWith("\"chart\": {\"variables\": [{\"name\": \"v\",\n" + members + "}]}");
}

/// "line:column path: message", one per problem, warnings in brackets.
inline std::string listed(QList<FenSceneProblem> const& problems)
{
    QStringList lines;
    for (FenSceneProblem const& problem : problems) {
        QString const line = QStringLiteral("%1:%2 %3: %4")
                                 .arg(problem.line)
                                 .arg(problem.column)
                                 .arg(problem.path, problem.message);
        lines.append(problem.error ? line : u'(' + line + u')');
    }
    return lines.join(u'\n').toStdString();
}

inline bool failed(QList<FenSceneProblem> const& problems)
{
    return std::any_of(problems.begin(), problems.end(), [](auto const& problem) { return problem.error; });
}

inline QByteArray textOf(FenVisScene const& scene)
{
    QList<FenSceneProblem> problems;
    QByteArray const text = FenSceneFile::text(scene, QString(), problems);
    EXPECT_EQ("", listed(problems));
    return text;
}

/// A scene that files are loaded into, and a folder for them.
class SceneFileTest : public testing::Test {
protected:
    QList<FenSceneProblem> parse(QByteArray const& text)
    {
        return FenSceneFile::parse(text, QStringLiteral("s.json"), scene);
    }
    QString write(QString const& name, QByteArray const& bytes)
    {
        QString const path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }
    FenVisChart2D& chart(int index = 0)
    {
        return dynamic_cast<FenVisChart2D&>(*scene.root().at(unsigned(index)));
    }

    LogCapture log;
    QTemporaryDir folder;
    FenVisScene scene;
};
