#pragma once

#include "../../picking/hits/VisHitProperty.h"
#include "../../picking/hits/VisHitRecord.h"
#include "../../services/logging/Export.h"

#include <boost/weak_ptr.hpp>

class FenVisHitRecordList;
class FenVisualization;
class IFenVisEventHandler;

/// What a pick found: the hit that wins, whose it is and what it stands for.
///
/// Empty when nothing was hit. `node` is good as long as the node lives, the
/// record's name until the node's next select pass; `handler` and `property`
/// notice when what they point at is gone.
struct FENVIS_EXPORT FenVisPick {
    FenVisHitRecord record; ///< name and depth
    boost::weak_ptr<IFenVisEventHandler> handler;
    FenVisualization const* node = nullptr;
    FenVisHitProperty property; ///< owner and qualifier

    FenVisPick() = default;
    /// The winner of a select pass.
    explicit FenVisPick(FenVisHitRecordList const& hits);

    /// True when something was hit.
    explicit operator bool() const { return node != nullptr; }
};
