#pragma once

#include "../../services/logging/Export.h"
#include "VisHitRecord.h"

#include <boost/weak_ptr.hpp>

class FenVisHitRecordList;
class FenVisualization;
class IFenVisEventHandler;

/// Chooses the hit that the user meant.
class FENVIS_EXPORT FenVisHitRecordQuery {
public:
    FenVisHitRecordQuery() = delete;

    /// True when there is a hit; `top` may be asked then.
    static bool any(FenVisHitRecordList const& list);
    /// The nearest record of the entry with the highest layer. Of equals the
    /// later one wins, in both choices: what is drawn last lies on top. A nearer
    /// hit in a lower layer never wins.
    /// @param handler  set to the winning entry's handler unless null
    /// @param source   set to the winning entry's node unless null
    /// @return a default record, after logging the failed checks, when there is no hit
    static FenVisHitRecord top(FenVisHitRecordList const& list,
                               boost::weak_ptr<IFenVisEventHandler>* handler = nullptr,
                               FenVisualization const** source = nullptr);
};
