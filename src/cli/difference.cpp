#include "difference.h"

#include "inventory.h"
#include "source_columns.h"
#include "source_editor.h"

#include <algorithm>
#include <unordered_map>

namespace korvex {

namespace {

/// Gives the sources of one number one after the other.
class Partners {
public:
    explicit Partners(const SourceSet& set) : m_next(set.size() + 1), m_isTaken(set.size() + 1)
    {
        m_first.reserve(set.size());
        // From the back, so that each source finds the next one of its number already entered.
        for (std::size_t position = set.size(); position > 0; --position) {
            std::size_t& first = m_first[set.at(position).ICZ()];
            m_next[position] = first;
            first = position;
        }
    }

    /// 0 when there is none left.
    std::size_t take(std::int32_t number)
    {
        const auto found = m_first.find(number);
        if (found == m_first.end() || found->second == 0)
            return 0;
        const std::size_t position = found->second;
        found->second = m_next[position];
        m_isTaken[position] = true;
        return position;
    }
    [[nodiscard]] bool isTaken(std::size_t position) const { return m_isTaken[position]; }

private:
    std::unordered_map<std::int32_t, std::size_t> m_first;
    std::vector<std::size_t> m_next;
    std::vector<bool> m_isTaken;
};

/// Most sources are the same; making texts of all their values takes longer than to see that.
bool isSame(const cZdroje& before, const cZdroje& after)
{
    const SourceValues a = before.values();
    const SourceValues b = after.values();
    return before.TypZdrojeId() == after.TypZdrojeId() && a.name == b.name && a.x == b.x && a.y == b.y
        && a.altitude == b.altitude && a.group == b.group && a.cluster == b.cluster && a.parameters == b.parameters
        && a.dust == b.dust;
}

class Comparison {
public:
    Comparison(const Inventory& before, const Inventory& after, Difference& difference)
        : m_before(before), m_after(after), m_difference(difference)
    {
    }

    void run()
    {
        Partners partners(m_after.set);
        std::size_t last = 0;
        for (std::size_t position = 1; position <= m_before.set.size(); ++position) {
            const std::size_t partner = partners.take(m_before.set.at(position).ICZ());
            if (partner == 0) {
                m_difference.removed.push_back(position);
                continue;
            }
            m_difference.orderDiffers = m_difference.orderDiffers || partner < last;
            last = partner;
            compare(position, partner);
        }
        for (std::size_t position = 1; position <= m_after.set.size(); ++position) {
            if (!partners.isTaken(position))
                m_difference.added.push_back(position);
        }
    }

private:
    void compare(std::size_t oldPosition, std::size_t newPosition)
    {
        const cZdroje& before = m_before.set.at(oldPosition);
        const cZdroje& after = m_after.set.at(newPosition);
        if (isSame(before, after))
            return;
        m_oldRow.fill(before);
        m_newRow.fill(after);
        if (before.TypZdrojeId() == after.TypZdrojeId())
            tellApart(before.values(), after.values(), before.type());
        SourceChange change{oldPosition, newPosition, {}};
        for (std::size_t column = 0; column < column::Count; ++column) {
            if (column == column::Dust && !m_difference.dustCompared)
                continue;
            if (m_oldRow.texts[column] != m_newRow.texts[column]
                || m_oldRow.applies[column] != m_newRow.applies[column])
                change.fields.push_back({column, m_oldRow.texts[column], m_newRow.texts[column]});
        }
        if (!change.fields.empty())
            m_difference.changed.push_back(std::move(change));
    }

    /// Gives all their digits to reals that differ only behind those that the files show.
    void tellApart(const SourceValues& before, const SourceValues& after, const SourceType& type)
    {
        for (std::size_t i = 0; i < static_cast<std::size_t>(type.parameterCount); ++i) {
            const std::size_t column = columnOfParameter(type, i, before.parameters);
            const bool isSameColumn = column == columnOfParameter(type, i, after.parameters);
            if (!isSameColumn || before.parameters[i] == after.parameters[i]
                || m_oldRow.texts[column] != m_newRow.texts[column])
                continue;
            m_oldRow.texts[column] = exactText(before.parameters[i]);
            m_newRow.texts[column] = exactText(after.parameters[i]);
        }
    }

    const Inventory& m_before;
    const Inventory& m_after;
    Difference& m_difference;
    SourceRow m_oldRow;
    SourceRow m_newRow;
};

}  // namespace

Difference differenceOf(const Inventory& before, const Inventory& after)
{
    Difference difference;
    difference.dustCompared = before.hasDust() == after.hasDust();
    difference.commentDiffers = before.comment != after.comment;
    difference.before = statisticsOf(before.set).ofType;
    difference.after = statisticsOf(after.set).ofType;
    Comparison(before, after, difference).run();
    return difference;
}

}  // namespace korvex
