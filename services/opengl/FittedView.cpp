#include "services/opengl/FittedView.h"

#include <utility>

namespace {

fen::FittedView& current()
{
    static fen::FittedView view;
    return view;
}

} // namespace

fen::FittedViewScope::FittedViewScope(FittedView const& view)
    : _before(std::exchange(current(), view))
{
}

fen::FittedViewScope::~FittedViewScope() { current() = _before; }

fen::FittedView const& fen::fittedView() { return current(); }
