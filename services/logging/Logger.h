#pragma once

#include "Export.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace kesdebug {

class logger;

/// An output stream of a logger: hands every finished line to the logger's sink.
///
/// A line is finished by its '\n', which is not handed over. What was written since the last line
/// end waits for the rest of its line; flushing does not split it. The stream's numbers are printed
/// in the classic locale.
class FENVIS_EXPORT dbgostream : public std::ostream {
public:
    /// Writes lines with a tag ("Out", "Log", "Err") to a logger that outlives the stream.
    dbgostream(logger& target, std::string const& tag);

    /// Hands over the unfinished line, if any.
    ~dbgostream() override;

    dbgostream(dbgostream const&) = delete;
    dbgostream& operator=(dbgostream const&) = delete;

private:
    class LineBuffer;
    std::unique_ptr<LineBuffer> _buffer;
};

/// Takes what the library has to say: three streams, checks, marks and the lines of `trace`.
///
/// Without a sink of the host's own, "Err" goes to std::cerr, "Out" to std::cout and all else is
/// dropped. A sink of the host gets every line. It may log itself; such lines take the default way.
class FENVIS_EXPORT logger {
public:
    /// Gets a line without its end, and the tag "Out", "Log", "Err" or "Trace".
    typedef std::function<void(std::string const& tag, std::string const& line)> Sink;

    logger();
    ~logger();
    logger(logger const&) = delete;
    logger& operator=(logger const&) = delete;

    /// Reports a failed check as an "Err" line.
    /// @return the condition
    bool ensure(bool condition, std::string const& text);

    /// Reports that a place was reached which should not be, as the "Err" line "signature mark".
    void sentry(std::string const& signature, std::string const& mark);

    /// Sends all lines from now on to `sink`; an empty one restores the default.
    void setSink(Sink sink);

    /// Hands one line to the sink.
    void write(std::string const& tag, std::string const& line);

    /// Whether a line with the tag "Trace" would be seen by anyone.
    bool traced() const { return bool(_sink); }

private:
    std::shared_ptr<Sink const> _sink; ///< null: the default
    bool _writing = false;

public:
    dbgostream dout; ///< "Out"
    dbgostream dlog; ///< "Log"
    dbgostream derr; ///< "Err"
};

} // namespace kesdebug
