#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglBoxedText.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/oglft/Face.h"
#include "tests/support/OffscreenGlTest.h"

#include <QFont>
#include <QPainter>

#include <limits>

using Kes::Math::Angle;
using Kes::Math::Vector2;

namespace {

class OglText : public OffscreenGlTest {
protected:
    /// [px, y up] bounding box of what was drawn since the last call.
    QRect drawnBox()
    {
        QRect const box = picture().boundingBox();
        clear();
        return QRect(box.x(), 300 - box.y() - box.height(), box.width(), box.height());
    }
};

TEST_F(OglText, HasTheLineHeightsThatLayoutsCountOn)
{
    EXPECT_EQ(13, text->height()) << "8 points unless told otherwise";
    text->setPointSize(9);
    EXPECT_EQ(14, text->height());
    EXPECT_EQ(QSize(151, 14), text->size("Hello World 0123456789"));
    EXPECT_EQ(QSize(0, 0), text->size(QString()));
    text->clear();
    EXPECT_EQ(8u, text->pointSize());
    EXPECT_EQ(Qt::AlignRight | Qt::AlignTop, text->alignment());
    text->setPointSize(0);
    EXPECT_GT(text->height(), 0);
}

TEST_F(OglText, LooksAsQtPaintsIt)
{
    QString const line = QString::fromUtf8("Hgf 0123456789 µm², Ω, °C");
    for (int const points : {8, 9, 20}) {
        clear();
        text->setPointSize(unsigned(points));
        text->draw(QPoint(10, 100), line);
        QFont font("DejaVu Sans");
        font.setPixelSize(qRound(points * 96 / 72.0));
        font.setHintingPreference(QFont::PreferFullHinting);
        font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
        QImage painted(400, 300, QImage::Format_RGB32);
        painted.fill(Qt::white);
        QPainter painter(&painted);
        painter.setFont(font);
        painter.drawText(QPoint(10, 200 - text->height() + int(cache->font({})->ascender())), line);
        painter.end();
        picture().save(QString("text %1 points").arg(points));
        EXPECT_EQ(0, picture().differingPixels(Picture(painted), 3)) << points << " points";
    }
}

TEST_F(OglText, LiesOnTheSideThatTheAlignmentNames)
{
    struct {
        Qt::Alignment alignment;
        QRect side; ///< [px] where the text must lie around the anchor (200, 150)
    } const rows[] = {
        {Qt::AlignRight | Qt::AlignTop, QRect(200, 150, 60, 14)},
        {Qt::AlignLeft | Qt::AlignTop, QRect(140, 150, 60, 14)},
        {Qt::AlignRight | Qt::AlignBottom, QRect(200, 136, 60, 14)},
        {Qt::AlignLeft | Qt::AlignBottom, QRect(140, 136, 60, 14)},
        {Qt::Alignment(), QRect(200, 150, 60, 14)},
    };
    text->setPointSize(9);
    for (auto const& row : rows) {
        text->setAlignment(row.alignment);
        text->draw(QPoint(200, 150), "Hgjp");
        QRect const box = drawnBox();
        EXPECT_TRUE(row.side.contains(box)) << int(row.alignment) << ": " << box.x() << ' ' << box.y();
        EXPECT_GE(box.height(), 11) << "from the top of H to the foot of g";
    }
    text->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    text->draw(QPoint(200, 150), "OxO");
    QRect const box = drawnBox();
    EXPECT_NEAR(400, box.left() + box.right() + 1, 2);
    EXPECT_NEAR(300, box.top() + box.bottom() + 1, 4);
}

TEST_F(OglText, TurnsCounterClockwiseAboutTheAnchor)
{
    text->setPointSize(9);
    struct {
        double degrees;
        QRect quarter; ///< [px, y up]
    } const rows[] = {{90, QRect(186, 150, 14, 150)},
                      {180, QRect(100, 136, 100, 14)},
                      {270, QRect(200, 50, 14, 100)},
                      {45, QRect(188, 150, 100, 100)},
                      {-90, QRect(200, 50, 14, 100)}};
    text->draw(QPoint(200, 150), "turned text");
    QSize const upright = drawnBox().size();
    for (auto const& row : rows) {
        text->setOrientation(Angle::fromDegrees(row.degrees));
        text->draw(QPoint(200, 150), "turned text");
        QRect const box = drawnBox();
        EXPECT_TRUE(row.quarter.contains(box))
            << row.degrees << ": " << box.x() << ' ' << box.y() << ' ' << box.width() << ' ' << box.height();
        if (row.degrees == 90 || row.degrees == 270) {
            EXPECT_EQ(upright.transposed(), box.size());
        }
    }
    text->setOrientation(Angle(std::numeric_limits<double>::quiet_NaN()));
    text->draw(QPoint(200, 150), "turned text");
    EXPECT_EQ(upright, drawnBox().size()) << "an angle that is no number counts as none";
}

TEST_F(OglText, DrawsABatchAsTheSameTextsOneByOne)
{
    auto const draw = [&] {
        text->clear();
        for (int i = 0; i < 12; ++i) {
            text->setColor(QColor::fromHsv(30 * i, 255, 160));
            text->setOrientation(Angle::fromDegrees(i % 3 == 0 ? 30 : 0));
            text->draw(Vector2(20.3f + 20 * float(i), 40.7f + 15 * float(i)), QString("Label %1").arg(i));
        }
    };
    draw();
    Picture const single = picture();
    clear();
    {
        FenOglTextBatch const outer(*text);
        draw();
        FenOglTextBatch const inner(*text);
        EXPECT_TRUE(picture().boundingBox().isNull()) << "drawn too early";
    }
    single.save("text batch");
    EXPECT_EQ(0, picture().differingPixels(single));
    EXPECT_GT(single.count(Qt::white), 100000);
    EXPECT_FALSE(single.boundingBox().isNull());
}

TEST_F(OglText, HasTheSameLayoutAndMoreDetailAtAHigherPixelRatio)
{
    text->setPointSize(9);
    QSize const size = text->size("Axis title");
    text->draw(QPoint(20, 40), "Axis title");
    QRect const single = picture().boundingBox();
    resizePicture(800, 600);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluOrtho2D(FenOglViewport(0, 0, 400, 300));
    glMatrixMode(GL_MODELVIEW);
    fen::PixelRatioScope const ratio(2);
    EXPECT_EQ(size, text->size("Axis title"));
    EXPECT_EQ(14, text->height());
    text->draw(QPoint(20, 40), "Axis title");
    QRect const twice = picture().boundingBox();
    EXPECT_NEAR(2 * single.width(), twice.width(), 3);
    EXPECT_NEAR(2 * single.height(), twice.height(), 3);
    EXPECT_NEAR(2 * single.left(), twice.left(), 2);
    Picture const enlarged(picture().image().copy(twice).scaled(single.size()).scaled(twice.size()));
    EXPECT_GT(enlarged.differingPixels(picture().copy(twice), 60), 50) << "enlarged instead of drawn anew";
}

TEST_F(OglText, IsPickedByItsRectangle)
{
    auto const name = [&](int x, int y) {
        std::vector<GLuint> const hits = pick(x, y, 1, [&] {
            FenOglTextBatch const batch(*text); // each text keeps its own name
            glLoadName(5);
            text->draw(QPoint(100, 100), "i i i i i i");
            glLoadName(6);
            text->setOrientation(Angle::fromDegrees(90));
            text->draw(QPoint(100, 150), "upwards");
            text->clear();
        });
        return hits.empty() ? 0u : hits.back();
    };
    int const width = text->size("i i i i i i").width();
    EXPECT_EQ(5u, name(101, 101));
    EXPECT_EQ(5u, name(100 + width / 2, 106)) << "also between the letters";
    EXPECT_EQ(0u, name(102 + width, 106));
    EXPECT_EQ(0u, name(101, 98));
    EXPECT_EQ(6u, name(95, 170));
    EXPECT_EQ(0u, name(110, 155));
}

TEST_F(OglText, SurvivesHostileTextsAndPlaces)
{
    expectPassKeepsState([&] {
        float const nan = std::numeric_limits<float>::quiet_NaN();
        text->draw(Vector2(nan, 5), "nowhere");
        text->draw(Vector2(1e30f, -1e30f), "far away");
        text->draw(QPoint(10, 10), QString(100000, QChar(0x0301)));
        text->draw(QPoint(10, 30), QString("tab\tnew\nline") + QChar(0) + QChar(0xD800) + QChar(0x202E));
        text->setColor(Qt::transparent);
        text->draw(QPoint(10, 50), "unseen");
    });
    text->clear();
    EXPECT_LT(text->size(QString(100000, 'x')).width(), 4200 * 10) << "cut after 4096 characters";
    EXPECT_EQ(13, text->size("two\nlines").height());
    text->setFont("No Such Font");
    log.expect("Unknown font \"No Such Font\"");
    EXPECT_EQ(151, (text->setPointSize(9), text->size("Hello World 0123456789").width()));
}

TEST_F(OglText, StaysRightWhenTheGlyphStoreOverflows)
{
    // Thousands of large glyphs in one batch: more than the largest texture holds.
    clear();
    text->setPointSize(9);
    text->draw(QPoint(10, 200), "Reference");
    Picture const reference = picture();
    clear();
    {
        FenOglTextBatch const batch(*text);
        text->setColor(QColor(255, 255, 255, 1));
        for (unsigned points = 150; points < 170; ++points) {
            text->setPointSize(points);
            for (int c = 0; c < 60; ++c) text->draw(QPoint(-5000, 0), QString(QChar(0x30 + c)));
        }
        text->setPointSize(9);
        text->setColor(Qt::black);
        text->draw(QPoint(10, 200), "Reference");
    }
    EXPECT_EQ(0, picture().differingPixels(reference));
}

TEST_F(OglText, ComesInBoxesOfTheirOwnColours)
{
    FenOglBoxedText box(*text);
    box.setColor(Qt::yellow, Qt::blue);
    box.setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    box.draw(QPoint(200, 150), QSize(100, 30), "boxed");
    Picture const shown = picture();
    shown.save("boxed text");
    EXPECT_EQ(QRect(150, 135, 100, 30), shown.boundingBox());
    EXPECT_EQ(2 * 100 + 2 * 28, shown.count(Qt::blue)) << "a frame of one pixel";
    EXPECT_TRUE(shown.is(155, 140, Qt::yellow));
    EXPECT_GT(shown.count(Qt::black, QRect(170, 140, 60, 20), 40), 30) << "the text in the middle";
    clear();

    box.setOrientation(Angle::fromDegrees(90));
    box.setAlignment(Qt::AlignRight | Qt::AlignTop);
    text->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    box.draw(Vector2(200, 100), "boxed");
    QSize const size = box.size("boxed");
    EXPECT_EQ(text->size("boxed") + QSize(8, 4), size);
    EXPECT_EQ(QRect(QPoint(200 - size.height(), 100), size.transposed()), drawnBox());
    EXPECT_EQ(Qt::AlignLeft | Qt::AlignBottom, text->alignment()) << "the text object is as it was";

    box.clear();
    box.draw(QPoint(50, 50), QString());
    box.draw(QPoint(50, 50), QSize(30, 20), QString());
    EXPECT_TRUE(drawnBox().isNull()) << "transparent boxes of no text";
    auto const hits = pick(60, 60, 1, [&] { box.draw(QPoint(50, 50), QSize(30, 20), "i"); });
    EXPECT_EQ(1u, hits.size()) << "picked by its area";
}

// Runs on its own, where fontconfig finds no fonts (opengl.nofont).
TEST_F(OglText, DISABLED_WithoutAnyFontOnTheMachineDrawsNothingAndSaysSoOnce)
{
    FenOglBoxedText box(*text);
    expectPassKeepsState([&] {
        text->draw(QPoint(10, 10), "unseen");
        box.draw(QPoint(50, 50), "unseen");
        cache->font("")->draw(10, 50, "unseen");
    });
    EXPECT_TRUE(picture().boundingBox().isNull());
    EXPECT_EQ(QSize(0, 0), text->size("unseen"));
    EXPECT_EQ(0, text->height());
    EXPECT_EQ(1, log.count("no font on this machine"));
    log.take();
}

TEST_F(OglText, FacesDrawFromTheBaselineInTheCurrentColour)
{
    OGLFT::Face* const face = cache->font("DejaVu Sans");
    face->setPointSize(15);
    EXPECT_EQ(20, face->pixelSize());
    glColor(Qt::red);
    expectPassKeepsState([&] { face->draw(50, 100, "HEX"); });
    QRect const box = drawnBox();
    EXPECT_EQ(100, box.top()) << "letters without a tail stand on the baseline";
    EXPECT_LT(box.width(), face->advance("HEX") + 1);
    face->setPixelSize(-7);
    EXPECT_EQ(1, face->pixelSize());
}

} // namespace
