#include "services/properties/Labels.h"
#include "services/math/Vector3.h"
#include "services/properties/LabelIter.h"
#include "services/properties/PropertyAdaptor.h"
#include "services/properties/Quantity.h"
#include "services/properties/StringBuilder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(FenStringBuilder, FillsTheLowestPlaceholderAndNeverLooksAtFilledText)
{
    FenStringBuilder const builder(Kes::Math::NumberFormat('f', ',', 2));
    EXPECT_EQ("a { 1,50, 2,00 } ", builder.formatter("%1 { %2, %3 } ")("a")(1.5)(2.0)());
    EXPECT_EQ("%2 = x", builder.formatter("%1 = %2")("%2")("x")());
    EXPECT_EQ("b a b", builder.formatter("%2 %0 %2")("a")("b")()) << "every place of a number";
    EXPECT_EQ("a %2 100% %x", builder.formatter("%1 %2 100% %x")("a")()) << "what is left stays";
    EXPECT_EQ("a", builder.formatter("%1")("a")("too many")());
    EXPECT_EQ("one twelve", builder.formatter("%1 %12")("one")("twelve")());
    EXPECT_EQ("18446744073709551615 -1 ",
              builder.formatter("%1 %2 %3")(~quint64(0))(qint64(-1))(static_cast<char const*>(nullptr))());
    EXPECT_EQ("nan", FenStringBuilder().formatter("%1")(std::nan(""))());
}

TEST(Labels, AreShort)
{
    double const values[] = {1, 1000, 1e6, 1e-5, 2.5e-12, -2e100, 0, NAN, INFINITY};
    QString tidy, factor, log;
    for (double value : values) {
        tidy += fen::tidyExponent(value) + ' ';
        factor += fen::toFactorLabel(value) + ' ';
        log += fen::toLogLabel("10", value) + ' ';
    }
    EXPECT_EQ("1 1000 1e6 1e-5 2.5e-12 -2e100 0 nan inf ", tidy);
    EXPECT_EQ(" 1000 1e6 1e-5 2.5e-12 -2e100    ", factor);
    EXPECT_EQ(" 1e3 1e6 1e-5 2.5e-12 -2e100    ", log);
    EXPECT_EQ("2^5", fen::toLogLabel("2", 32));
    EXPECT_EQ("33", fen::toLogLabel("2", 33));
    EXPECT_EQ("8", fen::toLogLabel("e", 8)) << "no number, no power";
}

TEST(FenQuantityTriple, WritesWhatReadsBackAsANumber)
{
    FenModifiedGroup group;
    FenProperties node(group);
    FenPropertyAdaptor<double> const length(node, "length", 0.0, "mm");
    auto const text = FenQuantityTriple::ToStringWithUnit;
    FenQuantityTriple const withUnit(length), without{QString()};
    EXPECT_EQ("2.5 mm", text(withUnit, {2.5f, 2.5f, 2.5f}));
    EXPECT_EQ("1 2 3 mm", text(withUnit, {1, 2, 3}));
    EXPECT_EQ("1e+06", text(without, {1e6f, 1e6f, 1e6f}));
    node.setValue("length", text(withUnit, {2.5f, 2.5f, 2.5f}));
    EXPECT_EQ(2.5, length.get());
}

TEST(FenUnitSystem, ConvertsWhatItKnows)
{
    FenUnitSystem units;
    units.setUnit("m", "mm", 1000);
    EXPECT_EQ("2500 mm", QString("%1 %2").arg(units.convert(2.5, "m")).arg(units.unit("m")));
    EXPECT_EQ("2.5 kg", QString("%1 %2").arg(units.convert(2.5, "kg")).arg(units.unit("kg")));
}

TEST(FenLabelIter, StartsBeforeTheFirstAndStaysBehindTheLast)
{
    FenLabelIter iter({"a", "b"});
    for (int round = 0; round < 2; ++round, iter.Reset()) {
        QString seen = iter.Current();
        while (iter.MoveNext()) seen += iter.Current();
        EXPECT_EQ("ab", seen + iter.Current());
        EXPECT_FALSE(iter.MoveNext());
    }
}

} // namespace
