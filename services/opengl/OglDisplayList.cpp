#include "services/opengl/OglDisplayList.h"

#include "services/opengl/GlNames.h"
#include "services/opengl/LogOnce.h"
#include "services/opengl/PixelRatio.h"

#include <QString>

#include <vector>

namespace {

/// Textures of the list that is being recorded, null when none is.
std::vector<std::shared_ptr<fen::GlName>>* recordedTextures = nullptr;

} // namespace

struct FenOglDisplayList::Recording {
    Recording() = default;
    ~Recording()
    {
        if (recordedTextures != &textures) return;
        glEndList(); // abandoned half-way
        recordedTextures = nullptr;
    }
    Recording(Recording const&) = delete;
    Recording& operator=(Recording const&) = delete;

    fen::GlName list{fen::GlNames::List, glGenLists(1)};
    std::vector<std::shared_ptr<fen::GlName>> textures; ///< bound while recording
    bool finished = false;
};

void FenOglDisplayList::begin(GLenum mode)
{
    if (recordedTextures || fen::recordingList()) {
        fen::warnOnce("A display list cannot be recorded inside another one.", "@line 37");
        return;
    }
    _recording = std::make_shared<Recording>();
    if (_recording->list.get() == 0) { // no context
        _recording.reset();
        return;
    }
    recordedTextures = &_recording->textures;
    glNewList(_recording->list.get(), mode);
}

void FenOglDisplayList::end()
{
    if (!_recording || recordedTextures != &_recording->textures) return;
    glEndList();
    recordedTextures = nullptr;
    _recording->finished = true;
}

bool FenOglDisplayList::compiled() const
{
    return _recording && _recording->finished && _recording->list.get() != 0;
}

void FenOglDisplayList::draw() const
{
    if (compiled()) glCallList(_recording->list.get());
}

void FenOglDisplayList::keepWhileRecorded(std::shared_ptr<fen::GlName> const& texture)
{
    // The same texture is bound many times in a row: one entry for the run.
    if (recordedTextures && (recordedTextures->empty() || recordedTextures->back() != texture))
        recordedTextures->push_back(texture);
}
