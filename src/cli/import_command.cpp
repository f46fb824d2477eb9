#include "import_command.h"

#include "command_context.h"
#include "command_files.h"
#include "csv_finding_text.h"
#include "csv_import.h"
#include "input_file.h"
#include "json_output.h"
#include "message.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvex {

namespace {

struct ImportArguments {
    InventoryArguments target;
    std::string csv;
    std::optional<std::string> comment;
    bool ignoreGeometry = false;
    OutputArguments output;  // its paths are those of the target
    std::size_t mostFindings = 100;

    /// How many findings are listed of so many.
    [[nodiscard]] std::size_t listed(std::size_t found) const
    {
        return mostFindings == 0 ? found : std::min(found, mostFindings);
    }
};

Json jsonOf(const CommandContext& context, const CsvFinding& finding)
{
    return {{"line", finding.place.line}, {"column", finding.place.column}, {"field", finding.column},
        {"text", textOf(context.language, finding)}, {"value", finding.text},
        {"acceptable", isAcceptable(finding.fault)}};
}

void sayFinding(CommandContext& context, const std::string& path, const CsvFinding& finding)
{
    context.out << path << ':' << finding.place.line << ':' << finding.place.column << ": ";
    const bool isUnknown = finding.fault == CsvFault::UnknownColumn;
    if (!finding.column.empty() && !isUnknown)
        context.out << finding.column << ": ";
    context.out << textOf(context.language, finding);
    const std::string& shown = isUnknown ? finding.column : finding.text;
    if (!shown.empty())
        context.out << " (" << quotedText(context.language, shown) << ')';
    context.out << '\n';
}

/// The report of a run: what was found, what was written.
Json reportOf(const CommandContext& context, const ImportArguments& arguments, const CsvInventory& inventory)
{
    Json list = Json::array();
    for (std::size_t i = 0; i < arguments.listed(inventory.findings.size()); ++i)
        list.push_back(jsonOf(context, inventory.findings[i]));
    return {{"written", 0}, {"found", inventory.findings.size()}, {"findings", std::move(list)}};
}

/// Says what was found; false when nothing may be written because of it.
bool mayImport(CommandContext& context, const ImportArguments& arguments, const CsvInventory& inventory)
{
    const std::vector<CsvFinding>& findings = inventory.findings;
    if (findings.empty())
        return true;
    context.outcome = Outcome::Findings;
    if (!context.json) {
        for (std::size_t i = 0; i < arguments.listed(findings.size()); ++i)
            sayFinding(context, arguments.csv, findings[i]);
        context.out << context.text("Nálezy: ", "Findings: ") << findings.size() << '\n';
    }
    const bool allAcceptable = std::all_of(
        findings.begin(), findings.end(), [](const CsvFinding& finding) { return isAcceptable(finding.fault); });
    if (allAcceptable && arguments.output.acceptLosses)
        return true;
    if (context.json)
        writeJson(context, reportOf(context, arguments, inventory));
    if (allAcceptable)
        context.err << context.text("Nic se nezapsalo. Se --accept-losses se zapíše i tak.\n",
            "Nothing was written. With --accept-losses it is written all the same.\n");
    else
        context.err << context.text("Nic se nezapsalo.\n", "Nothing was written.\n");
    return false;
}

bool fitsDust(CommandContext& context, const ImportArguments& arguments, bool hasDust)
{
    const bool writesDust = !arguments.target.dust.empty();
    if (hasDust && !writesDust && !arguments.output.withoutDust)
        context.fail(context.text("Tabulka má sloupec prach: uveďte i soubor s prachem, nebo --without-dust.",
            "The table has a column for dust: name a dust file as well, or --without-dust."));
    else if (writesDust && (!hasDust || arguments.output.withoutDust))
        context.fail(context.text("Soubor s prachem je navíc: zapisuje se bez prachu.",
            "The dust file is one too many: there is no dust to write."));
    return context.outcome != Outcome::CouldNotRun;
}

void run(CommandContext& context, const ImportArguments& arguments)
{
    const SourceFiles files = arguments.target.files();
    Result<InputFile> opened = InputFile::open(arguments.csv, FileCalls::system());
    if (!opened.ok()) {
        context.fail(opened.error());
        return;
    }
    const Result<FileBytes> bytes = opened.value().readAll();
    if (!bytes.ok()) {
        context.fail(bytes.error());
        return;
    }
    CsvInventory inventory
        = readCsv(bytes.value().view(), arguments.ignoreGeometry ? GeometryColumn::Ignore : GeometryColumn::Check);
    if (const std::string form = textOf(context.language, inventory.form); !form.empty())
        context.err << arguments.csv << ": " << form << '\n';
    if (!mayImport(context, arguments, inventory))
        return;
    // A filter that left nothing, or a table saved too early: an inventory is not emptied by that.
    if (inventory.set.empty()) {
        context.fail(context.text("Tabulka nemá pod názvy sloupců žádný řádek; nic se nezapsalo.",
            "The table has no row below the names of its columns; nothing was written."));
        return;
    }
    if (!fitsDust(context, arguments, inventory.hasDust)
        || replacesInput(context, {arguments.csv, {}, {}}, pathsOf(files))
        || !mayOverwrite(context, pathsOf(files), arguments.output.force))
        return;
    const std::string comment = arguments.comment.value_or(inventory.comment);
    if (!write(context, files, comment, inventory.set, arguments.output))
        return;
    if (context.json) {
        Json report = reportOf(context, arguments, inventory);
        report["written"] = inventory.set.size();
        report["files"] = pathsOf(files);
        writeJson(context, report);
    } else {
        sayWritten(context, inventory.set.size(), pathsOf(files));
    }
}

}  // namespace

void addImportCommand(CLI::App& app, CommandContext& context)
{
    const auto arguments = std::make_shared<ImportArguments>();
    CLI::App* const command = app.add_subcommand("import",
        context.text("Zapíše soupis z tabulky CSV, jakou dělá export. Nejdřív ji zkontroluje; s nálezem nezapíše nic.",
            "Writes an inventory from a CSV table as export makes it. Checks it first; with a finding nothing is "
            "written."));
    command->add_option("--csv", arguments->csv, context.text("Tabulka.", "The table."))
        ->required()
        ->type_name(context.text("SOUBOR", "FILE"));
    addInventoryArguments(*command, context, arguments->target);
    command->add_option("--comment", arguments->comment,
        context.text("Poznámka soupisu místo té ze sloupce soupis.",
            "Comment of the inventory instead of that of the column soupis."));
    command->add_flag("--ignore-wkt", arguments->ignoreGeometry,
        context.text("Sloupec WKT nečte; jinak musí souhlasit se souřadnicemi.",
            "Does not read the column WKT; else it has to agree with the coordinates."));
    command
        ->add_option("--max", arguments->mostFindings,
            context.text("Kolik nálezů se vypíše; 0 všechny (výchozí 100). Počítají se vždy všechny.",
                "How many findings are listed; 0 for all (100 by default). All are counted."))
        ->check(CLI::NonNegativeNumber.description(""))
        ->type_name("N");
    addForceOption(*command, context, arguments->output.force);
    command->add_flag("--accept-losses", arguments->output.acceptLosses,
        context.text("Zapíše i s nálezy, které zápisu nebrání: zaokrouhlené hodnoty, Alfa a Pd mimo rozsah, "
                     "neobvyklý prach, řídicí znaky, opakovaná čísla zdrojů, posunutý prach.",
            "Writes in spite of findings that do not prevent it: rounded values, Alfa and Pd out of range, unusual "
            "dust, control characters, repeated source numbers, shifted dust."));
    addDustOption(*command, context, arguments->output.withoutDust);
    command->footer(context.text("Příklad: korvexzdr-cli import --csv zdroje.csv body.txt popis.txt prach.txt",
        "Example: korvexzdr-cli import --csv zdroje.csv body.txt popis.txt prach.txt"));
    command->callback([&context, arguments] { run(context, *arguments); });
}

}  // namespace korvex
