// The rules of the check: their names, how serious they are, and all their texts.
#pragma once

#include "language.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvex {

enum class Severity {
    Error,    // a value is not what the file seems to say, or a source is lost
    Warning,  // possible, but most likely not meant
    Note,     // the next save will write it in another form
};

enum class RuleGroup { Records, BetweenFiles, Physics };

enum class Rule : unsigned char {
    WrongFile,
    NumberText,
    NumberRange,
    NumberWidth,
    DecimalComma,
    FieldCount,
    TypeCode,
    NameSemicolon,
    CodePage,
    ControlCharacter,
    Utf8,
    Utf8Letters,
    Iso88592,
    DigitsLost,
    Rewritten,

    NoDescription,
    NoDust,
    OrphanDescription,
    OrphanDust,
    SecondDescription,
    SecondDust,
    DustDropped,
    SharedNumber,
    SameNumber,
    GroupZero,
    GroupUnknown,
    GroupDouble,
    ParticleCount,

    VsMismatch,
    DiameterHeight,
    RangeTs,
    RangeW0,
    RangeH,
    RangeD,
    RangeAlfa,
    RangePd,
    RangeSize,
    Emission,
    Shares,
    PlumeRise,
    NoLength,
    Midpoint,
    FarAway,
    SamePlace,
};
constexpr std::size_t ruleCount = static_cast<std::size_t>(Rule::SamePlace) + 1;

struct RuleText {
    Rule rule;
    std::string_view name;  // its identifier on the command line
    RuleGroup group;
    Severity severity;
    /// With places for values.
    const char* czechMessage;
    const char* englishMessage;
    /// What it means, why it matters and what to do.
    const char* czechHelp;
    const char* englishHelp;
};

/// All rules, in the order of Rule.
[[nodiscard]] std::span<const RuleText> allRules();
[[nodiscard]] const RuleText& ruleText(Rule rule);
[[nodiscard]] std::optional<Rule> ruleNamed(std::string_view name);

[[nodiscard]] std::string severityText(Severity severity, Language language);
/// The same for programs, which know no languages.
[[nodiscard]] std::string_view severityName(Severity severity);

}  // namespace korvex
