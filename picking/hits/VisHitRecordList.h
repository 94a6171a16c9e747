#pragma once

#include "../../services/logging/Export.h"
#include "../../services/properties/ViewPtr.h"
#include "VisHitRecord.h"

#include <boost/weak_ptr.hpp>

#include <iosfwd>
#include <vector>

class FenVisualization;
class IFenVisEventHandler;

/// The hits of one pick: one entry per node that was met, in visiting order.
///
/// An entry holds the node's records (at least one), its handler, the node and
/// its layer. Handlers are weak, and so are sources: a node that is destroyed,
/// in the pick or later, is null from then on.
class FENVIS_EXPORT FenVisHitRecordList {
public:
    FenVisHitRecordList() = default;
    /// One entry, or none when `records` is empty.
    FenVisHitRecordList(std::vector<FenVisHitRecord> const& records,
                        boost::weak_ptr<IFenVisEventHandler> handler, FenVisualization const* source,
                        int layer);

    /// Appends one entry; does nothing when `records` is empty.
    void insert(std::vector<FenVisHitRecord> const& records, boost::weak_ptr<IFenVisEventHandler> handler,
                FenVisualization const* source, int layer);
    /// An entry without handler and source.
    void insert(std::vector<FenVisHitRecord> const& records, int layer);
    /// Appends all entries of another list.
    void insert(FenVisHitRecordList const& other);

    /// Number of entries; the accessors below take an index below it.
    unsigned int size() const { return static_cast<unsigned int>(_records.size()); }
    std::vector<FenVisHitRecord> const& records(unsigned int i) const { return _records[i]; }
    boost::weak_ptr<IFenVisEventHandler> handler(unsigned int i) const { return _handlers[i]; }
    FenVisualization const* source(unsigned int i) const { return _sources[i].get(); }
    int layer(unsigned int i) const { return _layers[i]; }

private:
    void append(std::vector<FenVisHitRecord> records, boost::weak_ptr<IFenVisEventHandler> handler,
                fen::view_ptr<FenVisualization const> source, int layer);

    std::vector<std::vector<FenVisHitRecord>> _records;
    std::vector<boost::weak_ptr<IFenVisEventHandler>> _handlers;
    std::vector<fen::view_ptr<FenVisualization const>> _sources;
    std::vector<int> _layers;
};

/// Lists all entries and records, for debugging.
FENVIS_EXPORT std::ostream& operator<<(std::ostream& stream, FenVisHitRecordList const& list);
