#include "services/logging/Logger.h"

#include <iostream>
#include <streambuf>
#include <string_view>
#include <utility>

namespace kesdebug {

namespace {

void writeDefault(std::string const& tag, std::string const& line)
{
    if (tag == "Err") {
        std::cerr << line << '\n';
    } else if (tag == "Out") {
        std::cout << line << '\n';
    }
}

} // namespace

// Collects characters and hands whole lines over. Characters come one at a time or in runs; there is no put
// area, so nothing is left behind when the stream is not flushed.
class dbgostream::LineBuffer : public std::streambuf {
public:
    LineBuffer(logger& target, std::string const& tag)
        : _target(target)
        , _tag(tag)
    {
    }

    void finish()
    {
        if (!_line.empty()) handOver();
    }

protected:
    int_type overflow(int_type character) override
    {
        if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
        char const c = traits_type::to_char_type(character);
        xsputn(&c, 1);
        return character;
    }

    std::streamsize xsputn(char const* text, std::streamsize count) override
    {
        std::string_view rest(text, size_t(count));
        for (size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
            _line += rest.substr(0, end);
            handOver();
            rest.remove_prefix(end + 1);
        }
        _line += rest;
        return count;
    }

private:
    // The line is taken out first: the sink may write to this very stream.
    void handOver() { _target.write(_tag, std::exchange(_line, std::string())); }

    logger& _target;
    std::string const _tag;
    std::string _line;
};

dbgostream::dbgostream(logger& target, std::string const& tag)
    : std::ostream(nullptr)
    , _buffer(new LineBuffer(target, tag))
{
    rdbuf(_buffer.get());
    imbue(std::locale::classic());
}

dbgostream::~dbgostream() { _buffer->finish(); }

logger::logger()
    : dout(*this, "Out")
    , dlog(*this, "Log")
    , derr(*this, "Err")
{
}

logger::~logger() = default;

bool logger::ensure(bool condition, std::string const& text)
{
    if (!condition) write("Err", text);
    return condition;
}

void logger::sentry(std::string const& signature, std::string const& mark)
{
    bool const joined = mark.empty() || mark.front() == ' ';
    write("Err", signature + (joined ? "" : " ") + mark);
}

void logger::setSink(Sink sink) { _sink = sink ? std::make_shared<Sink const>(std::move(sink)) : nullptr; }

void logger::write(std::string const& tag, std::string const& line)
{
    if (!_sink || _writing) {
        writeDefault(tag, line);
        return;
    }
    auto const sink = _sink; // lives on when the sink replaces itself
    _writing = true;
    try {
        (*sink)(tag, line);
    } catch (...) {
        // A sink that throws loses its line; a log line must not stop a pass.
    }
    _writing = false;
}

} // namespace kesdebug
