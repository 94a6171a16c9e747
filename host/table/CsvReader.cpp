#include "host/table/CsvReader.h"

#include "host/Limits.h"

#include <QUtf8StringView>

#include <csv.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

QString atLine(std::size_t line, QString const& message)
{
    return QStringLiteral("%1: %2").arg(line).arg(message);
}

/// What ends the lines of a text: CR where its first line ends so, else LF (with or without a CR).
char lineEnd(std::string_view text)
{
    std::size_t const first = text.find_first_of("\r\n");
    bool const old = first != text.npos && text[first] == '\r' && !text.substr(first).starts_with("\r\n");
    return old ? '\r' : '\n';
}

/// Control characters that no text has.
constexpr std::array<bool, 256> makeControls()
{
    std::array<bool, 256> controls{};
    for (unsigned c = 0; c < 0x20; ++c) controls[c] = true;
    controls[0x7F] = true;
    controls['\t'] = controls['\n'] = controls['\r'] = false;
    return controls;
}

bool isUtf8(std::string_view text)
{
    return QUtf8StringView(text.data(), qsizetype(text.size())).isValidUtf8();
}

/// Where the first line begins that is no UTF-8, in a text that is not.
std::size_t wrongLine(std::string_view text, char end)
{
    std::size_t begin = 0;
    for (std::size_t next = 0; begin < text.size(); begin = next) {
        next = std::min(text.find(end, begin), text.size() - 1) + 1;
        if (!isUtf8(text.substr(begin, next - begin))) break;
    }
    return begin;
}

/// Empty, or why these bytes are no text.
QString textError(std::string_view text, std::size_t firstLine)
{
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
        return atLine(firstLine, QStringLiteral("this is UTF-16; save it as UTF-8"));
    static constexpr std::array<bool, 256> controls = makeControls();
    auto const control =
        std::ranges::find_if(text, [](char c) { return controls[static_cast<unsigned char>(c)]; });
    bool const utf8 = isUtf8(text);
    if (utf8 && control == text.end()) return {};
    char const end = lineEnd(text);
    auto const found = std::size_t(control - text.begin());
    std::size_t const wrong = utf8 ? text.size() : wrongLine(text, end);
    std::size_t const place = std::min(found, wrong);
    auto const line = std::size_t(std::ranges::count(text.substr(0, place), end)) + firstLine;
    if (found > wrong) return atLine(line, QStringLiteral("this line is not UTF-8; save the file as UTF-8"));
    QString const hex = QString::number(static_cast<unsigned char>(*control), 16).toUpper();
    return atLine(line,
                  QStringLiteral("control character 0x%1: this is no text")
                      .arg(hex.rightJustified(2, QLatin1Char('0'))));
}

/// The parser with what its callbacks gather.
class RowSplitter {
public:
    RowSplitter(char separator, fen::ICsvRows& rows)
        : _rows(rows)
    {
        csv_init(&_parser, CSV_STRICT | CSV_STRICT_FINI);
        csv_set_delim(&_parser, static_cast<unsigned char>(separator));
        csv_set_blk_size(&_parser, growth);
    }
    ~RowSplitter() { csv_free(&_parser); }
    RowSplitter(RowSplitter const&) = delete;
    RowSplitter& operator=(RowSplitter const&) = delete;

    QString run(std::string_view text, std::size_t firstLine)
    {
        char const lastOfLine = lineEnd(text);
        std::size_t line = firstLine;
        while (!text.empty() && _error.isEmpty()) {
            std::size_t const end = text.find(lastOfLine);
            bool const wholeLine = end < largestPiece;
            std::string_view const piece = text.substr(0, wholeLine ? end + 1 : largestPiece);
            text.remove_prefix(piece.size());
            feed(piece, line);
            line += wholeLine;
        }
        if (!_error.isEmpty()) return _error;
        if (csv_fini(&_parser, fieldEnds, rowEnds, this) != 0)
            fail(_rowLine, QStringLiteral("a quoted field that begins in this row is never closed"));
        return _error;
    }

private:
    static constexpr std::size_t largestPiece = std::size_t(fen::limits::csvFieldBytes);
    static constexpr std::size_t growth = 1 << 16; // [bytes] by which the parser's buffer grows

    void feed(std::string_view piece, std::size_t line)
    {
        bool const rowBegun = !_ends.empty() || _parser.entry_pos > 0 || _parser.quoted;
        if (!rowBegun) _rowLine = line;
        _line = line;
        std::size_t const used = csv_parse(&_parser, piece.data(), piece.size(), fieldEnds, rowEnds, this);
        if (!_error.isEmpty()) return;
        if (used < piece.size()) {
            bool const memory = csv_error(&_parser) == CSV_ENOMEM;
            fail(line,
                 memory ? QStringLiteral("out of memory")
                        : QStringLiteral("stray quote: a field with quotes is put into quotes and "
                                         "has them doubled"));
        }
        checkLength(_parser.entry_pos);
    }

    void checkLength(std::size_t bytes)
    {
        if (bytes > std::size_t(fen::limits::csvFieldBytes))
            fail(_rowLine,
                 QStringLiteral("a field that begins in this row is longer than %1 bytes%2")
                     .arg(fen::limits::csvFieldBytes)
                     .arg(_parser.quoted ? QStringLiteral(", or its quote is never closed") : QString()));
    }

    void fail(std::size_t line, QString const& message)
    {
        if (_error.isEmpty()) _error = atLine(line, message);
    }

    static void fieldEnds(void* bytes, std::size_t length, void* self)
    {
        auto& splitter = *static_cast<RowSplitter*>(self);
        splitter.checkLength(length);
        if (splitter._ends.size() >= std::size_t(fen::limits::csvColumns))
            splitter.fail(splitter._line, QStringLiteral("more than %1 fields").arg(fen::limits::csvColumns));
        if (!splitter._error.isEmpty()) return;
        splitter._text.append(static_cast<char const*>(bytes), length);
        splitter._ends.push_back(splitter._text.size());
    }

    static void rowEnds(int, void* self)
    {
        auto& splitter = *static_cast<RowSplitter*>(self);
        if (splitter._error.isEmpty()) splitter.deliver();
        splitter._ends.clear();
        splitter._text.clear();
    }

    void deliver()
    {
        _fields.clear();
        std::size_t begin = 0;
        for (std::size_t const end : _ends) {
            _fields.push_back(std::string_view(_text).substr(begin, end - begin));
            begin = end;
        }
        QString const refused = _rows.row(_fields, _rowLine);
        if (!refused.isEmpty()) fail(_rowLine, refused);
    }

    fen::ICsvRows& _rows;
    csv_parser _parser{};
    std::size_t _line = 1; // being fed
    std::size_t _rowLine = 1; // on which the current row begins
    std::string _text; // of the current row's fields, one after the other
    std::vector<std::size_t> _ends; // of each field in _text
    std::vector<std::string_view> _fields;
    QString _error;
};

} // namespace

QString fen::readCsv(std::string_view text, char separator, ICsvRows& rows, std::size_t firstLine)
{
    QString const error = textError(text, firstLine);
    if (!error.isEmpty()) return error;
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    return RowSplitter(separator, rows).run(text, firstLine);
}
