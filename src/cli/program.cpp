#include "program.h"

#include "arithmetic_fault.h"
#include "complaint.h"
#include "json_output.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

namespace {

/// Columns of characters: the library counts bytes, and Czech letters have two.
class CharacterColumns : public CLI::Formatter {
public:
    std::string make_option(const CLI::Option* option, bool isPositional) const override
    {
        constexpr std::size_t width = 30;
        const std::string name = "  " + make_option_name(option, isPositional) + make_option_opts(option);
        const auto isCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
        const auto shown = static_cast<std::size_t>(std::count_if(name.begin(), name.end(), isCharacter));
        const std::string gap = shown < width ? std::string(width - shown, ' ') : '\n' + std::string(width, ' ');
        return name + gap + make_option_desc(option) + '\n';
    }

    /// Without what the library tells of a check itself: the name of the value's type says which values there are.
    std::string make_option_opts(const CLI::Option* option) const override
    {
        std::string shown = CLI::Formatter::make_option_opts(option);
        const std::size_t begin = shown.find(":{");
        if (begin != std::string::npos)
            shown.erase(begin, shown.find('}', begin) + 1 - begin);
        return shown;
    }
};

/// The library's own words in the help.
void nameParts(CLI::Formatter& formatter, const CommandContext& context)
{
    formatter.label("Usage", context.text("Použití", "Usage"));
    formatter.label("Positionals", context.text("Argumenty", "Arguments"));
    formatter.label("OPTIONS", context.text("VOLBY", "OPTIONS"));
    formatter.label("SUBCOMMAND", context.text("PŘÍKAZ", "COMMAND"));
    formatter.label("REQUIRED", context.text("(povinné)", "(required)"));
    formatter.label("INT", context.text("ČÍSLO", "NUMBER"));
    formatter.label("UINT", context.text("ČÍSLO", "NUMBER"));
    formatter.label("FLOAT", context.text("ČÍSLO", "NUMBER"));
}

int complain(const CLI::App& app, CommandContext& context, const CLI::ParseError& error)
{
    context.fail(complaintOf(context.language, app, error));
    const auto chosen = app.get_subcommands();
    const std::string command = chosen.empty() ? "" : " " + chosen.front()->get_name();
    context.err << context.text("Nápověda: korvexzdr-cli", "Help: korvexzdr-cli") << command << " --help\n";
    return static_cast<int>(context.outcome);
}

int parseAndRun(CLI::App& app, CommandContext& context, std::span<const char* const> arguments)
{
    // The library takes them from the back.
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    try {
        app.parse(std::move(reversed));
    } catch (const CLI::CallForHelp&) {
        context.out << app.help();
    } catch (const CLI::CallForVersion& version) {
        context.out << version.what() << '\n';
    } catch (const CLI::ParseError& error) {
        return complain(app, context, error);
    }
    writeRefusal(context);
    return static_cast<int>(context.outcome);
}

}  // namespace

Language languageOf(std::span<const char* const> arguments)
{
    Language language = Language::Czech;
    std::string_view before;
    for (const std::string_view argument : arguments) {
        const bool isValue = before == "--lang";
        if (argument == "--lang=en" || (isValue && argument == "en"))
            language = Language::English;
        if (argument == "--lang=cs" || (isValue && argument == "cs"))
            language = Language::Czech;
        before = argument;
    }
    return language;
}

std::unique_ptr<CLI::App> makeApp(CommandContext& context)
{
    auto app
        = std::make_unique<CLI::App>(context.text("Kontrola a hromadné úpravy soupisů zdrojů znečišťování ovzduší.",
                                         "Checks and batch changes of inventories of air-pollution sources."),
            "korvexzdr-cli");
    const auto formatter = std::make_shared<CharacterColumns>();
    nameParts(*formatter, context);
    app->formatter(formatter);
    app->option_defaults()->group(context.text("Volby", "Options"));
    app->group(context.text("Příkazy", "Commands"));
    app->set_help_flag("-h,--help", context.text("Vypíše nápovědu a skončí.", "Prints help and exits."));
    app->set_version_flag("--version", std::string("korvexzdr-cli ") + KORVEX_VERSION,
        context.text("Vypíše verzi a skončí.", "Prints the version and exits."));
    // Known already from languageOf; here it is checked and described.
    app->add_option_function<std::string>(
           "--lang", [](const std::string& /*language*/) {},
           context.text("Jazyk: cs (výchozí) nebo en.", "Language: cs (default) or en."))
        ->check(CLI::IsMember({"cs", "en"}).description(""))
        ->type_name("cs|en");
    app->add_flag("--json", context.json,
        context.text("Výstup ve formátu JSON pro další programy.", "Output as JSON, for other programs."));
    app->require_subcommand(1);
    app->fallthrough();  // the shared options may also stand behind the command
    app->footer(context.text("Konec: 0 v pořádku, 1 nálezy nebo rozdíly, 2 příkaz nešlo provést.\n"
                             "Příklad: korvexzdr-cli check body.txt popis.txt prach.txt --groups skupiny.spr",
        "Exit: 0 clean, 1 findings or differences, 2 the command could not run.\n"
        "Example: korvexzdr-cli check body.txt popis.txt prach.txt --groups skupiny.spr"));
    return app;
}

int runApp(CLI::App& app, CommandContext& context, std::span<const char* const> arguments)
{
    // Made with each command, but of the library's own group.
    for (CLI::App* const command : app.get_subcommands({}))
        command->get_help_ptr()->group(context.text("Volby", "Options"));
    int exitCode = static_cast<int>(Outcome::CouldNotRun);
    try {
        exitCode = parseAndRun(app, context, arguments);
    } catch (const ArithmeticFault& fault) {
        context.fail(fault.what());
    } catch (const std::bad_alloc&) {
        context.fail(context.text("Nedostatek paměti.", "Out of memory."));
    } catch (const std::exception& error) {
        context.fail(error.what());
    }
    context.out.flush();
    if (context.out.failed()) {
        context.fail(context.hasWritten ? context.text("Výstup nelze zapsat; soubory se zapsaly.",
                         "The output cannot be written; the files were written.")
                                        : context.text("Výstup nelze zapsat.", "The output cannot be written."));
        exitCode = static_cast<int>(Outcome::CouldNotRun);
    }
    return exitCode;
}

}  // namespace korvex
