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
std::string outcomeOf(const CommandContext& context, const MergeConflict& conflict)
{
    switch (conflict.outcome) {
    case MergeConflict::Outcome::LeftOut:
        return context.text(", zůstává dřívější", "; the earlier one stays");
    case MergeConflict::Outcome::Replaced:
        return context.text(", nahradil jej", "; it took the place of that one");
    case MergeConflict::Outcome::Added:
        return context.text(", přibyl k němu", "; it was added to that one");
    case MergeConflict::Outcome::Renumbered:
        return context.text(", dostal číslo ", "; it got the number ") + integerText(conflict.newNumber);
    case MergeConflict::Outcome::Refused:
        break;
    }
    return {};
}

/// For programs.
const char* nameOf(MergeConflict::Outcome outcome)
{
    switch (outcome) {
    case MergeConflict::Outcome::LeftOut:
        return "left out";
    case MergeConflict::Outcome::Replaced:
        return "replaced";
    case MergeConflict::Outcome::Added:
        return "added";
    case MergeConflict::Outcome::Renumbered:
        return "renumbered";
    case MergeConflict::Outcome::Refused:
        break;
    }
    return "refused";
}

/// The lines of all points records; only a conflict needs them.
std::optional<std::vector<std::vector<std::size_t>>> linesOf(
    CommandContext& context, const Merge& merge, const std::vector<Inventory>& inventories)
{
    std::vector<std::vector<std::size_t>> lines(inventories.size());
    for (std::size_t i = 0; !merge.conflicts.empty() && i < inventories.size(); ++i) {
        Result<std::vector<std::size_t>> read = pointsLines(inventories[i]);
        if (!read.ok()) {
            context.fail(read.error());
            return std::nullopt;
        }
        lines[i] = std::move(read.value());
    }
    return lines;
}

/// How the conflicts are told: by file and line.
class ConflictReport {
public:
    ConflictReport(const std::vector<Inventory>& inventories, std::vector<std::vector<std::size_t>> lines)
        : m_inventories(inventories), m_lines(std::move(lines))
    {
    }

    /// On the error output: they are what the user has to look at.
    void say(CommandContext& context, const MergeConflict& conflict) const
    {
        context.err << placeOf(conflict.later) << ": " << context.text("zdroj ", "source ") << conflict.number
                    << context.text(" je v dřívějším soupisu jiný (", " is another one in an earlier inventory (")
                    << placeOf(conflict.earlier) << ')' << outcomeOf(context, conflict) << '\n';
    }

    [[nodiscard]] Json json(const MergeConflict& conflict) const
    {
        return {{"file", fileOf(conflict.later)}, {"line", lineOf(conflict.later)}, {"number", conflict.number},
            {"newNumber", conflict.newNumber}, {"outcome", nameOf(conflict.outcome)},
            {"earlierFile", fileOf(conflict.earlier)}, {"earlierLine", lineOf(conflict.earlier)}};
    }

private:
    [[nodiscard]] const std::string& fileOf(SourceOrigin origin) const
    {
        return m_inventories[origin.inventory].files.points;
    }
    [[nodiscard]] std::size_t lineOf(SourceOrigin origin) const
    {
        return m_lines[origin.inventory].at(origin.position);
    }
    [[nodiscard]] std::string placeOf(SourceOrigin origin) const
    {
        TextOutput place;
        place << fileOf(origin) << ':' << lineOf(origin);
        return place.text();
    }

    const std::vector<Inventory>& m_inventories;
    std::vector<std::vector<std::size_t>> m_lines;
};

Json jsonOf(
    const Merge& merge, std::size_t written, const std::vector<std::string>& paths, const ConflictReport& report)
{
    Json json;
    json["written"] = written;
    json["files"] = paths;
    json["comment"] = merge.comment;
    json["identical"] = merge.taken;
    json["conflicts"] = Json::array();
    for (const MergeConflict& conflict : merge.conflicts)
        json["conflicts"].push_back(report.json(conflict));
    return json;
}

/// Whether there is something to write. Says why not, to programs as well.
bool isSolved(CommandContext& context, OnConflict onConflict, const Merge& merge, const ConflictReport& report)
{
    if (onConflict == OnConflict::Fail && !merge.conflicts.empty())
        context.fail(context.text("Soupisy mají táž čísla; nic se nezapsalo. Co s nimi, řekne --on-conflict.",
            "The inventories share numbers; nothing was written. --on-conflict says what to do."));
    else if (merge.numbersRanOut)
        context.fail(
            context.text("Nezbylo volné číslo o nejvýše 9 číslicích.", "No number of up to 9 digits is left."));
    else
        return true;
    if (context.json) {
        Json json = jsonOf(merge, 0, {}, report);
        json["error"] = context.failure;
        writeJson(context, json);
    }
    return false;
}

/// As a single source without a dust record: no loss, but something comes into being.
void sayInventedDust(CommandContext& context, const std::vector<Inventory>& inventories)
{
    for (const Inventory& inventory : inventories) {
        if (inventory.hasDust())
            continue;
        const std::string text = context.text("soupis nemá soubor s prachem, pro jeho zdroje platí 0,0,0",
            "the inventory has no dust file, 0,0,0 holds for its sources");
        context.err << inventory.files.points << ": " << text << '\n';
        context.tell({inventory.files.points, 0, {}, text});
        context.outcome = Outcome::Findings;
    }
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
    auto lines = linesOf(context, merge, *inventories);
    if (!lines)
        return;
    const ConflictReport report(*inventories, std::move(*lines));
    for (const MergeConflict& conflict : merge.conflicts)
        report.say(context, conflict);
    if (!isSolved(context, onConflict, merge, report))
        return;
    if (arguments.sort)
        sortByNumber(merge.set);
    merge.comment = arguments.comment.value_or(merge.comment);
    if (!output.dust.empty())
        sayInventedDust(context, *inventories);
    if (!write(context, output, merge.comment, merge.set, arguments.output))
        return;
    if (context.json) {
        writeJson(context, jsonOf(merge, merge.set.size(), pathsOf(output), report));
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
