#include "command_files.h"

#include "code_page.h"
#include "command_context.h"
#include "message.h"
#include "number_text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

namespace korvex {

namespace {

/// More lines of one kind help nobody; the number of all stands behind them.
constexpr std::size_t mostLines = 20;

std::string numberOf(std::size_t number)
{
    TextOutput text;
    text << number;
    return text.text();
}

/// "„before“ by se zapsalo jako „after“"
std::string changeOf(const CommandContext& context, const FindingPlace& place)
{
    return quotedText(context.language, place.before) + context.text(" by se zapsalo jako ", " would be written as ")
        + quotedText(context.language, place.after);
}

std::string textOf(const CommandContext& context, const FindingPlace& place, LoadFor use)
{
    const std::string source = context.text("zdroj ", "source ") + place.number;
    const std::string record = context.text("záznam ", "record ") + place.number;
    const std::string field = record + context.text(", pole ", ", field ") + numberOf(place.field) + ": ";
    switch (place.finding) {
    case LoadFinding::Utf8:
        return context.text("text je v UTF-8; soubory soupisu jsou ve Windows-1250",
            "the text is UTF-8; files of an inventory are Windows-1250");
    case LoadFinding::UnknownType:
        return source + context.text(" je neznámého typu a nečte se", " is of an unknown type and is not read");
    case LoadFinding::MissingDescription:
        return source
            + (use == LoadFor::Counting
                    ? context.text(" nemá popis a nezapočítal se", " has no description and is not counted")
                    : context.text(" nemá popis, jeho parametry jsou 0", " has no description, its parameters are 0"));
    case LoadFinding::MissingDust:
        return source
            + context.text(" nemá záznam o prachu, platí pro něj 0,0,0", " has no dust record, 0,0,0 holds for it");
    case LoadFinding::NotTaken:
        return record
            + context.text(" nepatří žádnému zdroji, nebo je druhý svého čísla",
                " belongs to no source, or is the second of its number");
    case LoadFinding::LostComment:
        return context.text("poznámka ", "the comment ") + quotedText(context.language, place.before)
            + context.text(" by se ztratila", " would be lost");
    case LoadFinding::DustNotGiven:
        return context.text("k soupisu patří soubor s prachem, který nebyl uveden: ",
                   "the inventory has a dust file that was not named: ")
            + place.before + context.text("; uveďte jej, nebo --without-dust", "; name it, or --without-dust");
    case LoadFinding::MissingValue:
        return field + context.text("chybí hodnota, platí 0", "a value is missing, 0 holds");
    case LoadFinding::SurplusFields:
        return field + context.text("navíc je ", "surplus ") + quotedText(context.language, place.before);
    case LoadFinding::ChangedName:
        return record + context.text(", název: ", ", name: ") + changeOf(context, place);
    case LoadFinding::ChangedDust:
        return record + context.text(", prach: ", ", dust: ") + changeOf(context, place);
    case LoadFinding::ChangedValue:
        break;
    }
    return field + changeOf(context, place);
}

/// What is missing can only come into being.
bool isLoss(const FindingPlace& place)
{
    return place.finding != LoadFinding::MissingDescription && place.finding != LoadFinding::MissingDust
        && place.finding != LoadFinding::MissingValue;
}

std::string textOf(const CommandContext& context, Distortion::Kind kind)
{
    switch (kind) {
    case Distortion::Kind::SharedDescription:
        return context.text("má stejné číslo jako dřívější zdroj a jiný popis: při čtení by dostal jeho parametry",
            "has the number of an earlier source and another description: it would be read with its parameters");
    case Distortion::Kind::SharedDust:
        return context.text("má stejné číslo jako dřívější zdroj a jiný prach: při čtení by dostal jeho prach",
            "has the number of an earlier source and other dust: it would be read with its dust");
    case Distortion::Kind::ShiftedDust:
        return context.text("má číslo, které se nevejde na 9 míst: prach by při čtení začínal čárkou",
            "has a number wider than 9 places: its dust would be read with a comma in front");
    case Distortion::Kind::LineEnd:
        return context.text("má v názvu nebo prachu konec řádku", "has a line end in its name or dust");
    case Distortion::Kind::Semicolon:
        break;
    }
    return context.text(
        "má v názvu středník, název by tam skončil", "has a semicolon in its name, which would end there");
}

void sayMore(CommandContext& context, std::size_t count)
{
    if (count > mostLines)
        context.err << context.text("… a dalších ", "… and more: ") << count - mostLines << '\n';
}

/// Returns how many losses there are among what is not on purpose.
std::size_t sayFindings(
    CommandContext& context, const Inventory& inventory, LoadFor use, const IsOnPurpose& isOnPurpose)
{
    std::size_t count = 0;
    std::size_t losses = 0;
    for (const FindingPlace& place : inventory.findings) {
        if (isOnPurpose && isOnPurpose(place))
            continue;
        if (isLoss(place))
            ++losses;
        context.tell({inventory.pathOf(place.file), place.line, place.number, textOf(context, place, use)});
        if (count++ < mostLines)
            context.err << inventory.pathOf(place.file) << ':' << place.line << ": " << textOf(context, place, use)
                        << '\n';
    }
    sayMore(context, count);
    if (count > 0)
        context.outcome = Outcome::Findings;
    return losses;
}

bool isSameFile(const std::string& a, const std::string& b)
{
    std::error_code error;
    return std::filesystem::equivalent(a, b, error) && !error;
}

bool outputStandsFirst(const CLI::App& command, const OutputArguments& output)
{
    for (const CLI::Option* const option : command.parse_order()) {
        if (std::find(output.inputs.begin(), output.inputs.end(), option) != output.inputs.end())
            return false;
        if (option->check_lname("output"))
            return true;
    }
    return false;
}

enum class Inventories { One, Several };

/// Divides a row of files to write and to read behind them where it makes sense: there are as many to write as the
/// inventory to be written has. False when there is no such place.
bool divide(OutputArguments& output, std::vector<std::string>& inputs, Inventories inventories)
{
    std::vector<std::string> all = output.paths;
    all.insert(all.end(), inputs.begin(), inputs.end());
    for (const std::size_t count : {std::size_t{2}, std::size_t{3}}) {
        const auto middle = all.begin() + static_cast<std::ptrdiff_t>(std::min(count, all.size()));
        const std::vector<std::string> rest(middle, all.end());
        const auto groups = filesOfGroups(rest);
        if (!groups || (groups->size() == 1) != (inventories == Inventories::One))
            continue;
        const bool hasDust
            = std::any_of(groups->begin(), groups->end(), [](const SourceFiles& files) { return !files.dust.empty(); });
        if ((hasDust && !output.withoutDust) != (count == 3))
            continue;
        output.paths.assign(all.begin(), middle);
        inputs = rest;
        return true;
    }
    return false;
}

bool sortFiles(CommandContext& context, const CLI::App& command, std::vector<std::string>& inputs,
    OutputArguments& output, Inventories inventories)
{
    if (outputStandsFirst(command, output) && !divide(output, inputs, inventories)) {
        context.fail(context.text("Za --output mají stát 2 soubory, s prachem 3, a za nimi vstupní soubory.",
            "Behind --output there have to be 2 files, 3 with dust, and behind them the files to read."));
        return false;
    }
    if (output.paths.size() > 3) {
        context.fail(
            context.text("Za --output stojí příliš mnoho souborů.", "There are too many files behind --output."));
        return false;
    }
    return true;
}

void sayReplaced(CommandContext& context, const std::string& path)
{
    context.fail(
        context.text("Výstup by přepsal vstup jiného druhu: ", "The output would replace an input of another kind: ")
        + path);
}

/// An output in the place of an input of another kind is a slip of the hand, even with --force.
bool crossesKinds(CommandContext& context, const SourceFiles& input, const SourceFiles& output)
{
    const std::array<const std::string*, 3> from{&input.points, &input.description, &input.dust};
    const std::array<const std::string*, 3> to{&output.points, &output.description, &output.dust};
    for (std::size_t i = 0; i < from.size(); ++i) {
        for (std::size_t j = 0; j < to.size(); ++j) {
            if (i == j || from[i]->empty() || to[j]->empty() || !isSameFile(*from[i], *to[j]))
                continue;
            sayReplaced(context, *to[j]);
            return true;
        }
    }
    return false;
}

}  // namespace

std::vector<CLI::Option*> addInventoryArguments(
    CLI::App& command, const CommandContext& context, InventoryArguments& arguments)
{
    return {
        command
            .add_option(
                context.text("BODY", "POINTS"), arguments.points, context.text("Soubor s body.", "Points file."))
            ->required()
            ->type_name(""),
        command
            .add_option(context.text("POPIS", "DESCRIPTION"), arguments.description,
                context.text("Soubor s popisem.", "Description file."))
            ->required()
            ->type_name(""),
        command
            .add_option(context.text("PRACH", "DUST"), arguments.dust,
                context.text("Soubor s prachem, pokud k soupisu patří.", "Dust file, when the inventory has one."))
            ->type_name(""),
    };
}

void addForceOption(CLI::App& command, const CommandContext& context, bool& force)
{
    command.add_flag("--force", force,
        context.text(
            "Smí přepsat soubory, které už jsou; jejich kopie (z posledních deseti uložení) vypíše příkaz restore.",
            "May replace files that are there; the command restore lists their copies (of the last ten saves)."));
}

void addLossOption(CLI::App& command, const CommandContext& context, bool& acceptLosses)
{
    command.add_flag("--accept-losses", acceptLosses,
        context.text("Zapíše i tehdy, když se tím něco ze souborů ztratí nebo změní; co, to vypíše.",
            "Writes even when something in the files is lost or changed by it; says what."));
}

void addDustOption(CLI::App& command, const CommandContext& context, bool& withoutDust)
{
    command.add_flag("--without-dust", withoutDust,
        context.text(
            "Zapíše jen body a popis, prach vynechá.", "Writes points and description only, leaves dust out."));
}

void addOutputOptions(CLI::App& command, const CommandContext& context, OutputArguments& arguments,
    const std::vector<CLI::Option*>& inputs)
{
    arguments.inputs.assign(inputs.begin(), inputs.end());
    command
        .add_option("-o,--output", arguments.paths,
            context.text("Kam zapsat: soubor s body, s popisem a s prachem.",
                "Where to write: points, description and dust file."))
        ->expected(2, CLI::detail::expected_max_vector_size)
        ->each([inputs](const std::string& /*path*/) {
            // Perhaps this option has taken them: sortFiles will tell.
            for (CLI::Option* const input : inputs)
                input->required(false);
        })
        ->option_text(context.text("BODY POPIS [PRACH]", "POINTS DESCRIPTION [DUST]"));
    addForceOption(command, context, arguments.force);
    addLossOption(command, context, arguments.acceptLosses);
    addDustOption(command, context, arguments.withoutDust);
}

bool sortFiles(CommandContext& context, const CLI::App& command, InventoryArguments& input, OutputArguments& output)
{
    std::vector<std::string> inputs;
    for (const std::string* const path : {&input.points, &input.description, &input.dust}) {
        if (!path->empty())
            inputs.push_back(*path);
    }
    if (!sortFiles(context, command, inputs, output, Inventories::One))
        return false;
    if (inputs.size() < 2) {
        context.fail(context.text("Uveďte soubor s body a soubor s popisem.", "Name a points and a description file."));
        return false;
    }
    input.points = inputs[0];
    input.description = inputs[1];
    input.dust = inputs.size() > 2 ? inputs[2] : "";
    return true;
}

bool sortFiles(
    CommandContext& context, const CLI::App& command, std::vector<std::string>& inputs, OutputArguments& output)
{
    return sortFiles(context, command, inputs, output, Inventories::Several);
}

SourceFiles filesOf(const std::vector<std::string>& paths)
{
    return {paths[0], paths[1], paths.size() > 2 ? paths[2] : ""};
}

std::optional<std::vector<SourceFiles>> filesOfGroups(const std::vector<std::string>& paths)
{
    constexpr std::string_view divider = "+";
    std::vector<std::vector<std::string>> groups(1);
    for (const std::string& path : paths) {
        if (path == divider)
            groups.emplace_back();
        else
            groups.back().push_back(path);
    }
    const bool isTwoAlike = groups.size() == 1 && (paths.size() == 4 || paths.size() == 6);
    if (isTwoAlike) {
        const auto middle = paths.begin() + static_cast<std::ptrdiff_t>(paths.size() / 2);
        groups = {{paths.begin(), middle}, {middle, paths.end()}};
    }
    std::vector<SourceFiles> files;
    for (const std::vector<std::string>& group : groups) {
        if (group.size() < 2 || group.size() > 3)
            return std::nullopt;
        files.push_back(filesOf(group));
    }
    return files;
}

bool takeNumberRanges(CommandContext& context, const std::string& given, std::vector<NumberRange>& ranges)
{
    if (given.empty())
        return true;
    const auto read = readNumberRanges(given);
    if (!read) {
        context.fail(context.text("Nesrozumitelná čísla zdrojů: ", "Numbers that cannot be understood: ") + given);
        return false;
    }
    ranges = *read;
    return true;
}

std::optional<Inventory> load(CommandContext& context, const SourceFiles& files, LoadFor use, Utf8Files utf8Files)
{
    Result<Inventory> loaded = loadInventory(files, use);
    if (!loaded.ok()) {
        context.fail(loaded.error());
        return std::nullopt;
    }
    const std::vector<FindingPlace>& findings = loaded.value().findings;
    const auto utf8 = std::find_if(
        findings.begin(), findings.end(), [](const FindingPlace& place) { return place.finding == LoadFinding::Utf8; });
    if (utf8 != findings.end() && utf8Files == Utf8Files::Refuse) {
        context.tell({loaded.value().pathOf(utf8->file), utf8->line, {}, textOf(context, *utf8, use)});
        context.fail(loaded.value().pathOf(utf8->file) + ':' + numberOf(utf8->line) + ": " + textOf(context, *utf8, use)
            + context.text(". Převést je umí třeba iconv -f UTF-8 -t WINDOWS-1250.",
                ". Convert them, for instance with iconv -f UTF-8 -t WINDOWS-1250."));
        return std::nullopt;
    }
    if (use != LoadFor::Writing)
        sayFindings(context, loaded.value(), use, {});
    return std::move(loaded.value());
}

bool mayLose(CommandContext& context, const Inventory& inventory, bool acceptLosses, const IsOnPurpose& isOnPurpose)
{
    if (sayFindings(context, inventory, LoadFor::Writing, isOnPurpose) == 0 || acceptLosses)
        return true;
    context.fail(
        context.text("Uvedené údaje by se ztratily nebo změnily, nic se nezapsalo. Se --accept-losses se zapíše i tak.",
            "What is named would be lost or changed, nothing was written. With --accept-losses it is written all the "
            "same."));
    return false;
}

bool replacesInput(CommandContext& context, const SourceFiles& input, const std::vector<std::string>& paths)
{
    const std::vector<std::string> inputs = pathsOf(input);
    const auto isInput = [&inputs](const std::string& path) {
        return std::any_of(
            inputs.begin(), inputs.end(), [&path](const std::string& given) { return isSameFile(given, path); });
    };
    const auto replaced = std::find_if(paths.begin(), paths.end(), isInput);
    if (replaced != paths.end())
        sayReplaced(context, *replaced);
    return replaced != paths.end();
}

bool mayOverwrite(CommandContext& context, const std::vector<std::string>& paths, bool force)
{
    if (force)
        return true;
    const std::vector<std::string> existing = existingPaths(paths);
    for (const std::string& path : existing)
        context.err << path << ": " << context.text("už existuje", "exists already") << '\n';
    if (!existing.empty())
        context.fail(context.text("Nic se nezapsalo; existující soubory se přepíšou jen s --force.",
            "Nothing was written; files that exist are replaced with --force only."));
    return existing.empty();
}

bool mayWrite(CommandContext& context, const std::vector<const Inventory*>& inputs, const SourceFiles& output,
    const OutputArguments& arguments, const IsOnPurpose& isOnPurpose)
{
    const auto isMeant = [&](const FindingPlace& place) {
        const bool isDust = place.file == DataFile::Dust || place.finding == LoadFinding::DustNotGiven;
        return (arguments.withoutDust && isDust) || (isOnPurpose && isOnPurpose(place));
    };
    bool hasDust = false;
    bool mayBeWritten = true;
    for (const Inventory* const input : inputs) {
        hasDust = hasDust || input->hasDust();
        mayBeWritten = mayLose(context, *input, arguments.acceptLosses, isMeant) && mayBeWritten;
    }
    for (const Inventory* const input : inputs)
        mayBeWritten = mayBeWritten && !crossesKinds(context, input->files, output);
    if (!mayBeWritten)
        return false;
    const bool writesDust = hasDust && !arguments.withoutDust;
    if (writesDust && output.dust.empty()) {
        context.fail(context.text("Soupis má prach: uveďte i výstupní soubor s prachem, nebo --without-dust.",
            "The inventory has dust: name a dust file to write as well, or --without-dust."));
        return false;
    }
    if (!writesDust && !output.dust.empty()) {
        context.fail(context.text("Třetí výstupní soubor je navíc: soupis se zapisuje bez prachu.",
            "The third output file is one too many: the inventory is written without dust."));
        return false;
    }
    return mayOverwrite(context, pathsOf(output), arguments.force);
}

bool write(CommandContext& context, const SourceFiles& files, const std::string& comment, SourceSet& set,
    const OutputArguments& arguments)
{
    std::string encoded;
    if (appendCodePage(encoded, comment) > 0 || comment.find('\n') != std::string::npos) {
        context.fail(context.text("Poznámku soupisu nelze zapsat: obsahuje znak, který v souborech být nemůže.",
            "The comment of the inventory cannot be written: it holds a character that the files cannot."));
        return false;
    }
    const std::vector<Distortion> distortions = distortionsBySaving(set, !files.dust.empty());
    for (std::size_t i = 0; i < std::min(distortions.size(), mostLines); ++i) {
        context.err << context.text("zdroj ", "source ") << set.at(distortions[i].position).ICZ() << ' '
                    << textOf(context, distortions[i].kind) << '\n';
    }
    for (const Distortion& distortion : distortions)
        context.tell({{}, 0, integerText(set.at(distortion.position).ICZ()), textOf(context, distortion.kind)});
    sayMore(context, distortions.size());
    if (!distortions.empty()) {
        if (!arguments.acceptLosses) {
            context.fail(context.text(
                "Uvedené zdroje by se příště načetly jinak, nic se nezapsalo. Se --accept-losses se zapíše i tak.",
                "The sources named would be read otherwise, nothing was written. With --accept-losses it is written "
                "all the same."));
            return false;
        }
        context.outcome = Outcome::Findings;
    }
    const Result<SaveReport> written = writeInventory(files, comment, set);
    if (!written.ok())
        context.fail(written.error());
    context.hasWritten = written.ok();
    return written.ok();
}

void sayWritten(CommandContext& context, std::size_t count, const std::vector<std::string>& paths)
{
    context.out << context.text("Zapsané zdroje: ", "Sources written: ") << count << '\n';
    for (const std::string& path : paths)
        context.out << "  " << path << '\n';
}

}  // namespace korvex
