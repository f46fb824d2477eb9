#include "findings.h"

#include "message.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace korvex {

namespace {

bool isBefore(Rule ruleA, const Place& a, Rule ruleB, const Place& b)
{
    return std::tie(a.file, a.line, a.column, ruleA) < std::tie(b.file, b.line, b.column, ruleB);
}

bool comesBefore(const Finding& a, const Finding& b)
{
    return isBefore(a.rule, a.place, b.rule, b.place);
}

}  // namespace

void RuleSelection::only(const std::vector<Rule>& rules)
{
    if (rules.empty())
        return;
    m_wanted.fill(false);
    for (const Rule rule : rules)
        m_wanted[static_cast<std::size_t>(rule)] = true;
}

void RuleSelection::skip(const std::vector<Rule>& rules)
{
    for (const Rule rule : rules)
        m_wanted[static_cast<std::size_t>(rule)] = false;
}

bool Findings::isKept(Rule rule, const Place& place) const
{
    return m_most == 0 || m_kept.size() < m_most || isBefore(rule, place, m_kept.front().rule, m_kept.front().place);
}

void Findings::keep(
    Rule rule, const Place& place, std::optional<std::int32_t> source, const std::vector<std::string>& values)
{
    const RuleText& texts = ruleText(rule);
    const char* const pattern = m_language == Language::Czech ? texts.czechMessage : texts.englishMessage;
    const bool isFull = m_most != 0 && m_kept.size() == m_most;
    if (isFull) {
        std::pop_heap(m_kept.begin(), m_kept.end(), comesBefore);
        m_kept.pop_back();
    }
    m_kept.push_back({place, rule, source, filled(pattern, values)});
    if (isFull)
        std::push_heap(m_kept.begin(), m_kept.end(), comesBefore);
    else if (m_kept.size() == m_most)
        std::make_heap(m_kept.begin(), m_kept.end(), comesBefore);
}

std::size_t Findings::count() const
{
    std::size_t all = 0;
    for (const std::size_t count : m_counts)
        all += count;
    return all;
}

std::size_t Findings::count(Severity severity) const
{
    std::size_t all = 0;
    for (const RuleText& texts : allRules()) {
        if (texts.severity == severity)
            all += count(texts.rule);
    }
    return all;
}

const std::vector<Finding>& Findings::sorted()
{
    std::stable_sort(m_kept.begin(), m_kept.end(), comesBefore);
    return m_kept;
}

}  // namespace korvex
