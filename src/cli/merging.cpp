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
        for (std::size_t position = 1; position <= set.size(); ++position)
            add(inventory, std::move(set.at(position)));
        set.clear();
    }

    Merge finish()
    {
        std::stable_sort(
            m_entries.begin(), m_entries.end(), [](const Entry& a, const Entry& b) { return a.place < b.place; });
        m_merge.set.reserve(m_entries.size());
        for (Entry& entry : m_entries) {
            if (!entry.isReplaced)
                m_merge.set.append(std::move(entry.source));
        }
        return std::move(m_merge);
    }

private:
    struct Entry {
        cZdroje source;
        std::size_t place;  // a source that replaces another gets its place
        bool isReplaced;
    };
    struct Known {
        std::int32_t number;
        std::size_t entry;
    };

    /// Only sources of earlier inventories are there to conflict with.
    void indexEntries()
    {
        m_known.clear();
        for (std::size_t i = 0; i < m_entries.size(); ++i)
            m_known.push_back({m_entries[i].source.ICZ(), i});
        std::stable_sort(
            m_known.begin(), m_known.end(), [](const Known& a, const Known& b) { return a.number < b.number; });
    }

    void append(cZdroje source, std::size_t place) { m_entries.push_back({std::move(source), place, false}); }

    void add(std::size_t inventory, cZdroje source)
    {
        const auto [begin, end] = std::equal_range(m_known.begin(), m_known.end(), Known{source.ICZ(), 0},
            [](const Known& a, const Known& b) { return a.number < b.number; });
        if (begin == end) {
            append(std::move(source), m_entries.size());
            return;
        }
        const bool isTaken = std::any_of(
            begin, end, [&](const Known& known) { return isSame(m_entries[known.entry].source, source); });
        if (isTaken)
            ++m_merge.taken;
        else
            m_merge.conflicts.push_back({inventory, source.ICZ(), source.ICZ()});
        // One that is the same replaces as well: another of its number may follow.
        if (m_onConflict == OnConflict::Replace) {
            for (auto known = begin; known != end; ++known)
                m_entries[known->entry].isReplaced = true;
            append(std::move(source), m_entries[begin->entry].place);
        } else if (m_onConflict == OnConflict::Renumber && !isTaken) {
            renumber(source);
            append(std::move(source), m_entries.size());
        }
    }

    void renumber(cZdroje& source)
    {
        if (m_nextNumber > largestNumber) {
            m_merge.numbersRanOut = true;
            return;
        }
        source.renumber(m_nextNumber);
        m_merge.conflicts.back().newNumber = m_nextNumber++;
    }

    OnConflict m_onConflict;
    std::int32_t m_nextNumber = 1;
    std::vector<Entry> m_entries;
    std::vector<Known> m_known;  // by number, in the order in which they were entered
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
