#include "skupiny_prachu.h"

#include "blanks.h"
#include "group_line.h"
#include "number_text.h"

namespace korvex {

void cSkupinyPrachu::FileName(const std::string& path)
{
    m_groups.clear();
    if (path.empty() || m_desk.readLines(path, [this](std::string_view line) { takeLine(line); }))
        m_fileName = path;
}

void cSkupinyPrachu::takeLine(std::string_view line)
{
    const std::string_view trimmed = trimBlanks(line);
    if (trimmed.empty())
        return;
    if (trimmed.front() != ';')
        m_groups.push_back({groupNumberOf(line), std::string(groupNameOf(line))});
    else if (m_comment.empty())
        m_comment = trimmed.substr(1);
}

const cSkupinyPrachu::Group* cSkupinyPrachu::groupAt(std::int32_t i) const
{
    return i >= 1 && i <= Count() ? &m_groups[static_cast<std::size_t>(i) - 1] : nullptr;
}

std::string cSkupinyPrachu::SkupinaNazev(std::int32_t i) const
{
    const Group* const group = groupAt(i);
    if (group == nullptr)
        return {};
    return group->name.empty() ? "(skupina " + integerText(i) + ")" : group->name;
}

std::int32_t cSkupinyPrachu::SkupinaCislo(std::int32_t i) const
{
    const Group* const group = groupAt(i);
    return group == nullptr ? 0 : group->number;
}

void cSkupinyPrachu::Edit()
{
    FileName(m_desk.edit(m_fileName));
}

}  // namespace korvex
