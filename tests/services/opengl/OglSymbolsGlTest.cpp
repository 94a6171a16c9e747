#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglSymbolBatch.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/PlotSymbols.h"
#include "tests/support/OffscreenGlTest.h"

#include <algorithm>
#include <random>

using Kes::Math::Vector3;

namespace {

class OglSymbols : public OffscreenGlTest {
protected:
    static FenOglSymbolStyle style(unsigned symbol, int size, QColor const& fill = Qt::red,
                                   QColor const& outline = Qt::blue)
    {
        FenOglSymbolStyle style;
        style.symbol = symbol;
        style.size = size;
        style.fill = fill;
        style.outline = outline;
        return style;
    }
    void drawAt(FenOglSymbolStyle const& look, std::vector<QPoint> positions)
    {
        FenOglSymbolBatch batch;
        batch.setStyle(look);
        batch.setPositions(std::move(positions));
        batch.draw(*cache, viewport());
    }
    static std::vector<QPoint> randomPositions(int count)
    {
        std::mt19937 random(11);
        std::vector<QPoint> list;
        for (int i = 0; i < count; ++i) list.emplace_back(int(random() % 420) - 10, int(random() % 320) - 10);
        return list;
    }
};

TEST_F(OglSymbols, ShowAllSymbolsInBothColoursAtEverySize)
{
    for (int size = 5; size <= 24; ++size) {
        clear();
        for (unsigned symbol = 0; symbol < 12; ++symbol)
            drawAt(style(symbol, size), {QPoint(16 + 32 * int(symbol), 150)});
        Picture const shown = picture();
        if (size % 6 == 0 || size == 5)
            shown.copy(QRect(0, 130, 400, 40)).magnified(3).save(QString("symbols %1").arg(size));
        for (int symbol = 0; symbol < 12; ++symbol) {
            QRect const cell(32 * symbol, 0, 32, 300);
            QRect const area(16 + 32 * symbol - size / 2, 299 - 150 + size / 2 - size + 1, size, size);
            QRect const box = shown.copy(cell).boundingBox().translated(cell.topLeft());
            EXPECT_TRUE(area.contains(box)) << symbol << " at " << size;
            EXPECT_GE(box.width(), size - 1) << symbol;
            EXPECT_GT(shown.count(Qt::red, cell, 120), 0) << symbol << " at " << size;
            bool const thin = symbol >= 10 && size < 9; // crosses have no room for an outline
            EXPECT_EQ(!thin, shown.count(Qt::blue, cell, 120) > 0) << symbol << " at " << size;
        }
    }
}

TEST_F(OglSymbols, AreTheSamePictureInQuadsAndPutTogether)
{
    for (QColor const& fill : {QColor(Qt::red), QColor(0, 200, 0, 100)})
        for (unsigned const symbol : {0u, 1u, 9u}) {
            std::vector<QPoint> const positions = randomPositions(5000);
            FenOglSymbolBatch batch;
            batch.setStyle(style(symbol, 8, fill));
            batch.setPositions(positions);
            clear();
            expectPassKeepsState([&] { batch.draw(*cache, viewport()); });
            Picture const together = picture();
            clear();
            for (size_t first = 0; first < positions.size(); first += 500)
                batch.draw(*cache, viewport(), first, first + 500);
            // Translucent marks add up in 8 bits either way, and round differently.
            EXPECT_EQ(0, picture().differingPixels(together, fill.alpha() < 255 ? 12 : 2)) << symbol;
            EXPECT_GE(together.colors(), 3);
            clear();
            batch.draw(*cache, viewport());
            EXPECT_EQ(0, picture().differingPixels(together)) << "kept picture";
        }
}

TEST_F(OglSymbols, LaterOnesCoverEarlierOnes)
{
    std::vector<QPoint> positions(3500, QPoint(100, 100));
    positions.push_back(QPoint(103, 100));
    FenOglSymbolBatch batch;
    batch.setStyle(style(0, 7));
    batch.setPositions(positions);
    batch.draw(*cache, viewport());
    Picture const shown = picture();
    EXPECT_TRUE(shown.pixelGl(100, 100) == Qt::blue) << "left edge of the last one";
    EXPECT_TRUE(shown.pixelGl(103, 100) == Qt::red);
    batch.setPositions({QPoint(200, 200)});
    batch.draw(*cache, viewport());
    EXPECT_TRUE(picture().pixelGl(200, 200) == Qt::red) << "new positions are taken over";
    batch.setStyle(style(0, 7, Qt::green));
    FenOglSymbolBatch const copy = batch;
    copy.draw(*cache, viewport());
    EXPECT_TRUE(picture().pixelGl(200, 200) == Qt::green) << "and a new style";
    cache->contextChanged();
    copy.draw(*cache, viewport());
    EXPECT_TRUE(picture().pixelGl(200, 200) == Qt::green);
}

TEST_F(OglSymbols, SurviveAnyPosition)
{
    std::vector<QPoint> positions = randomPositions(4000);
    positions.emplace_back(2147483647, -2147483647);
    positions.emplace_back(-2147483647, 5);
    FenOglSymbolBatch batch;
    batch.setStyle(style(3, 100000));
    batch.setPositions(positions);
    expectPassKeepsState([&] {
        batch.draw(*cache, viewport());
        batch.draw(*cache, FenOglViewport());
        batch.draw(*cache, viewport(), 4001, 99999);
        batch.draw(*cache, viewport(), 5, 4);
        batch.setStyle(style(99, -1, Qt::transparent, Qt::transparent));
        batch.draw(*cache, viewport());
    });
    EXPECT_GT(picture().count(Qt::red), 1000);
}

TEST_F(OglSymbols, GrowWithThePixelRatioAndStaySharp)
{
    resizePicture(800, 600);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluOrtho2D(FenOglViewport(0, 0, 400, 300));
    glMatrixMode(GL_MODELVIEW);
    fen::PixelRatioScope const ratio(2);
    FenOglSymbolBatch batch;
    batch.setStyle(style(0, 6));
    batch.setPositions({QPoint(50, 50)});
    batch.draw(*cache, FenOglViewport(0, 0, 400, 300));
    Picture const shown = picture();
    EXPECT_EQ(QRect(94, 494, 12, 12), shown.boundingBox());
    EXPECT_EQ(8 * 8, shown.count(Qt::red)) << "an outline of one logical pixel";
    EXPECT_EQ(12 * 12 - 8 * 8, shown.count(Qt::blue));
}

TEST_F(OglSymbols, SpritesMatchTheBatchAndWorkInLists)
{
    FenOglDisplayList list;
    fen::pointSize(9);
    {
        fen::ListScope const scope(list);
        for (unsigned symbol = 0; symbol < 12; ++symbol)
            geometry.drawTexturedPoint(*cache, Vector3(16.5f + 32 * float(symbol), 100.5f, 0),
                                       fen::plotSymbolsName, symbol, Qt::red, Qt::blue, true);
    }
    expectPassKeepsState([&] { list.draw(); });
    Picture const sprites = picture();
    sprites.copy(QRect(0, 180, 400, 40)).magnified(3).save("sprites");
    clear();
    for (unsigned symbol = 0; symbol < 12; ++symbol)
        drawAt(style(symbol, 9), {QPoint(16 + 32 * int(symbol), 100)});
    EXPECT_EQ(0, picture().differingPixels(sprites, 3)) << "not mirrored, not shifted";
}

TEST_F(OglSymbols, SpritesTakeOneColourPerPointAndHardEdgesOnDemand)
{
    fen::pointSize(11);
    std::vector<Vector3> const positions{Vector3(50.5f, 50.5f, 0), Vector3(100.5f, 50.5f, 0)};
    expectPassKeepsState([&] {
        geometry.drawTexturedPoints(*cache, positions, fen::plotSymbolsName, 1, Qt::black, Qt::transparent,
                                    false, {QColor(Qt::red), QColor(Qt::green)});
    });
    Picture const shown = picture();
    EXPECT_EQ(3, shown.colors()) << "nothing is blended";
    EXPECT_EQ(shown.count(Qt::red), shown.count(Qt::green));
    EXPECT_NEAR(95, shown.count(Qt::red), 6);
    expectPassKeepsState([&] { geometry.drawTexturedPoints(*cache, {}, "", 1, Qt::red, Qt::red, true); });
}

TEST_F(OglSymbols, AtlasOfTheHostIsUsedWhenThereIsOne)
{
    QImage own(2 * 32, 2 * 32, QImage::Format_ARGB32);
    own.fill(QColor(255, 255, 255, 0));
    for (int y = 0; y < 32; ++y)
        for (int x = 32; x < 64; ++x) own.setPixelColor(x, y, Qt::white); // second symbol: a full square
    resource.setImage(fen::plotSymbolsName, own);
    FenOglSymbolStyle look = style(1, 10, Qt::red, Qt::transparent);
    look.atlas = fen::plotSymbolsName;
    drawAt(look, {QPoint(50, 50)});
    EXPECT_EQ(100, picture().count(Qt::red));
    log.expect("Unknown image \"other.png\"");
    look.atlas = "other.png";
    drawAt(look, {QPoint(150, 50)});
    EXPECT_GT(picture().count(Qt::red), 150) << "the built-in symbols stand in";
}

} // namespace
