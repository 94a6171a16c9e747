#include "picking/hits/VisHitRecordQuery.h"

#include "picking/hits/VisHitRecordList.h"
#include "services/logging/Checks.h"

#include <limits>
#include <vector>

namespace {

// Logged texts, kept as they are.
constexpr char const* noHitsText = "any(p_hits) && \"No hits were required!\"";
constexpr char const* noEntryText =
    "topListIdx>=0 && \"We have got a top list index that is -1, something is horribly wrong!\"";
constexpr char const* noRecordText =
    "topRecIdx>=0 && \"We have got a current top hit at index -1, something is horribly wrong!\"";
constexpr char const* topMark = "@line 27";

/// Entry with the highest layer, the last of equals; -1 for none.
int topEntry(FenVisHitRecordList const& list)
{
    int bestLayer = std::numeric_limits<int>::min() + 1; // the smallest layer of all never wins
    int best = -1;
    for (unsigned int i = 0; i < list.size(); ++i) {
        if (list.layer(i) < bestLayer) continue;
        bestLayer = list.layer(i);
        best = int(i);
    }
    return best;
}

/// Nearest record, the last of equals; -1 for none.
int topRecord(std::vector<FenVisHitRecord> const& records)
{
    double bestDepth = std::numeric_limits<double>::max();
    int best = -1;
    for (std::size_t j = 0; j < records.size(); ++j) {
        if (!(bestDepth >= records[j].depth())) continue; // not for NaN either
        bestDepth = records[j].depth();
        best = int(j);
    }
    return best;
}

} // namespace

bool FenVisHitRecordQuery::any(FenVisHitRecordList const& list)
{
    return list.size() > 0 && !list.records(0).empty();
}

FenVisHitRecord FenVisHitRecordQuery::top(FenVisHitRecordList const& p_hits,
                                          boost::weak_ptr<IFenVisEventHandler>* handler,
                                          FenVisualization const** source)
{
    FENVIS_TRACE(topMark);
    FENVIS_ENSURE(any(p_hits), noHitsText);
    int const topListIdx = topEntry(p_hits);
    bool const found = FENVIS_ENSURE(topListIdx >= 0, noEntryText);
    auto const entry = unsigned(found ? topListIdx : 0);
    int const topRecIdx = found ? topRecord(p_hits.records(entry)) : -1;
    bool const hit = FENVIS_ENSURE(topRecIdx >= 0, noRecordText);
    if (handler) *handler = found ? p_hits.handler(entry) : boost::weak_ptr<IFenVisEventHandler>();
    if (source) *source = found ? p_hits.source(entry) : nullptr;
    return hit ? p_hits.records(entry)[std::size_t(topRecIdx)] : FenVisHitRecord();
}
