#include "axes/ElidedText.h"
#include "services/chartdata/ChartAxis.h"
#include "tests/support/SceneBuilder.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

// A chart of 400 x 300 has a rim of 7 px; the margins of the axes follow inside it. Lines are 13 px high.

TEST(VisAxesXY, GiveEachSideTheRoomOfItsLabelsAndTitle)
{
    typedef FenChartAxisContinuous Axis;
    std::tuple<char const*, std::function<void(Axis&)>, int> const rows[] = {
        {"labels", [](Axis&) {}, 13 + 7},
        {"labels and title", [](Axis& a) { a.title.set("Title"); }, 13 + 7 + 40},
        {"labels and unit", [](Axis& a) { a.unit.set("m"); }, 13 + 7 + 40},
        {"transparent title keeps its room", [](Axis& a) { a.titleColor.set(Qt::transparent); }, 13 + 7 + 40},
        {"not shown", [](Axis& a) { a.shown.set(false), a.title.set("Title"); }, 13},
        {"date: no unit", [](Axis& a) { a.format.set("date"), a.unit.set("s"); }, 13 + 7},
    };
    for (auto const& [what, set, margin] : rows) {
        ChartScene scene;
        scene.line("a", {{0, 0}, {1, 1}});
        set(scene.axis("x"));
        scene.update();
        EXPECT_EQ(7 + margin, scene.data().y()) << what;
        EXPECT_EQ(300 - 7 - 13, scene.data().y() + scene.data().height()) << "no axis at the top";
    }
}

TEST(VisAxesXY, ReserveTheWidestLabelAtTheSides)
{
    ChartScene scene;
    scene.line("a", {{0, 0}, {1, 1}});
    scene.range("y", 0, 10);
    scene.update();
    scene.text.setPointSize(8);
    EXPECT_EQ(7 + scene.text.size("10").width() + 7, scene.data().x());
    scene.axis("y").title.set("Title");
    scene.range("y", 0, 1e-30);
    scene.update();
    EXPECT_GE(scene.data().x(), 7 + scene.text.size("1e-30").width() + 7 + 40);
}

TEST(VisAxesXY, CutTextsThatAreTooLong)
{
    ChartScene scene;
    scene.text.setPointSize(8);
    QString const text = QString::fromUtf8("A title that is rather long \U0001F600");
    EXPECT_EQ(text, fen::elided(scene.text, text, 1000));
    for (int width = 0; width < 200; ++width) {
        QString const cut = fen::elided(scene.text, text, width);
        EXPECT_LE(scene.text.size(cut).width(), width);
        EXPECT_TRUE(cut.isEmpty() || cut == text || cut.endsWith(QChar(0x2026))) << cut.toStdString();
        EXPECT_TRUE(cut.isValidUtf16());
    }
    EXPECT_LE(scene.text.size(fen::elided(scene.text, QString(1000000, 'x'), 100)).width(), 100);
}
