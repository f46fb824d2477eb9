#include "export_command.h"

#include "command_context.h"
#include "command_files.h"
#include "csv_export.h"
#include "geojson.h"
#include "json_output.h"
#include "replace_files.h"
#include "state_folder.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {

namespace {

/// In place of a file name.
constexpr std::string_view standardOutput = "-";

struct ExportArguments {
    InventoryArguments input;
    std::string csv;
    std::string geoJson;
    std::string coordinateSystem;
    bool force = false;
    bool acceptLosses = false;
};

/// None, and said why, when the arguments do not fit together.
std::optional<std::string> coordinateSystemOf(CommandContext& context, const ExportArguments& arguments)
{
    if (arguments.csv.empty() && arguments.geoJson.empty()) {
        context.fail(context.text("Uveďte --csv nebo --geojson.", "Name --csv or --geojson."));
        return std::nullopt;
    }
    if ((arguments.csv == standardOutput) + (arguments.geoJson == standardOutput) + context.json > 1) {
        context.fail(context.text("Na standardní výstup jde jen jedno: tabulka, GeoJSON, nebo odpověď --json.",
            "Only one thing goes to the standard output: the table, the GeoJSON or the answer of --json."));
        return std::nullopt;
    }
    if (arguments.coordinateSystem.empty()) {
        if (arguments.geoJson.empty())
            return std::string();
        context.fail(
            context.text("Ke --geojson uveďte --crs: v jakém systému jsou souřadnice, ze souborů poznat nelze.",
                "--geojson wants --crs: of what system the coordinates are cannot be told from the files."));
        return std::nullopt;
    }
    const std::optional<std::string> name = coordinateSystemName(arguments.coordinateSystem);
    if (!name)
        context.fail(context.text("Nesrozumitelný souřadnicový systém (EPSG:číslo nebo urn:ogc:def:crs:…): ",
                         "A coordinate reference system that cannot be understood (EPSG:number or urn:ogc:def:crs:…): ")
            + arguments.coordinateSystem);
    else if (arguments.geoJson.empty())
        context.fail(context.text("--crs platí jen pro --geojson.", "--crs is for --geojson only."));
    return context.outcome == Outcome::CouldNotRun ? std::nullopt : name;
}

std::vector<std::string> pathsOf(const ExportArguments& arguments)
{
    std::vector<std::string> paths;
    if (!arguments.csv.empty() && arguments.csv != standardOutput)
        paths = {arguments.csv, csvTypePath(arguments.csv)};
    if (!arguments.geoJson.empty() && arguments.geoJson != standardOutput)
        paths.push_back(arguments.geoJson);
    return paths;
}

/// What is to be written where.
std::vector<Replacement> replacementsOf(
    const ExportArguments& arguments, const Inventory& inventory, const std::string& coordinateSystem)
{
    const DustColumn dust = inventory.hasDust() ? DustColumn::Present : DustColumn::Absent;
    std::vector<Replacement> replacements;
    if (!arguments.csv.empty()) {
        replacements.push_back({arguments.csv, csvBytes(inventory.set, inventory.comment, dust)});
        if (arguments.csv != standardOutput)
            replacements.push_back({csvTypePath(arguments.csv), csvTypeBytes(dust)});
    }
    if (!arguments.geoJson.empty()) {
        replacements.push_back(
            {arguments.geoJson, geoJsonBytes(inventory.set, inventory.comment, inventory.hasDust(), coordinateSystem)});
    }
    return replacements;
}

/// Nothing comes of it: the files of the inventory stay as they are.
bool isDustNotGiven(const FindingPlace& place)
{
    return place.finding == LoadFinding::DustNotGiven;
}

/// Writes what goes to the standard output there, and takes it out.
void print(CommandContext& context, std::vector<Replacement>& replacements)
{
    const auto printed = std::find_if(replacements.begin(), replacements.end(),
        [](const Replacement& replacement) { return replacement.path == standardOutput; });
    for (const std::string& block : printed->bytes.blocks())
        context.out << block;
    replacements.erase(printed);
}

void run(CommandContext& context, const ExportArguments& arguments)
{
    const std::optional<std::string> coordinateSystem = coordinateSystemOf(context, arguments);
    if (!coordinateSystem)
        return;
    const std::vector<std::string> paths = pathsOf(arguments);
    const std::optional<Inventory> inventory = load(context, arguments.input.files(), LoadFor::Writing,
        arguments.acceptLosses ? Utf8Files::Accept : Utf8Files::Refuse);
    if (!inventory || !mayLose(context, *inventory, arguments.acceptLosses, isDustNotGiven)
        || replacesInput(context, inventory->files, paths) || !mayOverwrite(context, paths, arguments.force))
        return;
    if (!arguments.csv.empty() && inventory->set.empty() && !inventory->comment.empty())
        context.err << context.text("Soupis bez zdrojů: jeho poznámka v CSV nebude.\n",
            "An inventory without sources: its comment will not be in the CSV.\n");
    std::vector<Replacement> replacements = replacementsOf(arguments, *inventory, *coordinateSystem);
    const bool isPrinted = paths.size() < replacements.size();
    if (isPrinted)
        print(context, replacements);
    const Result<void> written = replaceFiles(replacements, safetyCopies(), FileCalls::system());
    if (!written.ok()) {
        context.fail(written.error());
        return;
    }
    context.hasWritten = !paths.empty();
    if (context.json)
        writeJson(context, {{"written", inventory->set.size()}, {"files", paths}});
    else if (!isPrinted)
        sayWritten(context, inventory->set.size(), paths);
}

}  // namespace

void addExportCommand(CLI::App& app, CommandContext& context)
{
    const auto arguments = std::make_shared<ExportArguments>();
    CLI::App* const command = app.add_subcommand(
        "export", context.text("Převede soupis do CSV nebo GeoJSON.", "Converts an inventory to CSV or GeoJSON."));
    addInventoryArguments(*command, context, arguments->input);
    const std::string file = context.text("SOUBOR", "FILE");
    command
        ->add_option("--csv", arguments->csv,
            context.text(
                "Tabulka, řádek na zdroj, s geometrií WKT; vedle vznikne .csvt s typy sloupců. Zpět ji převede "
                "import. „-“ je standardní výstup.",
                "A table, a row a source, with WKT geometry; a .csvt with the types of the columns beside it. import "
                "converts it back. \"-\" is the standard output."))
        ->type_name(file);
    command
        ->add_option("--geojson", arguments->geoJson,
            context.text("Prvek na zdroj, s --crs. „-“ je standardní výstup.",
                "A feature a source, with --crs. \"-\" is the standard output."))
        ->type_name(file);
    command
        ->add_option("--crs", arguments->coordinateSystem,
            context.text("Souřadnicový systém soupisu; jen se zapíše, souřadnice se nemění.",
                "The coordinate reference system of the inventory; it is only stated, coordinates stay as they are."))
        ->type_name(context.text("EPSG:ČÍSLO", "EPSG:NUMBER"));
    addForceOption(*command, context, arguments->force);
    addLossOption(*command, context, arguments->acceptLosses);
    command->footer(context.text("Příklad: korvexzdr-cli export body.txt popis.txt prach.txt --csv zdroje.csv",
        "Example: korvexzdr-cli export body.txt popis.txt prach.txt --csv zdroje.csv"));
    command->callback([&context, arguments] { run(context, *arguments); });
}

}  // namespace korvex
