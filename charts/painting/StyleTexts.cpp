#include "charts/painting/StyleTexts.h"

#include "services/opengl/LogOnce.h"

#include <QString>

namespace fen {

void warnUnknownText(char const* what, QString const& text)
{
    warnOnce(
        QStringLiteral("unknown %1 \"%2\", the default is drawn").arg(QLatin1String(what), text.left(80)),
        "@line 12");
}

} // namespace fen
