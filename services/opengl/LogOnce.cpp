#include "services/opengl/LogOnce.h"

#include "services/logging/Checks.h"

#include <QSet>

namespace fen {

void warnOnce(QString const& text, char const* mark, std::source_location const& where)
{
    constexpr qsizetype mostTexts = 500;
    static QSet<QString> seen;
    if (seen.size() >= mostTexts || seen.contains(text)) return;
    seen.insert(text);
    warnUnless(false, text.toUtf8().constData(), where.function_name(), mark);
}

} // namespace fen
