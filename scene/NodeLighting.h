#pragma once

#include "framework/Visualization.h"
#include "services/opengl/Gl.h"
#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"

namespace fen {

/// What holds while a node draws solid bodies: GL_LIGHTING as the node's
/// "lighting" says, with the current colour as its material. When the caller has
/// set lighting and colour itself, both are left alone.
class NodeLighting {
public:
    NodeLighting(FenVisualization const& node, FenVisualization::DrawContext const& context)
        : _attributes(GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_CURRENT_BIT)
        , _keeps(context.flags & FenVisualization::KeepLightingFlag)
    {
        if (_keeps) return;
        if (!node.lighting.get()) {
            glDisable(GL_LIGHTING);
            return;
        }
        glEnable(GL_LIGHTING);
        glEnable(GL_NORMALIZE);
        glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
        glEnable(GL_COLOR_MATERIAL);
        glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE); // bodies may be open
    }

    /// The colour of what follows.
    void setColor(QColor const& color) const
    {
        if (!_keeps) glColor(color);
    }

private:
    AttribScope _attributes;
    bool _keeps;
};

} // namespace fen
