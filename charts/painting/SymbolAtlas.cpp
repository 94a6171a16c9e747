#include "charts/painting/SymbolAtlas.h"

#include "charts/painting/StyleTexts.h"
#include "services/chartdata/Chart.h"
#include "services/opengl/PlotSymbols.h"

namespace fen {

int symbolIndex(QString const& name)
{
    if (name == FenChart::symbolNone) return -1;
    int const index = plotSymbolIndex(name);
    if (index < 0) warnUnknownText("symbol", name);
    return index;
}

} // namespace fen
