#include "findings.h"

#include "message.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace korvex {

namespace {

auto orderOf(Rule rule, const Place& place)
{
    return std::tuple(place.file, place.line, place.column, rule);
}

bool comesBefore(const Finding& a, const Finding& b)
{
    return orderOf(a.rule, a.place) < orderOf(b.rule, b.place);
}

}  // namespace

char* ValueStore::room(std::size_t size)
{
    constexpr std::size_t blockSize = std::size_t{1} << 16;
    if (size > m_left) {
        m_left = std::max(blockSize, size);
        m_free = m_blocks.emplace_back(new char[m_left]).get();
    }
    m_left -= size;
    return std::exchange(m_free, m_free + size);
}

ValueStore::Values ValueStore::valuesAt(const char* at)
{
    Values values;
    values.count = static_cast<std::size_t>(*at++);
    for (std::string_view& value : std::span(values.texts).first(values.count)) {
        value = at;
        at += value.size() + 1;
    }
    return values;
}

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

bool Findings::isChange(Rule rule, CheckedFile file)
{
    switch (rule) {
    case Rule::NumberText:
    case Rule::DecimalComma:
    case Rule::FieldCount:
    case Rule::NameSemicolon:
    case Rule::DigitsLost:
    case Rule::DustDropped:
        return true;
    case Rule::NumberWidth:
        return file == CheckedFile::Dust;  // the points file has room for any number
    default:
        return false;
    }
}

void Findings::noteChange(const Place& place)
{
    if (m_change.line != place.line || m_change.file != place.file || place.column < m_change.column)
        m_change = place;
}

bool Findings::isBefore(Rule rule, const Place& place, const Finding& other)
{
    return orderOf(rule, place) < orderOf(other.rule, other.place);
}

void Findings::keep(Rule rule, const Place& place, std::optional<std::int32_t> source, const char* values)
{
    const Finding finding{place, rule, source.has_value(), source.value_or(0), values};
    const auto isOnThisLine
        = [&place](const Finding& other) { return other.place.line == place.line && other.place.file == place.file; };
    if (m_kept.empty() || !comesBefore(finding, m_kept.back())) {
        m_kept.push_back(finding);
    } else if (isOnThisLine(m_kept.back())) {
        // Nearly all that are not in order are so on one line only.
        auto at = m_kept.end();
        while (at != m_kept.begin() && comesBefore(finding, *std::prev(at)))
            --at;
        m_kept.insert(at, finding);
    } else {
        m_late.push_back(finding);
    }
    // Now and then, so that the sorting does not cost much a finding.
    if (m_most != 0 && (m_kept.size() + m_late.size()) / 2 >= m_most)
        dropBeyondMost();
}

void Findings::putInOrder()
{
    std::stable_sort(m_late.begin(), m_late.end(), comesBefore);
    const auto inOrder = static_cast<std::ptrdiff_t>(m_kept.size());
    m_kept.insert(m_kept.end(), m_late.begin(), m_late.end());
    m_late = {};
    std::inplace_merge(m_kept.begin(), m_kept.begin() + inOrder, m_kept.end(), comesBefore);
}

void Findings::dropBeyondMost()
{
    putInOrder();
    if (m_kept.size() <= m_most)
        return;
    m_kept.resize(m_most);
    m_last = m_kept.back();
    ValueStore values;
    for (Finding& finding : m_kept) {
        const ValueStore::Values old = ValueStore::valuesAt(finding.values);
        finding.values = values.add(std::span(old.texts).first(old.count));
    }
    m_values = std::move(values);
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

const std::deque<Finding>& Findings::sorted()
{
    if (m_most != 0)
        dropBeyondMost();
    else
        putInOrder();
    return m_kept;
}

void Findings::appendMessage(std::string& out, const Finding& finding) const
{
    const RuleText& texts = ruleText(finding.rule);
    const char* const pattern = m_language == Language::Czech ? texts.czechMessage : texts.englishMessage;
    const ValueStore::Values values = ValueStore::valuesAt(finding.values);
    appendFilled(out, pattern, std::span(values.texts).first(values.count));
}

}  // namespace korvex
