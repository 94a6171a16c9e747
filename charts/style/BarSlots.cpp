#include "charts/style/BarSlots.h"

#include <algorithm>
#include <map>

namespace fen {

namespace {

/// Part of the distance of two x that a group of bars side by side takes.
constexpr double groupShare = 0.8;

struct Group {
    unsigned count = 0;
    double distance = 0; ///< [data]
};

} // namespace

std::vector<BarSlot> barSlots(std::vector<BarVariable> const& variables)
{
    std::map<void const*, Group> groups;
    std::vector<unsigned> places;
    for (BarVariable const& variable : variables) {
        Group& group = groups[variable.axis];
        places.push_back(group.count++);
        group.distance = group.distance > 0 ? std::min(group.distance, variable.distance) : variable.distance;
    }
    std::vector<BarSlot> result;
    for (std::size_t i = 0; i < variables.size(); ++i) {
        Group const& group = groups[variables[i].axis];
        double const share = group.count > 1 ? groupShare / group.count : 1.0;
        result.push_back({(places[i] - 0.5 * (group.count - 1)) * share * group.distance,
                          share * group.distance * variables[i].width});
    }
    return result;
}

} // namespace fen
