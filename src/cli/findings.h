// What a check found: everything is counted, and the first findings are kept in the order of the files.
#pragma once

#include "check_rules.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// In the order in which the files are given on the command line.
enum class CheckedFile : unsigned char { Points, Description, Dust, Groups };

struct Place {
    CheckedFile file = CheckedFile::Points;
    std::uint32_t line = 0;    // from 1
    std::uint32_t column = 1;  // from 1, in characters as an editor shows the line
};

/// A million of them may be held at once: the message is made when it is shown, from the values in the store.
struct Finding {
    Place place;
    Rule rule = Rule::NumberText;
    bool hasSource = false;
    std::int32_t source = 0;       // the number of the source, where one is known
    const char* values = nullptr;  // in the ValueStore
};

/// The values of messages, one behind the other.
class ValueStore {
public:
    /// Where the values stand: how many, and each with a zero behind it. Stays there as long as the store.
    template <class Texts>
    const char* add(const Texts& values)
    {
        std::size_t size = 1;
        for (const auto& value : values)
            size += value.size() + 1;
        char* const begin = room(size);
        char* to = begin;
        *to++ = static_cast<char>(values.size());
        for (const auto& value : values) {
            to = std::copy_n(value.data(), value.size(), to);
            *to++ = '\0';
        }
        return begin;
    }
    /// The values there, in the order in which they were added.
    struct Values {
        static constexpr std::size_t most = 9;
        std::array<std::string_view, most> texts;
        std::size_t count = 0;
    };
    [[nodiscard]] static Values valuesAt(const char* at);

private:
    char* room(std::size_t size);

    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_free = nullptr;
    std::size_t m_left = 0;
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
/// So not many more than the first ones found so far are kept.
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
        if (isChange(rule, place.file))
            noteChange(place);
        if (!m_selection.wants(rule))
            return;
        ++m_counts[static_cast<std::size_t>(rule)];
        if (!m_last || isBefore(rule, place, *m_last))
            keep(rule, place, source, m_values.add(values()));
    }
    void add(Rule rule, const Place& place, std::optional<std::int32_t> source)
    {
        add(rule, place, source, [] { return std::array<std::string, 0>(); });
    }

    /// Whether something was found on the line of a place, up to its column, that a save will change; also when the
    /// selection leaves its rule out.
    [[nodiscard]] bool hasChangeUpTo(const Place& place) const
    {
        return m_change.line == place.line && m_change.file == place.file && m_change.column <= place.column;
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
    [[nodiscard]] const std::deque<Finding>& sorted();
    void appendMessage(std::string& out, const Finding& finding) const;
    [[nodiscard]] std::string message(const Finding& finding) const
    {
        std::string out;
        appendMessage(out, finding);
        return out;
    }

private:
    [[nodiscard]] static bool isChange(Rule rule, CheckedFile file);
    [[nodiscard]] static bool isBefore(Rule rule, const Place& place, const Finding& other);
    void noteChange(const Place& place);
    void keep(Rule rule, const Place& place, std::optional<std::int32_t> source, const char* values);
    void putInOrder();
    void dropBeyondMost();

    Language m_language;
    std::size_t m_most;
    RuleSelection m_selection;
    std::array<std::size_t, ruleCount> m_counts{};
    Place m_change;              // the first of its line that a save will change
    std::deque<Finding> m_kept;  // in order; grows without being copied
    std::deque<Finding> m_late;  // come before some of those and are not in order yet
    ValueStore m_values;
    std::optional<Finding> m_last;  // what comes behind it is not kept
};

}  // namespace korvex
