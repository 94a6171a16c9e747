#include "services/opengl/PlotSymbols.h"
#include "services/opengl/Resource.h"
#include "services/opengl/StipplePatterns.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <bit>
#include <numeric>

namespace {

int coverage(QImage const& mask)
{
    int sum = 0;
    for (int y = 0; y < mask.height(); ++y)
        sum = std::accumulate(mask.constScanLine(y), mask.constScanLine(y) + mask.width(), sum);
    return sum / 255;
}

TEST(PlotSymbols, KeepTheirPlacesInTheList)
{
    EXPECT_EQ(
        "rect ellipse triangle uTriangle dTriangle lTriangle rTriangle diamond hexagon star cross xCross",
        fen::plotSymbolNames().join(' ').toStdString());
    EXPECT_EQ(7, fen::plotSymbolIndex("diamond"));
    EXPECT_EQ(-1, fen::plotSymbolIndex("none"));
}

TEST(PlotSymbols, AreCrispAndSymmetricAtEverySize)
{
    for (int size = 5; size <= 24; ++size)
        for (unsigned symbol = 0; symbol < 12; ++symbol) {
            SCOPED_TRACE(fen::plotSymbolNames()[int(symbol)].toStdString() + " at " + std::to_string(size));
            fen::PlotSymbolMasks const masks = fen::plotSymbolMasks(symbol, size);
            ASSERT_EQ(QSize(size, size), masks.fill.size());
            EXPECT_GE(coverage(masks.fill), size / 2);
            QImage const both = fen::plotSymbolPicture(masks, Qt::black, Qt::black);
            bool const sideways = symbol == 5 || symbol == 6; // the triangles that point left and right
            QImage const mirrored = both.mirrored(!sideways, sideways);
            int solid = 0;
            for (int y = 0; y < size; ++y)
                for (int x = 0; x < size; ++x) {
                    EXPECT_NEAR(qAlpha(both.pixel(x, y)), qAlpha(mirrored.pixel(x, y)), 24) << x << ' ' << y;
                    solid += qAlpha(both.pixel(x, y)) > 230;
                }
            EXPECT_GE(solid, size - 1) << "washed out";
        }
}

TEST(PlotSymbols, DrawARectangleOnWholePixelsWithOneRingOfOutline)
{
    QImage const picture = fen::plotSymbolPicture(fen::plotSymbolMasks(0, 7), Qt::red, Qt::blue);
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 7; ++x) {
            bool const edge = x == 0 || y == 0 || x == 6 || y == 6;
            EXPECT_EQ(QColor(edge ? Qt::blue : Qt::red).rgba(), picture.pixel(x, y)) << x << ' ' << y;
        }
}

TEST(PlotSymbols, PointWhereTheirNamesSay)
{
    // Share of the area in the half that the name speaks of: less than half, since it narrows there.
    struct {
        char const* name;
        QRect tip; ///< half with the tip, of a picture of 20 pixels
    } const rows[] = {{"uTriangle", QRect(0, 0, 20, 10)},
                      {"triangle", QRect(0, 0, 20, 10)},
                      {"dTriangle", QRect(0, 10, 20, 10)},
                      {"lTriangle", QRect(0, 0, 10, 20)},
                      {"rTriangle", QRect(10, 0, 10, 20)}};
    for (auto const& row : rows) {
        QImage const mask = fen::plotSymbolMasks(unsigned(fen::plotSymbolIndex(row.name)), 20).fill;
        EXPECT_LT(coverage(mask.copy(row.tip)) * 2, coverage(mask) * 0.9) << row.name;
    }
}

TEST(PlotSymbols, KeepTheirSizeWithoutAnOutlineColour)
{
    fen::PlotSymbolMasks const masks = fen::plotSymbolMasks(1, 9);
    QImage const plain = fen::plotSymbolPicture(masks, QColor(255, 0, 0, 128), Qt::transparent);
    QImage const same = fen::plotSymbolPicture(masks, QColor(255, 0, 0, 128), QColor(255, 0, 0, 128));
    EXPECT_EQ(same, plain);
    EXPECT_NEAR(128, qAlpha(plain.pixel(4, 0)), 2) << "the overlap of area and outline is not painted twice";
    QImage const hollow = fen::plotSymbolPicture(masks, Qt::transparent, Qt::black);
    EXPECT_EQ(0, qAlpha(hollow.pixel(4, 4)));
    EXPECT_GE(qAlpha(hollow.pixel(4, 0)), 250);
}

TEST(PlotSymbols, ComeOutOfAnAtlasImageAsTheyWentIn)
{
    LogCapture log;
    log.expect("unknown number");
    FenResource const resource;
    QImage const atlas = resource.image(fen::plotSymbolsName);
    ASSERT_EQ(QSize(12 * 64, 2 * 64), atlas.size());
    for (unsigned symbol = 0; symbol < 12; ++symbol) {
        fen::PlotSymbolMasks const cut = fen::cutPlotSymbol(atlas, symbol, 16);
        fen::PlotSymbolMasks const painted = fen::plotSymbolMasks(symbol, 16, 16 / 12.0);
        EXPECT_NEAR(coverage(painted.fill), coverage(cut.fill), 25) << symbol;
        EXPECT_NEAR(coverage(painted.outline), coverage(cut.outline), 25) << symbol;
    }
    EXPECT_EQ(fen::plotSymbolMasks(0, 9).fill, fen::plotSymbolMasks(99, 9).fill);
    EXPECT_EQ(1, log.count("unknown number"));
}

TEST(PlotSymbols, AreTheFileInTheDataFolder)
{
    QImage const file(FENVIS_DATA_FOLDER "/resources/plotSymbols.png");
    EXPECT_EQ(fen::plotSymbolAtlas(), file.convertToFormat(QImage::Format_ARGB32))
        << "run the program plot-symbols and keep its picture";
}

TEST(Resource, AnswersWithWhatTheHostSetOrNothing)
{
    FenResource resource;
    EXPECT_TRUE(resource.image("none").isNull());
    EXPECT_TRUE(resource.font("none").isEmpty());
    QImage own(3, 2, QImage::Format_RGB32);
    own.fill(Qt::green);
    resource.setImage(fen::plotSymbolsName, own);
    EXPECT_EQ(own, resource.image(fen::plotSymbolsName));
    resource.setFont("f", "data");
    EXPECT_EQ(QByteArray("data"), resource.font("f"));
}

TEST(StipplePatterns, AreKnownByNameOrHexText)
{
    LogCapture log;
    struct {
        char const* text;
        int bits;
    } const rows[] = {{"solid", 0xFFFF},   {"", 0xFFFF},       {"dash", 0x00FF},   {"dot", 0x3333},
                      {"dashDot", 0x1C7F}, {"0x0F0F", 0x0F0F}, {"0X00ff", 0x00FF}, {"0x", 0xFFFF},
                      {"0x12345", 0xFFFF}, {"wavy", 0xFFFF},   {"0xFFFZ", 0xFFFF}};
    for (int round = 0; round < 2; ++round)
        for (auto const& row : rows) EXPECT_EQ(row.bits, fen::lineStippleBits(row.text)) << row.text;
    EXPECT_EQ(1, log.count("\"wavy\""));
    EXPECT_EQ(4, log.take().size()) << "each unknown name once";
}

TEST(StipplePatterns, FillAsDenselyAsTheirNamesSay)
{
    LogCapture log;
    log.expect("Unknown fill pattern \"woven\"");
    auto const share = [](char const* name, double ratio) {
        int bits = 0;
        for (uint8_t const byte : fen::polygonStippleBits(name, ratio)) bits += std::popcount(byte);
        return bits / 1024.0;
    };
    for (double const ratio : {1.0, 2.0}) {
        EXPECT_EQ(1.0, share("solid", ratio));
        EXPECT_EQ(1.0, share("woven", ratio));
        EXPECT_EQ(0.125, share("sparse", ratio));
        EXPECT_EQ(0.5, share("dense", ratio));
        EXPECT_EQ(0.25, share("horizontal", ratio));
        EXPECT_EQ(0.25, share("diagonal", ratio));
    }
}

} // namespace
