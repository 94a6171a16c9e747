#include "host/scene/VisPick.h"

#include "framework/Visualization.h"
#include "picking/hits/VisHitRecordList.h"
#include "picking/hits/VisHitRecordQuery.h"

FenVisPick::FenVisPick(FenVisHitRecordList const& hits)
{
    if (!FenVisHitRecordQuery::any(hits)) return;
    record = FenVisHitRecordQuery::top(hits, &handler, &node);
    if (node) property = node->hitProperty(record.context());
}
