#pragma once

#include "../logging/Export.h"
#include "Gl.h"

#include <memory>

namespace fen {
class GlName;
}

/// A display list that is made when recording begins.
///
/// Copies share the recording; beginning anew in one of them leaves the others
/// with what they had. The textures that are bound while recording are kept as
/// long as the recording. After a change of context there is no recording any
/// more (`compiled()` is false), and the owner records again.
class FENVIS_EXPORT FenOglDisplayList {
public:
    FenOglDisplayList() = default;

    /// Starts recording (`mode` GL_COMPILE or GL_COMPILE_AND_EXECUTE). Refused
    /// and logged while another list is being recorded.
    void begin(GLenum mode);
    /// Ends the recording; nothing when none was begun.
    void end();
    /// True when there is a finished recording for the current context.
    bool compiled() const;
    /// Replays the recording; nothing when there is none.
    void draw() const;
    /// Drops the recording from this copy.
    void clear() { *this = FenOglDisplayList(); }

    /// Called by textures: the list that is being recorded keeps `texture`.
    static void keepWhileRecorded(std::shared_ptr<fen::GlName> const& texture);

private:
    struct Recording;
    std::shared_ptr<Recording> _recording;
};
