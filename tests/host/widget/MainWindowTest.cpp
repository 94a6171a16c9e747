#include "apps/viewer/MainWindow.h"

#include "apps/viewer/PropertyPanel.h"
#include "charts/chart2d/VisChart2D.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/widget/VisWidget.h"
#include "services/chartdata/ChartAxis.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Picture.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoStack>

namespace {

class MainWindowTest : public testing::Test {
protected:
    MainWindowTest()
    {
        EXPECT_TRUE(open("time,speed\n1,10\n2,30\n3,20\n"));
        window.resize(900, 500);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    bool open(char const* text)
    {
        QFile file(folder.filePath(QStringLiteral("data.csv")));
        return file.open(QIODevice::WriteOnly) && file.write(text) > 0 && (file.close(), true)
            && window.open(file.fileName(), error);
    }
    FenVisScene& scene() { return window.view().scene(); }
    FenVisChart2D& chart()
    {
        for (unsigned i = 0; i < scene().root().size(); ++i)
            if (auto* const found = dynamic_cast<FenVisChart2D*>(scene().root().at(i))) return *found;
        std::abort();
    }
    /// The row of a setting or node, opened on the way.
    QTreeWidgetItem* row(QStringList const& path)
    {
        QTreeWidgetItem* item = window.panel().topLevelItem(0);
        for (QString const& name : path) {
            item->setExpanded(true);
            QTreeWidgetItem* found = nullptr;
            for (int i = 0; i < item->childCount(); ++i)
                if (item->child(i)->text(0) == name) found = item->child(i);
            if (!found) return nullptr;
            item = found;
        }
        return item;
    }

    LogCapture log;
    QTemporaryDir folder;
    QString error;
    MainWindow window;
};

TEST_F(MainWindowTest, AFailedOpenKeepsWhatIsShown)
{
    unsigned const curves = chart().chart.variables.size();
    EXPECT_GT(curves, 0u);
    EXPECT_FALSE(window.open(folder.filePath(QStringLiteral("missing.csv")), error));
    EXPECT_TRUE(error.contains(QLatin1String("missing.csv")));
    EXPECT_EQ(curves, chart().chart.variables.size());
    unsigned const nodes = scene().root().size();
    EXPECT_TRUE(open("a,b,c\n1,2,3\n4,5,6\n"));
    EXPECT_EQ(nodes, scene().root().size()) << "the old chart has gone";
}

TEST_F(MainWindowTest, ASceneIsSavedAndOpenedAgain)
{
    chart().layer.set(7);
    QString const path = folder.filePath(QStringLiteral("scene.json"));
    ASSERT_TRUE(window.saveScene(path, error)) << error.toStdString();
    chart().layer.set(8);
    ASSERT_TRUE(window.open(path, error)) << error.toStdString();
    EXPECT_EQ(7, chart().layer.get());
    EXPECT_EQ(3U, chart().chart.variables[0].count());
    EXPECT_FALSE(window.saveScene(folder.filePath(QStringLiteral("no/such/folder.json")), error));
    EXPECT_FALSE(window.open(folder.filePath(QStringLiteral("missing.json")), error));
    EXPECT_TRUE(error.contains(QLatin1String("missing.json: cannot read"))) << error.toStdString();
    EXPECT_EQ(7, chart().layer.get());
}

TEST_F(MainWindowTest, ThePanelEditsWithUndoAndRefusesNonsense)
{
    QStringList const path{chart().name(), QStringLiteral("chart"), QStringLiteral("title")};
    QTreeWidgetItem* const title = row(path);
    ASSERT_NE(nullptr, title);
    title->setText(1, QStringLiteral("Speed <i>"));
    EXPECT_EQ("Speed <i>", chart().chart.title.get());
    EXPECT_EQ(1, scene().undoStack().count());
    scene().undoStack().undo();
    EXPECT_TRUE(QTest::qWaitFor([&] { return row(path)->text(1) == chart().chart.title.get(); }));

    QTreeWidgetItem* const layer = row({chart().name(), QStringLiteral("layer")});
    ASSERT_NE(nullptr, layer);
    layer->setText(1, QStringLiteral("ninety"));
    EXPECT_EQ("90", layer->text(1));
    EXPECT_EQ(90, chart().layer.get());
    EXPECT_FALSE(scene().undoStack().canUndo());
}

TEST_F(MainWindowTest, ThePanelFollowsTheTree)
{
    ASSERT_NE(nullptr, row({chart().name()}));
    scene().root().erase(&chart());
    window.view().update();
    EXPECT_TRUE(QTest::qWaitFor([&] { return row({QStringLiteral("data")}) == nullptr; }));
}

TEST_F(MainWindowTest, ThemesColourEverythingAndPicturesAreSaved)
{
    window.setTheme(FenTheme::dark());
    QString const path = folder.filePath(QStringLiteral("picture.png"));
    ASSERT_TRUE(window.savePicture(path, error)) << error.toStdString();
    Picture const picture{QImage(path)};
    EXPECT_TRUE(picture.is(1, 1, FenTheme::dark().background));
    EXPECT_EQ(FenTheme::dark().text.rgba(), chart().chart.xAxes.first()->labelColor.get().rgba());
    EXPECT_FALSE(window.savePicture(folder.filePath(QStringLiteral("no/such/folder.png")), error));
    EXPECT_TRUE(error.contains(QLatin1String("folder.png")));
}

} // namespace
