#include "host/file/JsonReader.h"

#include "host/file/JsonEscapes.h"

#include <QSet>
#include <QUtf8StringView>

#include <algorithm>

namespace {

using fen::JsonMember;
using fen::JsonValue;
using Kind = JsonValue::Kind;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isUtf8(std::string_view text)
{
    return QUtf8StringView(text.data(), qsizetype(text.size())).isValidUtf8();
}

/// Number of bytes of the character at the front; 0 when it is no UTF-8.
std::size_t utf8Length(std::string_view text)
{
    constexpr std::size_t longest = 4;
    for (std::size_t length = 1; length <= std::min(longest, text.size()); ++length)
        if (isUtf8(text.substr(0, length))) return length;
    return 0;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t digitsFrom(std::string_view text, std::size_t at)
{
    std::size_t end = at;
    while (end < text.size() && isDigit(text[end])) ++end;
    return end - at;
}

/// Length of the JSON number at the front; 0 when there is none.
std::size_t numberLength(std::string_view text)
{
    std::size_t at = text.starts_with('-') ? 1 : 0;
    std::size_t const whole = digitsFrom(text, at);
    if (whole == 0 || (whole > 1 && text[at] == '0')) return 0;
    at += whole;
    if (at < text.size() && text[at] == '.') {
        std::size_t const fraction = digitsFrom(text, at + 1);
        if (fraction == 0) return 0;
        at += 1 + fraction;
    }
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        bool const sign = at + 1 < text.size() && (text[at + 1] == '+' || text[at + 1] == '-');
        std::size_t const exponent = digitsFrom(text, at + 1 + sign);
        if (exponent == 0) return 0;
        at += 1 + sign + exponent;
    }
    return at;
}

bool isHexadecimal(std::string_view digits)
{
    return digits.size() == 4 && digits.find_first_not_of("0123456789abcdefABCDEF") == digits.npos;
}

class Parser {
public:
    Parser(std::string_view text, fen::JsonLimits const& limits)
        : _text(text)
        , _limits(limits)
    {
    }

    std::optional<fen::JsonProblem> run(JsonValue& value)
    {
        if (_text.starts_with(byteOrderMark)) _at = byteOrderMark.size();
        if (checkCharacters() && parse(value, 0)) {
            skipBlanks();
            if (_at < _text.size()) fail(QStringLiteral("there is more behind the end of the value"));
        }
        return _problem;
    }

private:
    bool failAt(std::size_t offset, QString const& message)
    {
        if (!_problem) _problem = fen::JsonProblem{offset, message};
        return false;
    }
    bool fail(QString const& message) { return failAt(_at, message); }

    bool checkCharacters()
    {
        if (isUtf8(_text)) return true;
        std::size_t i = 0;
        while (std::size_t const length = utf8Length(_text.substr(i))) i += length;
        return failAt(i,
                      QStringLiteral("byte 0x%1 is no UTF-8; save the file as UTF-8")
                          .arg(static_cast<unsigned char>(_text[i]), 2, 16, QLatin1Char('0')));
    }

    void skipBlanks()
    {
        while (_at < _text.size() && fen::isJsonBlank(_text[_at])) ++_at;
    }

    /// The next character that is no blank; 0 at the end.
    char peek()
    {
        skipBlanks();
        return _at < _text.size() ? _text[_at] : '\0';
    }

    bool take(char c)
    {
        if (peek() != c || _at == _text.size()) return false;
        ++_at;
        return true;
    }

    QString found()
    {
        if (_at >= _text.size()) return QStringLiteral("found the end of the file");
        std::size_t const length = std::max<std::size_t>(1, utf8Length(_text.substr(_at, 4)));
        return QStringLiteral("found ") + QString::fromUtf8(_text.data() + _at, qsizetype(length));
    }

    bool parse(JsonValue& value, std::size_t depth)
    {
        char const first = peek();
        std::size_t const begin = _at;
        bool const done = first == '{' ? object(value, depth + 1)
            : first == '['             ? list(value, depth + 1)
            : first == '"'             ? quoted(value)
                                       : word(value);
        value.source = _text.substr(begin, _at - begin);
        return done;
    }

    bool deeper(std::size_t depth)
    {
        return depth <= _limits.depth
            || fail(QStringLiteral("lists and objects more than %1 deep").arg(_limits.depth));
    }

    bool object(JsonValue& value, std::size_t depth)
    {
        if (!deeper(depth)) return false;
        value.kind = Kind::Object;
        ++_at;
        if (take('}')) return true;
        do {
            JsonMember& member = value.members.emplace_back();
            if (peek() != '"') return fail(QStringLiteral("expected a key in quotes, ") + found());
            JsonValue key;
            std::size_t const begin = _at;
            if (!quoted(key)) return false;
            member.place = _text.substr(begin, _at - begin);
            key.source = member.place;
            member.key = key.text();
            if (!take(':')) return fail(QStringLiteral("expected a colon, ") + found());
            if (!parse(member.value, depth)) return false;
        } while (take(','));
        return (take('}') || fail(QStringLiteral("expected a comma or }, ") + found())) && differ(value);
    }

    /// A key that occurs twice is an error at its second place.
    bool differ(JsonValue const& value)
    {
        constexpr std::size_t few = 16;
        bool const many = value.members.size() > few;
        QSet<QString> keys;
        for (std::size_t i = 0; i < value.members.size(); ++i) {
            JsonMember const& member = value.members[i];
            auto const same = [&](JsonMember const& other) { return other.key == member.key; };
            auto const before = value.members.begin() + std::ptrdiff_t(i);
            bool const known =
                many ? keys.contains(member.key) : std::any_of(value.members.begin(), before, same);
            if (known)
                return failAt(offset(member.place), QStringLiteral("the key stands here a second time"));
            if (many) keys.insert(member.key);
        }
        return true;
    }

    bool list(JsonValue& value, std::size_t depth)
    {
        if (!deeper(depth)) return false;
        value.kind = Kind::List;
        ++_at;
        if (take(']')) return true;
        bool plain = false;
        do {
            JsonValue item;
            if (!parse(item, depth)) return false;
            ++value.size;
            if (item.kind == Kind::Object || item.kind == Kind::List)
                value.members.push_back({QString(), {}, std::move(item)});
            else
                plain = true;
        } while (take(','));
        value.mixed = plain && !value.members.empty();
        if (value.mixed) value.members = {};
        return take(']') || fail(QStringLiteral("expected a comma or ], ") + found());
    }

    bool quoted(JsonValue& value)
    {
        value.kind = Kind::Text;
        bool half = false; // the first of a surrogate pair came last
        for (++_at; _at < _text.size(); ++_at) {
            char const c = _text[_at];
            if (half && c != '\\') break;
            if (c == '"') {
                ++_at;
                return true;
            }
            if (static_cast<unsigned char>(c) < 0x20)
                return fail(QStringLiteral("a line end or control character inside a text"));
            if (c == '\\' && !escape(half)) return false;
        }
        return fail(half ? QStringLiteral("half a surrogate pair")
                         : QStringLiteral("the text in quotes has no end"));
    }

    /// Checks the escape at the backslash; ends at its last character.
    bool escape(bool& half)
    {
        char const name = _at + 1 < _text.size() ? _text[_at + 1] : '\0';
        bool const isCode = name == 'u';
        std::string_view const digits = isCode ? _text.substr(_at + 2, 4) : std::string_view();
        if (isCode ? !isHexadecimal(digits) : fen::escapeNames.find(name) == fen::escapeNames.npos)
            return fail(QStringLiteral("no such escape"));
        QChar const unit = isCode ? QChar(ushort(fen::codeUnit(digits))) : QChar(u'x');
        if (half != unit.isLowSurrogate()) return fail(QStringLiteral("half a surrogate pair"));
        half = unit.isHighSurrogate();
        _at += isCode ? 5 : 1;
        return true;
    }

    bool word(JsonValue& value)
    {
        std::string_view const rest = _text.substr(_at);
        std::size_t length = numberLength(rest);
        if (length > 0) {
            value.kind = Kind::Number;
            value.source = rest.substr(0, length);
            if (++_numbers > _limits.numbers)
                return fail(QStringLiteral("more than %1 numbers").arg(_limits.numbers));
            if (!fen::numberOf(value))
                return fail(QStringLiteral("the number is beyond the range of numbers"));
        } else {
            for (std::string_view const known : {"null", "true", "false"})
                if (rest.starts_with(known)) length = known.size();
            value.kind = rest.starts_with('n') ? Kind::Null : Kind::Bool;
        }
        if (length == 0) return fail(QStringLiteral("expected a value, ") + found());
        _at += length;
        return true;
    }

    std::size_t offset(std::string_view part) const { return std::size_t(part.data() - _text.data()); }

    std::string_view _text;
    fen::JsonLimits _limits;
    std::size_t _at = 0;
    std::size_t _numbers = 0;
    std::optional<fen::JsonProblem> _problem;
};

} // namespace

std::optional<fen::JsonProblem> fen::readJson(std::string_view text, JsonLimits const& limits,
                                              JsonValue& value)
{
    value = JsonValue();
    return Parser(text, limits).run(value);
}
