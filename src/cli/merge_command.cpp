#include "merge_command.h"

#include "command_context.h"
#include "command_files.h"
#include "json_output.h"
#include "merging.h"
#include "number_text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvex {

namespace {

struct MergeArguments {
    std::vector<std::string> paths;
    std::string onConflict = "fail";
    std::optional<std::string> comment;
    bool sort = false;
    OutputArguments output;
};

OnConflict onConflictOf(const std::string& name)
{
    if (name == "keep")
        return OnConflict::Keep;
    if (name == "replace")
        return OnConflict::Replace;
    return name == "renumber" ? OnConflict::Renumber : OnConflict::Fail;
}

std::optional<std::vector<Inventory>> loadAll(CommandContext& context, const MergeArguments& arguments)
{
    const auto groups = filesOfGroups(arguments.paths);
    if (!groups || groups->size() < 2) {
        context.fail(context.text("Uveďte aspoň dva soupisy po 2 nebo 3 souborech, mezi nimi „+“.",
            "Name at least two inventories of 2 or 3 files, with \"+\" between them."));
        return std::nullopt;
    }
    std::vector<Inventory> inventories;
    for (const SourceFiles& files : *groups) {
        std::optional<Inventory> inventory = load(context, files, LoadFor::Writing, arguments.output.utf8Files());
        if (!inventory)
            return std::nullopt;
        inventories.push_back(std::move(*inventory));
    }
    return inventories;
}

/// What was done with a source whose number another one has.
std::string outcomeOf(const CommandContext& context, OnConflict onConflict, const MergeConflict& conflict)
{
    const std::string difference
        = context.text(" je v dřívějším soupisu jiný", " is another one in an earlier inventory");
    switch (onConflict) {
    case OnConflict::Keep:
        return difference + context.text(", zůstává dřívější", "; the earlier one stays");
    case OnConflict::Replace:
        return difference + context.text(", nahradil jej", "; it took the place of that one");
    case OnConflict::Renumber:
        return difference + context.text(", dostal číslo ", "; it got the number ") + integerText(conflict.newNumber);
    case OnConflict::Fail:
        break;
    }
    return difference;
}

/// Conflicts go to the error output: they are what the user has to look at.
void sayConflicts(
    CommandContext& context, OnConflict onConflict, const Merge& merge, const std::vector<Inventory>& inventories)
{
    for (const MergeConflict& conflict : merge.conflicts) {
        context.err << inventories[conflict.inventory].files.points << ": " << context.text("zdroj ", "source ")
                    << conflict.number << outcomeOf(context, onConflict, conflict) << '\n';
    }
}

Json jsonOf(const Merge& merge, const std::vector<Inventory>& inventories, const SourceFiles& output)
{
    Json json;
    json["written"] = merge.set.size();
    json["files"] = pathsOf(output);
    json["comment"] = merge.comment;
    json["identical"] = merge.taken;
    json["conflicts"] = Json::array();
    for (const MergeConflict& conflict : merge.conflicts) {
        json["conflicts"].push_back({{"file", inventories[conflict.inventory].files.points},
            {"number", conflict.number}, {"newNumber", conflict.newNumber}});
    }
    return json;
}

void run(CommandContext& context, const MergeArguments& arguments)
{
    std::optional<std::vector<Inventory>> inventories = loadAll(context, arguments);
    if (!inventories)
        return;
    std::vector<const Inventory*> inputs;
    for (const Inventory& inventory : *inventories)
        inputs.push_back(&inventory);
    const SourceFiles output = filesOf(arguments.output.paths);
    if (!mayWrite(context, inputs, output, arguments.output))
        return;

    const OnConflict onConflict = onConflictOf(arguments.onConflict);
    Merge merge = mergeInventories(*inventories, onConflict);
    sayConflicts(context, merge.numbersRanOut ? OnConflict::Fail : onConflict, merge, *inventories);
    if (onConflict == OnConflict::Fail && !merge.conflicts.empty()) {
        context.fail(context.text("Soupisy mají táž čísla; nic se nezapsalo. Co s nimi, řekne --on-conflict.",
            "The inventories share numbers; nothing was written. --on-conflict says what to do."));
        return;
    }
    if (merge.numbersRanOut) {
        context.fail(
            context.text("Nezbylo volné číslo o nejvýše 9 číslicích.", "No number of up to 9 digits is left."));
        return;
    }
    if (arguments.sort)
        sortByNumber(merge.set);
    merge.comment = arguments.comment.value_or(merge.comment);
    if (!write(context, output, merge.comment, merge.set, arguments.output))
        return;
    if (context.json) {
        writeJson(context, jsonOf(merge, *inventories, output));
        return;
    }
    sayWritten(context, merge.set.size(), pathsOf(output));
    context.out << context.text("Shodné zdroje, zapsané jednou: ", "Equal sources, written once: ") << merge.taken
                << '\n'
                << context.text("Zdroje s číslem jiného zdroje: ", "Sources with the number of another: ")
                << merge.conflicts.size() << '\n';
}

}  // namespace

void addMergeCommand(CLI::App& app, CommandContext& context)
{
    const auto arguments = std::make_shared<MergeArguments>();
    CLI::App* const command
        = app.add_subcommand("merge", context.text("Spojí soupisy do jednoho.", "Makes several inventories one."));
    CLI::Option* const inputs = command
                                    ->add_option(context.text("SOUBORY", "FILES"), arguments->paths,
                                        context.text("Soubory soupisů; mezi soupisy stojí „+“.",
                                            "The files of the inventories, \"+\" between them."))
                                    ->required()
                                    ->option_text(context.text("BODY POPIS [PRACH] + BODY POPIS [PRACH] …",
                                        "POINTS DESCRIPTION [DUST] + POINTS DESCRIPTION [DUST] …"));
    command
        ->add_option("--on-conflict", arguments->onConflict,
            context.text(
                "Zdroj, jehož číslo má už jiný zdroj dřívějšího soupisu: fail nic nezapíše (výchozí), keep jej "
                "vynechá, replace jím dřívější nahradí, renumber mu dá číslo za všemi ostatními.",
                "A source whose number another one of an earlier inventory has: fail writes nothing (default), keep "
                "leaves it out, replace puts it in the place of the earlier one, renumber gives it a number behind all "
                "others."))
        ->check(CLI::IsMember({"fail", "keep", "replace", "renumber"}))
        ->type_name("fail|keep|replace|renumber");
    command->add_option("--comment", arguments->comment,
        context.text("Poznámka výsledku; jinak se spojí různé poznámky soupisů.",
            "The comment of the result; else the different ones of the inventories are joined."));
    command->add_flag("--sort", arguments->sort,
        context.text("Seřadí zdroje podle čísla; jinak jdou soupisy za sebou.",
            "Sorts the sources by number; else one inventory follows the other."));
    addOutputOptions(*command, context, arguments->output, {inputs});
    command->get_option("--output")->required();
    command->footer(context.text(
        "Zdroje shodné ve všech souborech nejsou střet, zapíší se jednou.\n"
        "Příklad: korvexzdr-cli merge a/body.txt a/popis.txt + b/body.txt b/popis.txt -o body.txt popis.txt",
        "Sources that are the same in all files are no conflict, they are written once.\n"
        "Example: korvexzdr-cli merge a/body.txt a/popis.txt + b/body.txt b/popis.txt -o body.txt popis.txt"));
    command->callback([&context, arguments, command] {
        if (sortFiles(context, *command, arguments->paths, arguments->output))
            run(context, *arguments);
    });
}

}  // namespace korvex
