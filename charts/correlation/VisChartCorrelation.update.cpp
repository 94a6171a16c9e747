#include "charts/correlation/VisChartCorrelation.h"
#include "charts/correlation/CorrelationPicture.h"
#include "charts/correlation/VisChartCorrelation.handler.h"
#include "framework/DrawContext.h"
#include "services/chartdata/ChartVariableListCache.h"
#include "services/logging/Checks.h"
#include "services/opengl/OglText.h"
#include "services/properties/ColorSchemes.h"

#include <algorithm>

namespace {

// A logged text and its fixed line mark, kept as they are.
constexpr char const* rowsText = "_bins.size() == _numVars";
constexpr char const* rowsMark = " @line 91";

/// The widest number that a cell has to have room for.
QString widestNumber() { return QStringLiteral("-0.00"); }

/// Which entries of the list are in the cache, which has some of them in the same order.
std::vector<bool> cachedEntries(FenChartVariableList const& list, FenChartVariableListCache const& cache)
{
    std::vector<bool> marks(list.size(), false);
    unsigned next = 0;
    for (unsigned i = 0; i < list.size() && next < cache.size(); ++i) {
        marks[i] = list[i].name() == cache.cache(next).variable().name();
        if (marks[i]) ++next;
    }
    return marks;
}

} // namespace

void FenVisChartCorrelation::update(DrawContext const& context)
{
    _dataViewport.reset();
    _matrix.reset();
    _picture.reset();
    hitProperties().clear();
    _handler->forget();

    auto matrix = std::make_shared<fen::CorrelationMatrix>();
    if (!readMatrix(*matrix)) return;
    std::size_t const count = matrix->count();
    if (!FENVIS_WARN_UNLESS(matrix->values.size() == count * count, rowsText, rowsMark)) return;

    context.text.clear();
    for (QString const& name : matrix->names)
        matrix->widestName = std::max(matrix->widestName, context.text.size(name).width());
    matrix->numberWidth = context.text.size(widestNumber()).width();
    _matrix = std::move(matrix);
}

/// @return false when there is nothing to draw
bool FenVisChartCorrelation::readMatrix(fen::CorrelationMatrix& matrix) const
{
    FenChartVariableListCache const cache(chart.variables);
    matrix.bins = fen::CorrelationBins(chart.bins.get());
    if (cache.size() == 0 || matrix.bins.count() == 0) return false;
    matrix.colors = chart.colors.get();
    if (matrix.colors.isEmpty())
        matrix.colors = fen::colorScheme(QString::fromLatin1(fen::defaultDivergingScheme));

    std::vector<bool> const marks = cachedEntries(chart.variables, cache);
    for (unsigned i = 0; i < cache.size(); ++i) {
        FenChartColumn::Ptr const& row = cache.cache(i).yColumn();
        if (!row || row->size() != marks.size()) return false;
        for (std::size_t k = 0; k < marks.size(); ++k)
            if (marks[k]) matrix.values.push_back(row->value(k));
        matrix.names.push_back(cache.cache(i).variable().shownName());
    }
    return true;
}

void FenVisChartCorrelation::resize(DrawContext const& context)
{
    _picture.reset();
    _dataViewport.reset();
    FenOglViewport data;
    if (!calcDataViewport(context, chart, data)) return;
    _dataViewport = data;
    if (!_matrix) return;
    _picture =
        std::make_shared<fen::CorrelationPicture const>(*_matrix, data, context.text, context.numberFormat);
    context.text.clear();
}
