#include "restore_command.h"

#include "command_context.h"
#include "command_files.h"
#include "json_output.h"
#include "safety_copy_list.h"
#include "state_folder.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace korvex {

namespace {

struct RestoreArguments {
    std::string name;
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

void list(CommandContext& context, const std::vector<SafetyCopy>& copies)
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

void restore(CommandContext& context, const SafetyCopy& copy, bool force)
{
    std::vector<std::string> paths;
    for (const CopiedFile& file : copy.files)
        paths.push_back(file.origin);
    if (paths.empty()) {
        context.fail(context.text("V této kopii není žádný soubor: ", "There is no file in this copy: ") + copy.name);
        return;
    }
    if (!mayOverwrite(context, paths, force))
        return;
    const Result<void> restored = restoreFiles(copy, safetyCopies());
    if (!restored.ok()) {
        context.fail(restored.error());
        return;
    }
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
    const Result<std::vector<SafetyCopy>> found = safetyCopiesIn(stateFolder());
    if (!found.ok()) {
        context.fail(found.error());
        return;
    }
    const std::vector<SafetyCopy>& copies = found.value();
    if (arguments.name.empty()) {
        list(context, copies);
        return;
    }
    const bool wantsLatest = arguments.name == "latest";
    const auto chosen = std::find_if(copies.begin(), copies.end(),
        [&](const SafetyCopy& copy) { return wantsLatest || copy.name == arguments.name; });
    if (chosen == copies.end())
        context.fail(context.text("Taková kopie není: ", "There is no such copy: ") + arguments.name);
    else
        restore(context, *chosen, arguments.force);
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
    command->footer(context.text("Co je na místě kopie, uloží se nejdřív jako další kopie.\n"
                                 "Příklad: korvexzdr-cli restore latest --force",
        "What is in the place of the copy is first kept as another copy.\n"
        "Example: korvexzdr-cli restore latest --force"));
    command->callback([&context, arguments] { run(context, *arguments); });
}

}  // namespace korvex
