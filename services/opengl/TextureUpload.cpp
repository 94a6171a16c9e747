#include "services/opengl/TextureUpload.h"

#include "services/opengl/PixelRatio.h"

namespace fen {

UploadScope::UploadScope(GLint rowLength, GLint alignment)
    : _transfer(GL_PIXEL_MODE_BIT)
{
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, rowLength);
    glPixelStorei(GL_UNPACK_ALIGNMENT, alignment);
    for (GLenum const none :
         {GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS, GL_UNPACK_SWAP_BYTES, GL_UNPACK_LSB_FIRST})
        glPixelStorei(none, 0);
    glPixelTransferi(GL_MAP_COLOR, GL_FALSE);
    for (GLenum const scale : {GL_RED_SCALE, GL_GREEN_SCALE, GL_BLUE_SCALE, GL_ALPHA_SCALE})
        glPixelTransferf(scale, 1);
    for (GLenum const bias : {GL_RED_BIAS, GL_GREEN_BIAS, GL_BLUE_BIAS, GL_ALPHA_BIAS})
        glPixelTransferf(bias, 0);
}

UploadScope::~UploadScope() { glPopClientAttrib(); }

bool textureHasSize(QSize const& size)
{
    if (recordingList()) return true;
    GLint width = 0, height = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &height);
    return QSize(width, height) == size;
}

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
    {
        UploadScope const unpacking(GLint(rows.bytesPerLine() / 4), 4);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, rows.width(), rows.height(), 0, GL_RGBA, GL_UNSIGNED_BYTE,
                     rows.constBits());
    }
    if (!textureHasSize(rows.size())) texture.reset();
    return texture;
}

} // namespace fen
