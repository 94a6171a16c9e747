#pragma once

#include "../framework/VisPassiveNode.h"
#include "../services/math/Vector2.h"
#include "../services/properties/Viewport.h"

class FenOglText;

/// Node for looking at how texts are placed in pixels: boxed texts on each side
/// of an anchor, marks at known places with their coordinates, and a frame.
class FENVIS_EXPORT FenVis2DTest : public FenVisPassiveNode {
public:
    static QString const typeString;

    FenPropertyAdaptor<QColor> color; ///< of frame, marks and captions
    FenPropertyAdaptor<Kes::Math::Vector2> position; ///< [px] lower left corner of the frame
    FenPropertyAdaptor<Kes::Math::Vector2> boxSize; ///< [px] key "size", of the frame
    FenPropertyAdaptor<Kes::Math::Vector2> textPosition; ///< [px] from the corner of the frame to the caption
    FenViewport viewport;

    explicit FenVis2DTest(FenModifiedGroup& group);
    FenVis2DTest(FenVis2DTest const& other);
    FenVis2DTest& operator=(FenVis2DTest const&) = default;
    ~FenVis2DTest() override;

    bool getViewport(FenOglViewport const& parent, FenOglViewport& own) const override;
    void draw2d(DrawContext const& context) const override;

private:
    void drawFrame() const;
    void drawMarks(FenOglText& text) const;
    void drawAnchors(FenOglText& text) const;
};
