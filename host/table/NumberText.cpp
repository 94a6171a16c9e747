#include "host/table/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace {

using namespace std::string_view_literals;

constexpr std::array signs{"%"sv, "$"sv, "€"sv, "£"sv, "¥"sv, "EUR"sv, "USD"sv, "GBP"sv, "CHF"sv, "JPY"sv};
constexpr std::array blanks{" "sv, "\u00A0"sv, "\u202F"sv, "\u2009"sv}; // also those that do not break a line
constexpr std::array apostrophes{"'"sv, "\u2019"sv};
constexpr std::string_view minus = "\u2212"; // as typesetters write it

/// A number without sign "+", whole text.
bool parse(std::string_view text, double& value)
{
    char const* const end = text.data() + text.size();
    std::from_chars_result const result = std::from_chars(text.data(), end, value);
    if (result.ptr != end) return false;
    if (result.ec == std::errc::result_out_of_range) {
        bool const tiny = text.find("e-") != text.npos || text.find("E-") != text.npos;
        double const infinite = std::numeric_limits<double>::infinity();
        value = tiny ? 0.0 : text.front() == '-' ? -infinite : infinite;
    }
    return result.ec != std::errc::invalid_argument;
}

template <class Words>
bool takeFront(std::string_view& text, Words const& words, std::string_view* taken = nullptr)
{
    for (std::string_view const word : words) {
        if (!text.starts_with(word)) continue;
        if (taken) *taken = word;
        text.remove_prefix(word.size());
        return true;
    }
    return false;
}

template <class Words>
bool takeBack(std::string_view& text, Words const& words, std::string_view* taken = nullptr)
{
    for (std::string_view const word : words) {
        if (!text.ends_with(word)) continue;
        if (taken) *taken = word;
        text.remove_suffix(word.size());
        return true;
    }
    return false;
}

void trim(std::string_view& text)
{
    while (takeFront(text, blanks)) { }
    while (takeBack(text, blanks)) { }
}

/// Digits and one decimal mark as `std::from_chars` reads them: without group marks.
class Plain {
public:
    explicit Plain(char decimal)
        : _decimal(decimal)
    {
    }

    bool take(std::string_view text)
    {
        while (!text.empty()) {
            char const c = text.front();
            bool const digit = c >= '0' && c <= '9';
            if (digit || c == 'e' || c == 'E' || ((c == '-' || c == '+') && _exponent)) {
                if (!digit) _exponent = true;
                _run += digit ? 1 : 0;
                text.remove_prefix(1);
                if (!put(c)) return false;
            } else if (c == _decimal && !_fraction && !_exponent) {
                _fraction = true;
                if (_groups && _run != groupDigits) return false;
                text.remove_prefix(1);
                if (!put('.')) return false;
            } else if (!takeGroupMark(text)) {
                return false;
            }
        }
        return !_groups || _fraction || _run == groupDigits;
    }
    std::string_view text() const { return {_buffer.data(), _size}; }

private:
    static constexpr int groupDigits = 3;

    bool put(char c)
    {
        if (_size == _buffer.size()) return false;
        _buffer[_size++] = c;
        return true;
    }

    bool takeGroupMark(std::string_view& text)
    {
        std::string_view const other = _decimal == '.' ? ","sv : "."sv;
        std::string_view mark;
        if (!takeFront(text, std::array{other}, &mark) && !takeFront(text, blanks, &mark)
            && !takeFront(text, apostrophes, &mark))
            return false;
        bool const fits = _groups ? _run == groupDigits && mark == _mark : _run >= 1 && _run <= groupDigits;
        if (!fits || _fraction || _exponent) return false;
        _mark = mark;
        _groups = true;
        _run = 0;
        return true;
    }

    char _decimal;
    std::array<char, 64> _buffer; // longer than any number that a person writes
    std::size_t _size = 0;
    bool _fraction = false, _exponent = false, _groups = false;
    int _run = 0; // digits since the last mark
    std::string_view _mark;
};

} // namespace

std::optional<fen::NumberText> fen::readNumber(std::string_view text, char decimal)
{
    NumberText number;
    if (parse(text, number.value)) return number; // nearly all there are
    trim(text);
    bool negative = text.size() > 2 && text.front() == '(' && text.back() == ')'; // as accountants write it
    if (negative) text = text.substr(1, text.size() - 2);
    if (takeFront(text, std::array{"-"sv, minus}))
        negative = !negative;
    else
        takeFront(text, std::array{"+"sv});
    if (takeFront(text, signs, &number.sign) || takeBack(text, signs, &number.sign)) trim(text);
    if (number.sign.data() && takeFront(text, std::array{"-"sv, minus})) negative = !negative;
    bool const begins = !text.empty() && ((text[0] >= '0' && text[0] <= '9') || text[0] == decimal);
    Plain plain(decimal);
    if (begins) {
        if (!plain.take(text) || !parse(plain.text(), number.value)) return {};
    } else if (text.empty() || text[0] == '-' || !parse(text, number.value)) { // "+inf"
        return {};
    }
    if (negative) number.value = -number.value;
    return number;
}
