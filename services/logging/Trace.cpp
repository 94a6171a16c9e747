#include "services/logging/Trace.h"

#include "services/logging/Logger.h"

namespace kesdebug {

namespace {

std::string joined(std::string const& function, std::string const& mark)
{
    return mark.empty() || mark.front() == ' ' ? function + mark : function + ' ' + mark;
}

} // namespace

trace::trace(logger& target, char const* function, char const* mark)
{
    if (!target.traced()) return;
    _target = &target;
    _place = joined(function, mark);
    target.write("Trace", "enter " + _place);
}

trace::trace(logger& target, std::string const& function, std::string const& mark)
    : trace(target, function.c_str(), mark.c_str())
{
}

trace::~trace()
{
    if (_target && _target->traced()) _target->write("Trace", "leave " + _place);
}

} // namespace kesdebug
