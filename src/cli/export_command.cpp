#include "export_command.h"

#include "command_context.h"
#include "command_files.h"
#include "csv_export.h"
#include "geojson.h"
#include "json_output.h"
#include "replace_files.h"
#include "state_folder.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvex {

namespace {

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
    if (arguments.coordinateSystem.empty())
        return std::string();
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
    if (!arguments.csv.empty())
        paths = {arguments.csv, csvTypePath(arguments.csv)};
    if (!arguments.geoJson.empty())
        paths.push_back(arguments.geoJson);
    return paths;
}

std::vector<Replacement> replacementsOf(
    const ExportArguments& arguments, const Inventory& inventory, const std::string& coordinateSystem)
{
    const DustColumn dust = inventory.hasDust() ? DustColumn::Present : DustColumn::Absent;
    std::vector<Replacement> replacements;
    if (!arguments.csv.empty()) {
        replacements.push_back({arguments.csv, csvBytes(inventory.set, inventory.comment, dust)});
        replacements.push_back({csvTypePath(arguments.csv), csvTypeBytes(dust)});
    }
    if (!arguments.geoJson.empty()) {
        replacements.push_back(
            {arguments.geoJson, geoJsonBytes(inventory.set, inventory.comment, inventory.hasDust(), coordinateSystem)});
    }
    return replacements;
}

void run(CommandContext& context, const ExportArguments& arguments)
{
    const std::optional<std::string> coordinateSystem = coordinateSystemOf(context, arguments);
    if (!coordinateSystem)
        return;
    const std::vector<std::string> paths = pathsOf(arguments);
    const std::optional<Inventory> inventory = load(context, arguments.input.files(), LoadFor::Writing,
        arguments.acceptLosses ? Utf8Files::Accept : Utf8Files::Refuse);
    if (!inventory || !mayLose(context, *inventory, arguments.acceptLosses)
        || !mayOverwrite(context, paths, arguments.force))
        return;
    if (!arguments.geoJson.empty() && coordinateSystem->empty())
        context.err << context.text("Bez --crs budou programy pokládat souřadnice za stupně WGS 84.\n",
            "Without --crs programs will take the coordinates for degrees of WGS 84.\n");
    if (!arguments.csv.empty() && inventory->set.empty() && !inventory->comment.empty())
        context.err << context.text("Soupis bez zdrojů: jeho poznámka v CSV nebude.\n",
            "An inventory without sources: its comment will not be in the CSV.\n");
    const Result<void> written = replaceFiles(
        replacementsOf(arguments, *inventory, *coordinateSystem), SafetyCopies(stateFolder()), FileCalls::system());
    if (!written.ok()) {
        context.fail(written.error());
        return;
    }
    if (context.json)
        writeJson(context, {{"written", inventory->set.size()}, {"files", paths}});
    else
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
                "Tabulka, řádek na zdroj, s geometrií WKT; vedle vznikne .csvt s typy sloupců. Zpět ji převede import.",
                "A table, a row a source, with WKT geometry; a .csvt with the types of the columns beside it. import "
                "converts it back."))
        ->type_name(file);
    command->add_option("--geojson", arguments->geoJson, context.text("Prvek na zdroj.", "A feature a source."))
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
