#include "diff_command.h"

#include "command_context.h"
#include "command_files.h"
#include "difference.h"
#include "json_output.h"
#include "message.h"
#include "source_columns.h"
#include "statistics_report.h"

#include <CLI/CLI.hpp>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace korvex {

namespace {

struct DiffArguments {
    std::vector<std::string> paths;
    std::vector<std::string> before;
    std::vector<std::string> after;
    bool ignoreOrder = false;
    bool withoutDust = false;
};

/// The two sides; none when they cannot be told apart.
std::optional<std::pair<SourceFiles, SourceFiles>> sidesOf(const DiffArguments& arguments)
{
    if (arguments.paths.empty() && !arguments.before.empty() && !arguments.after.empty())
        return std::pair(filesOf(arguments.before), filesOf(arguments.after));
    if (!arguments.before.empty() || !arguments.after.empty())
        return std::nullopt;
    const auto groups = filesOfGroups(arguments.paths);
    if (!groups || groups->size() != 2)
        return std::nullopt;
    return std::pair((*groups)[0], (*groups)[1]);
}

class DiffOutput {
public:
    DiffOutput(CommandContext& context, const Inventory& before, const Inventory& after, const Difference& difference)
        : m_context(context), m_before(before), m_after(after), m_difference(difference)
    {
    }

    /// Nothing when nothing differs.
    void print()
    {
        if (m_difference.empty())
            return;
        if (m_difference.commentDiffers)
            m_context.out << m_context.text("poznámka: ", "comment: ") << printable(m_before.comment) << " -> "
                          << printable(m_after.comment) << '\n';
        if (!m_difference.dustCompared)
            m_context.out << m_context.text("prach: soubor má jen jedna strana, neporovnává se\n",
                "dust: only one side has the file, it is not compared\n");
        if (m_difference.orderDiffers)
            m_context.out << m_context.text(
                "pořadí: zdroje stojí v jiném pořadí\n", "order: the sources stand in another order\n");
        for (const std::size_t position : m_difference.removed)
            printSource('-', m_before.set.at(position));
        for (const std::size_t position : m_difference.added)
            printSource('+', m_after.set.at(position));
        for (const SourceChange& change : m_difference.changed) {
            printSource('~', m_before.set.at(change.oldPosition));
            for (const FieldChange& field : change.fields)
                m_context.out << "    " << sourceColumns[field.column].name << ": " << printable(field.before) << " -> "
                              << printable(field.after) << '\n';
        }
        printSums();
    }

    [[nodiscard]] Json json() const
    {
        Json json;
        json["removed"] = sourcesOf(m_before.set, m_difference.removed);
        json["added"] = sourcesOf(m_after.set, m_difference.added);
        json["changed"] = Json::array();
        for (const SourceChange& change : m_difference.changed) {
            Json source = jsonOf(m_before.set.at(change.oldPosition));
            source["fields"] = Json::array();
            for (const FieldChange& field : change.fields)
                source["fields"].push_back(jsonOf(field));
            json["changed"].push_back(std::move(source));
        }
        json["orderDiffers"] = m_difference.orderDiffers;
        json["dustCompared"] = m_difference.dustCompared;
        json["comment"]
            = {{"differs", m_difference.commentDiffers}, {"old", m_before.comment}, {"new", m_after.comment}};
        json["sums"] = {{"old", jsonOf(m_difference.before)}, {"new", jsonOf(m_difference.after)}};
        return json;
    }

private:
    static constexpr std::array<const char*, 3> jsonTypes{"stacks", "areas", "segments"};

    void printSource(char sign, const cZdroje& source)
    {
        m_context.out << sign << ' ' << source.ICZ() << ' ' << printable(source.NazevZdroje()) << '\n';
    }

    void printSums()
    {
        const std::array<std::string, 3> names{m_context.text("bodové", "stacks"), m_context.text("plošné", "areas"),
            m_context.text("liniové (ML × délka)", "segments (ML × length)")};
        m_context.out << m_context.text(
            "Součty [g/s], v závorce násobené Alfa a Pd/24:\n", "Sums [g/s], times Alfa and Pd/24 in brackets:\n");
        for (std::size_t type = 0; type < names.size(); ++type) {
            m_context.out << "  " << names[type] << ": " << textOf(m_difference.before[type]) << " -> "
                          << textOf(m_difference.after[type]) << '\n';
        }
    }

    /// The number of sources, their emission as it is and as it comes to over a year.
    static std::string textOf(const Tally& tally)
    {
        TextOutput text;
        text << tally.count() << ", " << statisticText(tally.emission.full) << " ("
             << statisticText(tally.emission.withBoth) << ')';
        return text.text();
    }

    static Json jsonOf(const cZdroje& source)
    {
        return {{"number", source.ICZ()}, {"type", source.TypZdrojeId()}, {"name", source.NazevZdroje()}};
    }

    static Json sourcesOf(const SourceSet& set, const std::vector<std::size_t>& positions)
    {
        Json sources = Json::array();
        for (const std::size_t position : positions)
            sources.push_back(jsonOf(set.at(position)));
        return sources;
    }

    static Json jsonOf(const FieldChange& field)
    {
        const SourceColumn& column = sourceColumns[field.column];
        if (column.kind == ColumnKind::Text)
            return {{"field", column.name}, {"old", field.before}, {"new", field.after}};
        return {{"field", column.name}, {"old", jsonNumber(field.before)}, {"new", jsonNumber(field.after)}};
    }

    static Json jsonOf(const std::array<Tally, 3>& tallies)
    {
        Json json;
        for (std::size_t type = 0; type < jsonTypes.size(); ++type) {
            const EmissionSum& sum = tallies[type].emission;
            json[jsonTypes[type]]
                = {{"count", tallies[type].count()}, {"emission", jsonNumber(statisticText(sum.full))},
                    {"emissionTimesAlfaAndPd", jsonNumber(statisticText(sum.withBoth))}};
        }
        return json;
    }

    CommandContext& m_context;
    const Inventory& m_before;
    const Inventory& m_after;
    const Difference& m_difference;
};

void run(CommandContext& context, const DiffArguments& arguments)
{
    auto sides = sidesOf(arguments);
    if (!sides) {
        context.fail(context.text("Uveďte 2 a 2 nebo 3 a 3 soubory; jinak je oddělte „+“ nebo použijte --old a --new.",
            "Name 2 and 2 or 3 and 3 files; else put \"+\" between the sides or use --old and --new."));
        return;
    }
    if (arguments.withoutDust) {
        sides->first.dust.clear();
        sides->second.dust.clear();
    }
    const std::optional<Inventory> before = load(context, sides->first, LoadFor::Reading);
    if (!before)
        return;
    const std::optional<Inventory> after = load(context, sides->second, LoadFor::Reading);
    if (!after)
        return;
    Difference difference = differenceOf(*before, *after);
    if (arguments.ignoreOrder)
        difference.orderDiffers = false;
    if (!difference.empty())
        context.outcome = Outcome::Findings;
    DiffOutput output(context, *before, *after, difference);
    if (context.json)
        writeJson(context, output.json());
    else
        output.print();
}

}  // namespace

void addDiffCommand(CLI::App& app, CommandContext& context)
{
    const auto arguments = std::make_shared<DiffArguments>();
    CLI::App* const command = app.add_subcommand("diff",
        context.text("Rozdíl dvou soupisů zdroj po zdroji.", "The difference of two inventories, source by source."));
    command
        ->add_option(context.text("SOUBORY", "FILES"), arguments->paths,
            context.text("Soubory starého a za nimi nového soupisu, 2 nebo 3 na každé straně.",
                "The files of the old and behind them of the new inventory, 2 or 3 a side."))
        ->option_text(context.text(
            "BODY POPIS [PRACH] [+] BODY POPIS [PRACH]", "POINTS DESCRIPTION [DUST] [+] POINTS DESCRIPTION [DUST]"));
    const std::string side = context.text("BODY POPIS [PRACH]", "POINTS DESCRIPTION [DUST]");
    command->add_option("--old", arguments->before, context.text("Starý soupis.", "The old inventory."))
        ->expected(2, 3)
        ->option_text(side);
    command->add_option("--new", arguments->after, context.text("Nový soupis.", "The new inventory."))
        ->expected(2, 3)
        ->option_text(side);
    command->add_flag("--ignore-order", arguments->ignoreOrder,
        context.text("Jiné pořadí zdrojů není rozdíl.", "Another order of the sources is no difference."));
    command->add_flag("--without-dust", arguments->withoutDust,
        context.text("Prach se nečte ani neporovnává.", "Dust is neither read nor compared."));
    command->footer(context.text(
        "Čtyři soubory jsou 2 a 2, šest je 3 a 3. Má-li každá strana jiný počet souborů, stojí mezi nimi „+“.\n"
        "Příklady:\n"
        "  korvexzdr-cli diff body.txt popis.txt prach.txt nove/body.txt nove/popis.txt nove/prach.txt\n"
        "  korvexzdr-cli diff body.txt popis.txt prach.txt + nove/body.txt nove/popis.txt\n"
        "  korvexzdr-cli diff --old body.txt popis.txt --new nove/body.txt nove/popis.txt",
        "Four files are 2 and 2, six are 3 and 3. Between sides that are not alike stands \"+\".\n"
        "Examples:\n"
        "  korvexzdr-cli diff body.txt popis.txt prach.txt new/body.txt new/popis.txt new/prach.txt\n"
        "  korvexzdr-cli diff body.txt popis.txt prach.txt + new/body.txt new/popis.txt\n"
        "  korvexzdr-cli diff --old body.txt popis.txt --new new/body.txt new/popis.txt"));
    command->callback([&context, arguments] { run(context, *arguments); });
}

}  // namespace korvex
