#include "tests/host/file/SceneFileFixture.h"

#include "host/file/JsonValue.h"
#include "host/table/TableRows.h"

#include "services/chartdata/ChartVariable.h"

#include <sys/stat.h>

using Kes::Math::Vector3;

namespace {
class SceneDataTest : public SceneFileTest { };
} // namespace

TEST_F(SceneDataTest, ReadsColumnsOfTablesAndWritesThemAsReferences)
{
    write(QStringLiteral("d/t.csv"), "n;k;v\n1;a;0,5\n2;b;1,5\n3;a;2,5\n4;;3,5\n");
    QString const path = write(
        QStringLiteral("s.json"),
        head
            + "\"data\": {\"t\": {\"file\": \"d/t.csv\", \"delimiter\": \";\", \"later\": 1},"
              "\"g\": {\"columns\": {\"one\": [1, null], \"two\": [3, 4]}}}, \"scene\": [{\"name\": \"c\", "
              "\"type\": "
              "\"visualization.chart.2d\", \"chart\": {\"variables\": ["
              "{\"name\": \"whole\", \"data\": {\"table\": \"t\", \"x\": \"n\", \"y\": \"v\", \"z\": "
              "{\"table\": \"g\", \"column\": \"two\"}}},"
              "{\"name\": \"a\", \"data\": {\"table\": \"t\", \"where\": {\"k\": \"a\"}, \"x\": "
              "{\"rowNumber\": true}, \"y\": \"v\"}},"
              "{\"name\": \"none\", \"data\": {\"table\": \"t\", \"where\": {\"k\": null}, \"y\": \"v\"}},"
              "{\"name\": \"g\", \"data\": {\"table\": \"g\", \"x\": \"one\", \"y\": \"two\"}}]}}]}");
    std::string const warnings = listed(FenSceneFile::load(path, scene));
    EXPECT_NE(std::string::npos, warnings.find("data/t: \"later\" is unknown here")) << warnings;
    FenChartVariableList const& variables = chart().chart.variables;
    typedef std::vector<double> Values;
    EXPECT_EQ((Values{0.5, 1.5, 2.5, 3.5}), variables[0].data(Vector3::CompY));
    EXPECT_EQ((Values{3, 4}), variables[0].data(Vector3::CompZ));
    EXPECT_EQ((Values{0, 2}), variables[1].data(Vector3::CompX));
    EXPECT_EQ((Values{0.5, 2.5}), variables[1].data(Vector3::CompY));
    EXPECT_EQ((Values{3.5}), variables[2].data(Vector3::CompY));
    EXPECT_EQ(2U, scene.tableRows().row(&variables[1], 1).value().row);
    EXPECT_FALSE(scene.tableRows().row(&variables[3], 1));
    EXPECT_EQ(variables[0].sourceColumn(Vector3::CompZ), variables[3].sourceColumn(Vector3::CompY))
        << "shared";

    QString const copy = folder.filePath(QStringLiteral("copy.json"));
    EXPECT_EQ("", listed(FenSceneFile::save(scene, copy)));
    QFile file(copy);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray const saved = file.readAll().simplified();
    for (char const* part : {"\"t\": { \"file\": \"d/t.csv\", \"delimiter\": \";\", \"later\": 1 }",
                             "\"shared\": { \"columns\": { \"column 1\": [3, 4] } }",
                             "\"table\": \"t\", \"x\": \"n\", \"y\": \"v\", \"z\": {\"table\": \"shared\", "
                             "\"column\": \"column 1\"}",
                             "\"where\": { \"k\": \"a\" }, \"x\": {\"rowNumber\": true}, \"y\": \"v\"",
                             "\"where\": { \"k\": null }, \"y\": \"v\"",
                             "\"table\": \"shared\", \"x\": [1, null], \"y\": \"column 1\""})
        EXPECT_TRUE(saved.contains(part)) << part << "\n" << saved.toStdString();
    QDir().mkpath(folder.filePath(QStringLiteral("other")));
    QList<FenSceneProblem> const outside =
        FenSceneFile::save(scene, folder.filePath(QStringLiteral("other/s.json")));
    EXPECT_EQ(1, outside.size());
    EXPECT_FALSE(failed(outside)) << "the numbers are written in place";
}

TEST_F(SceneDataTest, ReadsAFileAsTheTableSaysAndTellsWhatItLeftOut)
{
    write(QStringLiteral("t.csv"), "% measured\n1\ta\n2\tb\n12.5.2012\t1,5\n13.5.2012\t?\n14.5.2012\t2,5\n");
    QByteArray const options =
        "\"delimiter\": \"\\t\", \"decimal\": \",\", \"dateFormat\": \"d.M.yyyy\", "
        "\"skipRows\": 2, \"unitsRow\": false, \"comment\": \"%\", \"types\": {\"b\": \"number\"}";
    QString const path =
        write(QStringLiteral("s.json"),
              head + "\"data\": {\"t\": {\"file\": \"t.csv\", " + options
                  + "}}, \"scene\": [{\"name\": \"c\", \"type\": \"visualization.chart.2d\", \"chart\": "
                    "{\"variables\": [{\"name\": \"v\", \"data\": {\"table\": \"t\", \"y\": \"b\"}}]}}]}");
    std::string const warnings = listed(FenSceneFile::load(path, scene));
    EXPECT_NE(std::string::npos, warnings.find("(1:")) << warnings;
    EXPECT_EQ(2.5, chart().chart.variables[0].data(Vector3::CompY).back());
    QString const copy = folder.filePath(QStringLiteral("copy.json"));
    EXPECT_EQ("", listed(FenSceneFile::save(scene, copy)));
    QFile file(copy);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray const saved = fen::compactJson(file.readAll().toStdString());
    EXPECT_TRUE(saved.contains("\"file\":\"t.csv\"," + fen::compactJson(options.toStdString())))
        << saved.toStdString();
}

TEST_F(SceneDataTest, ReferencesStayInsideTheFolder)
{
    QString const outside = write(QStringLiteral("out/t.csv"), "a\n1\n");
    QString const inside = write(QStringLiteral("in/d/t.csv"), "a\n1\n2,3\n");
    ASSERT_TRUE(QFile::link(outside, folder.filePath(QStringLiteral("in/link.csv"))));
    ASSERT_TRUE(
        QFile::link(folder.filePath(QStringLiteral("out")), folder.filePath(QStringLiteral("in/out"))));
    ASSERT_TRUE(QFile::link(inside, folder.filePath(QStringLiteral("in/good.csv"))));
    ASSERT_EQ(0,
              ::mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("in/pipe.csv"))).constData(), 0600));
    struct Row {
        QByteArray file;
        char const* problem;
        char const* allowed; ///< problem with the folder "out" allowed
    };
    QByteArray const absolute = outside.toUtf8();
    Row const rows[] = {
        {"../out/t.csv", "expected a path below the scene's folder", ""},
        {absolute, "expected a path below the scene's folder", ""},
        {"link.csv", "the file lies outside of the scene's folder", ""},
        {"out/t.csv", "the file lies outside of the scene's folder", ""},
        {"/etc/passwd", "expected a path below the scene's folder", "the file lies outside"},
        {"file:///etc/passwd", "expected the path of a file", nullptr},
        {":/samples/penguins.csv", "expected the path of a file", nullptr},
        {"\\\\\\\\host\\\\t.csv", "expected the path of a file", nullptr},
        {"d/t.csv\\u0000", "expected the path of a file", nullptr},
        {"", "expected the path of a file", nullptr},
        {"none.csv", "\"none.csv\": cannot read: no such file", nullptr},
        {"pipe.csv", "pipe.csv: cannot read: is no regular file", nullptr},
        {"d", "d: cannot read: is a folder", nullptr},
        {"good.csv", "good.csv:3: 2 fields", nullptr},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.file.toStdString());
        QString const path =
            write(QStringLiteral("in/s.json"), head + "\"data\": {\"t\": {\"file\": \"" + row.file + "\"}}}");
        QList<FenSceneProblem> const problems = FenSceneFile::load(path, scene);
        ASSERT_EQ(1, problems.size());
        EXPECT_TRUE(problems[0].error);
        EXPECT_TRUE(problems[0].message.startsWith(QLatin1String(row.problem)))
            << problems[0].message.toStdString();
        if (!row.allowed) continue;
        std::string const second =
            listed(FenSceneFile::load(path, scene, {folder.filePath(QStringLiteral("out"))}));
        EXPECT_EQ(second.empty(), *row.allowed == '\0') << second;
        EXPECT_NE(std::string::npos, second.find(row.allowed)) << second;
    }
}
