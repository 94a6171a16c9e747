#include "services/properties/StringBuilder.h"

FenStringBuilder::FenStringBuilder(Kes::Math::NumberFormat const& format)
    : _format(format)
{
}

FenStringBuilder::Formatter FenStringBuilder::formatter(QString const& pattern) const
{
    return Formatter(pattern, _format);
}

FenStringBuilder::Formatter::Formatter(QString const& pattern, Kes::Math::NumberFormat const& format)
    : _format(format)
{
    auto const digit = [&pattern](qsizetype i) {
        QChar const c = i < pattern.size() ? pattern[i] : QChar();
        return c >= u'0' && c <= u'9' ? c.unicode() - u'0' : -1;
    };
    qsizetype plain = 0;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != u'%' || digit(i + 1) < 0) continue;
        int const two = digit(i + 2);
        int const number = two < 0 ? digit(i + 1) : digit(i + 1) * 10 + two;
        qsizetype const length = two < 0 ? 2 : 3;
        if (i > plain) _pieces.push_back({pattern.mid(plain, i - plain), -1});
        _pieces.push_back({pattern.mid(i, length), number});
        plain = i + length;
        i = plain - 1;
    }
    if (plain < pattern.size()) _pieces.push_back({pattern.mid(plain), -1});
}

FenStringBuilder::Formatter& FenStringBuilder::Formatter::operator()(QString const& text)
{
    int lowest = -1;
    for (Piece const& piece : _pieces)
        if (piece.number >= 0 && (lowest < 0 || piece.number < lowest)) lowest = piece.number;
    if (lowest < 0) return *this;
    for (Piece& piece : _pieces)
        if (piece.number == lowest) piece = {text, -1};
    return *this;
}

FenStringBuilder::Formatter& FenStringBuilder::Formatter::operator()(double const& value)
{
    return (*this)(QString::fromStdString(_format.format(value)));
}

FenStringBuilder::Formatter& FenStringBuilder::Formatter::operator()(char const* text)
{
    return (*this)(QString::fromUtf8(text));
}

FenStringBuilder::Formatter& FenStringBuilder::Formatter::operator()(int value)
{
    return (*this)(QString::number(value));
}

FenStringBuilder::Formatter& FenStringBuilder::Formatter::operator()(unsigned value)
{
    return (*this)(QString::number(value));
}

FenStringBuilder::Formatter& FenStringBuilder::Formatter::operator()(long value)
{
    return (*this)(QString::number(value));
}

FenStringBuilder::Formatter& FenStringBuilder::Formatter::operator()(unsigned long value)
{
    return (*this)(QString::number(value));
}

FenStringBuilder::Formatter& FenStringBuilder::Formatter::operator()(qint64 value)
{
    return (*this)(QString::number(value));
}

FenStringBuilder::Formatter& FenStringBuilder::Formatter::operator()(quint64 value)
{
    return (*this)(QString::number(value));
}

QString FenStringBuilder::Formatter::operator()() const
{
    QString text;
    for (Piece const& piece : _pieces) text += piece.text;
    return text;
}
