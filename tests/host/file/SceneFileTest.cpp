#include "tests/host/file/SceneFileFixture.h"

#include "host/Limits.h"
#include "host/edit/UndoPropertyEdit.h"
#include "tests/host/file/SchemaCheck.h"

#include "scene/VisLight.h"
#include "scene/VisLightList.h"
#include "scene/VisViewpoint.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"

#include <QUndoStack>

#include <cmath>

using Kes::Math::Vector3;

TEST_F(SceneFileTest, TellsWhatIsWrongAndWhereAndChangesNothing)
{
    ASSERT_EQ("", listed(parse(variableWith("\"data\": {\"y\": [1, 2]}"))));
    QByteArray const before = textOf(scene);
    FenProperties const* const node = scene.root().at(0U);
    quint64 const stamp = scene.root().stamp();
    struct Row {
        QByteArray text;
        char const* problem; ///< the first error begins so
    };
    Row const rows[] = {
        {"{\"a\": 1,\n\"a\": 2}", "2:1 : the key stands here a second time"},
        {"[]", "1:1 : expected an object"},
        {"{\"version\": 1}", "1:1 : this is no scene file"},
        {"{\"format\": \"fenvis scene\", \"version\": \"1\"}", "1:39 : expected \"version\""},
        {"{\"format\": \"fenvis scene\", \"version\": 2}",
         "1:39 : the file is of version 2; this program reads up to 1"},
        {head + "\"size\": [0, 5]}", "1:50 size: expected [width, height]"},
        {head + "\"numberFormat\": {\"precision\": 100}}", "1:58 numberFormat: expected {"},
        {head + "\"scene\": 5}", "1:51 scene: expected an object or a list"},
        {head + "\"scene\": [5]}", "1:51 scene: expected a list of objects"},
        {head + "\"scene\": [[]]}", "1:52 scene: expected an object"},
        {head + "\"scene\": [{\"type\": \"x\"}]}", "1:52 scene: expected an object with a \"name\""},
        {head + "\"scene\": [{\"name\": \"x\"}]}", "1:52 scene/x: expected a \"type\""},
        {head + "\"scene\": [{\"name\": \"x\", \"type\": 3}]}", "1:74 scene/x: expected a \"type\""},
        {head + "\"scene\": [{\"name\": \"x\", \"type\": \"t\"}, {\"name\": \"x\", \"type\": \"t\"}]}",
         "1:89 scene: the name \"x\" is taken"},
        {chartWith("\"enabled\": 1"), "3:12 scene/c/enabled: expected true or false"},
        {chartWith("\"layer\": 1.5"), "3:10 scene/c/layer: expected a whole number"},
        {chartWith("\"layer\": 3e9"), "3:10 scene/c/layer: expected a whole number"},
        {chartWith("\"status\": 1"), "3:11 scene/c/status: expected a text"},
        {chartWith("\"lineColor\": \"octarine\""), "3:14 scene/c/lineColor: expected a colour"},
        {chartWith("\"viewport\": {\"x\": \"1\"}"), "3:19 scene/c/viewport/x: expected a number"},
        {chartWith("\"viewport\": 5"), "3:13 scene/c/viewport: expected an object or a list"},
        {chartWith("\"units\": {\"layer\": 5}"), "3:20 scene/c/units: expected a text"},
        {chartWith("\"chart\": {\"xAxes\": [{\"name\": \"x\", \"type\": \"axis\"}]}"),
         "3:43 scene/c/chart/xAxes/x: there can be no such node here"},
        {variableWith("\"labels\": [\"a\", 1]"),
         "4:11 scene/c/chart/variables/v/labels: expected a list of texts"},
        {variableWith("\"type\": \"visualization.chart.2d\""),
         "4:9 scene/c/chart/variables/v: there can be no"},
        {variableWith("\"data\": {\"y\": [1, true]}"),
         "4:19 scene/c/chart/variables/v/data: expected a list of num"},
        {variableWith("\"data\": {\"y\": 5}"),
         "4:15 scene/c/chart/variables/v/data: expected the name of a column"},
        {variableWith("\"data\": {\"y\": \"a\"}"),
         "4:15 scene/c/chart/variables/v/data: there is no \"table\""},
        {variableWith("\"data\": {\"table\": \"t\", \"y\": \"a\"}"),
         "4:19 scene/c/chart/variables/v/data: there is no such t"},
        {head + "\"data\": {\"t\": {}}}", "1:56 data/t: a table has either"},
        {head + "\"data\": {\"t\": {\"file\": \"t.csv\"}}}", "1:65 data/t: a scene without a folder"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.text.toStdString());
        QList<FenSceneProblem> problems = parse(row.text);
        EXPECT_TRUE(failed(problems));
        problems.removeIf([](FenSceneProblem const& problem) { return !problem.error; });
        std::string const expected = row.problem;
        EXPECT_EQ(expected, listed(problems).substr(0, expected.size()));
        EXPECT_EQ(node, scene.root().at(0U));
    }
    EXPECT_EQ(before, textOf(scene));
    EXPECT_EQ(stamp, scene.root().stamp()) << "an error must not even mark the scene";
    EXPECT_EQ("s.json:3: column 12: expected true or false",
              parse(chartWith("\"enabled\": 1")).first().text().toStdString());
}

TEST_F(SceneFileTest, UnknownKeysAndTypesAreToldOnceAndKept)
{
    QByteArray const unknown =
        "\"glow\": 2.5, \"mood\": {\"a\": [1, {\"b\": null}]}, \"big\": 12345678901234567890,\n"
        "\"tags\": [\"x\", \"y\"], \"empty\": []";
    QByteArray const text = head
        + "\"camera\": {\"fov\": 30}, \"scene\": {\"mist\": null, \"children\": [\n"
          "{\"name\": \"a\", \"type\": \"visualization.cloud\", \"puffs\": [1, 2], \"children\": [{\"name\": "
          "\"z\"}]},\n"
          "{\"name\": \"b\", \"type\": \"visualization.cloud\"},\n"
          "{\"name\": \"c\", \"type\": \"visualization.chart.2d\", "
        + unknown
        + "},\n"
          "{\"name\": \"d\", \"type\": \"visualization.chart.2d\", \"glow\": 3, \"chart\": {\"variables\": "
          "[{\"name\": "
          "\"v\", \"data\": {\"y\": [1], \"w\": [2]}}]}}]}}";
    QList<FenSceneProblem> const problems = parse(text);
    EXPECT_FALSE(failed(problems)) << listed(problems);
    EXPECT_EQ(9, problems.size()) << listed(problems); // camera mist cloud glow mood big tags empty w
    QByteArray const saved = textOf(scene);
    for (char const* kept :
         {"\"camera\": {\"fov\":30}", "\"mist\": null", "\"puffs\": [1,2]", "\"glow\": 2.5",
          "\"children\": [{\"name\":\"z\"}]", "\"mood\": {\"a\":[1,{\"b\":null}]}",
          "\"big\": 12345678901234567890", "\"tags\": [\"x\", \"y\"]", "\"empty\": []", "\"w\": [2]",
          "\"glow\": 3", "\"visualization.cloud\""})
        EXPECT_TRUE(saved.contains(kept)) << kept << "\n" << saved.toStdString();
    double glow = 0;
    scene.root().at(QStringLiteral("c"))->string().getValue(QStringLiteral("glow"), glow, 0.0);
    EXPECT_EQ(2.5, glow);
    FenVisScene again;
    EXPECT_FALSE(failed(FenSceneFile::parse(saved, QStringLiteral("s"), again)));
    EXPECT_EQ(saved, textOf(again));
}

TEST_F(SceneFileTest, EverySettingComesBackExactly)
{
    FenVisChart2D& plot = scene.add<FenVisChart2D>(QStringLiteral("plot \"1\"\n\xE2\x80\x8F"));
    FenPropertiesString& store = plot.string();
    store.setValue(QStringLiteral("number"), 0.1 + 0.2);
    store.setValue(QStringLiteral("name"), QStringLiteral("a key with another meaning"));
    store.setValue(QStringLiteral("children"), true);
    store.setUnit(QStringLiteral("number"), QStringLiteral("mm"));
    plot.lineColor.set(QColor(1, 2, 3, 4));
    FenChart2D& chart = plot.chart;
    chart.xAxes.setFirst(QString(), QString());
    chart.xAxes.setSecond(QStringLiteral("top"), FenChartAxisDiscrete::typeString);
    chart.yAxes.first()->autoRange.set(false);
    chart.yAxes.first()->min.set(-std::numeric_limits<double>::infinity());
    chart.yAxes.first()->max.set(1e300);
    FenChartVariable& variable = chart.variables.append(QStringLiteral("v"));
    variable.colors.set({Qt::red, QColor(), QColor(0, 0, 0, 0)});
    variable.labels.set({QString(), QStringLiteral("[\"\\")});
    variable.lineWidth.set(0.1F);
    variable.setData(Vector3::CompY, {1, std::nan(""), -INFINITY, 1e-320, -0.0});
    scene.numberFormat = Kes::Math::NumberFormat('e', ',', 3);
    scene.resize(QSize(321, 123));

    QByteArray const saved = textOf(scene);
    FenVisScene loaded;
    QList<FenSceneProblem> const problems = FenSceneFile::parse(saved, QStringLiteral("s"), loaded);
    EXPECT_FALSE(failed(problems)) << listed(problems);
    EXPECT_EQ(saved, textOf(loaded));
    EXPECT_EQ(QSize(321, 123), loaded.size());
    EXPECT_EQ(scene.numberFormat, loaded.numberFormat);
    auto const& again = dynamic_cast<FenVisChart2D const&>(*loaded.root().at(0U));
    EXPECT_EQ(plot.name(), again.name());
    for (QString const& key : store.keys()) {
        EXPECT_EQ(plot.getString(key, QString()), again.getString(key, QString())) << key.toStdString();
        EXPECT_EQ(store.typeName(key), again.string().typeName(key)) << key.toStdString();
        EXPECT_EQ(store.getUnit(key, QString()), again.string().getUnit(key, QString())) << key.toStdString();
    }
    EXPECT_FALSE(again.chart.xAxes.first());
    EXPECT_EQ(QStringLiteral("top"), again.chart.xAxes.second()->name());
    EXPECT_TRUE(std::isinf(again.chart.yAxes.first()->min.get()));
    EXPECT_EQ(1e300, again.chart.yAxes.first()->max.get());
    FenChartVariable const& read = again.chart.variables[0];
    for (QString const& key : variable.string().keys())
        EXPECT_EQ(variable.getString(key, QString()), read.getString(key, QString())) << key.toStdString();
    std::vector<double> const& numbers = read.data(Vector3::CompY);
    ASSERT_EQ(5U, numbers.size());
    EXPECT_TRUE(std::isnan(numbers[1]) && std::isinf(numbers[2]) && std::signbit(numbers[4]));
    EXPECT_EQ(1e-320, numbers[3]);
}

namespace {

/// Another value than the one that a setting has.
QString otherValue(QString const& type, QString const& value)
{
    if (type == u"bool") return value == u"true" ? QStringLiteral("false") : QStringLiteral("true");
    if (type == u"int" || type == u"unsigned") return QString::number(value.toInt() + 1);
    if (type == u"float" || type == u"double") return QString::number(value.toDouble() + 0.5);
    if (type == u"QColor") return QStringLiteral("#12345678");
    if (type == u"QStringList") return QStringLiteral("[\"a\",\"\"]");
    if (type == u"QColorList") return QStringLiteral("[\"#12345678\"]");
    if (type == u"DoubleList") return QStringLiteral("[1.5,-2]");
    QStringList numbers = value.split(u' ');
    if (type != u"QString") numbers.last() = QStringLiteral("7.25"); // a vector or matrix
    return type == u"QString" ? QStringLiteral("other") : numbers.join(u' ');
}

void changeAll(FenProperties& node)
{
    for (QString const& key : node.string().keys())
        node.setValue(key, otherValue(node.string().typeName(key), node.getString(key, QString())));
    for (unsigned i = 0; i < node.size(); ++i) changeAll(*node.at(i));
}

/// All settings of a tree, one per line.
std::string settingsOf(FenProperties const& node, QString const& path)
{
    QString lines = path + QStringLiteral(": ") + node.type() + u'\n';
    for (QString const& key : node.string().keys())
        lines += path + u'.' + key + QStringLiteral(" = ") + node.getString(key, QString()) + u'\n';
    std::string text = lines.toStdString();
    for (unsigned i = 0; i < node.size(); ++i)
        text += settingsOf(*node.at(i), path + u'/' + node.at(i)->name());
    return text;
}

} // namespace

TEST_F(SceneFileTest, NodesOfEveryTypeComeBackWithEverySetting)
{
    QByteArray members;
    for (QString const& type : FenVisList::creatableTypes()
             + QStringList{QStringLiteral("visualization"), QStringLiteral("visualization.annotation"),
                           QStringLiteral("visualization.light_list")}) {
        QByteArray const name = type.toUtf8();
        QByteArray const lights =
            "\"children\": [{\"name\": \"l\"}, {\"name\": \"m\", \"type\": \"visualization.light\"}]";
        members += (members.isEmpty() ? "{\"name\": \"" : ", {\"name\": \"") + name + "\", \"type\": \""
            + name + (type.endsWith(u"light_list") ? "\", " + lights + '}' : QByteArray("\"}"));
    }
    ASSERT_EQ("", listed(parse(head + "\"scene\": [" + members + "]}")));
    for (unsigned i = 0; i < scene.root().size(); ++i) changeAll(*scene.root().at(i));
    scene.perspective.set(true);
    scene.lights().child(QStringLiteral("sun"), FenVisLight::typeString);
    changeAll(scene.lights());
    changeAll(scene.viewpoint());
    auto const all = [](FenVisScene& of) {
        return settingsOf(of.root(), QString()) + settingsOf(of.lights(), QString())
            + settingsOf(of.viewpoint(), QString());
    };
    std::string const before = all(scene);
    FenVisScene loaded;
    loaded.lights().child(QStringLiteral("moon"), FenVisLight::typeString);
    EXPECT_EQ("", listed(FenSceneFile::parse(textOf(scene), QStringLiteral("s"), loaded)));
    EXPECT_EQ(before, all(loaded));
    ASSERT_EQ("", listed(parse(head + "\"scene\": []}")));
    EXPECT_EQ(0U, scene.lights().size() + scene.root().size());
}

TEST_F(SceneFileTest, WritesOnlyWhatDiffersAndLeavesOutWhatCannotBeRead)
{
    EXPECT_EQ("{\n  \"format\": \"fenvis scene\",\n  \"version\": 1\n}\n", textOf(scene).toStdString());
    FenVisChart2D& plot = scene.add<FenVisChart2D>(QStringLiteral("c"));
    plot.chart.xAxes.first()->max.set(7); // found by a pass while the range is automatic
    plot.chart.yAxes.setFirst(QString(), QString());
    EXPECT_EQ(
        "{\n  \"format\": \"fenvis scene\",\n  \"version\": 1,\n  \"scene\": [\n    {\n      \"name\": "
        "\"c\",\n"
        "      \"type\": \"visualization.chart.2d\",\n      \"enabled\": true,\n      \"chart\": {\n"
        "        \"xAxes\": [\n          {\n            \"name\": \"x\",\n"
        "            \"type\": \"chart.axis.continuous\"\n          }\n        ]\n      }\n    }\n  ]\n}\n",
        textOf(scene).toStdString());
    plot.setValue(QStringLiteral("layer"), QStringLiteral("high"));
    QList<FenSceneProblem> const problems =
        FenSceneFile::save(scene, folder.filePath(QStringLiteral("s.json")));
    EXPECT_EQ("(0:0 scene/c: the setting layer is not a whole number and is left out)", listed(problems));
}

TEST_F(SceneFileTest, SavingKeepsTheUndoHistoryAndLoadingEndsIt)
{
    FenVisChart2D& plot = scene.add<FenVisChart2D>(QStringLiteral("c"));
    scene.propertyEdit().edit(plot, QStringLiteral("layer"), QStringLiteral("5"));
    QString const path = folder.filePath(QStringLiteral("s.json"));
    EXPECT_EQ("", listed(FenSceneFile::save(scene, path)));
    scene.undoStack().undo();
    EXPECT_EQ(90, plot.layer.get());
    scene.undoStack().redo();
    EXPECT_EQ("", listed(FenSceneFile::load(path, scene)));
    EXPECT_EQ(0, scene.undoStack().count());
    EXPECT_EQ(5, chart().layer.get());
    EXPECT_EQ(1U, scene.root().size());
}

TEST_F(SceneFileTest, TakesWhatTheLimitsAllowAndNoMore)
{
    QByteArray const node = "\"type\": \"t\"}";
    auto const named = [&](int length) {
        return head + "\"scene\": [{\"name\": \"" + QByteArray(length, 'n') + "\", " + node + "]}";
    };
    auto const keys = [&](int count) {
        QByteArray members;
        for (int i = 0; i < count; ++i) members += ",\"k" + QByteArray::number(i) + "\": 1";
        return chartWith("\"enabled\": true" + members);
    };
    auto const deep = [&](int depth) { // lists in each other below the root
        QByteArray text = head + "\"scene\": ";
        for (int i = 0; i < depth; ++i)
            text += "[{\"name\": \"n\", \"type\": \"visualization\", \"children\": ";
        text += "[]";
        for (int i = 0; i < depth; ++i) text += "}]";
        return text + '}';
    };
    auto const many = [&](int count, QByteArray const& what) {
        QByteArray list;
        for (int i = 0; i < count; ++i)
            list += (i ? ",{\"name\":\"" : "{\"name\":\"") + QByteArray::number(i) + what;
        return list;
    };
    auto const nodes = [&](int count) {
        return head + "\"scene\": [" + many(count, "\",\"type\":\"t\"}") + "]}";
    };
    auto const variables = [&](int count) {
        return chartWith("\"chart\": {\"variables\": [" + many(count, "\"}") + "]}");
    };
    EXPECT_FALSE(failed(parse(named(int(fen::limits::nameCharacters)))));
    EXPECT_TRUE(failed(parse(named(int(fen::limits::nameCharacters) + 1))));
    EXPECT_FALSE(failed(parse(keys(int(fen::limits::keysPerNode) - 3)))); // name, type, enabled
    EXPECT_TRUE(failed(parse(keys(int(fen::limits::keysPerNode) - 2))));
    EXPECT_EQ("", listed(parse(deep(int(fen::limits::treeDepth) - 1))));
    EXPECT_EQ("", listed(FenSceneFile::save(scene, folder.filePath(QStringLiteral("deep.json")))));
    EXPECT_TRUE(failed(parse(deep(int(fen::limits::treeDepth)))));
    auto* below = new FenProperties(scene.group());
    below->rename(QStringLiteral("far"));
    ASSERT_TRUE(scene.root().insert(below, false));
    for (int i = 0; i < 100'000; ++i) below = below->child(QStringLiteral("n"), QStringLiteral("t"));
    EXPECT_TRUE(failed(FenSceneFile::save(scene, folder.filePath(QStringLiteral("deep.json")))));
    QByteArray const tooMany = nodes(int(fen::limits::nodes) + 1);
    QList<FenSceneProblem> const problems = parse(tooMany);
    ASSERT_TRUE(failed(problems));
    EXPECT_EQ(tooMany.lastIndexOf('{') + 1, problems.back().column) << "the last node is one too many";
    EXPECT_TRUE(failed(parse(variables(int(fen::limits::variables) + 1))));
}

TEST_F(SceneFileTest, WhatIsSavedFitsTheSchemaAndBadScenesDoNot)
{
    QFile file(QStringLiteral(FENVIS_SCHEMA));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray const schema = file.readAll();
    ASSERT_EQ("", schemaProblem(schema, variableWith("\"data\": {\"y\": [1, null]}")).toStdString());
    for (QByteArray const& bad :
         {QByteArray("{\"format\": \"x\", \"version\": 1}"), head + "\"size\": [1.5, 2]}",
          head + "\"scene\": 5}", head + "\"scene\": [{\"type\": \"x\"}]}", head + "\"data\": {\"t\": {}}}",
          variableWith("\"data\": {\"y\": [true]}"), chartWith("\"x\": null"), chartWith("\"children\": {}")})
        EXPECT_NE("", schemaProblem(schema, bad).toStdString()) << bad.toStdString();
}
