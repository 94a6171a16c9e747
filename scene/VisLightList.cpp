#include "scene/VisLightList.h"

#include "framework/Placeholder.h"
#include "scene/VisLight.h"
#include "services/logging/Checks.h"
#include "services/opengl/Gl.h"
#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/LogOnce.h"

#include <algorithm>

namespace {

// Fixed line mark of the trace, and logged texts that are kept as they are.
constexpr char const* constructorMark = " @line 24";
constexpr char const* typeText = "type == FenVisLight::typeString";
constexpr char const* itemTypeText = "item->type() == FenVisLight::typeString";
constexpr char const* wrongTypeText = "c && \"Type is incorrect\"";

/// `value` within the range that OpenGL takes; anything else is an error there.
float within(float value, float least, float most, float fallback)
{
    if (value >= least && value <= most) return value;
    fen::warnOnce("A number of a light is out of its range.", "@line 31");
    return value == value ? std::clamp(value, least, most) : fallback;
}

/// [deg] 0 to 90, or 180; what lies between means no cone.
float cutoff(float degrees)
{
    constexpr float widest = 90, none = 180;
    float const angle = within(degrees, 0, none, none);
    return angle > widest ? none : angle;
}

void setLight(GLenum unit, FenVisLight const& light)
{
    constexpr float mostExponent = 128, mostAttenuation = 1e30f;
    glEnable(unit);
    glLight(unit, GL_AMBIENT, light.ambient.get());
    glLight(unit, GL_DIFFUSE, light.diffuse.get());
    glLight(unit, GL_SPECULAR, light.specular.get());
    glLight(unit, GL_POSITION, light.position.get());
    glLight(unit, GL_SPOT_DIRECTION, light.spotDirection.get());
    glLightf(unit, GL_SPOT_EXPONENT, within(light.spotExponent.get(), 0, mostExponent, 0));
    glLightf(unit, GL_SPOT_CUTOFF, cutoff(light.spotCutoff.get()));
    glLightf(unit, GL_CONSTANT_ATTENUATION, within(light.attenuationConstant.get(), 0, mostAttenuation, 1));
    glLightf(unit, GL_LINEAR_ATTENUATION, within(light.attenuationLinear.get(), 0, mostAttenuation, 0));
    glLightf(unit, GL_QUADRATIC_ATTENUATION, within(light.attenuationQuadratic.get(), 0, mostAttenuation, 0));
}

/// Lights are placed by the model-view matrix, whatever mode the host has left on; it stays on.
class EyeCoordinates {
public:
    EyeCoordinates()
        : _modelView(GL_MODELVIEW)
    {
        glLoadIdentity();
    }

private:
    struct MatrixMode {
        MatrixMode() { glGetIntegerv(GL_MATRIX_MODE, &value); }
        ~MatrixMode() { glMatrixMode(GLenum(value)); }
        MatrixMode(MatrixMode const&) = delete;
        MatrixMode& operator=(MatrixMode const&) = delete;
        GLint value = GL_MODELVIEW; // stays so without a context
    };

    MatrixMode _mode; // first: asked for before and restored after the matrix
    fen::MatrixScope _modelView;
};

} // namespace

QString const FenVisLightList::typeString = QStringLiteral("visualization.light_list");

FenVisLightList::FenVisLightList(FenModifiedGroup& group)
    : FenVisList(group, QStringLiteral("light.0"))
{
    FENVIS_TRACE(constructorMark);
    setType(typeString);
}

FenVisLightList::FenVisLightList(FenVisLightList const&) = default;

FenVisLightList::~FenVisLightList() = default;

FenProperties* FenVisLightList::makeChild(QString const& name, QString const&)
{
    auto* const light = new FenVisLight(group());
    light->rename(name);
    return light;
}

bool FenVisLightList::insert(FenVisLight* item, bool nested)
{
    if (!item || item == &fen::placeholder<FenVisLight>()) return false;
    if (item->name().isEmpty()) item->rename(QStringLiteral("light"));
    FENVIS_ENSURE(item->type() == FenVisLight::typeString, itemTypeText);
    return insert(static_cast<FenProperties*>(item), nested);
}

FenVisLight& FenVisLightList::child(QString const& name, QString const& type)
{
    FENVIS_ENSURE(type == FenVisLight::typeString, typeText);
    auto* const c = dynamic_cast<FenVisLight*>(FenProperties::child(name, type));
    return FENVIS_ENSURE(c, wrongTypeText) ? *c : fen::freshPlaceholder<FenVisLight>();
}

FenVisLight const& FenVisLightList::child(QString const& name, QString const& type) const
{
    FENVIS_ENSURE(type == FenVisLight::typeString, typeText);
    auto const* const c = dynamic_cast<FenVisLight const*>(FenProperties::child(name, type));
    return FENVIS_ENSURE(c, wrongTypeText) ? *c : fen::freshPlaceholder<FenVisLight>();
}

void FenVisLightList::setLighting() const
{
    GLint units = 0; // stays so without a context
    glGetIntegerv(GL_MAX_LIGHTS, &units);
    EyeCoordinates const eye;
    for (unsigned i = 0; i < unsigned(units); ++i) {
        auto const* const light = i < size() ? dynamic_cast<FenVisLight const*>(at(i)) : nullptr;
        if (light && light->enabled.get()) {
            setLight(GL_LIGHT0 + i, *light);
        } else {
            glDisable(GL_LIGHT0 + i);
        }
    }
}
