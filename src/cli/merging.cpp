#include "merging.h"

#include "inventory.h"
#include "renumbering.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace korvex {

namespace {

bool isSame(const cZdroje& a, const cZdroje& b)
{
    return a.LineSource() == b.LineSource() && a.LineParameters() == b.LineParameters() && a.LineDust() == b.LineDust();
}

std::string joinedComments(const std::vector<Inventory>& inventories)
{
    std::vector<std::string> different;
    for (const Inventory& inventory : inventories) {
        const bool isNew = std::find(different.begin(), different.end(), inventory.comment) == different.end();
        if (!inventory.comment.empty() && isNew)
            different.push_back(inventory.comment);
    }
    std::string joined;
    for (const std::string& comment : different)
        joined.append(joined.empty() ? "" : " * ").append(comment);
    return joined;
}

class Merger {
public:
    explicit Merger(OnConflict onConflict) : m_onConflict(onConflict) { }

    void reserve(std::size_t count) { m_entries.reserve(count); }
    void firstFree(std::int32_t number) { m_nextNumber = number; }

    void add(std::size_t inventory, SourceSet& set)
    {
        indexEntries();
        findPartners(set);
        for (std::size_t position = 1; position <= set.size(); ++position) {
            const SourceOrigin origin{static_cast<std::uint32_t>(inventory), static_cast<std::uint32_t>(position)};
            add(origin, std::move(set.at(position)), m_partners[position]);
        }
        set.clear();
    }

    Merge finish()
    {
        m_merge.set.reserve(m_entries.size());
        for (Entry& entry : m_entries)
            m_merge.set.append(std::move(entry.source));
        return std::move(m_merge);
    }

private:
    struct Entry {
        cZdroje source;
        SourceOrigin origin;
    };
    struct Known {
        std::int32_t number;
        bool isTaken = false;  // a later one is its partner
        std::size_t entry;
    };
    enum class Type { Same, Any };
    enum class Match { None, Same, OfItsNumber };
    /// What of the earlier inventories a source belongs to.
    struct Partner {
        Match match = Match::None;
        bool replaces = false;
        std::size_t entry = 0;
    };

    /// Only sources of earlier inventories are there to conflict with.
    void indexEntries()
    {
        m_known.clear();
        for (std::size_t i = 0; i < m_entries.size(); ++i)
            m_known.push_back({m_entries[i].source.ICZ(), false, i});
        std::stable_sort(
            m_known.begin(), m_known.end(), [](const Known& a, const Known& b) { return a.number < b.number; });
    }

    [[nodiscard]] auto knownOf(std::int32_t number)
    {
        return std::equal_range(m_known.begin(), m_known.end(), Known{number, false, 0},
            [](const Known& a, const Known& b) { return a.number < b.number; });
    }

    /// Several sources may have one number: those that are the same belong together first, then those of one type. So
    /// each replaces one at most, and none vanishes for which nothing came.
    void findPartners(SourceSet& set)
    {
        m_partners.assign(set.size() + 1, {});
        for (std::size_t position = 1; position <= set.size(); ++position)
            findSame(set.at(position), m_partners[position]);
        if (m_onConflict != OnConflict::Replace)
            return;
        for (const Type type : {Type::Same, Type::Any}) {
            for (std::size_t position = 1; position <= set.size(); ++position)
                findReplaced(set.at(position), type, m_partners[position]);
        }
    }

    void findSame(const cZdroje& source, Partner& partner)
    {
        const auto [begin, end] = knownOf(source.ICZ());
        if (begin == end)
            return;
        const auto same = std::find_if(
            begin, end, [&](const Known& known) { return isSame(m_entries[known.entry].source, source); });
        partner = {same == end ? Match::OfItsNumber : Match::Same, false, (same == end ? begin : same)->entry};
        if (same != end)
            same->isTaken = true;
    }

    void findReplaced(const cZdroje& source, Type type, Partner& partner)
    {
        if (partner.match != Match::OfItsNumber || partner.replaces)
            return;
        const auto [begin, end] = knownOf(source.ICZ());
        const auto replaced = std::find_if(begin, end, [&](const Known& known) {
            return !known.isTaken
                && (type == Type::Any || m_entries[known.entry].source.TypZdrojeId() == source.TypZdrojeId());
        });
        if (replaced == end)
            return;
        replaced->isTaken = true;
        partner.replaces = true;
        partner.entry = replaced->entry;
    }

    void add(SourceOrigin origin, cZdroje source, const Partner& partner)
    {
        if (partner.match == Match::None) {
            m_entries.push_back({std::move(source), origin});
            return;
        }
        if (partner.match == Match::Same) {
            ++m_merge.taken;
            return;
        }
        Entry& earlier = m_entries[partner.entry];
        MergeConflict conflict{origin, earlier.origin, source.ICZ(), source.ICZ(), MergeConflict::Outcome::Refused};
        switch (m_onConflict) {
        case OnConflict::Fail:
            break;
        case OnConflict::Keep:
            conflict.outcome = MergeConflict::Outcome::LeftOut;
            break;
        case OnConflict::Replace:
            conflict.outcome = partner.replaces ? MergeConflict::Outcome::Replaced : MergeConflict::Outcome::Added;
            if (partner.replaces)
                earlier = {std::move(source), origin};
            else
                m_entries.push_back({std::move(source), origin});
            break;
        case OnConflict::Renumber:
            renumber(source, conflict);
            m_entries.push_back({std::move(source), origin});
            break;
        }
        m_merge.conflicts.push_back(conflict);
    }

    void renumber(cZdroje& source, MergeConflict& conflict)
    {
        if (m_nextNumber > largestNumber) {
            m_merge.numbersRanOut = true;
            return;
        }
        source.renumber(m_nextNumber);
        conflict.newNumber = m_nextNumber++;
        conflict.outcome = MergeConflict::Outcome::Renumbered;
    }

    OnConflict m_onConflict;
    std::int32_t m_nextNumber = 1;
    std::vector<Entry> m_entries;
    std::vector<Known> m_known;       // by number, in the order in which they were entered
    std::vector<Partner> m_partners;  // by position in the inventory that is being added
    Merge m_merge;
};

}  // namespace

Merge mergeInventories(std::vector<Inventory>& inventories, OnConflict onConflict)
{
    std::size_t count = 0;
    std::int32_t largest = 0;
    bool hasDust = false;
    for (const Inventory& inventory : inventories) {
        count += inventory.set.size();
        hasDust = hasDust || inventory.hasDust();
        for (std::size_t position = 1; position <= inventory.set.size(); ++position)
            largest = std::max(largest, inventory.set.at(position).ICZ());
    }
    Merger merger(onConflict);
    merger.reserve(count);
    merger.firstFree(std::min(largest, largestNumber) + 1);
    for (std::size_t i = 0; i < inventories.size(); ++i)
        merger.add(i, inventories[i].set);
    Merge merge = merger.finish();
    merge.comment = joinedComments(inventories);
    merge.hasDust = hasDust;
    return merge;
}

void sortByNumber(SourceSet& set)
{
    std::vector<std::size_t> positions(set.size());
    std::iota(positions.begin(), positions.end(), std::size_t{1});
    std::stable_sort(positions.begin(), positions.end(),
        [&set](std::size_t a, std::size_t b) { return set.at(a).ICZ() < set.at(b).ICZ(); });
    SourceSet sorted;
    sorted.reserve(set.size());
    for (const std::size_t position : positions)
        sorted.append(std::move(set.at(position)));
    set = std::move(sorted);
}

}  // namespace korvex
