#include "services/opengl/TextureUpload.h"

namespace fen {

std::shared_ptr<GlName> uploadTexture(QImage const& rows, GLint filter, GLint wrap)
{
    GLuint name = 0;
    glGenTextures(1, &name);
    auto texture = std::make_shared<GlName>(GlNames::Texture, name);
    glBindTexture(GL_TEXTURE_2D, name);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, GLint(rows.bytesPerLine() / 4));
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, rows.width(), rows.height(), 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 rows.constBits());
    glPopClientAttrib();
    return texture;
}

} // namespace fen
