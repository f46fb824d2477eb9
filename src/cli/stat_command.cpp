#include "stat_command.h"

#include "command_context.h"
#include "command_files.h"
#include "statistics.h"
#include "statistics_report.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvex {

namespace {

using Json = nlohmann::ordered_json;

/// Seven digits: 0.8 as a 32-bit real must not come out as 0.800000011920929.
Json jsonNumber(double value)
{
    return Json::parse(statisticText(value));
}

Json jsonOf(const Tally& tally)
{
    return {{"sources", tally.count()}, {"point", tally.countOfType[0]}, {"area", tally.countOfType[1]},
        {"line", tally.countOfType[2]}, {"emission", jsonNumber(tally.emission.full)},
        {"emissionAlfa", jsonNumber(tally.emission.withAlfa)}, {"emissionPd", jsonNumber(tally.emission.withPd)},
        {"emissionAlfaPd", jsonNumber(tally.emission.withBoth)}};
}

Json jsonOf(const char* key, const std::map<std::int32_t, Tally>& tallies)
{
    Json list = Json::array();
    for (const auto& [number, tally] : tallies) {
        Json item{{key, number}};
        item.update(jsonOf(tally));
        list.push_back(std::move(item));
    }
    return list;
}

Json jsonOf(const ValueRange& range)
{
    return {{"type", range.typeId}, {"quantity", range.symbol}, {"unit", range.unit}, {"sources", range.count},
        {"smallest", jsonNumber(static_cast<double>(range.smallest))},
        {"median", jsonNumber(static_cast<double>(range.median))},
        {"largest", jsonNumber(static_cast<double>(range.largest))}};
}

void printJson(CommandContext& context, const InventoryStatistics& statistics, std::size_t leftOut)
{
    Json ranges = Json::array();
    for (const ValueRange& range : statistics.ranges) {
        if (range.count > 0)
            ranges.push_back(jsonOf(range));
    }
    Json report{{"all", jsonOf(statistics.all)}};
    report["leftOut"] = leftOut;
    Json types = Json::array();
    for (std::size_t i = 0; i < statistics.ofType.size(); ++i) {
        types.push_back({{"type", i + 1}});
        types.back().update(jsonOf(statistics.ofType[i]));
    }
    report["types"] = std::move(types);
    report["groups"] = jsonOf("group", statistics.ofGroup);
    report["clusters"] = jsonOf("cluster", statistics.ofCluster);
    report["ranges"] = std::move(ranges);
    report["lineLength"] = jsonNumber(statistics.roadLength);
    context.out << report.dump(2) << '\n';
}

void stat(CommandContext& context, const SourceFiles& files)
{
    const std::optional<Inventory> inventory = load(context, files, LoadFor::Counting);
    if (!inventory)
        return;
    const InventoryStatistics statistics = statisticsOf(inventory->set);
    const auto leftOut = static_cast<std::size_t>(
        std::count_if(inventory->findings.begin(), inventory->findings.end(), [](const FindingPlace& place) {
            return place.finding == LoadFinding::MissingDescription || place.finding == LoadFinding::UnknownType;
        }));
    if (context.json) {
        printJson(context, statistics, leftOut);
        return;
    }
    printStatistics(context.out, statistics, context.language);
    if (leftOut > 0) {
        context.out << context.text("Nezapočteno, bez popisu nebo neznámého typu: ",
            "Not counted, without a description or of an unknown type: ")
                    << leftOut << '\n';
    }
}

}  // namespace

void addStatCommand(CLI::App& app, CommandContext& context)
{
    const auto files = std::make_shared<SourceFiles>();
    CLI::App* const command = app.add_subcommand("stat",
        context.text("Počty podle typu, skupiny a shluku, rozsahy hodnot a součty emisí.",
            "Counts by type, group and cluster, ranges of values and sums of emissions."));
    command->add_option(context.text("BODY", "POINTS"), files->points, context.text("Soubor s body.", "Points file."))
        ->required()
        ->type_name("");
    command
        ->add_option(context.text("POPIS", "DESCRIPTION"), files->description,
            context.text("Soubor s popisem.", "Description file."))
        ->required()
        ->type_name("");
    command
        ->add_option(context.text("PRACH", "DUST"), files->dust,
            context.text("Soubor s prachem; načte se, ale nic se v něm nepočítá.",
                "Dust file; it is loaded, but nothing in it is counted."))
        ->type_name("");
    command->footer(context.text(
        "Příklad:\n  korvexzdr-cli stat body.txt popis.txt", "Example:\n  korvexzdr-cli stat body.txt popis.txt"));
    command->callback([files, &context] { stat(context, *files); });
}

}  // namespace korvex
