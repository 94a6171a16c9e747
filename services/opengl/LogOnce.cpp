#include "services/opengl/LogOnce.h"

#include "services/logging/DebugLogger.h"

#include <QSet>

namespace fen {

void warnOnce(QString const& text)
{
    constexpr qsizetype mostTexts = 500;
    static QSet<QString> seen;
    if (seen.size() >= mostTexts || seen.contains(text)) return;
    seen.insert(text);
    debug_logger::debuglogger().derr << "WARNING: " << text.toStdString() << '\n';
}

} // namespace fen
