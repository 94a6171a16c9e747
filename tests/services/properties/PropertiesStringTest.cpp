#include "services/properties/PropertiesString.h"
#include "services/properties/TypedDefaults.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <limits>

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
    EXPECT_EQ("true", store.setValue("k", true));
    EXPECT_EQ("-7", store.setValue("k", -7));
    EXPECT_EQ("4000000000", store.setValue("k", 4000000000U));
    EXPECT_EQ("0.1", store.setValue("k", 0.1f));
    EXPECT_EQ("0.1", store.setValue("k", 0.1));
    EXPECT_EQ("250000", store.setValue("k", 250000.0));
    EXPECT_EQ("1e+20", store.setValue("k", 1e20));
    EXPECT_EQ("-0", store.setValue("k", -0.0));
    EXPECT_EQ("nan", store.setValue("k", -std::numeric_limits<double>::quiet_NaN()));
    EXPECT_EQ("-inf", store.setValue("k", -inf));
    EXPECT_EQ("text", store.setValue("k", "text"));
    EXPECT_EQ("#80ff0000", store.setValue("k", QColor(255, 0, 0, 128)));
    EXPECT_EQ("#ff000000", store.setValue("k", Qt::black));
    EXPECT_EQ("", store.setValue("k", QColor0));
    EXPECT_EQ("1 2.5", store.setValue("k", Kes::Math::Vector2(1, 2.5f)));
    EXPECT_EQ("1 2.5 -3", store.setValue("k", Kes::Math::Vector3(1, 2.5f, -3)));
    Kes::Math::Matrix moved;
    moved(0, 3) = 5; // the last column
    EXPECT_EQ("1 0 0 0 0 1 0 0 0 0 1 0 5 0 0 1", store.setValue("k", moved));
    EXPECT_EQ("[1,0.5,\"inf\"]", store.setValue("k", std::vector<double>{1, 0.5, inf}));
    EXPECT_EQ("[]", store.setValue("k", FenDoubleList0));
    EXPECT_EQ("[\"\"]", store.setValue("k", QStringList("")));
    EXPECT_EQ("[\"a,\\\"b\\\"\\\\\",\"\\u000a\"]", store.setValue("k", QStringList{"a,\"b\"\\", "\n"}));
    EXPECT_EQ("[\"#ff0000ff\",\"\"]", store.setValue("k", QList<QColor>{Qt::blue, QColor()}));
}

TEST(FenPropertiesString, ReadsWhatPeopleWrite)
{
    EXPECT_TRUE(readAs(" 1 ", false));
    EXPECT_FALSE(readAs("0", true));
    EXPECT_EQ(5, readAs(" +5 px", 0));
    EXPECT_EQ(2.5, readAs("2.5 mm", 0.0)) << "a number with its unit";
    EXPECT_EQ(1e6, readAs("1E6", 0.0));
    EXPECT_EQ(QColor(Qt::red), readAs("red", QColor0));
    EXPECT_EQ(QColor(0x11, 0x22, 0x33), readAs("#123", QColor0));
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
    EXPECT_EQ(9U, readAs("-1", 9U));
    for (char const* text : {"yes", "TRUE", "2"}) EXPECT_TRUE(readAs(text, true)) << text;
    EXPECT_EQ(QColor(Qt::red), readAs("#12", QColor(Qt::red)));
    EXPECT_EQ(Kes::Math::Vector2(7, 7), readAs("1 2 3", Kes::Math::Vector2(7, 7)));
    EXPECT_EQ(Kes::Math::Vector3(7, 7, 7), readAs("1 2", Kes::Math::Vector3(7, 7, 7)));
    QStringList const def{"def"};
    for (char const* text : {"a", "[", "[\"a\"", "[\"a\",]", "[,]", "[\"a\"]x", "[\"\\u12\"]", "[\"\\x\"]",
                             "[\"a", "[\"\\", "[1]", "[[\"a\"]]", "{}", "[\"a\"\"b\"]"})
        EXPECT_EQ(def, readAs(text, def)) << text;
    EXPECT_EQ(FenIntList0, readAs("[1,2.5]", FenIntList0));

    int const lines = int(log.take().size());
    FenPropertiesString store;
    double value = 0;
    store.setValue("key", "bad\n\"text\" " + QString(1000, 'x'));
    for (int i = 0; i < 3; ++i) store.getValue("key", value, 4.0);
    EXPECT_EQ(4.0, value);
    EXPECT_GT(lines, 20);
    ASSERT_EQ(1, log.errors().size()) << "one line for one bad text";
    EXPECT_TRUE(log.errors()[0].startsWith("WARNING: value \"bad?\"text\" xxx"));
    EXPECT_LT(log.errors()[0].size(), 400);
    store.setValue("key", "worse");
    store.getValue("key", value, 4.0);
    EXPECT_EQ(2, log.errors().size());
}

TEST(FenPropertiesString, KeepsOneValueWhateverTypesAreUsed)
{
    FenPropertiesString store;
    store.setValue("key", 3.0);
    int asInt = 0;
    EXPECT_EQ("3", store.getValue("key", asInt, 0));
    EXPECT_EQ(3, asInt);
    QString asText;
    store.getValue("key", asText, {});
    EXPECT_EQ("3", asText);
    EXPECT_EQ("double", store.typeName("key"));
    store.setValue("key", "4");
    EXPECT_EQ("double", store.typeName("key")) << "a text keeps the type";
    double asDouble = 0;
    store.getValue("key", asDouble, 0.0);
    EXPECT_EQ(4.0, asDouble);
}

TEST(FenPropertiesString, UndefinedKeysGiveTheDefault)
{
    FenPropertiesString store;
    int value = 0;
    store.setUnit("key", "mm");
    EXPECT_FALSE(store.defined("key")) << "a unit is no value";
    EXPECT_EQ(QString(), store.getValue("key", value, 8));
    EXPECT_EQ(8, value);
    EXPECT_EQ("mm", store.getUnit("key", "cm"));
    EXPECT_EQ("cm", store.getUnit("other", "cm"));
    store.setValue("key", QString());
    EXPECT_TRUE(store.defined("key"));
}

TEST(FenPropertiesString, ManyKeysAreFoundAndCopied)
{
    FenPropertiesString store, target;
    QStringList keys;
    for (int i = 0; i < 1000; ++i) {
        keys << QString("key%1").arg(i);
        store.setValue(keys.back(), i);
        store.setUnit(keys.back(), "mm");
    }
    EXPECT_EQ(keys, store.keys());
    target.setValue("key7", 7.5);
    target.setValue("extra", 1);
    target.setUnit("extra", "m");
    target = store;
    FenPropertiesString const copy(target);
    keys.removeAll("key7");
    keys.prepend("key7"); // it was there first
    EXPECT_EQ(keys, copy.keys());
    for (int i = 0; i < 1000; i += 37) {
        int value = 0;
        copy.getValue(QString("key%1").arg(i), value, -1);
        EXPECT_EQ(i, value);
    }
    EXPECT_EQ("mm", copy.getUnit("key7", {}));
    EXPECT_EQ("", copy.getUnit("extra", {}));
}

} // namespace
