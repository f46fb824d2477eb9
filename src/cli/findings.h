// What a check found: everything is counted, and the first findings are kept in the order of the files.
#pragma once

#include "check_rules.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace korvex {

/// In the order in which the files are given on the command line.
enum class CheckedFile : unsigned char { Points, Description, Dust, Groups };

struct Place {
    CheckedFile file = CheckedFile::Points;
    std::size_t line = 0;    // from 1
    std::size_t column = 1;  // from 1, in characters as an editor shows the line
};

struct Finding {
    Place place;
    Rule rule = Rule::NumberText;
    std::optional<std::int32_t> source;  // the number of the source, where one is known
    std::string message;
};

/// Rules to look at; all of them at first.
class RuleSelection {
public:
    RuleSelection() { m_wanted.fill(true); }
    void only(const std::vector<Rule>& rules);
    void skip(const std::vector<Rule>& rules);
    [[nodiscard]] bool wants(Rule rule) const { return m_wanted[static_cast<std::size_t>(rule)]; }

private:
    std::array<bool, ruleCount> m_wanted{};
};

/// Of a million findings only the first ones are wanted, but they come rule by rule and not in the order of the files.
/// So no more than the first ones found so far are kept, and only for those a message is made.
class Findings {
public:
    /// most: how many are kept; 0 keeps all.
    Findings(Language language, std::size_t most, RuleSelection selection)
        : m_language(language), m_most(most), m_selection(selection)
    {
    }

    /// values: makes the values for the places in the rule's message, in the order of the Czech or English text.
    template <class Values>
    void add(Rule rule, const Place& place, std::optional<std::int32_t> source, Values values)
    {
        if (!m_selection.wants(rule))
            return;
        ++m_counts[static_cast<std::size_t>(rule)];
        if (isKept(rule, place))
            keep(rule, place, source, values());
    }
    void add(Rule rule, const Place& place, std::optional<std::int32_t> source)
    {
        add(rule, place, source, [] { return std::vector<std::string>(); });
    }

    [[nodiscard]] Language language() const { return m_language; }
    [[nodiscard]] std::string text(const char* czech, const char* english) const
    {
        return korvex::text(m_language, czech, english);
    }

    /// All that were found, kept or not.
    [[nodiscard]] std::size_t count() const;
    [[nodiscard]] std::size_t count(Rule rule) const { return m_counts[static_cast<std::size_t>(rule)]; }
    [[nodiscard]] std::size_t count(Severity severity) const;

    /// The kept ones by file, line, column and rule.
    [[nodiscard]] const std::vector<Finding>& sorted();

private:
    [[nodiscard]] bool isKept(Rule rule, const Place& place) const;
    void keep(
        Rule rule, const Place& place, std::optional<std::int32_t> source, const std::vector<std::string>& values);

    Language m_language;
    std::size_t m_most;
    RuleSelection m_selection;
    std::array<std::size_t, ruleCount> m_counts{};
    std::vector<Finding> m_kept;  // once full, a heap with the last one at the front
};

}  // namespace korvex
