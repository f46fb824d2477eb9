#include "check_command.h"

#include "air_pressure.h"
#include "check_report.h"
#include "command_context.h"
#include "inventory_check.h"
#include "json_output.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace korvex {

namespace {

struct CheckOptions {
    CheckRequest request;
    std::size_t most = 1000;
    std::vector<std::string> only;
    std::vector<std::string> skip;
    std::string explain;
};

/// Throws CLI::ValidationError for a name that is no rule.
std::vector<Rule> rulesOf(const CommandContext& context, const std::vector<std::string>& names)
{
    std::vector<Rule> rules;
    for (const std::string& name : names) {
        const auto rule = ruleNamed(name);
        if (!rule) {
            throw CLI::ValidationError(context.text("Pravidlo „", "There is no rule \"") + name
                + context.text("“ není; všechna vypíše --explain all.", "\"; --explain all prints all."));
        }
        rules.push_back(*rule);
    }
    return rules;
}

Json ruleJson(const CommandContext& context, Rule rule)
{
    const RuleText& texts = ruleText(rule);
    Json limits = Json::array();
    for (const LimitText& limit : limitsOf(rule, context.language))
        limits.push_back({{"limit", limit.name}, {"value", limit.value}, {"reason", limit.reason}});
    return {{"rule", texts.name}, {"severity", severityName(texts.severity)},
        {"meaning", context.text(texts.czechHelp, texts.englishHelp)}, {"limits", std::move(limits)}};
}

void explain(CommandContext& context, const std::string& name)
{
    const std::vector<Rule> named = name == "all" ? std::vector<Rule>() : rulesOf(context, {name});
    if (context.json) {
        Json rules = Json::array();
        for (const RuleText& rule : allRules()) {
            if (named.empty() || named.front() == rule.rule)
                rules.push_back(ruleJson(context, rule.rule));
        }
        writeJson(context, rules);
    } else {
        context.out << (named.empty() ? explainedRules(context.language) : explained(named.front(), context.language));
    }
}

/// A path as a JSON string; it need not be UTF-8.
std::string jsonPath(std::string_view path)
{
    return Json(path).dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// Escapes what is behind a place as a JSON string needs it: messages are UTF-8 without control characters, and with
/// the library a million of them would take several times as long.
void escapeFrom(std::string& out, std::size_t begin)
{
    for (const char special : {'\\', '"'}) {
        for (std::size_t at = out.find(special, begin); at != std::string::npos; at = out.find(special, at + 2))
            out.insert(at, 1, '\\');
    }
}

void appendNumber(std::string& out, std::int64_t number)
{
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    out.append(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

/// The part of a finding that is the same for all of a rule.
std::string jsonOfRule(const RuleText& rule)
{
    return std::string(",\n      \"severity\": \"")
        .append(severityName(rule.severity))
        .append("\",\n      \"rule\": \"")
        .append(rule.name)
        .append("\"");
}

/// One by one as they are printed: a million findings as one JSON value would take a gigabyte.
void printFindingsAsJson(TextOutput& out, const CheckRequest& request, Findings& findings)
{
    std::array<std::string, 4> paths;
    for (std::size_t i = 0; i < paths.size(); ++i)
        paths[i] = jsonPath(pathOf(request, static_cast<CheckedFile>(i)));
    std::array<std::string, ruleCount> rules;
    for (const RuleText& rule : allRules())
        rules[static_cast<std::size_t>(rule.rule)] = jsonOfRule(rule);
    std::string item;
    for (const Finding& finding : findings.sorted()) {
        item += "\n    {\n      \"file\": ";
        item += paths[static_cast<std::size_t>(finding.place.file)];
        item += ",\n      \"line\": ";
        appendNumber(item, finding.place.line);
        item += ",\n      \"column\": ";
        appendNumber(item, finding.place.column);
        item += rules[static_cast<std::size_t>(finding.rule)];
        if (finding.hasSource) {
            item += ",\n      \"source\": ";
            appendNumber(item, finding.source);
        }
        item += ",\n      \"message\": \"";
        const std::size_t message = item.size();
        findings.appendMessage(item, finding);
        escapeFrom(item, message);
        item += "\"\n    }";
        out << item;
        item.assign(1, ',');
    }
    if (!findings.sorted().empty())
        out << "\n  ";
}

void printJson(
    CommandContext& context, const CheckRequest& request, const CheckedInventory& checked, Findings& findings)
{
    TextOutput& out = context.out;
    out << "{\n  \"sources\": " << checked.sources << ",\n  \"count\": " << findings.count()
        << ",\n  \"listed\": " << findings.sorted().size() << ",\n  \"rules\": {";
    const char* separator = "\n";
    for (const RuleText& rule : allRules()) {
        if (findings.count(rule.rule) == 0)
            continue;
        out << separator << "    \"" << rule.name << "\": " << findings.count(rule.rule);
        separator = ",\n";
    }
    out << (findings.count() > 0 ? "\n  },\n  \"findings\": [" : "},\n  \"findings\": [");
    printFindingsAsJson(out, request, findings);
    out << "]\n}\n";
}

void check(CommandContext& context, const CheckOptions& options)
{
    if (!options.explain.empty()) {
        explain(context, options.explain);
        return;
    }
    if (options.request.files.description.empty()) {
        context.fail(
            context.text("Zadejte soubor s body a soubor s popisem.", "Give the points and description file."));
        return;
    }
    RuleSelection selection;
    selection.only(rulesOf(context, options.only));
    selection.skip(rulesOf(context, options.skip));
    Findings findings(context.language, options.most, selection);
    const Result<CheckedInventory> checked = checkInventory(options.request, findings);
    if (!checked.ok()) {
        context.fail(checked.error());
        return;
    }
    if (context.json) {
        printJson(context, options.request, checked.value(), findings);
    } else {
        printFindings(context.out, options.request, findings);
        printSummary(context.out, checked.value(), findings);
    }
    context.outcome = findings.count() > 0 ? Outcome::Findings : Outcome::Clean;
}

}  // namespace

void addCheckCommand(CLI::App& app, CommandContext& context)
{
    const auto options = std::make_shared<CheckOptions>();
    CheckRequest& request = options->request;
    CLI::App* const command = app.add_subcommand("check",
        context.text("Zkontroluje soupis: zápis záznamů, vztahy mezi soubory a fyzikální smysl hodnot.",
            "Checks an inventory: form of the records, relations between the files, physics of the values."));
    const std::string file = context.text("SOUBOR", "FILE");
    const std::string rule = context.text("PRAVIDLO", "RULE");
    const auto addFile = [command](const std::string& name, std::string& path, const std::string& meaning) {
        command->add_option(name, path, meaning)->type_name("");
    };
    addFile(context.text("BODY", "POINTS"), request.files.points, context.text("Soubor s body.", "Points file."));
    addFile(context.text("POPIS", "DESCRIPTION"), request.files.description,
        context.text("Soubor s popisem.", "Description file."));
    addFile(context.text("PRACH", "DUST"), request.files.dust,
        context.text("Soubor s prachem, pokud k soupisu patří.", "Dust file, when the inventory has one."));
    command
        ->add_option("--groups", request.groups,
            context.text("Soubor se skupinami prachu; bez něj se odkazy na skupiny nekontrolují.",
                "Dust groups file; without it references to groups are not checked."))
        ->type_name(file);
    command
        ->add_option("--pressure", request.pressure,
            context.text("Tlak vzduchu v Pa, pro který platí Vs (výchozí 101325).",
                "Air pressure in Pa that Vs belongs to (101325 by default)."))
        ->check(CLI::Range(lowestPressure, highestPressure).description(""))
        ->type_name("Pa");
    command
        ->add_option("--max", options->most,
            context.text("Kolik nálezů se vypíše; 0 všechny (výchozí 1000). Počítají se vždy všechny.",
                "How many findings are listed; 0 for all (1000 by default). All are counted."))
        ->check(CLI::NonNegativeNumber.description(""))
        ->type_name("N");
    command
        ->add_option("--only", options->only, context.text("Hledá jen tato pravidla.", "Looks for these rules only."))
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name(rule);
    command->add_option("--skip", options->skip, context.text("Vynechá tato pravidla.", "Leaves these rules out."))
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name(rule);
    command
        ->add_option("--explain", options->explain,
            context.text("Vysvětlí pravidlo, nebo všechna (all), a nic nekontroluje.",
                "Explains a rule, or all of them (all), and checks nothing."))
        ->type_name(rule);
    command->footer(context.text("Příklady:\n"
                                 "  korvexzdr-cli check body.txt popis.txt prach.txt --groups skupiny.spr\n"
                                 "  korvexzdr-cli check body.txt popis.txt --skip rewritten,same-place --max 20\n"
                                 "  korvexzdr-cli check --explain vs-mismatch",
        "Examples:\n"
        "  korvexzdr-cli check body.txt popis.txt prach.txt --groups skupiny.spr\n"
        "  korvexzdr-cli check body.txt popis.txt --skip rewritten,same-place --max 20\n"
        "  korvexzdr-cli check --explain vs-mismatch"));
    command->callback([options, &context] { check(context, *options); });
}

}  // namespace korvex
