#include "import_command.h"

#include "command_context.h"
#include "command_files.h"
#include "csv_import.h"
#include "input_file.h"
#include "json_output.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

namespace korvex {

namespace {

struct ImportArguments {
    InventoryArguments target;
    std::string csv;
    std::optional<std::string> comment;
    bool ignoreGeometry = false;
    OutputArguments output;  // its paths are those of the target
    std::size_t mostFindings = 100;
};

std::string formText(const CommandContext& context, CsvFault fault)
{
    switch (fault) {
    case CsvFault::OpenQuote:
        return context.text("uvozovka se nezavírá", "a quote is never closed");
    case CsvFault::TextAfterQuote:
        return context.text("za uzavírající uvozovkou něco stojí", "something stands behind the closing quote");
    case CsvFault::QuoteInside:
        return context.text(
            "uvozovka uvnitř pole, které jí nezačíná", "a quote inside a field that does not begin with one");
    case CsvFault::NoHeader:
        return context.text("chybí řádek s názvy sloupců", "the line with the names of the columns is missing");
    case CsvFault::UnknownColumn:
        return context.text("neznámý sloupec", "unknown column");
    case CsvFault::DoubledColumn:
        return context.text("sloupec je tu podruhé", "the column is there twice");
    case CsvFault::MissingColumn:
        return context.text("sloupec chybí", "the column is missing");
    default:
        return context.text(
            "řádek má jiný počet polí než řádek s názvy", "the row has another number of fields than the header");
    }
}

std::string valueText(const CommandContext& context, CsvFault fault)
{
    switch (fault) {
    case CsvFault::Empty:
        return context.text("hodnota chybí", "the value is missing");
    case CsvFault::NotOfType:
        return context.text("tento typ zdroje hodnotu nemá", "this type of source has no such value");
    case CsvFault::NotInteger:
        return context.text("není celé číslo", "not a whole number");
    case CsvFault::NotReal:
        return context.text("není číslo s desetinnou tečkou", "not a number with a decimal point");
    case CsvFault::OutOfRange:
        return context.text("číslo je mimo rozsah", "the number is out of range");
    case CsvFault::UnknownType:
        return context.text("typ není 1, 2 ani 3", "the type is not 1, 2 or 3");
    case CsvFault::TemperatureOfPlume:
        return context.text("plocha má Delta_h_m, když jsou d i w0 nula, a jinak ts_C",
            "an area has Delta_h_m when d and w0 are both zero, and ts_C otherwise");
    case CsvFault::Semicolon:
        return context.text("název nesmí obsahovat středník", "a name cannot hold a semicolon");
    case CsvFault::LineEnd:
        return context.text("text nesmí obsahovat konec řádku", "a text cannot hold a line end");
    case CsvFault::NotInCodePage:
        return context.text(
            "znak, který kódová stránka souborů nemá", "a character that the code page of the files lacks");
    case CsvFault::CommentDiffers:
        return context.text("jiná poznámka než v dřívějším řádku", "another comment than in an earlier row");
    case CsvFault::CommentBlanks:
        return context.text("poznámka má na kraji mezeru", "the comment has a blank at its end");
    case CsvFault::GeometryDiffers:
        return context.text("geometrie nesouhlasí se souřadnicemi v řádku (--ignore-wkt)",
            "the geometry does not agree with the coordinates of the row (--ignore-wkt)");
    case CsvFault::SharedDescription:
        return context.text(
            "dřívější zdroj má stejné číslo a jiný popis", "an earlier source has this number and another description");
    case CsvFault::SharedDust:
        return context.text(
            "dřívější zdroj má stejné číslo a jiný prach", "an earlier source has this number and other dust");
    case CsvFault::ShiftedDust:
        return context.text("číslo se nevejde na 9 míst, prach by se při čtení posunul",
            "the number is wider than 9 places, its dust would be read shifted");
    default:
        return formText(context, fault);
    }
}

void sayFindings(CommandContext& context, const ImportArguments& arguments, const CsvInventory& inventory)
{
    const std::size_t shown = std::min(inventory.findings.size(), arguments.mostFindings);
    Json json = Json::array();
    for (std::size_t i = 0; i < shown; ++i) {
        const CsvFinding& finding = inventory.findings[i];
        const std::string text = valueText(context, finding.fault);
        if (context.json) {
            json.push_back({{"line", finding.place.line}, {"column", finding.place.column}, {"field", finding.column},
                {"text", text}, {"value", finding.text}});
            continue;
        }
        context.out << arguments.csv << ':' << finding.place.line << ':' << finding.place.column << ": ";
        if (!finding.column.empty())
            context.out << finding.column << ": ";
        context.out << text;
        if (!finding.text.empty())
            context.out << " („" << finding.text << "“)";
        context.out << '\n';
    }
    if (context.json)
        writeJson(context, {{"written", 0}, {"found", inventory.findings.size()}, {"findings", json}});
    else
        context.out << context.text("Nálezy: ", "Findings: ") << inventory.findings.size() << '\n';
    context.err << context.text("Nic se nezapsalo.\n", "Nothing was written.\n");
    context.outcome = Outcome::Findings;
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
    if (!inventory.findings.empty()) {
        sayFindings(context, arguments, inventory);
        return;
    }
    if (!fitsDust(context, arguments, inventory.hasDust)
        || !mayOverwrite(context, pathsOf(files), arguments.output.force))
        return;
    const std::string comment = arguments.comment.value_or(inventory.comment);
    if (!write(context, files, comment, inventory.set, arguments.output))
        return;
    if (context.json)
        writeJson(context, {{"written", inventory.set.size()}, {"files", pathsOf(files)}});
    else
        sayWritten(context, inventory.set.size(), pathsOf(files));
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
    command->add_option("--max", arguments->mostFindings,
        context.text("Nejvýše tolik nálezů se vypíše (100).", "Not more findings than this are printed (100)."));
    addForceOption(*command, context, arguments->output.force);
    addDustOption(*command, context, arguments->output.withoutDust);
    command->footer(context.text("Příklad: korvexzdr-cli import --csv zdroje.csv body.txt popis.txt prach.txt",
        "Example: korvexzdr-cli import --csv zdroje.csv body.txt popis.txt prach.txt"));
    command->callback([&context, arguments] { run(context, *arguments); });
}

}  // namespace korvex
