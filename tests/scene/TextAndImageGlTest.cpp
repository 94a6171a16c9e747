#include "scene/VisImage.h"
#include "scene/VisText.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/RecordingNode.h"

namespace {

class TextAndImage : public OffscreenGlTest {
protected:
    /// What a node draws on white.
    Picture draw(FenVisualization const& node)
    {
        clear();
        FenVisualization::DrawContext const context(geometry, *cache, resource, viewport(), *text, {}, {});
        expectPassKeepsState([&] { node.draw2d(context); });
        return picture();
    }
    /// A picture of four colours: red and green on top, blue and black below.
    static QImage quarters(int side)
    {
        QImage image(side, side, QImage::Format_ARGB32);
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                image.setPixelColor(x, y,
                                    2 * y < side ? (2 * x < side ? Qt::red : Qt::green)
                                                 : (2 * x < side ? Qt::blue : Qt::black));
        return image;
    }

    FenModifiedGroup group;
};

} // namespace

TEST_F(TextAndImage, TextStandsAtTheTopLeftAboveItsShadow)
{
    FenVisText node(group);
    EXPECT_TRUE(draw(node).boundingBox().isNull());
    node.text.set({"HHH"});
    node.color.set(Qt::red);
    node.shadow.set(Qt::transparent);
    QRect const plain = draw(node).boundingBox();
    EXPECT_EQ(19, plain.bottom()) << "the baseline is `size` below the top";
    EXPECT_GE(plain.top(), 0);
    EXPECT_LT(plain.left(), 4);
    node.shadow.set(Qt::blue);
    Picture const both = draw(node);
    EXPECT_EQ(plain.united(plain.translated(1, 1)), both.boundingBox());
    EXPECT_GT(both.count(Qt::blue), 0);
    node.color.set(Qt::transparent);
    EXPECT_EQ(plain.translated(1, 1), draw(node).boundingBox());
    node.text.set({"HHH", "HHH"});
    EXPECT_GT(draw(node).boundingBox().height(), 30);
}

TEST_F(TextAndImage, MarkupChangesTypeAndColourButNotThatOfTheShadow)
{
    FenVisText node(group);
    node.color.set(Qt::black);
    node.shadow.set(Qt::transparent);
    auto const widthOf = [&](QString const& line) {
        node.text.set({line});
        return draw(node).boundingBox().width();
    };
    int const regular = widthOf("mmmmmm");
    EXPECT_GT(widthOf("<b>mmmmmm</b>"), regular);
    EXPECT_EQ(regular, widthOf("<b></b>mmmmmm"));
    Picture const upright = draw(node);
    EXPECT_GT(widthOf("<i>mmmmmm"), 0);
    EXPECT_GT(draw(node).differingPixels(upright), 50);
    node.text.set({"<font color=\"#ff0000\">mm</font> mm", "mm"});
    Picture const colored = draw(node);
    EXPECT_GT(colored.count(Qt::red), 10);
    EXPECT_GT(colored.count(Qt::black), 20);
    node.color.set(Qt::transparent);
    node.shadow.set(Qt::blue);
    EXPECT_EQ(0, draw(node).count(Qt::red));
    // Each line begins anew.
    node.text.set({"<b>never closed", "mmmmmm"});
    EXPECT_GT(draw(node).count(Qt::blue), 0);
}

TEST_F(TextAndImage, TextsOfAnySizeAndFontDrawOrDrawNothing)
{
    resource.setFont("broken", QByteArray(100, 'x'));
    log.expect("Unknown font");
    FenVisText node(group);
    node.text.set({QString(1000000, u'x'), QString(), QString(100, QChar(0xD800)), "\x01\n"});
    for (QString const& font : {QString("broken"), QString("no such font"), QString(100000, u'f')})
        for (int const size : {20, 0, -7, 100000, INT_MIN}) {
            node.font.set(font);
            node.fontBold.set(font);
            node.fontSize.set(size);
            draw(node);
        }
    node.fontSize.set(20);
    EXPECT_GT(draw(node).boundingBox().width(), 390) << "an unknown font is the default one";
    resizePicture(1, 1);
    draw(node);
}

TEST_F(TextAndImage, PicturesAreStretchedOrTiledFromTheBottomLeft)
{
    resource.setImage("quarters", quarters(50));
    FenVisImage node(group);
    node.texture.set("quarters");
    Picture const stretched = draw(node);
    EXPECT_TRUE(stretched.is(5, 5, Qt::red));
    EXPECT_TRUE(stretched.is(395, 5, Qt::green));
    EXPECT_TRUE(stretched.is(5, 295, Qt::blue));
    EXPECT_TRUE(stretched.is(395, 295, Qt::black));
    EXPECT_TRUE(stretched.is(0, 299, Qt::blue)) << "clamped at its edges";
    node.tiled.set(true);
    Picture const tiled = draw(node);
    for (int const x : {0, 50, 350})
        for (int const y : {0, 50, 250}) {
            EXPECT_TRUE(tiled.is(x + 12, 299 - y - 12, Qt::blue)) << x;
            EXPECT_TRUE(tiled.is(x + 37, 299 - y - 37, Qt::green)) << x;
        }
    node.color.set(QColor(0, 0, 255));
    EXPECT_TRUE(draw(node).is(12, 299 - 12, Qt::blue));
    EXPECT_TRUE(draw(node).is(37, 299 - 37, Qt::black)) << "green times blue";
}

TEST_F(TextAndImage, PicturesBlendWhenToldToAndMissingOnesAreAPlainArea)
{
    FenVisImage node(group);
    node.texture.set("none");
    node.color.set(QColor(255, 0, 0, 128));
    log.expect("Unknown image");
    EXPECT_EQ(400 * 300, draw(node).count(Qt::red));
    node.blended.set(true);
    EXPECT_EQ(400 * 300, draw(node).count(QColor(255, 127, 127), 1));
    QImage clear(2, 2, QImage::Format_ARGB32);
    clear.fill(QColor(0, 255, 0, 0));
    resource.setImage("clear", clear);
    node.texture.set("clear");
    node.color.set(Qt::white);
    EXPECT_TRUE(draw(node).boundingBox().isNull());
    node.blended.set(false);
    EXPECT_EQ(400 * 300, draw(node).count(QColor(0, 255, 0)));
    resource.setImage("huge", QImage(20000, 1, QImage::Format_Mono));
    node.texture.set("huge");
    draw(node);
    resource.setImage("none", QImage());
    node.texture.set("none");
    draw(node);
}
