#include "host/output/MessageText.h"

#include <QChar>
#include <QList>

QString fen::messageText(QString const& text, qsizetype longest)
{
    auto const harmless = [](char32_t c) {
        QChar::Category const kind = QChar::category(c);
        bool const breaksLines = kind == QChar::Separator_Line || kind == QChar::Separator_Paragraph;
        return QChar::isPrint(c) && !breaksLines;
    };
    QString shown;
    for (char32_t const c : QStringView(text).left(longest).toUcs4())
        shown += harmless(c) ? QString::fromUcs4(&c, 1) : QStringLiteral("\\u{%1}").arg(uint(c), 0, 16);
    return text.size() > longest ? shown + QStringLiteral("...") : shown;
}

QString fen::quotedName(QString const& name)
{
    constexpr qsizetype longest = 80; // [characters]
    return QLatin1Char('"') + messageText(name, longest) + QLatin1Char('"');
}
