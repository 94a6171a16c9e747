#include "tests/support/Picture.h"

#include "host/Limits.h"
#include "host/scene/Theme.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

constexpr int timeLimit = 30'000; // [ms]

QString sample(char const* name) { return QStringLiteral(FENVIS_SAMPLES) + QString::fromLatin1(name); }

/// Runs the program in a folder of its own.
class CommandGlTest : public testing::Test {
protected:
    struct Result {
        int status; ///< -1: killed by a signal or too slow
        std::string output;
        std::string errors;
    };

    Result run(QStringList const& arguments)
    {
        QProcess process;
        process.setWorkingDirectory(_folder.path());
        process.start(QStringLiteral(FENVIS_COMMAND), arguments);
        bool const ended = process.waitForFinished(timeLimit) && process.exitStatus() == QProcess::NormalExit;
        return {ended ? process.exitCode() : -1, process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }
    /// The words of a command line, "PENGUINS" and "WEATHER" standing for the samples.
    Result run(char const* line)
    {
        QStringList words = QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        words.replaceInStrings(QStringLiteral("PENGUINS"), sample("penguins.csv"));
        words.replaceInStrings(QStringLiteral("WEATHER"), sample("seattle-weather.csv"));
        return run(words);
    }
    QString path(char const* name) const { return _folder.filePath(QString::fromLatin1(name)); }
    void file(char const* name, QByteArray const& bytes) const
    {
        QFile made(path(name));
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(bytes);
    }
    Picture picture(char const* name) const { return Picture(QImage(path(name))); }
    QStringList entries() const
    {
        return QDir(_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    QJsonObject pick(QString const& line)
    {
        Result const result = run(qUtf8Printable(line));
        EXPECT_EQ(0, result.status) << result.errors;
        return QJsonDocument::fromJson(QByteArray::fromStdString(result.output)).object();
    }

private:
    QTemporaryDir _folder;
};

} // namespace

TEST_F(CommandGlTest, DrawsTheChartThatIsAskedFor)
{
    QColor const first = FenTheme::light().color(0);
    QColor const second = FenTheme::light().color(1);
    struct Row {
        char const* line;
        int first; ///< least number of pixels in the colour of the first variable
        int second;
    };
    Row const rows[] = {
        {"chart PENGUINS --kind 2d --x flipper_length_mm --y body_mass_g --style none --symbol ellipse -o "
         "p.png",
         2000, 0},
        {"chart PENGUINS --x flipper_length_mm --y body_mass_g --group species --style none --symbol rect -o "
         "p.png",
         1000, 1000},
        {"chart WEATHER --kind 2d --x date --y temp_max,temp_min --style line -o p.png", 3000, 3000},
        {"chart WEATHER --x date --y temp_max --y2 wind --no-smooth -o p.png", 2000, 2000},
        {"chart WEATHER --y precipitation --style bar --x-range 2012-01-01,2012-02-01 -o p.png", 5000, 0},
        {"chart WEATHER --x wind --y precipitation --log x,y --style none --symbol star --legend -o p.png",
         500, 0},
        {"chart WEATHER --x weather --y temp_max --style none --symbol rect -o p.png", 200, 0},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.line);
        Result const result = run(row.line);
        ASSERT_EQ(0, result.status) << result.errors;
        Picture const drawn = picture("p.png");
        ASSERT_EQ(QSize(1280, 800), drawn.image().size());
        EXPECT_GE(drawn.count(first, 2), row.first);
        EXPECT_GE(drawn.count(second, 2), row.second);
    }
}

TEST_F(CommandGlTest, ScaleGivesTheSameLayoutWithMorePixels)
{
    for (char const* end : {"-o 1.png", "--scale 2 --theme light -o 2.png"})
        ASSERT_EQ(0,
                  run(qUtf8Printable(QStringLiteral("chart PENGUINS --x flipper_length_mm --y body_mass_g "
                                                    "--style none --symbol rect --size 640x400 ")
                                     + QLatin1String(end)))
                      .status);
    Picture const once = picture("1.png");
    Picture const twice = picture("2.png");
    ASSERT_EQ(QSize(1280, 800), twice.image().size());
    QColor const color = FenTheme::light().color(0);
    double const ratio = double(twice.count(color, 2)) / once.count(color, 2);
    EXPECT_NEAR(4.0, ratio, 1.2);
    QRect const small = once.boundingBox();
    QRect const large = twice.boundingBox();
    EXPECT_NEAR(2 * small.left(), large.left(), 4);
    EXPECT_NEAR(2 * small.bottom(), large.bottom(), 4);
}

TEST_F(CommandGlTest, PickFindsWhatTheChartShows)
{
    QString const chart =
        QStringLiteral("PENGUINS --x flipper_length_mm --y body_mass_g --style none --symbol ellipse ");
    ASSERT_EQ(0, run(qUtf8Printable(QStringLiteral("chart %1 -o p.png").arg(chart))).status);
    Picture const drawn = picture("p.png");
    QColor const color = FenTheme::light().color(0);
    int points = 0;
    for (int x = 200; x < 1200 && points < 4; x += 60) {
        for (int y = 60; y < 700; y += 1) {
            if (!drawn.is(x, y, color, 0)) continue;
            QJsonObject const object = pick(QStringLiteral("pick %1 --at %2,%3").arg(chart).arg(x).arg(y));
            QJsonObject const top = object[QStringLiteral("top")].toObject();
            EXPECT_EQ(QStringLiteral("body_mass_g"), top[QStringLiteral("item")].toString()) << x << ',' << y;
            EXPECT_EQ(QStringLiteral("chart"), top[QStringLiteral("node")].toString());
            QString const qualifier = top[QStringLiteral("qualifier")].toString();
            EXPECT_TRUE(qualifier.startsWith(QStringLiteral("dataPointIdx("))) << qualifier.toStdString();
            EXPECT_TRUE(
                object[QStringLiteral("tooltip")].toString().startsWith(QStringLiteral("body_mass_g { ")));
            QJsonObject const data = top[QStringLiteral("data")].toObject();
            EXPECT_GT(data[QStringLiteral("y")].toDouble(), 2000);
            EXPECT_EQ(0.5, top[QStringLiteral("depth")].toDouble());
            EXPECT_EQ(qualifier, QStringLiteral("dataPointIdx(%1)").arg(top[QStringLiteral("row")].toInt()));
            ++points;
            break;
        }
    }
    EXPECT_EQ(4, points);
    QJsonObject const blank = pick(QStringLiteral("pick %1 --at 1150,640").arg(chart));
    EXPECT_EQ(0, blank[QStringLiteral("top")].toObject()[QStringLiteral("name")].toInt());
    QJsonArray const hits = blank[QStringLiteral("hits")].toArray();
    ASSERT_EQ(1, hits.size());
    EXPECT_EQ(90, hits[0].toObject()[QStringLiteral("layer")].toInt());
}

TEST_F(CommandGlTest, AChartThatWasSavedIsTheSameScene)
{
    ASSERT_TRUE(QFile::copy(sample("penguins.csv"), path("penguins.csv")));
    QString const options =
        QStringLiteral(" --x flipper_length_mm --y body_mass_g --group species --style none --symbol rect");
    QString const chart = QStringLiteral("chart penguins.csv --size 500x300 --theme dark") + options;
    ASSERT_EQ(0, run(qUtf8Printable(chart + QStringLiteral(" --save s.json -o chart.png"))).status);
    ASSERT_EQ(0, run(qUtf8Printable(chart + QStringLiteral(" --save t.json"))).status);
    EXPECT_EQ("s.json: no errors\n", run("check s.json").output);
    for (char const* line : {"render s.json -o scene.png", "render t.json -o scene.png"}) {
        Result const result = run(line);
        ASSERT_EQ(0, result.status) << result.errors;
        EXPECT_EQ("", result.errors);
        EXPECT_EQ(0, picture("chart.png").differingPixels(picture("scene.png")));
    }
    EXPECT_EQ(
        run(qUtf8Printable(QStringLiteral("pick penguins.csv --size 500x300 --at 300,150") + options)).output,
        run("pick s.json --at 300,150").output);
    ASSERT_EQ(0, run("render s.json --size 100x80 --scale 2 -o scene.png").status);
    EXPECT_EQ(QSize(200, 160), picture("scene.png").image().size());

    ASSERT_TRUE(QDir().mkdir(path("far")));
    ASSERT_TRUE(QFile::rename(path("penguins.csv"), path("far/penguins.csv")));
    ASSERT_TRUE(QFile::link(path("far/penguins.csv"), path("penguins.csv")));
    ASSERT_TRUE(QDir().mkdir(path("near")));
    ASSERT_TRUE(QFile::rename(path("s.json"), path("near/s.json")));
    ASSERT_TRUE(QFile::link(path("far/penguins.csv"), path("near/penguins.csv")));
    Result const outside = run("render near/s.json -o no.png");
    EXPECT_EQ(1, outside.status);
    EXPECT_EQ("near/s.json:7: column 15: the file lies outside of the scene's folder\n", outside.errors);
    EXPECT_FALSE(QFile::exists(path("no.png")));
    EXPECT_EQ(0, run("check near/s.json --allow far").status);
}

TEST_F(CommandGlTest, BadInputGivesOneMessageAndNoFile)
{
    file("ragged.csv", "a,b\n1,2\n3,4,5\n");
    file("text.csv", "a,b\nx,y\n");
    file("good.csv", "a,b\n1,2\n3,4\n");
    ASSERT_EQ(0, ::mkfifo(QFile::encodeName(path("fifo")).constData(), 0600));
    ASSERT_TRUE(QDir().mkdir(path("folder")));
    QStringList const before = entries();
    struct Row {
        char const* arguments;
        char const* error;
    };
    Row const rows[] = {
        {"missing.csv", "missing.csv: cannot read: No such file or directory\n"},
        {"folder", "folder: cannot read: is a folder\n"},
        {"fifo", "fifo: cannot read: is no regular file\n"},
        {"ragged.csv", "ragged.csv:3: 3 fields, but the first row has 2\n"},
        {"text.csv", "text.csv:1: no column of numbers to show\n"},
        {"good.csv --x c", "good.csv:1: no column \"c\"; there are: a, b\n"},
        {"good.csv --size 0x0",
         "fenvis: a picture of 0x0 at scale 1 cannot be drawn: from 1 to 16384 pixels a side\n"},
        {"good.csv --scale -1",
         "fenvis: a picture of 1280x800 at scale -1 cannot be drawn: from 1 to 16384 pixels a side\n"},
        {"good.csv -o folder/../good.csv",
         "folder/../good.csv: is the file that is read; write to another one\n"},
        {"good.csv --x a --y b -o missing/out.png",
         "missing/out.png: cannot write: No such file or directory\n"},
        {"good.csv --x a --y b -o /dev/full", "/dev/full: cannot write: No space left on device\n"},
    };
    for (Row const& row : rows) {
        Result const result =
            run(qUtf8Printable(QStringLiteral("chart -o out.png ") + QString::fromLatin1(row.arguments)));
        EXPECT_EQ(1, result.status) << row.arguments;
        EXPECT_EQ(row.error, result.errors);
        EXPECT_EQ(before, entries()) << row.arguments;
    }
    EXPECT_EQ(1, run("pick good.csv --at 1280,0").status);
}

TEST_F(CommandGlTest, OddDataIsDrawnWithoutComplaint)
{
    file("one.csv", "a,b\n1,2\n");
    file("equal.csv", "a,b\n1,5\n2,5\n3,5\n");
    file("infinite.csv", "a,b\n1,nan\n2,inf\n3,-inf\n4,1e999\n5,1e308\n6,-1e308\n");
    file("missing.csv", "a,b\n,\nNA,\n");
    file("bom.csv",
         "\xEF\xBB\xBF"
         "a;b\r\n1,5;2\r\n2,5;3\r\n");
    for (char const* name : {"one", "equal", "infinite", "missing", "bom"}) {
        for (char const* how :
             {"", "--style bar", "--style spline --fill gradient", "--style step --fill sparse",
              "--symbol star --size 1x1", "--size 40x3000 --scale 0.5"}) {
            Result const result =
                run(qUtf8Printable(QStringLiteral("chart %1.csv --x a --y b %2 -o %1.png")
                                       .arg(QString::fromLatin1(name), QString::fromLatin1(how))));
            EXPECT_EQ(0, result.status) << name << ' ' << how << '\n' << result.errors;
            EXPECT_EQ("", result.errors) << name << ' ' << how;
        }
    }
    EXPECT_GT(picture("one.png").image().width(), 0);
}

TEST_F(CommandGlTest, WrongUsageIsToldAndExitsWith2)
{
    struct Row {
        char const* line;
        char const* error; ///< how it begins
    };
    Row const rows[] = {
        {"", "usage: fenvis COMMAND"},
        {"draw",
         "fenvis: no such command; there are: chart, render, check, pick, columns, view, types, gallery\n"},
        {"chart", "fenvis chart: too few arguments\nusage: fenvis chart DATA.csv"},
        {"chart a.csv", "fenvis chart: -o FILE is missing"},
        {"chart a.csv b\x1b[31m.csv -o c.png", "fenvis chart: unexpected argument \"b\\u{1b}[31m.csv\""},
        {"chart a.csv --colour red -o c.png", "fenvis chart: Unknown option 'colour'."},
        {"chart a.csv --kind cake -o c.png", "fenvis chart: --kind \"cake\": expected one of: 2d"},
        {"chart a.csv --style curve -o c.png",
         "fenvis chart: --style \"curve\": expected one of: none, line"},
        {"chart a.csv --size 12 -o c.png", "fenvis chart: --size: expected a size such as 1280x800"},
        {"chart a.csv --scale big -o c.png", "fenvis chart: --scale: expected a number"},
        {"pick a.csv --at 3", "fenvis pick: --at X,Y: expected a point such as 640,400"},
        {"render a.json", "fenvis render: -o FILE is missing"},
        {"check", "fenvis check: too few arguments"},
        {"types cake", "fenvis types: there is no such type"},
        {"gallery", "fenvis gallery: too few arguments"},
    };
    for (Row const& row : rows) {
        Result const result = run(row.line);
        EXPECT_EQ(2, result.status) << row.line;
        EXPECT_EQ(0U, result.errors.find(row.error)) << row.line << '\n' << result.errors;
        EXPECT_EQ("", result.output) << row.line;
    }
    EXPECT_TRUE(entries().isEmpty());
}

TEST_F(CommandGlTest, TypesListsEverySettingWithItsDefault)
{
    std::string const types = run("types").output;
    EXPECT_NE(types.npos, types.find("visualization.chart.2d\n"));
    EXPECT_NE(types.npos, types.find("chart.axis.continuous\n"));
    struct Row {
        char const* type;
        char const* key;
        char const* kind;
        char const* value;
    };
    for (Row const& row : {Row{"visualization.chart.2d", "layer", "int", "90"},
                           Row{"visualization.chart.2d", "chart.normalize", "bool", "true"},
                           Row{"chart.variable", "lineColor", "QColor", "#ff000000"},
                           Row{"chart.axis.continuous", "max", "double", "1"}}) {
        QString const text = QString::fromStdString(
            run(qUtf8Printable(QStringLiteral("types ") + QString::fromLatin1(row.type))).output);
        QRegularExpression const line(QStringLiteral("^%1 +%2 +%3$")
                                          .arg(QRegularExpression::escape(QString::fromLatin1(row.key)),
                                               QString::fromLatin1(row.kind), QString::fromLatin1(row.value)),
                                      QRegularExpression::MultilineOption);
        EXPECT_TRUE(line.match(text).hasMatch()) << row.type << ' ' << row.key << '\n' << text.toStdString();
    }
}

TEST_F(CommandGlTest, HelpVersionAndLimitsGoToStandardOutput)
{
    EXPECT_NE(std::string::npos, run("--help").output.find("usage: fenvis COMMAND"));
    EXPECT_NE(std::string::npos, run("chart --help").output.find("  --y2 COL,..."));
    EXPECT_EQ(0U, run("--version").output.find("fenvis "));
    std::string const limits = run("--limits").output;
    for (fen::limits::Limit const& limit : fen::limits::table())
        EXPECT_NE(limits.npos,
                  limits.find(' ' + std::to_string(limit.value) + "  " + limit.what.toStdString()))
            << limit.value;
}

TEST_F(CommandGlTest, GalleryDrawsEachSceneAndAPageWithAllOfThem)
{
    Result const result = run("gallery pictures --size 320x200");
    ASSERT_EQ(0, result.status) << result.errors;
    EXPECT_EQ("", result.errors);
    QFile page(path("pictures/index.html"));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    QString const text = QString::fromUtf8(page.readAll());
    QStringList const pictures = QDir(path("pictures")).entryList({QStringLiteral("*.png")});
    EXPECT_GE(pictures.size(), 10);
    for (QString const& name : pictures) {
        EXPECT_TRUE(text.contains(QStringLiteral("<img src=\"%1\"").arg(name))) << name.toStdString();
        EXPECT_GT(Picture(QImage(path("pictures/") + name)).colors(), 10) << name.toStdString();
    }
}
