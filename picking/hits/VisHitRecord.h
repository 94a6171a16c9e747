#pragma once

#include "../../services/logging/Export.h"

#include <QtGlobal>

/// One thing under the pick region: the name it was drawn under and how deep it lies.
class FENVIS_EXPORT FenVisHitRecord {
public:
    static constexpr quint32 START_NAME = 1; ///< first name that a select pass hands out
    static constexpr quint32 DEFAULT_NAME = 0; ///< the node itself, its catch-all
    static constexpr quint32 INVALID_NAME = 0xFFFFFFFF; ///< nothing; never reported as a hit
    static constexpr float NEAREST_DEPTH = 0.0f; ///< [depth]
    static constexpr float FARTHEST_DEPTH = 1.0f; ///< [depth] also of a chart's catch-all
    static constexpr float OVERLAY_DEPTH = 0.5f; ///< [depth] of hits that are found without OpenGL

    FenVisHitRecord() = default;
    /// @param depth  [depth] 0 near .. 1 far
    FenVisHitRecord(unsigned int name, double depth)
        : _depth(depth)
        , _context(name)
    {
    }

    /// Hit on the node itself: loses against every nearer one.
    static FenVisHitRecord catchall() { return FenVisHitRecord(DEFAULT_NAME, double(FARTHEST_DEPTH)); }

    quint32 context() const { return _context; } ///< the name
    double depth() const { return _depth; } ///< [depth]

private:
    double _depth = -1.0;
    quint32 _context = INVALID_NAME;
};
