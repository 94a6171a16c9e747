#pragma once

#include "../framework/VisPassiveNode.h"

/// A picture that fills the parent's viewport, stretched or tiled.
///
/// Stretched pictures end at their edges, tiles begin at the bottom left. A name
/// that the resources do not know gives a plain area of "color".
class FENVIS_EXPORT FenVisImage : public FenVisPassiveNode {
public:
    static QString const typeString;

    FenPropertyAdaptor<QString> texture; ///< name of an image of the resources
    FenPropertyAdaptor<bool> tiled; ///< repeated at its own size, one texel a pixel
    FenPropertyAdaptor<QColor> color; ///< the picture is multiplied by it
    FenPropertyAdaptor<bool> blended; ///< lets what lies below shine through by its alpha

    explicit FenVisImage(FenModifiedGroup& group);
    FenVisImage(FenVisImage const& other);
    FenVisImage& operator=(FenVisImage const&) = default;
    ~FenVisImage() override;

    void draw2d(DrawContext const& context) const override;
    virtual void doDraw2d(DrawContext const& context) const;
};
