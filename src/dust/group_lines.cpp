#include "group_lines.h"

#include "arithmetic_fault.h"
#include "number_text.h"

#include <algorithm>
#include <limits>

namespace korvex {

void GroupLines::store(const DustGroup& group)
{
    const auto old = std::find_if(m_lines.begin(), m_lines.end(),
        [&group](const std::string& line) { return groupNumberOf(line) == group.SkupinaCislo; });
    if (old != m_lines.end())
        m_lines.erase(old);
    m_lines.push_back(group.line());
}

std::int32_t GroupLines::newNumber() const
{
    if (m_lines.empty())
        return 1;
    std::int32_t largest = groupNumberOf(m_lines.front());
    for (const std::string& line : m_lines)
        largest = std::max(largest, groupNumberOf(line));
    if (largest == std::numeric_limits<std::int32_t>::max())
        throw ArithmeticFault(FaultKind::Overflow, "číslo nové skupiny za skupinou " + integerText(largest));
    return largest + 1;
}

}  // namespace korvex
