#include "extract_command.h"

#include "command_context.h"
#include "command_files.h"
#include "json_output.h"
#include "selection.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvex {

namespace {

struct ExtractArguments {
    InventoryArguments input;
    std::string types;
    std::string numbers;
    std::string box;
    std::string name;
    bool invert = false;
    OutputArguments output;
};

/// None, and said why, when a condition cannot be understood or there is none.
std::optional<Selection> selectionOf(CommandContext& context, const ExtractArguments& arguments)
{
    Selection selection;
    const std::optional<std::vector<std::int32_t>> types = readTypes(arguments.types);
    if (!types) {
        context.fail(
            context.text("Nesrozumitelné typy zdrojů: ", "Types that cannot be understood: ") + arguments.types);
        return std::nullopt;
    }
    selection.types = *types;
    if (!takeNumberRanges(context, arguments.numbers, selection.numbers))
        return std::nullopt;
    if (!arguments.box.empty()) {
        selection.box = readBoundingBox(arguments.box);
        if (!selection.box) {
            context.fail(
                context.text("Nesrozumitelný obdélník: ", "A box that cannot be understood: ") + arguments.box);
            return std::nullopt;
        }
    }
    selection.name = arguments.name;
    if (selection.types.empty() && selection.numbers.empty() && !selection.box && selection.name.empty()) {
        context.fail(context.text("Uveďte aspoň jednu podmínku.", "Name at least one condition."));
        return std::nullopt;
    }
    return selection;
}

void run(CommandContext& context, const ExtractArguments& arguments)
{
    const std::optional<Selection> selection = selectionOf(context, arguments);
    if (!selection)
        return;
    std::optional<Inventory> inventory
        = load(context, arguments.input.files(), LoadFor::Writing, arguments.output.utf8Files());
    if (!inventory)
        return;
    const SourceFiles output = filesOf(arguments.output.paths);
    const Take take = arguments.invert ? Take::Others : Take::Matching;
    const auto isLeftOut = [&](const FindingPlace& place) {
        return place.position > 0 && selection->matches(inventory->set.at(place.position)) != (take == Take::Matching);
    };
    if (!mayWrite(context, {&*inventory}, output, arguments.output, isLeftOut))
        return;
    const std::size_t dropped = select(inventory->set, *selection, take);
    if (inventory->set.empty()) {
        context.err << context.text("Podmínkám nevyhovuje žádný zdroj, nic se nezapsalo.\n",
            "No source meets the conditions, nothing was written.\n");
        context.outcome = Outcome::Findings;
    } else if (!write(context, output, inventory->comment, inventory->set, arguments.output)) {
        return;
    }
    const std::size_t written = inventory->set.size();
    const std::vector<std::string> paths = written > 0 ? pathsOf(output) : std::vector<std::string>();
    if (context.json)
        writeJson(context, {{"written", written}, {"leftOut", dropped}, {"files", paths}});
    else if (written > 0)
        sayWritten(context, written, paths);
}

}  // namespace

void addExtractCommand(CLI::App& app, CommandContext& context)
{
    const auto arguments = std::make_shared<ExtractArguments>();
    CLI::App* const command = app.add_subcommand("extract",
        context.text("Zapíše část soupisu; platí všechny uvedené podmínky.",
            "Writes a part of an inventory; all conditions given hold."));
    const std::vector<CLI::Option*> inputs = addInventoryArguments(*command, context, arguments->input);
    command
        ->add_option("--type", arguments->types,
            context.text("Typy zdrojů oddělené čárkou.", "Types of sources, commas between them."))
        ->type_name("point|area|line");
    command
        ->add_option("--numbers", arguments->numbers,
            context.text("Čísla zdrojů a jejich rozsahy: 1-10,15,200-", "Numbers and ranges of them: 1-10,15,200-"))
        ->type_name(context.text("ČÍSLA", "NUMBERS"));
    command
        ->add_option("--bbox", arguments->box,
            context.text("Obdélník daný dvěma rohy, pro X a Y zdroje; okraje k němu patří.",
                "A box given by two corners, for X and Y of the source; the edges belong to it."))
        ->type_name("X1,Y1,X2,Y2");
    command->add_option("--name", arguments->name,
        context.text("Text, který název obsahuje; na velikosti písmen záleží.",
            "A text that the name holds; letter case counts."));
    command->add_flag("--invert", arguments->invert,
        context.text(
            "Zapíše zdroje, které podmínkám nevyhovují.", "Writes the sources that do not meet the conditions."));
    addOutputOptions(*command, context, arguments->output, inputs);
    command->get_option("--output")->required();
    command->footer(
        context.text("Příklad: korvexzdr-cli extract body.txt popis.txt prach.txt --type point -o b.txt p.txt d.txt",
            "Example: korvexzdr-cli extract body.txt popis.txt prach.txt --type point -o b.txt p.txt d.txt"));
    command->callback([&context, arguments, command] {
        if (sortFiles(context, *command, arguments->input, arguments->output))
            run(context, *arguments);
    });
}

}  // namespace korvex
