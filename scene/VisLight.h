#pragma once

#include "../framework/VisPassiveNode.h"
#include "../services/math/Vector3.h"

/// Settings of one light of the 3D scene. Takes part in no pass: the light list
/// that it lives in hands it to OpenGL, while "enabled" is true.
///
/// Position and direction are in eye coordinates, so a light stays with the
/// viewer: x to the right, y up, z towards the viewer.
class FENVIS_EXPORT FenVisLight : public FenVisPassiveNode {
public:
    static QString const typeString;

    FenPropertyAdaptor<QColor> ambient;
    FenPropertyAdaptor<QColor> diffuse; ///< white for every light, not only the first
    FenPropertyAdaptor<QColor> specular; ///< white for every light, not only the first
    FenPropertyAdaptor<Kes::Math::Vector3> position; ///< [eye] a place, never a direction
    FenPropertyAdaptor<Kes::Math::Vector3> spotDirection; ///< [eye]
    FenPropertyAdaptor<float> spotExponent; ///< 0 (even) to 128 (concentrated in the middle)
    FenPropertyAdaptor<float> spotCutoff; ///< [deg] half opening angle, 0 to 90, or 180 for no cone
    FenPropertyAdaptor<float> attenuationConstant; ///< of 1 / (c + l d + q d d) at the distance d
    FenPropertyAdaptor<float> attenuationLinear;
    FenPropertyAdaptor<float> attenuationQuadratic;

    explicit FenVisLight(FenModifiedGroup& group);
    FenVisLight(FenVisLight const& other);
    FenVisLight& operator=(FenVisLight const&) = default;
    ~FenVisLight() override;
};
