// What the check prints: the findings, their count, and the explanations of the rules.
#pragma once

#include "findings.h"
#include "inventory_check.h"
#include "text_output.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// The name under which a file of the request was given.
[[nodiscard]] std::string_view pathOf(const CheckRequest& request, CheckedFile file);

/// One line a finding, "file:line:column: severity [rule] source N: text".
void printFindings(TextOutput& out, const CheckRequest& request, Findings& findings);
/// How many there were, by rule when there were several.
void printSummary(TextOutput& out, const CheckedInventory& checked, Findings& findings);

/// A limit of a rule, its value with the unit, and why it is what it is.
struct LimitText {
    std::string name;
    std::string value;
    std::string reason;
};
[[nodiscard]] std::vector<LimitText> limitsOf(Rule rule, Language language);

/// What a rule means, with its limits.
[[nodiscard]] std::string explained(Rule rule, Language language);
/// All rules and limits as a page in Markdown: docs/checks.md is made of it.
[[nodiscard]] std::string explainedRules(Language language);

}  // namespace korvex
