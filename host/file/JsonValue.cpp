#include "host/file/JsonValue.h"

#include "host/file/JsonEscapes.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

using Kind = fen::JsonValue::Kind;

/// Length of a text in quotes that is known to be good.
std::size_t quotedLength(std::string_view text)
{
    std::size_t at = 1;
    while (text[at] != '"') at += text[at] == '\\' ? 2 : 1;
    return at + 1;
}

/// What stands between the quotes of a good text.
QString plainText(std::string_view text)
{
    QString result;
    while (!text.empty()) {
        std::size_t const plain = std::min(text.find('\\'), text.size());
        result += QString::fromUtf8(text.data(), qsizetype(plain));
        text.remove_prefix(plain);
        if (text.empty()) break;
        bool const code = text[1] == 'u';
        result += code ? QChar(ushort(fen::codeUnit(text.substr(2, 4))))
                       : QChar(QLatin1Char(fen::escapeMeanings[fen::escapeNames.find(text[1])]));
        text.remove_prefix(code ? 6 : 2);
    }
    return result;
}

} // namespace

QString fen::JsonValue::text() const
{
    return kind == Kind::Text ? plainText(source.substr(1, source.size() - 2)) : QString();
}

fen::JsonValue const* fen::JsonValue::find(char const* key) const
{
    for (JsonMember const& member : members)
        if (member.key == QLatin1String(key)) return &member.value;
    return nullptr;
}

fen::JsonItems::JsonItems(JsonValue const& list)
    : _rest(list.source.substr(1))
{
}

bool fen::JsonItems::next()
{
    std::size_t const begin = _rest.find_first_not_of(" \t\n\r,");
    if (begin == _rest.npos || _rest[begin] == ']') return false;
    _rest.remove_prefix(begin);
    char const first = _rest.front();
    std::size_t const length = first == '"' ? quotedLength(_rest) : _rest.find_first_of(",] \t\n\r");
    _item.kind = first == '"'          ? Kind::Text
        : first == 'n'                 ? Kind::Null
        : first == 't' || first == 'f' ? Kind::Bool
                                       : Kind::Number;
    _item.source = _rest.substr(0, length);
    _rest.remove_prefix(length);
    return true;
}

std::optional<double> fen::numberOf(JsonValue const& value)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    std::string_view const source = value.source;
    if (value.kind == Kind::Text) {
        if (source == "\"nan\"") return std::numeric_limits<double>::quiet_NaN();
        if (source == "\"inf\"") return infinity;
        if (source == "\"-inf\"") return -infinity;
    }
    double number = 0;
    if (value.kind != Kind::Number) return {};
    auto const end = std::from_chars(source.data(), source.data() + source.size(), number);
    return end.ec == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<fen::JsonValue> fen::readNumbers(JsonValue const& list, std::vector<double>& numbers)
{
    numbers.reserve(list.size);
    for (JsonItems items(list); items.next();) {
        std::optional<double> const number = numberOf(items.item());
        if (!number && items.kind() != Kind::Null) return items.item();
        numbers.push_back(number.value_or(std::numeric_limits<double>::quiet_NaN()));
    }
    return {};
}

QByteArray fen::compactJson(std::string_view json)
{
    QByteArray compact;
    while (!json.empty()) {
        std::size_t const length = json.front() == '"' ? quotedLength(json) : 1;
        if (!isJsonBlank(json.front())) compact.append(json.data(), qsizetype(length));
        json.remove_prefix(length);
    }
    return compact;
}

fen::TextPlace fen::placeOf(std::string_view text, std::size_t offset)
{
    std::string_view const before = text.substr(0, offset);
    std::size_t const lineEnd = before.rfind('\n');
    std::string_view const line = lineEnd == before.npos ? before : before.substr(lineEnd + 1);
    auto const startsCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; };
    return {1 + int(std::count(before.begin(), before.end(), '\n')),
            1 + int(std::count_if(line.begin(), line.end(), startsCharacter))};
}
