#pragma once

#include "PropertyAdaptor.h"

/// Where a node lies in its parent's rectangle; fills it by default.
class FENVIS_EXPORT FenViewport : public FenProperties {
public:
    explicit FenViewport(FenModifiedGroup& group);
    FenViewport(FenViewport const& other);
    FenViewport& operator=(FenViewport const&) = default;

    /// "bottomLeft", "bottomRight", "topLeft", "topRight" or "center".
    FenPropertyAdaptor<QString> placement;
    FenPropertyAdaptor<double> x; ///< [px] inward from that corner, or right of the centred position
    FenPropertyAdaptor<double> y; ///< [px] inward from that corner, or above the centred position
    FenPropertyAdaptor<double> width; ///< up to 1 a fraction of the parent's, above 1 [px]
    FenPropertyAdaptor<double> height; ///< up to 1 a fraction of the parent's, above 1 [px]
};
