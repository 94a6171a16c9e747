#pragma once

#include "../../services/logging/Export.h"
#include "../hits/VisHitRecord.h"

#include <QtGlobal>

#include <vector>

/// Memory that OpenGL fills with the hits of one select pass.
///
/// Made for one pass: zero-filled, of fixed size, read after the
/// `FenVisOglSelect` on it is closed.
class FENVIS_EXPORT FenVisOglSelectBuffer {
public:
    /// @param hits  number of hits that fit, a million (2^20) at most; further ones are lost with a warning
    explicit FenVisOglSelectBuffer(unsigned int hits);

    /// Number of hits on something that had a name. Warns once when something
    /// was drawn without one.
    unsigned int count() const;
    /// These hits, in the order in which OpenGL closed them.
    std::vector<FenVisHitRecord> records();

private:
    friend class FenVisOglSelect;
    friend struct FenVisOglSelectBufferProbe; // tests fill in words

    std::vector<quint32> _buffer;
    mutable qint32 _hitCount = -1; // -1: no pass yet, or overflow
};
