#include "services/properties/ColorMap.h"
#include "services/properties/Transform.h"
#include "services/properties/TypedDefaults.h"
#include "services/properties/Viewport.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(PropertyObjects, StartWithTheirDefaultsAndAreCopied)
{
    FenModifiedGroup group;
    FenViewport viewport(group);
    FenViewport const fresh(viewport);
    QString text;
    for (QString const& key : fresh.string().keys()) text += key + '=' + fresh.getString(key, {}) + ' ';
    EXPECT_EQ("placement=bottomLeft x=0 y=0 width=1 height=1 ", text);
    FenTransform transform(group);
    EXPECT_EQ(FenMatrix0, transform.matrix());
    Kes::Math::Matrix const turned = Kes::Math::Matrix::rotate(Kes::Math::VectorZ, 90);
    transform.value.set(turned);
    EXPECT_EQ(turned, FenTransform(transform).matrix());
}

TEST(FenColorMap, IsLinearAndClamped)
{
    FenModifiedGroup group;
    FenColorMap map(group);
    EXPECT_EQ(QColor(Qt::black), map.color(0.5));
    map.colors.set({QColor(0, 0, 0), QColor(200, 100, 0, 55), QColor(0, 0, 255)});
    map.min.set(10.0);
    map.max.set(20.0);
    struct Row {
        double value;
        QColor color;
    };
    QColor const first(0, 0, 0), middle(200, 100, 0, 55), last(0, 0, 255);
    for (Row const& row : {Row{10, first},
                           {15, middle},
                           {20, last},
                           {12.5, QColor(100, 50, 0, 155)},
                           {-1e300, first},
                           {INFINITY, last},
                           {NAN, Qt::black}})
        EXPECT_EQ(row.color, map.color(row.value)) << row.value;
    map.min.set(20.0);
    map.max.set(10.0); // downwards
    EXPECT_EQ(last, map.color(10));
    EXPECT_EQ(first, map.color(25));
    map.min.set(10.0); // no extent
    EXPECT_EQ(first, map.color(10));
    EXPECT_EQ(last, map.color(10.5));
    map.max.set(INFINITY);
    EXPECT_TRUE(map.color(11).isValid());
    map.colors.set({QColor(1, 2, 3)});
    EXPECT_EQ(QColor(1, 2, 3), map.color(99));
}

} // namespace
