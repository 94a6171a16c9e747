#pragma once

#include "Export.h"

#include <string>

namespace kesdebug {

class logger;

/// A line tagged "Trace" when a scope is entered and one when it is left.
///
/// When nobody listens to traces, nothing is formatted or allocated: prefer the constructor from
/// literals, which does not even build the two strings.
class FENVIS_EXPORT trace {
public:
    trace(logger& target, char const* function, char const* mark);
    trace(logger& target, std::string const& function, std::string const& mark);
    ~trace();

    trace(trace const&) = delete;
    trace& operator=(trace const&) = delete;

private:
    logger* _target = nullptr; ///< null when nobody listened at entry
    std::string _place;
};

} // namespace kesdebug
