#include "host/table/TableRows.h"

#include "picking/hits/VisHitProperty.h"
#include "picking/hits/VisHitQualifiers.h"
#include "services/properties/Properties.h"

#include <algorithm>

void FenTableRows::set(FenProperties const& owner, std::shared_ptr<FenTableId const> table, Numbers numbers)
{
    if (_sources.size() >= _sweepAt) forgetTheDead();
    _sources.insert(&owner, {&owner, std::move(table), std::move(numbers)});
}

std::optional<FenTableRow> FenTableRows::row(FenProperties const* variable, std::size_t point) const
{
    auto const found = _sources.find(variable);
    if (found == _sources.end() || !found->variable) return {}; // another one may be built in its place
    if (!found->numbers) return FenTableRow{found->table, point};
    if (point >= found->numbers->size()) return {};
    return FenTableRow{found->table, (*found->numbers)[point]};
}

std::optional<std::size_t> FenTableRows::point(FenProperties const& owner, FenTableRow const& row) const
{
    auto const found = _sources.find(&owner);
    if (found == _sources.end() || !found->variable || found->table != row.table) return {};
    if (!found->numbers) return row.row;
    auto const at = std::lower_bound(found->numbers->begin(), found->numbers->end(), row.row);
    if (at == found->numbers->end() || *at != row.row) return {};
    return std::size_t(at - found->numbers->begin());
}

std::optional<FenTableRow> FenTableRows::row(FenVisHitProperty const& hit) const
{
    auto const* const point = dynamic_cast<FenVisHitDataPointQualifier const*>(hit.qualifier.get());
    if (!hit.defined() || !point) return {};
    return row(hit.property, point->dataPointIdx);
}

void FenTableRows::forgetTheDead()
{
    for (auto i = _sources.begin(); i != _sources.end();) i = i->variable ? std::next(i) : _sources.erase(i);
    _sweepAt = 2 * _sources.size() + 64;
}
