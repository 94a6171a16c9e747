#include "services/properties/PropertiesString.h"
#include "services/properties/TypedDefaults.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace {

/// Value of a text that another wrote, `def` where it cannot be read.
template <class T>
T readAs(QString const& text, T const& def)
{
    FenPropertiesString store;
    store.setValue("key", text);
    T value{};
    EXPECT_EQ(text, store.getValue("key", value, def));
    return value;
}

TEST(FenPropertiesString, WritesTheDocumentedTexts)
{
    FenPropertiesString store;
    double const inf = std::numeric_limits<double>::infinity();
    Kes::Math::Matrix moved;
    moved(0, 3) = 5; // the last column
    std::pair<char const*, QString> const rows[] = {
        {"true", store.setValue("k", true)},
        {"4000000000", store.setValue("k", 4000000000U)},
        {"0.1", store.setValue("k", 0.1f)},
        {"1e+20", store.setValue("k", 1e20)},
        {"-0", store.setValue("k", -0.0)},
        {"text", store.setValue("k", "text")},
        {"#80ff0000", store.setValue("k", QColor(255, 0, 0, 128))},
        {"", store.setValue("k", QColor0)},
        {"1 2.5 -3", store.setValue("k", Kes::Math::Vector3(1, 2.5f, -3))},
        {"1 0 0 0 0 1 0 0 0 0 1 0 5 0 0 1", store.setValue("k", moved)},
        {"[1,0.5,\"-inf\",\"nan\"]", store.setValue("k", std::vector<double>{1, 0.5, -inf, -std::nan("")})},
        {"[]", store.setValue("k", FenDoubleList0)},
        {"[\"\"]", store.setValue("k", QStringList(""))},
        {"[\"a,\\\"b\\\"\\\\\",\"\\u000a\"]", store.setValue("k", QStringList{"a,\"b\"\\", "\n"})},
        {"[\"#ff0000ff\",\"\"]", store.setValue("k", QList<QColor>{Qt::blue, QColor()})}};
    for (auto const& [expected, text] : rows) EXPECT_EQ(expected, text);
}

TEST(FenPropertiesString, ReadsWhatPeopleWrite)
{
    EXPECT_TRUE(readAs(" 1 ", false) && !readAs("0", true));
    EXPECT_EQ(5, readAs(" +5 px", 0));
    EXPECT_EQ(2.5, readAs("2.5 mm", 0.0)) << "a number with its unit";
    EXPECT_EQ(QColor(Qt::red), readAs("red", QColor0));
    EXPECT_EQ(QColor(0x11, 0x22, 0x33), readAs("#123", QColor0));
    EXPECT_EQ(QColor(0x12, 0x56, 0x9a), readAs("#123456789abc", QColor0)) << "8 bits are kept";
    EXPECT_EQ(Kes::Math::Vector3(1, 2, 3), readAs("1  2 3 kN m", Kes::Math::Vector3()));
    EXPECT_EQ((QStringList{"a", "\u00e9\t"}), readAs(" [ \"a\" , \"\\u00E9\\t\" ] ", QStringList0));
    EXPECT_EQ(QStringList0, readAs("", QStringList{"def"}));
    EXPECT_EQ((std::vector<int>{1, -2}), readAs("[1,-2]", FenIntList0));
    EXPECT_EQ((std::vector<bool>{true, false, true}), readAs("[true,false,1]", FenBoolList0));
    EXPECT_TRUE(std::isnan(readAs("[null]", FenDoubleList0).at(0)));
}

TEST(FenPropertiesString, UnreadableTextsGiveTheDefaultAndOneLine)
{
    LogCapture log;
    log.expect("is no");
    for (char const* text : {"", "1e999", "5mm", "1 2", "1,5", "0x10", "\u0665", "--1"})
        EXPECT_EQ(-1.0, readAs(text, -1.0)) << text;
    for (char const* text : {"1.5", "99999999999", "true"}) EXPECT_EQ(-1, readAs(text, -1)) << text;
    for (char const* text : {"yes", "TRUE", "2"}) EXPECT_TRUE(readAs(text, true)) << text;
    EXPECT_EQ(QColor(Qt::red), readAs("#12", QColor(Qt::red)));
    EXPECT_EQ(Kes::Math::Vector2(7, 7), readAs("1 2 3", Kes::Math::Vector2(7, 7)));
    QStringList const def{"def"};
    for (char const* text : {"a", "[", "[\"a\"", "[\"a\",]", "[,]", "[\"a\"]x", "[\"\\u12\"]", "[\"\\x\"]",
                             "[\"a", "[\"\\", "[1]", "[[\"a\"]]", "{}", "[\"a\"\"b\"]"})
        EXPECT_EQ(def, readAs(text, def)) << text;
    EXPECT_GT(log.take().size(), 20);
    FenPropertiesString store;
    double value = 0;
    for (QString const& text : {"bad\n\"text\" " + QString(1000, 'x'), QString("worse")}) {
        store.setValue("key", text);
        for (int i = 0; i < 3; ++i) store.getValue("key", value, 4.0);
        EXPECT_EQ(4.0, value);
    }
    ASSERT_EQ(2, log.errors().size()) << "one line for each bad text";
    EXPECT_TRUE(log.errors()[0].startsWith("WARNING: value \"bad?\"text\" xxx"));
    EXPECT_LT(log.errors()[0].size(), 400);
}

TEST(FenPropertiesString, ManyKeysAreFoundAndCopied)
{
    FenPropertiesString store, target;
    QStringList keys;
    for (int i = 0; i < 1000; ++i) {
        keys << QString("key%1").arg(i);
        store.setValue(keys.back(), i);
    }
    store.setUnit("key7", "mm");
    target.setValue("key7", 7.5);
    target.setValue("extra", 1);
    target.setUnit("extra", "m");
    target = store;
    keys.move(7, 0); // it was there first
    EXPECT_EQ(keys, target.keys());
    int value = 0;
    for (int i = 0; i < 1000; i += 37)
        EXPECT_EQ(QString::number(i), target.getValue(QString("key%1").arg(i), value, -1));
    EXPECT_EQ("mm", target.getUnit("key7", {}) + target.getUnit("extra", {}));
}

} // namespace
