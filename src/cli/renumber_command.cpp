#include "renumber_command.h"

#include "command_context.h"
#include "command_files.h"
#include "json_output.h"
#include "renumbering.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvex {

namespace {

struct RenumberArguments {
    InventoryArguments input;
    std::string from;
    std::string start;
    std::string step = "1";
    OutputArguments output;
};

/// None, and said why, when a number cannot be understood.
std::optional<std::int32_t> wholeNumber(CommandContext& context, const std::string& text)
{
    const auto ranges = readNumberRanges(text);
    if (!ranges || ranges->size() != 1 || (*ranges)[0].first != (*ranges)[0].last) {
        context.fail(context.text("Nesrozumitelné číslo: ", "A number that cannot be understood: ") + text);
        return std::nullopt;
    }
    return (*ranges)[0].first;
}

std::optional<RenumberRequest> requestOf(CommandContext& context, const RenumberArguments& arguments)
{
    RenumberRequest request;
    const auto start = wholeNumber(context, arguments.start);
    const auto step = wholeNumber(context, arguments.step);
    if (!start || !step)
        return std::nullopt;
    request.start = *start;
    request.step = *step;
    if (request.step < 1) {
        context.fail(context.text("Krok musí být aspoň 1.", "The step has to be at least 1."));
        return std::nullopt;
    }
    if (!takeNumberRanges(context, arguments.from, request.from))
        return std::nullopt;
    return request;
}

bool isPossible(CommandContext& context, const Renumbering& plan)
{
    for (const NumberChange& clash : plan.clashes) {
        context.err << context.text("zdroj ", "source ") << clash.before << ": "
                    << context.text("číslo ", "the number ") << clash.after
                    << context.text(" už má jiný zdroj\n", " is another source's already\n");
    }
    if (plan.isTooWide)
        context.fail(context.text("Nová čísla nejsou v rozsahu 0 až 999999999; nic se nezapsalo.",
            "The new numbers are not within 0 to 999999999; nothing was written."));
    else if (!plan.clashes.empty())
        context.fail(
            context.text("Čísla by se střetla; nic se nezapsalo.", "Numbers would clash; nothing was written."));
    return plan.isPossible();
}

Json jsonOf(const Renumbering& plan, std::size_t written, const std::vector<std::string>& paths)
{
    Json json{{"written", written}, {"files", paths}, {"numbers", Json::array()}};
    for (const NumberChange& change : plan.changes)
        json["numbers"].push_back({{"old", change.before}, {"new", change.after}});
    return json;
}

Json refusalOf(const CommandContext& context, const Renumbering& plan)
{
    Json json{{"written", 0}, {"files", Json::array()}, {"error", context.failure}, {"clashes", Json::array()}};
    for (const NumberChange& clash : plan.clashes)
        json["clashes"].push_back({{"old", clash.before}, {"new", clash.after}});
    return json;
}

void run(CommandContext& context, const RenumberArguments& arguments)
{
    const std::optional<RenumberRequest> request = requestOf(context, arguments);
    if (!request)
        return;
    const SourceFiles input = arguments.input.files();
    if (arguments.output.paths.empty() && !arguments.output.force) {
        context.fail(context.text("Uveďte --output, nebo --force k přepsání souborů samých.",
            "Name --output, or --force to replace the files themselves."));
        return;
    }
    const SourceFiles output = arguments.output.paths.empty() ? input : filesOf(arguments.output.paths);
    std::optional<Inventory> inventory = load(context, input, LoadFor::Writing, arguments.output.utf8Files());
    if (!inventory || !mayWrite(context, {&*inventory}, output, arguments.output))
        return;
    const Renumbering plan = planRenumbering(inventory->set, *request);
    if (!isPossible(context, plan)) {
        if (context.json)
            writeJson(context, refusalOf(context, plan));
        return;
    }
    if (plan.changes.empty()) {
        context.err << context.text("Žádný zdroj nemá uvedené číslo, nic se nezapsalo.\n",
            "No source has such a number, nothing was written.\n");
        context.outcome = Outcome::Findings;
        if (context.json)
            writeJson(context, jsonOf(plan, 0, {}));
        return;
    }
    // The files that are there need no copies, then.
    const bool changesAny = std::any_of(plan.changes.begin(), plan.changes.end(),
        [](const NumberChange& change) { return change.before != change.after; });
    if (!changesAny && arguments.output.paths.empty()) {
        if (context.json)
            writeJson(context, jsonOf(plan, 0, {}));
        else
            context.out << context.text("Čísla zůstávají, jak jsou; nic se nezapsalo.\n",
                "The numbers stay as they are; nothing was written.\n");
        return;
    }
    renumber(inventory->set, plan);
    if (!write(context, output, inventory->comment, inventory->set, arguments.output))
        return;
    if (!context.json) {
        for (const NumberChange& change : plan.changes)
            context.out << change.before << " -> " << change.after << '\n';
        sayWritten(context, inventory->set.size(), pathsOf(output));
        return;
    }
    writeJson(context, jsonOf(plan, inventory->set.size(), pathsOf(output)));
}

}  // namespace

void addRenumberCommand(CLI::App& app, CommandContext& context)
{
    const auto arguments = std::make_shared<RenumberArguments>();
    CLI::App* const command = app.add_subcommand("renumber",
        context.text("Přečísluje zdroje ve všech souborech soupisu.",
            "Gives sources new numbers in all files of an inventory."));
    const std::vector<CLI::Option*> inputs = addInventoryArguments(*command, context, arguments->input);
    command
        ->add_option("--from", arguments->from,
            context.text(
                "Která čísla se mění: 1-10,15,200-; jinak všechna.", "Which numbers change: 1-10,15,200-; else all."))
        ->type_name(context.text("ČÍSLA", "NUMBERS"));
    command
        ->add_option("--start", arguments->start,
            context.text("První nové číslo; další jdou v pořadí zdrojů.",
                "The first new number; others follow in the order of the sources."))
        ->required()
        ->type_name(context.text("ČÍSLO", "NUMBER"));
    command
        ->add_option("--step", arguments->step,
            context.text("Odstup nových čísel (výchozí 1).", "Distance of the new numbers (default 1)."))
        ->type_name(context.text("ČÍSLO", "NUMBER"));
    addOutputOptions(*command, context, arguments->output, inputs);
    command->footer(
        context.text("Názvy zůstanou. Zdroje o stejném čísle dostanou každý své.\n"
                     "Příklad: korvexzdr-cli renumber body.txt popis.txt prach.txt --start 301 -o b.txt p.txt d.txt",
            "Names stay. Sources that share a number get one each.\n"
            "Example: korvexzdr-cli renumber body.txt popis.txt prach.txt --start 301 -o b.txt p.txt d.txt"));
    command->callback([&context, arguments, command] {
        if (sortFiles(context, *command, arguments->input, arguments->output))
            run(context, *arguments);
    });
}

}  // namespace korvex
