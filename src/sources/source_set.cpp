#include "source_set.h"

#include <iterator>
#include <utility>

namespace korvex {

void SourceSet::addFromRecords(const SourceType& type, std::string_view points, std::string_view description)
{
    cZdroje source(type);
    source.LineSource(points);
    source.LineParameters(description);
    append(std::move(source));
}

void SourceSet::append(SourceSet&& other)
{
    if (m_sources.empty())
        m_sources = std::move(other.m_sources);
    else
        m_sources.insert(m_sources.end(), std::make_move_iterator(other.m_sources.begin()),
            std::make_move_iterator(other.m_sources.end()));
    other.clear();
}

void SourceSet::removeMarked(const MarkBitmap& marks)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_sources.size(); ++i) {
        if (marks.marked(i + 1))
            continue;
        if (kept != i)
            m_sources[kept] = std::move(m_sources[i]);
        ++kept;
    }
    m_sources.erase(m_sources.begin() + static_cast<std::ptrdiff_t>(kept), m_sources.end());
}

}  // namespace korvex
