#include "charts/painting/StyleTexts.h"

#include "services/logging/DebugLogger.h"

#include <QSet>
#include <QString>

namespace fen {

namespace {

constexpr int mostTexts = 100; // then it is not a slip but a flood

} // namespace

void warnUnknownText(char const* what, QString const& text)
{
    static QSet<QString>& warned = *new QSet<QString>;
    QString const known = QLatin1String(what) + QLatin1Char(' ') + text;
    if (warned.contains(known) || warned.size() >= mostTexts) return;
    warned.insert(known);
    debug_logger::debuglogger().derr << "WARNING: unknown " << what << " \"" << text.toStdString()
                                     << "\", the default is drawn\n";
}

} // namespace fen
