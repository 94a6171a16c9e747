#include "charts/legend/LegendLayout.h"
#include "charts/legend/LegendPlacement.h"

#include <gtest/gtest.h>

namespace {

using fen::LegendEntrySize;
using fen::LegendLayout;

std::vector<LegendEntrySize> labels(std::vector<int> const& widths)
{
    std::vector<LegendEntrySize> sizes;
    for (int width : widths) sizes.push_back({QSize(width, 13), QSize()});
    return sizes;
}

/// Parts lie in their entry, entries in the box, and no two entries overlap.
void expectSound(LegendLayout const& layout)
{
    QRect const box(QPoint(0, 0), layout.box);
    for (size_t i = 0; i < layout.entries.size(); ++i) {
        LegendLayout::Entry const& entry = layout.entries[i];
        EXPECT_TRUE(box.contains(entry.bounds)) << i;
        for (QRect const& part : {entry.sample, entry.label, entry.ramp}) {
            EXPECT_TRUE(part.isEmpty() || entry.bounds.contains(part)) << i;
        }
        EXPECT_FALSE(entry.sample.intersects(entry.label)) << i;
        EXPECT_FALSE(entry.ramp.intersects(entry.label)) << i;
        for (size_t j = 0; j < i; ++j) {
            EXPECT_FALSE(entry.bounds.intersects(layout.entries[j].bounds)) << i << " and " << j;
        }
    }
}

} // namespace

TEST(LegendLayout, StacksEntriesFromTheTopAndBreaksColumnsWhenTheHeightIsUsedUp)
{
    auto const one = fen::layoutVertical(labels({40, 90, 20}), {}, QSize(400, 300));
    expectSound(one);
    ASSERT_EQ(3u, one.entries.size());
    EXPECT_GT(one.entries[0].bounds.y(), one.entries[1].bounds.y());
    EXPECT_EQ(one.entries[0].bounds.x(), one.entries[2].bounds.x());

    auto const two = fen::layoutVertical(labels({40, 90, 20, 30, 30}), {}, QSize(400, 70));
    expectSound(two);
    EXPECT_LE(two.box.height(), 70);
    EXPECT_LT(two.entries[0].bounds.x(), two.entries[4].bounds.x());
}

TEST(LegendLayout, WrapsRowsAndGivesRampsTheirRoom)
{
    auto sizes = labels({60, 60, 60});
    sizes[1].ramp = QSize(50, 110);
    auto const wide = fen::layoutHorizontal(sizes, {}, QSize(1000, 300));
    expectSound(wide);
    EXPECT_GE(wide.box.height(), 110);
    auto const narrow = fen::layoutHorizontal(sizes, {}, QSize(120, 300));
    expectSound(narrow);
    EXPECT_GT(narrow.entries[0].bounds.y(), narrow.entries[2].bounds.y());
}

TEST(LegendLayout, SurvivesWithoutEntriesAndWithoutRoom)
{
    EXPECT_TRUE(fen::layoutVertical({}, {}, QSize(100, 100)).box.isEmpty());
    expectSound(fen::layoutVertical(labels({500, 500}), {}, QSize(0, 0)));
    expectSound(fen::layoutHorizontal(labels({500, 500}), {}, QSize(0, 0)));
}

TEST(LegendPlacement, TakesTheFirstPlaceThatHidesLeast)
{
    QSize const box(50, 30);
    QSize const area(400, 300);
    QPoint const upperRight(342, 262);
    QPoint const upperLeft(8, 262);
    struct Case {
        std::vector<QPoint> ink;
        QPoint expected;
    };
    Case const cases[] = {
        {{}, upperRight},
        {{QPoint(350, 270)}, upperLeft},
        {{QPoint(350, 270), QPoint(20, 270), QPoint(360, 20)}, QPoint(8, 8)},
        // Ink everywhere but in the middle of the upper edge.
        {{QPoint(350, 270), QPoint(20, 270), QPoint(360, 20), QPoint(10, 10), QPoint(350, 150),
          QPoint(20, 150)},
         QPoint(175, 262)},
    };
    for (Case const& row : cases) EXPECT_EQ(row.expected, fen::leastHidingPlace(box, area, 8, row.ink));
    EXPECT_EQ(QPoint(0, 0), fen::leastHidingPlace(QSize(500, 400), area, 8, {}));
}
