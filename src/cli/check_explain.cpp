// The explanations of the rules, for the terminal and as the page docs/checks.md.
#include "check_limits.h"
#include "check_report.h"
#include "number_text.h"
#include "source_type.h"

namespace korvex {

namespace {

std::string typeText(std::int32_t typeId, Language language)
{
    switch (typeId) {
    case stackId:
        return text(language, "bodový zdroj", "point source");
    case areaId:
        return text(language, "plošný zdroj", "area source");
    default:
        return text(language, "liniový zdroj", "line source");
    }
}

std::string withUnit(const std::string& value, const char* unit)
{
    return *unit == '\0' ? value : value + ' ' + unit;
}

std::string groupTitle(RuleGroup group, Language language)
{
    switch (group) {
    case RuleGroup::Records:
        return text(language, "Záznamy", "Records");
    case RuleGroup::BetweenFiles:
        return text(language, "Mezi záznamy a soubory", "Between records and files");
    case RuleGroup::Physics:
        break;
    }
    return text(language, "Fyzikální smysl", "Physics");
}

std::string helpOf(const RuleText& rule, Language language)
{
    return text(language, rule.czechHelp, rule.englishHelp);
}

std::string limitTable(Language language)
{
    std::string out = text(language, "\n## Meze\n\n| pravidlo | mez | hodnota | důvod |\n|---|---|---|---|\n",
        "\n## Limits\n\n| rule | limit | value | reason |\n|---|---|---|---|\n");
    for (const RuleText& rule : allRules()) {
        for (const LimitText& limit : limitsOf(rule.rule, language)) {
            out += "| `" + std::string(rule.name) + "` | " + limit.name + " | " + limit.value + " | " + limit.reason
                + " |\n";
        }
    }
    return out;
}

}  // namespace

std::vector<LimitText> limitsOf(Rule rule, Language language)
{
    std::vector<LimitText> found;
    for (const ParameterRange& range : parameterRanges) {
        if (range.rule == rule) {
            found.push_back({std::string(range.symbol) + " (" + typeText(range.typeId, language) + ")",
                withUnit(singleText(range.low) + text(language, " až ", " to ") + singleText(range.high), range.unit),
                text(language, range.reason.czech, range.reason.english)});
        }
    }
    for (const SingleLimit& limit : limits::all) {
        if (limit.rule == rule) {
            found.push_back({text(language, limit.czech, limit.english), withUnit(singleText(limit.value), limit.unit),
                text(language, limit.reason.czech, limit.reason.english)});
        }
    }
    return found;
}

std::string explained(Rule rule, Language language)
{
    const RuleText& texts = ruleText(rule);
    std::string out = std::string(texts.name) + " (" + severityText(texts.severity, language) + ")\n\n"
        + helpOf(texts, language) + '\n';
    for (const LimitText& limit : limitsOf(rule, language))
        out += "- " + limit.name + ": " + limit.value + " – " + limit.reason + '\n';
    return out;
}

std::string explainedRules(Language language)
{
    std::string out = text(language,
        "# Pravidla kontroly\n\n"
        "Co hledá `korvexzdr-cli check`. Chyba znamená, že hodnota není taková, jak soubor vypadá, nebo že se zdroj\n"
        "ztratí; varování je možné, ale nejspíš nechtěné; poznámka říká, že uložení zapíše totéž jinak.\n",
        "# Rules of the check\n\n"
        "What `korvexzdr-cli check` looks for. An error means that a value is not what the file seems to say, or that\n"
        "a source is lost; a warning is possible but most likely not meant; a note says that a save will write the\n"
        "same in another form. This page is what `check --explain all --lang en` prints.\n");
    const RuleGroup* group = nullptr;
    for (const RuleText& rule : allRules()) {
        if (group == nullptr || *group != rule.group) {
            out += "\n## " + groupTitle(rule.group, language)
                + text(language, "\n\n| pravidlo | závažnost | význam |\n|---|---|---|\n",
                    "\n\n| rule | severity | meaning |\n|---|---|---|\n");
        }
        group = &rule.group;
        out += "| `" + std::string(rule.name) + "` | " + severityText(rule.severity, language) + " | "
            + helpOf(rule, language) + " |\n";
    }
    return out + limitTable(language);
}

}  // namespace korvex
