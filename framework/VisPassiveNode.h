#pragma once

#include "../services/logging/Export.h"
#include "Visualization.h"

/// A node for which no pass has anything to do: it has no viewport and no box,
/// draws nothing and is never hit. Nodes that take part in a few passes, or only
/// hold settings that others read, derive from it and override what they do.
class FENVIS_EXPORT FenVisPassiveNode : public FenVisualization {
public:
    using FenVisualization::FenVisualization;
    FenVisPassiveNode(FenVisPassiveNode const&) = default;
    FenVisPassiveNode& operator=(FenVisPassiveNode const&) = default;
    ~FenVisPassiveNode() override;

    bool getViewport(FenOglViewport const& parent, FenOglViewport& own) const override;
    void update(DrawContext const& context) override;
    void resize(DrawContext const& context) override;
    void draw3d(DrawContext const& context) const override;
    void draw2d(DrawContext const& context) const override;
    FenVisHitRecordList select3d(SelectContext const& context) const override;
    FenVisHitRecordList select2d(SelectContext const& context) const override;
    Kes::Math::BoundingBox boundingBox() const override;
};
