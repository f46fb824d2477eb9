#include "renumbering.h"

#include <unordered_set>

namespace korvex {

Renumbering planRenumbering(const SourceSet& set, const RenumberRequest& request)
{
    Renumbering planned;
    std::unordered_set<std::int32_t> others;
    std::int64_t next = request.start;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const std::int32_t number = set.at(position).ICZ();
        if (!request.from.empty() && !contains(request.from, number)) {
            others.insert(number);
            continue;
        }
        if (next < 0 || next > largestNumber) {
            planned.isTooWide = true;
            return planned;
        }
        planned.changes.push_back({position, number, static_cast<std::int32_t>(next)});
        next += request.step;
    }
    for (const NumberChange& change : planned.changes) {
        if (others.count(change.after) > 0)
            planned.clashes.push_back(change);
    }
    return planned;
}

void renumber(SourceSet& set, const Renumbering& renumbering)
{
    for (const NumberChange& change : renumbering.changes)
        set.at(change.position).renumber(change.after);
}

}  // namespace korvex
