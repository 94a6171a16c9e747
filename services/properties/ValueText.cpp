#include "services/properties/ValueText.h"

#include "services/math/Matrix.h"
#include "services/math/Vector2.h"
#include "services/math/Vector3.h"
#include "services/properties/ArrayReader.h"

#include <QVarLengthArray>

#include <charconv>
#include <cmath>
#include <limits>

namespace {

// --- writing

template <class T>
void appendNumber(QString& text, T value)
{
    char digits[64];
    std::to_chars_result end{};
    if constexpr (std::is_floating_point_v<T>) {
        T const size = std::abs(value);
        if (std::isnan(value)) {
            text += QLatin1String("nan");
            return;
        }
        // Plain digits where they are not much longer than an exponent.
        if (size >= T(1e-4) && size < T(1e16))
            end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed);
        else
            end = std::to_chars(digits, digits + sizeof digits, value);
    } else {
        end = std::to_chars(digits, digits + sizeof digits, value);
    }
    text += QLatin1String(digits, end.ptr);
}

template <class T>
QString numbersText(T const* numbers, int count)
{
    QString text;
    for (int i = 0; i < count; ++i) {
        if (i > 0) text += u' ';
        appendNumber(text, numbers[i]);
    }
    return text;
}

void appendQuoted(QString& text, QString const& value)
{
    text += u'"';
    for (qsizetype i = 0; i < value.size(); ++i) {
        QChar const c = value[i];
        bool const pair = c.isHighSurrogate() && i + 1 < value.size() && value[i + 1].isLowSurrogate();
        if (c == u'"' || c == u'\\') {
            text += u'\\';
            text += c;
        } else if (pair) {
            text += c;
            text += value[++i];
        } else if (c < u' ' || c.isSurrogate()) {
            text += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        } else {
            text += c;
        }
    }
    text += u'"';
}

/// A JSON array whose items `append(text, item)` writes.
template <class List, class Append>
QString arrayText(List const& list, Append const& append)
{
    QString text(u'[');
    for (auto const& item : list) {
        if (text.size() > 1) text += u',';
        append(text, item);
    }
    return text += u']';
}

// --- reading

template <class T>
bool parse(QStringView token, T& value)
{
    if (token.startsWith(u'+')) token = token.mid(1);
    QVarLengthArray<char, 64> digits;
    for (QChar c : token) {
        if (c.unicode() > 127) return false;
        digits.push_back(char(c.unicode()));
    }
    char const* const end = digits.data() + digits.size();
    T number{};
    auto const result = std::from_chars(static_cast<char const*>(digits.data()), end, number);
    if (result.ec != std::errc() || result.ptr != end) return false;
    value = number;
    return true;
}

/// Takes the next blank-separated token off the text; empty at its end.
QStringView takeToken(QStringView& text)
{
    text = text.trimmed();
    qsizetype length = 0;
    while (length < text.size() && !fen::isBlank(text[length])) ++length;
    QStringView const token = text.left(length);
    text = text.mid(length);
    return token;
}

/// Exactly `count` numbers, then perhaps a unit.
template <class T>
bool parseNumbers(QString const& text, T* numbers, int count)
{
    QStringView rest(text);
    for (int i = 0; i < count; ++i)
        if (!parse(takeToken(rest), numbers[i])) return false;
    double oneTooMany = 0;
    return !parse(takeToken(rest), oneTooMany);
}

/// The same into a value that stays as it was when the text is of another kind.
template <class T, class Number>
bool parseInto(QString const& text, T& value, int count, Number* (*numbers)(T&))
{
    T read{};
    if (!parseNumbers(text, numbers(read), count)) return false;
    value = read;
    return true;
}

template <class T>
bool parseScalar(QString const& text, T& value)
{
    return parseInto<T, T>(text, value, 1, [](T& number) { return &number; });
}

template <class T>
bool parseFloats(QString const& text, T& value, int count)
{
    return parseInto<T, float>(text, value, count, [](T& read) { return static_cast<float*>(read); });
}

/// Reads a list whose items `item(QStringView, bool quoted, Item&)` reads.
template <class Item, class List, class ReadItem>
bool parseList(QString const& text, List& value, ReadItem const& readItem)
{
    List list;
    bool const complete = fen::ArrayReader(text).read([&](QStringView token, bool quoted) {
        Item item{};
        if (!readItem(token, quoted, item)) return false;
        list.push_back(item);
        return true;
    });
    if (complete) value = std::move(list);
    return complete;
}

bool parseBool(QStringView token, bool& value)
{
    bool const yes = token == u"true" || token == u"1";
    if (!yes && token != u"false" && token != u"0") return false;
    value = yes;
    return true;
}

bool parseColor(QStringView token, QColor& value)
{
    QColor const color = token.isEmpty() ? QColor() : QColor::fromString(token);
    if (!token.isEmpty() && !color.isValid()) return false;
    value = fen::asReadBack(color);
    return true;
}

} // namespace

namespace fen {

QString toText(bool value) { return value ? QStringLiteral("true") : QStringLiteral("false"); }

QString toText(int value) { return numbersText(&value, 1); }

QString toText(unsigned value) { return numbersText(&value, 1); }

QString toText(float value) { return numbersText(&value, 1); }

QString toText(double value) { return numbersText(&value, 1); }

QString toText(QColor const& value) { return value.isValid() ? value.name(QColor::HexArgb) : QString(); }

QColor asReadBack(QColor const& color) { return color.isValid() ? QColor::fromRgba(color.rgba()) : QColor(); }

QList<QColor> asReadBack(QList<QColor> const& colors)
{
    QList<QColor> list;
    list.reserve(colors.size());
    for (QColor const& color : colors) list.push_back(asReadBack(color));
    return list;
}

QString toText(Kes::Math::Vector2 const& value) { return numbersText<float>(value, 2); }

QString toText(Kes::Math::Vector3 const& value) { return numbersText<float>(value, 3); }

QString toText(Kes::Math::Matrix const& value) { return numbersText<float>(value, 16); }

QString toText(QStringList const& value) { return arrayText(value, appendQuoted); }

QString toText(QList<QColor> const& value)
{
    return arrayText(value, [](QString& text, QColor const& color) { appendQuoted(text, toText(color)); });
}

QString toText(std::vector<double> const& value)
{
    return arrayText(value, [](QString& text, double number) {
        bool const plain = std::isfinite(number);
        if (!plain) text += u'"';
        appendNumber(text, number);
        if (!plain) text += u'"';
    });
}

bool fromText(QString const& text, bool& value) { return parseBool(QStringView(text).trimmed(), value); }

bool fromText(QString const& text, int& value) { return parseScalar(text, value); }

bool fromText(QString const& text, unsigned& value) { return parseScalar(text, value); }

bool fromText(QString const& text, float& value) { return parseScalar(text, value); }

bool fromText(QString const& text, double& value) { return parseScalar(text, value); }

bool fromText(QString const& text, QColor& value) { return parseColor(QStringView(text).trimmed(), value); }

bool fromText(QString const& text, Kes::Math::Vector2& value) { return parseFloats(text, value, 2); }

bool fromText(QString const& text, Kes::Math::Vector3& value) { return parseFloats(text, value, 3); }

bool fromText(QString const& text, Kes::Math::Matrix& value) { return parseFloats(text, value, 16); }

bool fromText(QString const& text, QStringList& value)
{
    return parseList<QString>(text, value, [](QStringView token, bool quoted, QString& item) {
        item = token.toString();
        return quoted;
    });
}

bool fromText(QString const& text, QList<QColor>& value)
{
    return parseList<QColor>(text, value, [](QStringView token, bool quoted, QColor& item) {
        return quoted && parseColor(token, item);
    });
}

bool fromText(QString const& text, std::vector<double>& value)
{
    return parseList<double>(text, value, [](QStringView token, bool, double& item) {
        if (token != u"null") return parse(token, item);
        item = std::numeric_limits<double>::quiet_NaN();
        return true;
    });
}

bool fromText(QString const& text, std::vector<int>& value)
{
    return parseList<int>(text, value, [](QStringView token, bool, int& item) { return parse(token, item); });
}

bool fromText(QString const& text, std::vector<bool>& value)
{
    return parseList<bool>(text, value,
                           [](QStringView token, bool, bool& item) { return parseBool(token, item); });
}

} // namespace fen
