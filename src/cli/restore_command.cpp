#include "restore_command.h"

#include "command_context.h"
#include "command_files.h"
#include "json_output.h"
#include "message.h"
#include "safety_copy_list.h"
#include "state_folder.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace korvex {

namespace {

struct RestoreArguments {
    std::optional<std::string> name;
    bool force = false;
};

Json jsonOf(const SafetyCopy& copy)
{
    Json json{{"name", copy.name}, {"time", copy.time()}, {"files", Json::array()}};
    for (const CopiedFile& file : copy.files)
        json["files"].push_back(
            {{"path", file.origin}, {"copy", file.copy}, {"size", file.size}, {"isThere", file.isThere}});
    return json;
}

void print(CommandContext& context, const std::vector<SafetyCopy>& copies)
{
    if (context.json) {
        Json json = Json::array();
        for (const SafetyCopy& copy : copies)
            json.push_back(jsonOf(copy));
        writeJson(context, json);
        return;
    }
    for (const SafetyCopy& copy : copies) {
        context.out << copy.name << "  " << copy.time() << '\n';
        for (const CopiedFile& file : copy.files) {
            context.out << "    " << file.origin << "  ";
            if (file.isThere)
                context.out << file.size << " B\n";
            else
                context.out << context.text("kopie chybí\n", "the copy is missing\n");
        }
    }
    context.out << context.text("Bezpečnostní kopie: ", "Safety copies: ") << copies.size() << '\n';
}

/// What is there has been cleared away, perhaps on purpose: the folder is the user's to make.
bool hasFolders(CommandContext& context, const std::vector<std::string>& paths)
{
    for (const std::string& path : paths) {
        const std::filesystem::path folder = std::filesystem::path(path).parent_path();
        std::error_code error;
        if (std::filesystem::is_directory(folder, error))
            continue;
        context.fail(context.text("Složka, kam se má vrátit, chybí: ", "The folder to bring it back to is missing: ")
            + folder.string());
        return false;
    }
    return true;
}

/// The copy made of what was replaced may have pushed out others.
void sayDropped(CommandContext& context, const std::vector<SafetyCopy>& before)
{
    const Result<SafetyCopyList> after = safetyCopiesIn(stateFolder());
    if (!after.ok())
        return;
    for (const SafetyCopy& copy : before) {
        const auto& kept = after.value().copies;
        if (std::none_of(kept.begin(), kept.end(), [&](const SafetyCopy& other) { return other.name == copy.name; }))
            context.err << context.text("Nejstarší kopie ustoupila nové: ", "The oldest copy gave way to the new one: ")
                        << copy.name << '\n';
    }
}

void restore(CommandContext& context, const SafetyCopy& copy, const std::vector<SafetyCopy>& all, bool force)
{
    std::vector<std::string> paths;
    for (const CopiedFile& file : copy.files)
        paths.push_back(file.origin);
    if (paths.empty()) {
        context.fail(context.text("V této kopii není žádný soubor: ", "There is no file in this copy: ") + copy.name);
        return;
    }
    if (!hasFolders(context, paths) || !mayOverwrite(context, paths, force))
        return;
    const Result<void> restored = restoreFiles(copy, safetyCopies());
    if (!restored.ok()) {
        context.fail(restored.error());
        return;
    }
    context.hasWritten = true;
    sayDropped(context, all);
    if (context.json) {
        writeJson(context, {{"restored", copy.name}, {"files", paths}});
        return;
    }
    context.out << context.text("Obnoveno: ", "Restored: ") << copy.name << '\n';
    for (const std::string& path : paths)
        context.out << "  " << path << '\n';
}

void run(CommandContext& context, const RestoreArguments& arguments)
{
    const Result<SafetyCopyList> found = safetyCopiesIn(stateFolder());
    if (!found.ok()) {
        context.fail(found.error());
        return;
    }
    const SafetyCopyList& list = found.value();
    for (const DamagedCopy& copy : list.damaged)
        context.err << copy.error.path << ": "
                    << context.text(
                           "kopii nelze číst, přeskočila se\n", "the copy cannot be read, it was passed over\n");
    if (!arguments.name) {
        print(context, list.copies);
        return;
    }
    const bool wantsLatest = *arguments.name == "latest";
    const auto chosen = std::find_if(list.copies.begin(), list.copies.end(),
        [&](const SafetyCopy& copy) { return wantsLatest || copy.name == *arguments.name; });
    const bool isLatestDamaged = wantsLatest && !list.damaged.empty()
        && (chosen == list.copies.end() || list.damaged.front().name > chosen->name);
    if (isLatestDamaged)
        context.fail(context.text(
            "Poslední kopii nelze číst; uveďte název jiné.", "The latest copy cannot be read; name another one."));
    else if (chosen == list.copies.end())
        context.fail(context.text("Taková kopie není: ", "There is no such copy: ")
            + quotedText(context.language, *arguments.name));
    else
        restore(context, *chosen, list.copies, arguments.force);
}

}  // namespace

void addRestoreCommand(CLI::App& app, CommandContext& context)
{
    const auto arguments = std::make_shared<RestoreArguments>();
    CLI::App* const command = app.add_subcommand("restore",
        context.text("Vypíše bezpečnostní kopie přepsaných souborů, nebo jednu z nich vrátí na její místo.",
            "Lists the safety copies of replaced files, or brings one back to its place."));
    command
        ->add_option(context.text("KOPIE", "COPY"), arguments->name,
            context.text("Která kopie se vrátí: její název, nebo latest pro poslední. Bez názvu se kopie vypíšou.",
                "Which copy to bring back: its name, or latest. Without a name the copies are listed."))
        ->type_name("");
    addForceOption(*command, context, arguments->force);
    command->footer(
        context.text("Co je na místě kopie, uloží se nejdřív jako další kopie. Zůstává jich deset ze všech uložení\n"
                     "všech soupisů, pak nejstarší ustoupí; ta, která se vrací, nikdy.\n"
                     "Příklad: korvexzdr-cli restore latest --force",
            "What is in the place of the copy is first kept as another copy. Ten are kept of all saves of\n"
            "all inventories, then the oldest gives way; the one that is brought back never does.\n"
            "Example: korvexzdr-cli restore latest --force"));
    command->callback([&context, arguments] { run(context, *arguments); });
}

}  // namespace korvex
