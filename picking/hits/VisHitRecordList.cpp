#include "picking/hits/VisHitRecordList.h"

#include <utility>

FenVisHitRecordList::FenVisHitRecordList(std::vector<FenVisHitRecord> const& records,
                                         boost::weak_ptr<IFenVisEventHandler> handler,
                                         FenVisualization const* source, int layer)
{
    insert(records, std::move(handler), source, layer);
}

void FenVisHitRecordList::insert(std::vector<FenVisHitRecord> const& records, int layer)
{
    insert(records, boost::weak_ptr<IFenVisEventHandler>(), nullptr, layer);
}

void FenVisHitRecordList::insert(FenVisHitRecordList const& other)
{
    unsigned int const n = other.size(); // `other` may be this list
    for (unsigned int i = 0; i < n; ++i)
        append(std::vector<FenVisHitRecord>(other._records[i]), other._handlers[i],
               fen::view_ptr<FenVisualization const>(other._sources[i]), other._layers[i]);
}

void FenVisHitRecordList::append(std::vector<FenVisHitRecord> records,
                                 boost::weak_ptr<IFenVisEventHandler> handler,
                                 fen::view_ptr<FenVisualization const> source, int layer)
{
    if (records.empty()) return;
    _records.push_back(std::move(records));
    _handlers.push_back(std::move(handler));
    _sources.push_back(std::move(source));
    _layers.push_back(layer);
}
