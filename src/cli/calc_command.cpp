#include "calc_command.h"

#include "command_context.h"
#include "command_files.h"
#include "json_output.h"
#include "recalculation.h"
#include "source_columns.h"

#include <CLI/CLI.hpp>

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvex {

namespace {

struct CalcArguments {
    std::string quantity;
    InventoryArguments input;
    std::string pressure = "101325";
    std::string numbers;
    bool dryRun = false;
    OutputArguments output;
};

Quantity quantityOf(const std::string& name)
{
    if (name == "d")
        return Quantity::d;
    if (name == "w0")
        return Quantity::w0;
    return name == "xy" ? Quantity::XY : Quantity::Vs;
}

struct CalcRequest {
    Quantity quantity;
    float pressure;
    std::vector<NumberRange> numbers;
};

std::optional<CalcRequest> requestOf(CommandContext& context, const CalcArguments& arguments)
{
    CalcRequest request{quantityOf(arguments.quantity), 0.0F, {}};
    const std::optional<double> pressure = readPlainReal(arguments.pressure);
    if (pressure && *pressure <= std::numeric_limits<float>::max())
        request.pressure = static_cast<float>(*pressure);
    if (!(request.pressure > 0.0F)) {
        context.fail(
            context.text("Tlak musí být kladné číslo v Pa: ", "The pressure has to be a number above 0, in Pa: ")
            + arguments.pressure);
        return std::nullopt;
    }
    if (!takeNumberRanges(context, arguments.numbers, request.numbers))
        return std::nullopt;
    if (!arguments.dryRun && arguments.output.paths.empty() && !arguments.output.force) {
        context.fail(context.text("Uveďte --dry-run, --output, nebo --force k přepsání souborů samých.",
            "Name --dry-run, --output, or --force to replace the files themselves."));
        return std::nullopt;
    }
    return request;
}

std::string reasonOf(const CommandContext& context, Quantity quantity, const NotComputed& source)
{
    if (!source.fault.empty())
        return source.fault;
    return quantity == Quantity::d
        ? context.text("nelze vypočítat d, protože w0 = 0", "d cannot be computed, for w0 = 0")
        : context.text("nelze vypočítat w0, protože d = 0", "w0 cannot be computed, for d = 0");
}

Json jsonOf(const CommandContext& context, const SourceSet& set, Quantity quantity, const Recalculation& result)
{
    Json json{{"computed", result.computed}, {"changed", Json::array()}, {"notComputed", Json::array()}};
    for (const Recalculated& source : result.changed) {
        Json fields = Json::array();
        for (const ValueChange& change : source.changes)
            fields.push_back({{"field", sourceColumns[change.column].name}, {"old", jsonNumber(change.before)},
                {"new", jsonNumber(change.after)}});
        json["changed"].push_back({{"number", set.at(source.position).ICZ()}, {"fields", fields}});
    }
    for (const NotComputed& source : result.notComputed)
        json["notComputed"].push_back(
            {{"number", set.at(source.position).ICZ()}, {"text", reasonOf(context, quantity, source)}});
    return json;
}

void print(CommandContext& context, const SourceSet& set, const Recalculation& result)
{
    for (const Recalculated& source : result.changed) {
        context.out << set.at(source.position).ICZ();
        for (const ValueChange& change : source.changes)
            context.out << ' ' << sourceColumns[change.column].name << ": " << change.before << " -> " << change.after;
        context.out << '\n';
    }
    context.out << context.text("Vypočteno: ", "Computed: ") << result.computed
                << context.text(", změněno: ", ", changed: ") << result.changed.size()
                << context.text(", nelze: ", ", impossible: ") << result.notComputed.size() << '\n';
}

void run(CommandContext& context, const CalcArguments& arguments)
{
    const std::optional<CalcRequest> request = requestOf(context, arguments);
    if (!request)
        return;
    const SourceFiles input = arguments.input.files();
    const SourceFiles output = arguments.output.paths.empty() ? input : filesOf(arguments.output.paths);
    std::optional<Inventory> inventory = load(context, input);
    if (!inventory || (!arguments.dryRun && !mayWrite(context, {&*inventory}, output, arguments.output)))
        return;
    const Recalculation result = recalculate(inventory->set, request->quantity, request->pressure, request->numbers);
    for (const NotComputed& source : result.notComputed) {
        context.err << context.text("zdroj ", "source ") << inventory->set.at(source.position).ICZ() << ": "
                    << reasonOf(context, request->quantity, source) << '\n';
        context.outcome = Outcome::Findings;
    }
    if (!arguments.dryRun && !write(context, output, inventory->comment, inventory->set, arguments.output))
        return;
    if (context.json) {
        Json json = jsonOf(context, inventory->set, request->quantity, result);
        json["files"] = arguments.dryRun ? std::vector<std::string>() : pathsOf(output);
        writeJson(context, json);
        return;
    }
    print(context, inventory->set, result);
    if (!arguments.dryRun)
        sayWritten(context, inventory->set.size(), pathsOf(output));
}

}  // namespace

void addCalcCommand(CLI::App& app, CommandContext& context)
{
    const auto arguments = std::make_shared<CalcArguments>();
    CLI::App* const command = app.add_subcommand("calc",
        context.text("Vypočte Vs, d nebo w0 bodových zdrojů, nebo X, Y liniových.",
            "Computes Vs, d or w0 of stacks, or X, Y of segments."));
    command
        ->add_option(context.text("VELICINA", "QUANTITY"), arguments->quantity,
            context.text("Co se počítá.", "What is computed."))
        ->required()
        ->check(CLI::IsMember({"vs", "d", "w0", "xy"}))
        ->type_name("vs|d|w0|xy");
    addInventoryArguments(*command, context, arguments->input);
    command
        ->add_option("--pressure", arguments->pressure,
            context.text(
                "Tlak vzduchu (výchozí 101325). Platí pro vs, d i w0; okno má u hromadného výpočtu zadaný tlak "
                "jen pro Vs a d a w0 počítá vždy s tlakem programu.",
                "Air pressure (default 101325). Holds for vs, d and w0; in the window the pressure typed for a batch "
                "run "
                "acts on Vs alone, d and w0 always use the program's pressure."))
        ->type_name("Pa");
    command
        ->add_option("--numbers", arguments->numbers,
            context.text("Jen zdroje těchto čísel: 1-10,15,200-", "Only sources of these numbers: 1-10,15,200-"))
        ->type_name(context.text("ČÍSLA", "NUMBERS"));
    command->add_flag("--dry-run", arguments->dryRun,
        context.text("Jen vypíše staré a nové hodnoty.", "Prints the old and new values only."));
    addOutputOptions(*command, context, arguments->output);
    command->footer(
        context.text("Bez --output se s --force přepíší soubory samy.\n"
                     "Příklad: korvexzdr-cli calc vs body.txt popis.txt prach.txt --pressure 98000 --dry-run",
            "Without --output, --force replaces the files themselves.\n"
            "Example: korvexzdr-cli calc vs body.txt popis.txt prach.txt --pressure 98000 --dry-run"));
    command->callback([&context, arguments] { run(context, *arguments); });
}

}  // namespace korvex
