#pragma once

#include <QString>

class FenChartMultiAxis;
class FenChartVariable;

namespace Kes::Math {
class NumberFormat;
}

namespace fen {

/// What a legend tells of an axis of a spider, of which only the first carries numbers: name and range.
QString spiderAxisText(FenChartMultiAxis const& chart, FenChartVariable const& variable,
                       Kes::Math::NumberFormat const& format);

} // namespace fen
