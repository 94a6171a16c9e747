#pragma once

#include "../../framework/DrawContext.h"
#include "../../services/logging/Export.h"

#include <QtGlobal>

class FenVisOglSelectBuffer;

/// One OpenGL select pass: the constructor enters selection mode around the
/// context's pick point, the destructor leaves it and tells the buffer how many
/// hits there were.
///
/// Exactly one name is on the name stack while it is open. Opened while another
/// pass is open, it logs a failed check and leaves that pass alone: it names
/// nothing and finds nothing.
class FENVIS_EXPORT FenVisOglSelect : public FenVisualization::SelectContext {
public:
    /// @param buffer  must outlive the pass
    FenVisOglSelect(FenVisualization::SelectContext const& context, FenVisOglSelectBuffer& buffer);
    /// Hands out the same names into the same buffer, but closes nothing.
    FenVisOglSelect(FenVisOglSelect const& other);
    ~FenVisOglSelect() override;
    FenVisOglSelect& operator=(FenVisOglSelect const&) = delete;

    /// Puts a fresh name on what is drawn from now on.
    unsigned int next();
    /// What is drawn from now on has no name and is not picked.
    void reset();

private:
    void enter();

    quint32 _next;
    FenVisOglSelectBuffer& _buffer;
    bool _closes = true; ///< false: a copy
    bool _nested = false; ///< opened while OpenGL was not drawing
    quint32 _outerName = 0; ///< nested: what the outer pass was drawing
};

/// The open select pass or nothing, as draw routines take it: they are written
/// once, for drawing (empty) and picking (live). Passed by value, never stored.
class FENVIS_EXPORT FenVisOglSelectWeakPtr {
public:
    /// Empty: drawing.
    FenVisOglSelectWeakPtr() = default;
    FenVisOglSelectWeakPtr(FenVisOglSelect& select)
        : _select(&select)
    {
    }

    /// A fresh name; INVALID_NAME and no OpenGL call when drawing.
    unsigned int next();
    /// Withdraws the name; nothing when drawing.
    void reset();
    /// True when picking.
    operator bool() const { return _select != nullptr; }

private:
    FenVisOglSelect* _select = nullptr;
};
