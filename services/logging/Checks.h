#pragma once

#include "DebugLogger.h"
#include "Trace.h"

#include <string>

/// Checks, warnings and traces that name the function they stand in. Conditions are given a second
/// time as text, because the logged texts are fixed and stay the same when the code around moves; so
/// do the line marks. Nothing here stops the work.

namespace fen {

/// "condition" - signature
inline std::string checkText(std::string const& condition, std::string const& signature)
{
    return '"' + condition + "\" - " + signature;
}

/// WARNING: condition - signature mark
inline std::string warningText(std::string const& condition, std::string const& signature,
                               std::string const& mark)
{
    char const* const blank = mark.empty() || mark.front() == ' ' ? "" : " ";
    return "WARNING: " + condition + " - " + signature + blank + mark;
}

/// Logs the failed check `text` unless `holds`; the text is only built for a failure.
/// @return holds
inline bool ensure(bool holds, char const* text, char const* signature)
{
    return holds || debug_logger::debuglogger().ensure(false, checkText(text, signature));
}

/// Logs the warning `text` as one line of the error stream unless `holds`.
/// @return holds
inline bool warnUnless(bool holds, char const* text, char const* signature, char const* mark)
{
    if (!holds) debug_logger::debuglogger().derr << warningText(text, signature, mark) << '\n';
    return holds;
}

} // namespace fen

/// FENVIS_ENSURE(ptr, "ptr != 0"): the condition's value; logs `"ptr != 0" - <signature>` when false.
#define FENVIS_ENSURE(condition, text) ::fen::ensure(bool(condition), text, __PRETTY_FUNCTION__)

/// FENVIS_WARN_UNLESS(n >= 0, "n >= 0", "@line112"): the condition's value; logs
/// `WARNING: n >= 0 - <signature> @line112` when false.
#define FENVIS_WARN_UNLESS(condition, text, mark)                                                            \
    ::fen::warnUnless(bool(condition), text, __PRETTY_FUNCTION__, mark)

/// FENVIS_TRACE("@line 24"): traces the rest of the scope; once per scope.
#define FENVIS_TRACE(mark)                                                                                   \
    ::kesdebug::trace const fenvisTraceOfThisScope(::fen::debug_logger::debuglogger(), __PRETTY_FUNCTION__,  \
                                                   mark)
