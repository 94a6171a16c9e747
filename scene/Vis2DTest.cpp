#include "scene/Vis2DTest.h"

#include "framework/DrawContext.h"
#include "services/math/Finite.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglBoxedText.h"
#include "services/opengl/OglText.h"
#include "services/opengl/VertexArrays.h"

using Kes::Math::Vector2;

namespace {

/// Sides of an anchor on which a text can lie, and how they are written.
struct Side {
    char const* code;
    Qt::Alignment alignment;
};
Side const sides[] = {
    {"[R|B]", Qt::AlignRight | Qt::AlignBottom},  {"[L|B]", Qt::AlignLeft | Qt::AlignBottom},
    {"[R|C]", Qt::AlignRight | Qt::AlignVCenter}, {"[L|C]", Qt::AlignLeft | Qt::AlignVCenter},
    {"[R|T]", Qt::AlignRight | Qt::AlignTop},     {"[L|T]", Qt::AlignLeft | Qt::AlignTop},
};

// [px] places that are marked with their coordinates
constexpr QPoint marks[] = {{250, 250}, {350, 350}, {150, 150}, {250, 350}, {250, 300}};

constexpr int arm = 4; // [px] of the cross at a mark
constexpr float anchorSpacing = 40; // [px] between anchors above each other

void drawCross(Vector2 const& center)
{
    float const x = center.x(), y = center.y(), reach = float(arm);
    fen::drawRectangle(x - reach, y, x + reach + 1, y + 1);
    fen::drawRectangle(x, y - reach, x + 1, y + reach + 1);
}

} // namespace

QString const FenVis2DTest::typeString = QStringLiteral("visualization.test.2d");

FenVis2DTest::FenVis2DTest(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , color(*this, "color", Qt::red, QString())
    , position(*this, "position", Vector2(0, 0), QString())
    , boxSize(*this, "size", Vector2(250, 250), QString())
    , textPosition(*this, "textPosition", Vector2(0, 0), QString())
    , viewport(group)
{
    insert(&viewport, true);
    rename(typeString);
    setType(typeString);
}

FenVis2DTest::FenVis2DTest(FenVis2DTest const& other)
    : FenVisPassiveNode(other)
    , color(*this, other.color)
    , position(*this, other.position)
    , boxSize(*this, other.boxSize)
    , textPosition(*this, other.textPosition)
    , viewport(other.viewport)
{
    insert(&viewport, true);
    rename(typeString);
    setType(typeString);
}

FenVis2DTest::~FenVis2DTest() = default;

bool FenVis2DTest::getViewport(FenOglViewport const& parent, FenOglViewport& own) const
{
    own = FenOglViewport::fitToParent(parent, viewport);
    return true;
}

void FenVis2DTest::draw2d(DrawContext const& context) const
{
    if (!finite(position.get()) || !finite(boxSize.get()) || !finite(textPosition.get())) return;
    fen::FlatScope const flat;
    context.text.clear();
    context.text.setColor(color.get());
    FenOglTextBatch const batch(context.text);
    drawFrame();
    drawMarks(context.text);
    drawAnchors(context.text);
}

void FenVis2DTest::drawFrame() const
{
    glColor(color.get());
    Vector2 const from = position.get(), to = from + boxSize.get();
    constexpr float middle = 0.5f; // of a pixel: the line lies inside the frame
    fen::drawFrame(from.x() + middle, from.y() + middle, to.x() - middle, to.y() - middle);
}

void FenVis2DTest::drawMarks(FenOglText& text) const
{
    glColor(color.get());
    for (QPoint const& mark : marks) {
        drawCross(Vector2(float(mark.x()), float(mark.y())));
        text.draw(mark + QPoint(arm, arm), QStringLiteral("%1,%2").arg(mark.x()).arg(mark.y()));
    }
    Vector2 const caption = position.get() + textPosition.get();
    text.draw(caption + Vector2(float(arm), float(arm)),
              QStringLiteral("%1,%2 %3")
                  .arg(QString::number(caption.x(), 'f', 0), QString::number(caption.y(), 'f', 0), name()));
}

void FenVis2DTest::drawAnchors(FenOglText& text) const
{
    FenOglBoxedText boxed(text);
    boxed.setColor(QColor(255, 255, 255, 200), color.get());
    Vector2 const box = boxSize.get(), middle = position.get() + Vector2(box.x() * 0.3f, box.y() * 0.5f);
    for (int i = 0; i < int(std::size(sides)); ++i) {
        Vector2 const anchor = middle + Vector2(0, float(1 - i / 2) * anchorSpacing);
        boxed.setAlignment(sides[i].alignment);
        boxed.draw(anchor, QString::fromLatin1(sides[i].code));
        glColor(color.get());
        if (i % 2 == 1) drawCross(anchor); // both texts of the anchor are there
    }
}
