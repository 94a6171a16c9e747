#include "services/properties/ColorMap.h"
#include "services/properties/ColorSchemes.h"
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
    QString text;
    for (QString const& key : viewport.string().keys()) text += key + '=' + viewport.getString(key, {}) + ' ';
    EXPECT_EQ("placement=bottomLeft x=0 y=0 width=1 height=1 ", text);
    FenTransform transform(group);
    EXPECT_EQ(FenMatrix0, transform.matrix());
    transform.value.set(Kes::Math::Matrix::rotate(Kes::Math::VectorZ, 90));
    EXPECT_EQ(transform.matrix(), FenTransform(transform).matrix());
}

TEST(ColorSchemes, AreOrderedByLightnessAndTextsOnThemReadable)
{
    for (QString const& name : fen::colorSchemeNames()) {
        QList<QColor> const colors = fen::colorScheme(name);
        ASSERT_GE(colors.size(), 8) << qPrintable(name);
        double contrast = 21;
        for (QColor const& color : colors) {
            double const ground = fen::relativeLuminance(color) + 0.05;
            double const text = fen::relativeLuminance(fen::readableOn(color)) + 0.05;
            contrast = std::min(contrast, std::max(ground / text, text / ground));
        }
        EXPECT_GE(contrast, 4.5) << qPrintable(name); // what WCAG asks of small texts
        if (name == QLatin1String(fen::defaultCategoryScheme)) continue;
        qsizetype const rising =
            name == QLatin1String(fen::defaultDivergingScheme) ? colors.size() / 2 : colors.size() - 1;
        for (qsizetype i = 0; i + 1 < colors.size(); ++i)
            EXPECT_EQ(i < rising, fen::relativeLuminance(colors[i]) < fen::relativeLuminance(colors[i + 1]))
                << qPrintable(name) << i;
    }
    EXPECT_TRUE(fen::colorScheme("no such").isEmpty());
    EXPECT_EQ(QColor(Qt::black), fen::rampColor({}, 0.5));
}

TEST(FenColorMap, IsLinearAndClamped)
{
    FenModifiedGroup group;
    FenColorMap map(group);
    EXPECT_EQ(QColor(Qt::black), map.color(0.5));
    QColor const first(0, 0, 0), middle(200, 100, 0, 55), last(0, 0, 255);
    map.colors.set({first, middle, last});
    struct Row {
        double min, max, value;
        QColor color;
    };
    for (Row const& row : {Row{10, 20, 10, first}, Row{10, 20, 15, middle}, Row{10, 20, 20, last},
                           Row{10, 20, 12.5, QColor(100, 50, 0, 155)}, Row{10, 20, -1e300, first},
                           Row{10, 20, INFINITY, last}, Row{10, 20, NAN, Qt::black}, Row{20, 10, 10, last},
                           Row{20, 10, 25, first}, Row{10, 10, 10, first}, Row{10, 10, 10.5, last}}) {
        map.min.set(row.min);
        map.max.set(row.max);
        EXPECT_EQ(row.color, map.color(row.value)) << row.min << ' ' << row.value;
    }
    map.max.set(INFINITY);
    EXPECT_TRUE(map.color(11).isValid());
}

} // namespace
