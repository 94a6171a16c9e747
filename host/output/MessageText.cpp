#include "host/output/MessageText.h"

#include <QChar>

QString fen::messageText(QString const& text, qsizetype longest)
{
    QString shown;
    for (QChar const c : text.left(longest)) {
        bool const harmless = c.isPrint() || c == QChar::Space || c.isSurrogate();
        if (harmless)
            shown += c;
        else
            shown += QStringLiteral("\\u{%1}").arg(int(c.unicode()), 0, 16);
    }
    return text.size() > longest ? shown + QStringLiteral("...") : shown;
}
