#include "services/opengl/OpenGLExtensions.h"

#include "services/opengl/Gl.h"

#include <QByteArray>
#include <QList>

namespace fen {

bool openGLHasSupport(OpenGLExtensions extension)
{
    auto const version = reinterpret_cast<char const*>(glGetString(GL_VERSION));
    if (!version) return false;
    if (version[0] >= '2' && version[0] <= '9') return true; // both are core since 2.0

    char const* name = nullptr;
    switch (extension) {
    case PointSprite:
        name = "GL_ARB_point_sprite";
        break;
    case NonPowerOfTwo:
        name = "GL_ARB_texture_non_power_of_two";
        break;
    }
    auto const extensions = reinterpret_cast<char const*>(glGetString(GL_EXTENSIONS));
    return name && extensions && QByteArray(extensions).split(' ').contains(name);
}

} // namespace fen
