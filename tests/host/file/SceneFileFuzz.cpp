#include "host/file/SceneFile.h"
#include "host/scene/Scene.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <random>

namespace {

QByteArray textOf(FenVisScene const& scene)
{
    QList<FenSceneProblem> problems;
    return FenSceneFile::text(scene, QString(), problems);
}

/// Changes a few places of a text: pieces of JSON put in, bytes overwritten, stretches cut or doubled.
QByteArray mutated(QByteArray text, std::minstd_rand& random)
{
    static char const* const pieces[] = {"{",
                                         "}",
                                         "[",
                                         "]",
                                         ",",
                                         ":",
                                         "null",
                                         "true",
                                         "-1e308",
                                         "1e999",
                                         "\"\"",
                                         "\"name\"",
                                         "\"type\": \"visualization\",",
                                         "\"children\": [],",
                                         "\\ud800",
                                         "\"visualization.legend\"",
                                         "\"inf\"",
                                         "{\"a\": [{}]}",
                                         "\xC3",
                                         "0",
                                         "99999999999",
                                         "\"data\": {\"y\": [1]},",
                                         "\"place\": \"second\","};
    for (auto changes = 1 + random() % 3; changes > 0; --changes) {
        auto const at = qsizetype(random() % unsigned(text.size()));
        auto const length = qsizetype(random() % 30);
        switch (random() % 4) {
        case 0:
            text.insert(at, pieces[random() % std::size(pieces)]);
            break;
        case 1:
            text[at] = char(random());
            break;
        case 2:
            text.remove(at, length);
            break;
        default:
            text.insert(at, text.mid(qsizetype(random() % unsigned(text.size())), length));
        }
        if (text.isEmpty()) text = "{";
    }
    return text;
}

} // namespace

TEST(SceneFileFuzz, AnyFileIsLoadedWholeOrNotAtAll)
{
    LogCapture log;
    std::minstd_rand random(11);
    QDir const folder(QStringLiteral(FENVIS_SCENES));
    std::vector<QByteArray> seeds;
    for (QString const& name : folder.entryList({QStringLiteral("*.json")})) {
        FenVisScene scene;
        FenSceneFile::load(folder.filePath(name), scene);
        scene.tables.clear();
        seeds.push_back(textOf(scene));
    }
    ASSERT_GE(seeds.size(), 3U);
    FenVisScene scene;
    QByteArray shown = textOf(scene);
    int loaded = 0;
    for (int round = 0; round < 2000; ++round) {
        QByteArray const text = mutated(seeds[random() % seeds.size()], random);
        bool failed = false;
        for (FenSceneProblem const& problem : FenSceneFile::parse(text, QStringLiteral("f"), scene)) {
            ASSERT_FALSE(problem.message.isEmpty());
            ASSERT_GT(problem.line, 0);
            failed = failed || problem.error;
        }
        QByteArray const now = textOf(scene);
        if (failed) {
            ASSERT_EQ(shown, now) << "half changed by\n" << text.toStdString();
        } else {
            ++loaded;
            FenVisScene again;
            FenSceneFile::parse(now, QStringLiteral("f"), again);
            ASSERT_EQ(now, textOf(again)) << "from\n" << text.toStdString();
        }
        shown = now;
    }
    EXPECT_GT(loaded, 100); // the loop reaches both ends
    EXPECT_LT(loaded, 1900);
}
