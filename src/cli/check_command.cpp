#include "check_command.h"

#include "check_report.h"
#include "command_context.h"
#include "inventory_check.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

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
            throw CLI::ValidationError(context.text("pravidlo ", "the rule ") + name
                + context.text(" není; všechna vypíše --explain all", " does not exist; --explain all prints all"));
        }
        rules.push_back(*rule);
    }
    return rules;
}

void explain(CommandContext& context, const std::string& name)
{
    if (name == "all")
        context.out << explainedRules(context.language);
    else
        context.out << explained(rulesOf(context, {name}).front(), context.language);
}

void printJson(
    CommandContext& context, const CheckRequest& request, const CheckedInventory& checked, Findings& findings)
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Finding& finding : findings.sorted()) {
        const RuleText& rule = ruleText(finding.rule);
        nlohmann::ordered_json item{{"file", pathOf(request, finding.place.file)}, {"line", finding.place.line},
            {"column", finding.place.column}, {"severity", severityName(rule.severity)}, {"rule", rule.name}};
        if (finding.source)
            item["source"] = *finding.source;
        item["message"] = finding.message;
        list.push_back(std::move(item));
    }
    nlohmann::ordered_json counts = nlohmann::ordered_json::object();
    for (const RuleText& rule : allRules()) {
        if (findings.count(rule.rule) > 0)
            counts[std::string(rule.name)] = findings.count(rule.rule);
    }
    const nlohmann::ordered_json report{{"sources", checked.sources}, {"count", findings.count()},
        {"listed", findings.sorted().size()}, {"rules", std::move(counts)}, {"findings", std::move(list)}};
    // A path need not be UTF-8.
    context.out << report.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
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
        ->check(CLI::Range(10000.0, 200000.0).description(""))
        ->type_name("PA");
    command
        ->add_option("--max", options->most,
            context.text("Kolik nálezů se vypíše; 0 všechny (výchozí 1000). Počítají se vždy všechny.",
                "How many findings are listed; 0 for all (1000 by default). All are counted."))
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
