#include "scene/VisLight.h"

QString const FenVisLight::typeString = QStringLiteral("visualization.light");

FenVisLight::FenVisLight(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , ambient(*this, "ambient", Qt::black, QString())
    , diffuse(*this, "diffuse", Qt::white, QString())
    , specular(*this, "specular", Qt::white, QString())
    , position(*this, "position", Kes::Math::Vector3(0, 0, -1), QString())
    , spotDirection(*this, "spotDirection", Kes::Math::Vector3(0, 0, -1), QString())
    , spotExponent(*this, "spotExponent", 0.0f, QString())
    , spotCutoff(*this, "spotCutoff", 180.0f, QString())
    , attenuationConstant(*this, "attenuationConstant", 1.0f, QString())
    , attenuationLinear(*this, "attenuationLinear", 0.0f, QString())
    , attenuationQuadratic(*this, "attenuationQuadratic", 0.0f, QString())
{
    rename(typeString);
    setType(typeString);
}

FenVisLight::FenVisLight(FenVisLight const& other)
    : FenVisPassiveNode(other)
    , ambient(*this, other.ambient)
    , diffuse(*this, other.diffuse)
    , specular(*this, other.specular)
    , position(*this, other.position)
    , spotDirection(*this, other.spotDirection)
    , spotExponent(*this, other.spotExponent)
    , spotCutoff(*this, other.spotCutoff)
    , attenuationConstant(*this, other.attenuationConstant)
    , attenuationLinear(*this, other.attenuationLinear)
    , attenuationQuadratic(*this, other.attenuationQuadratic)
{
    rename(typeString);
    setType(typeString);
}

FenVisLight::~FenVisLight() = default;
