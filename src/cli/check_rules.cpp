#include "check_rules.h"

#include "check_rule_texts.h"

#include <algorithm>

namespace korvex {

std::span<const RuleText> allRules()
{
    return ruleTexts;
}

const RuleText& ruleText(Rule rule)
{
    return ruleTexts[static_cast<std::size_t>(rule)];
}

std::optional<Rule> ruleNamed(std::string_view name)
{
    const auto found = std::find_if(
        ruleTexts.begin(), ruleTexts.end(), [name](const RuleText& candidate) { return candidate.name == name; });
    return found == ruleTexts.end() ? std::nullopt : std::optional(found->rule);
}

std::string severityText(Severity severity, Language language)
{
    switch (severity) {
    case Severity::Error:
        return text(language, "chyba", "error");
    case Severity::Warning:
        return text(language, "varování", "warning");
    case Severity::Note:
        break;
    }
    return text(language, "poznámka", "note");
}

std::string_view severityName(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        break;
    }
    return "note";
}

}  // namespace korvex
