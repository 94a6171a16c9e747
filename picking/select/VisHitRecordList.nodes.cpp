#include "picking/hits/VisHitRecordList.h"
#include "framework/Visualization.h"
#include "picking/hits/IVisEventHandler.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <ostream>
#include <utility>

// What looks into the nodes stands here and not beside the list, which is below them.

void FenVisHitRecordList::insert(std::vector<FenVisHitRecord> const& records,
                                 boost::weak_ptr<IFenVisEventHandler> handler, FenVisualization const* source,
                                 int layer)
{
    append(records, std::move(handler), source, layer);
}

std::ostream& operator<<(std::ostream& stream, FenVisHitRecordList const& list)
{
    stream << "hits(" << list.size() << ")\n";
    for (unsigned int i = 0; i < list.size(); ++i) {
        FenVisualization const* const source = list.source(i);
        void const* const handler = list.handler(i).lock().get();
        stream << "\tlayer(" << list.layer(i) << ") handler(" << handler << ") source("
               << (source ? source->name().toStdString() : "<anon>") << ")\n";
        for (FenVisHitRecord const& record : list.records(i)) {
            stream << "\t\tcontext(" << record.context() << ") depth(" << record.depth() << ")\n";
        }
    }
    return stream << std::endl;
}
