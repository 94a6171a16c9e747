#pragma once

#include "../framework/VisPassiveNode.h"
#include "../services/math/Matrix.h"

/// From where the scene is looked at: holds the model-view matrix that the host
/// loads before the 3D pass. Takes part in no pass.
class FENVIS_EXPORT FenVisViewpoint : public FenVisPassiveNode {
public:
    static QString const typeString;

    FenPropertyAdaptor<Kes::Math::Matrix> modelView; ///< from [scene] to eye coordinates

    explicit FenVisViewpoint(FenModifiedGroup& group);
    FenVisViewpoint(FenVisViewpoint const& other);
    FenVisViewpoint& operator=(FenVisViewpoint const&) = default;
    ~FenVisViewpoint() override;
};
