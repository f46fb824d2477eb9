#include "calc_command.h"

#include "air_pressure.h"
#include "command_context.h"
#include "command_files.h"
#include "json_output.h"
#include "recalculation.h"
#include "source_columns.h"

#include <CLI/CLI.hpp>

#include <algorithm>
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
    if (!pressure || *pressure < lowestPressure || *pressure > highestPressure) {
        context.fail(context.text("Tlak musí být číslo od 10000 do 200000 Pa, ne „",
                         "The pressure has to be a number from 10000 to 200000 Pa, not \"")
            + arguments.pressure + context.text("“.", "\"."));
        return std::nullopt;
    }
    request.pressure = static_cast<float>(*pressure);
    if (!takeNumberRanges(context, arguments.numbers, request.numbers))
        return std::nullopt;
    if (!arguments.dryRun && arguments.output.paths.empty() && !arguments.output.force) {
        context.fail(context.text("Uveďte --dry-run, --output, nebo --force k přepsání souborů samých.",
            "Name --dry-run, --output, or --force to replace the files themselves."));
        return std::nullopt;
    }
    return request;
}

std::string reasonOf(const CommandContext& context, const NotComputed& source)
{
    const std::string name(sourceColumns[source.column].name);
    const std::string value = name + context.text(" je ", " is ") + source.value;
    switch (source.reason) {
    case NotComputed::Reason::TooCold:
        return value + context.text(", musí být větší než -273.15", ", it has to be above -273.15");
    case NotComputed::Reason::ZeroDivisor:
        return value + context.text(", nelze jím dělit", ", there is no dividing by it");
    case NotComputed::Reason::Negative:
        return context.text("výsledek ", "the result ") + name + context.text(" by byl ", " would be ") + source.value;
    case NotComputed::Reason::NoResult:
        break;
    }
    return context.text("výsledek ", "the result ") + name
        + context.text(" není, nebo je mimo rozsah", " does not exist or is out of range");
}

Json jsonOf(const CommandContext& context, const SourceSet& set, const Recalculation& result)
{
    Json json{{"computed", result.computed.size()}, {"changed", Json::array()}, {"notComputed", Json::array()}};
    for (const Recalculated& source : result.changed) {
        Json fields = Json::array();
        for (const ValueChange& change : source.changes)
            fields.push_back({{"field", sourceColumns[change.column].name}, {"old", jsonNumber(change.before)},
                {"new", jsonNumber(change.after)}});
        json["changed"].push_back({{"number", set.at(source.position).ICZ()}, {"fields", fields}});
    }
    for (const NotComputed& source : result.notComputed)
        json["notComputed"].push_back(
            {{"number", set.at(source.position).ICZ()}, {"field", sourceColumns[source.column].name},
                {"value", jsonNumber(source.value)}, {"text", reasonOf(context, source)}});
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
    context.out << context.text("Vypočteno: ", "Computed: ") << result.computed.size()
                << context.text(", změněno: ", ", changed: ") << result.changed.size()
                << context.text(", nelze: ", ", impossible: ") << result.notComputed.size() << '\n';
}

/// Whether the value that a finding is about was replaced by a computed one.
bool replaces(Quantity quantity, const Recalculation& result, const FindingPlace& place)
{
    const bool isXY = quantity == Quantity::XY;
    // The field of X, of Vs, of d and of w0 in their records.
    const std::size_t field = isXY ? 2 : quantity == Quantity::Vs ? 4 : quantity == Quantity::d ? 6 : 7;
    return place.finding == LoadFinding::ChangedValue && place.file == (isXY ? DataFile::Points : DataFile::Description)
        && (place.field == field || (isXY && place.field == field + 1))
        && std::binary_search(result.computed.begin(), result.computed.end(), place.position);
}

void run(CommandContext& context, const CalcArguments& arguments)
{
    const std::optional<CalcRequest> request = requestOf(context, arguments);
    if (!request)
        return;
    const SourceFiles input = arguments.input.files();
    const SourceFiles output = arguments.output.paths.empty() ? input : filesOf(arguments.output.paths);
    std::optional<Inventory> inventory
        = load(context, input, arguments.dryRun ? LoadFor::Reading : LoadFor::Writing, arguments.output.utf8Files());
    if (!inventory)
        return;
    const Recalculation result = recalculate(inventory->set, request->quantity, request->pressure, request->numbers);
    for (const NotComputed& source : result.notComputed) {
        context.err << context.text("zdroj ", "source ") << inventory->set.at(source.position).ICZ() << ": "
                    << reasonOf(context, source) << '\n';
        context.outcome = Outcome::Findings;
    }
    if (result.computed.empty() && result.notComputed.empty()) {
        context.err << context.text("Žádný zdroj k výpočtu.\n", "No source to compute.\n");
        context.outcome = Outcome::Findings;
    }
    // In place only what changed is worth a safety copy.
    const bool writes
        = !arguments.dryRun && (arguments.output.paths.empty() ? !result.changed.empty() : !result.computed.empty());
    const auto isReplaced = [&](const FindingPlace& place) { return replaces(request->quantity, result, place); };
    if (writes
        && (!mayWrite(context, {&*inventory}, output, arguments.output, isReplaced)
            || !write(context, output, inventory->comment, inventory->set, arguments.output)))
        return;
    const std::vector<std::string> written = writes ? pathsOf(output) : std::vector<std::string>();
    if (context.json) {
        Json json = jsonOf(context, inventory->set, result);
        json["files"] = written;
        writeJson(context, json);
        return;
    }
    print(context, inventory->set, result);
    if (writes)
        sayWritten(context, inventory->set.size(), written);
    else if (!arguments.dryRun)
        context.out << context.text("Nic se nezapsalo.\n", "Nothing was written.\n");
}

}  // namespace

void addCalcCommand(CLI::App& app, CommandContext& context)
{
    const auto arguments = std::make_shared<CalcArguments>();
    CLI::App* const command = app.add_subcommand("calc",
        context.text("Vypočte Vs, d nebo w0 bodových zdrojů, nebo X, Y liniových.",
            "Computes Vs, d or w0 of stacks, or X, Y of segments."));
    command
        ->add_option(context.text("VELIČINA", "QUANTITY"), arguments->quantity,
            context.text("Co se počítá.", "What is computed."))
        ->required()
        ->check(CLI::IsMember({"vs", "d", "w0", "xy"}))
        ->type_name("vs|d|w0|xy");
    const std::vector<CLI::Option*> inputs = addInventoryArguments(*command, context, arguments->input);
    command
        ->add_option("--pressure", arguments->pressure,
            context.text("Tlak vzduchu (výchozí 101325). Platí pro vs, d i w0. V okně platí tlak zadaný "
                         "u hromadného výpočtu jen pro Vs; d a w0 tam vždy vycházejí z tlaku programu.",
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
    addOutputOptions(*command, context, arguments->output, inputs);
    command->footer(
        context.text("Bez --output se s --force přepíší soubory samy.\n"
                     "Příklad: korvexzdr-cli calc vs body.txt popis.txt prach.txt --pressure 98000 --dry-run",
            "Without --output, --force replaces the files themselves.\n"
            "Example: korvexzdr-cli calc vs body.txt popis.txt prach.txt --pressure 98000 --dry-run"));
    command->callback([&context, arguments, command] {
        if (sortFiles(context, *command, arguments->input, arguments->output))
            run(context, *arguments);
    });
}

}  // namespace korvex
