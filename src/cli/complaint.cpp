#include "complaint.h"

#include "counted_noun.h"
#include "message.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace korvex {

namespace {

constexpr CountedNoun values{"hodnotu", "hodnoty", "hodnot", "value", "values"};

/// The piece of a text between two marks; empty where one of them is missing.
std::string between(std::string_view text, std::string_view begin, std::string_view end)
{
    const std::size_t from = text.find(begin);
    if (from == std::string_view::npos)
        return {};
    const std::string_view rest = text.substr(from + begin.size());
    const std::size_t to = end.empty() ? rest.size() : rest.find(end);
    return std::string(to == std::string_view::npos ? std::string_view() : rest.substr(0, to));
}

/// "10000" for the library's "10000.000000".
std::string withoutZeros(std::string number)
{
    if (number.find('.') != std::string::npos) {
        number.erase(number.find_last_not_of('0') + 1);
        if (number.back() == '.')
            number.pop_back();
    }
    return number;
}

std::string joined(const std::vector<std::string>& parts)
{
    std::string out;
    for (const std::string& part : parts)
        out.append(out.empty() ? "" : " ").append(part);
    return out;
}

bool isOption(std::string_view argument)
{
    return argument.starts_with('-');
}

class Complaint {
public:
    Complaint(Language language, const CLI::App& app, const CLI::ParseError& error)
        : m_language(language), m_app(app), m_error(error), m_what(error.what())
    {
    }

    [[nodiscard]] std::string text() const
    {
        std::string extra = ofExtras();
        const bool isMissing = dynamic_cast<const CLI::RequiredError*>(&m_error) != nullptr;
        if (!extra.empty() && (isMissing || dynamic_cast<const CLI::ExtrasError*>(&m_error) != nullptr))
            return extra;
        if (isMissing && m_app.get_subcommands().empty())
            return say("Chybí příkaz.", "A command is missing.");
        if (isMissing)
            return ofMissing(m_what.substr(0, m_what.find(" is required")));
        const CLI::Option* const option = guiltyOption();
        if (option != nullptr)
            return say(isOption(option->get_name()) ? "Volba {0}: " : "Argument {0}: ",
                       isOption(option->get_name()) ? "Option {0}: " : "Argument {0}: ", {option->get_name()})
                + ofOption(*option);
        // A command's own complaint is in the right language.
        if (dynamic_cast<const CLI::ValidationError*>(&m_error) != nullptr || m_language == Language::English)
            return m_what;
        return "Argumentům nelze rozumět.";
    }

private:
    [[nodiscard]] std::string say(
        const char* czech, const char* english, const std::vector<std::string>& filling = {}) const
    {
        return filled(korvex::text(m_language, czech, english), filling);
    }

    [[nodiscard]] std::string quoted(const std::string& argument) const { return quotedText(m_language, argument); }

    /// What nothing could be made of; a mistyped option first, for the rest may only follow from it. Empty for nothing.
    [[nodiscard]] std::string ofExtras() const
    {
        std::vector<std::string> extras = m_app.remaining(true);
        extras.erase(std::remove(extras.begin(), extras.end(), "--"), extras.end());
        if (extras.empty())
            return {};
        if (m_app.get_subcommands().empty() && !isOption(extras.front()))
            return say("Neznámý příkaz: {0}", "Unknown command: {0}", {quoted(extras.front())});
        const auto option = std::find_if(extras.begin(), extras.end(), isOption);
        if (option != extras.end())
            return say("Neznámá volba: {0}", "Unknown option: {0}", {quoted(*option)});
        return say("Nadbytečný argument: {0}", "Surplus argument: {0}", {quoted(extras.front())});
    }

    [[nodiscard]] std::string ofMissing(const std::string& name) const
    {
        return isOption(name) ? say("Chybí volba {0}.", "The option {0} is missing.", {name})
                              : say("Chybí argument {0}.", "The argument {0} is missing.", {name});
    }

    /// The library names it somewhere in its sentence.
    [[nodiscard]] const CLI::Option* guiltyOption() const
    {
        std::string name = between(m_what, "Could not convert: ", " = ");
        if (name.empty())
            name = m_what.substr(0, m_what.find(": "));
        for (const CLI::App* const command : m_app.get_subcommands()) {
            if (const CLI::Option* const option = command->get_option_no_throw(name))
                return option;
        }
        return m_app.get_option_no_throw(name);
    }

    [[nodiscard]] std::string ofOption(const CLI::Option& option) const
    {
        if (option.get_items_expected_max() == 0)
            return say("zadává se bez hodnoty.", "takes no value.");
        if (dynamic_cast<const CLI::ArgumentMismatch*>(&m_error) != nullptr)
            return ofCount(option);
        return say("nepřípustná hodnota {0}", "value {0} is not allowed", {quoted(joined(option.results()))})
            + allowed() + '.';
    }

    /// What a check of the library wants instead, as far as it tells.
    [[nodiscard]] std::string allowed() const
    {
        std::string members = between(m_what, " not in {", "}");
        for (std::size_t comma = members.find(','); comma != std::string::npos; comma = members.find(',', comma + 2))
            members.insert(comma + 1, " ");
        if (!members.empty())
            return say("; přípustné jsou: {0}", "; allowed are: {0}", {members});
        const std::string range = between(m_what, " not in range ", "");
        if (range.empty())
            return {};
        // Without an upper limit the range ends with the largest number that there is.
        constexpr std::size_t widestLimit = 20;
        const std::string low = withoutZeros(range.substr(0, range.find(" to ")));
        const std::string high = withoutZeros(between(range, " to ", ""));
        return high.size() > widestLimit ? say("; přípustné je nejméně {0}", "; allowed is {0} at least", {low})
                                         : say("; přípustné je {0} až {1}", "; allowed is {0} to {1}", {low, high});
    }

    [[nodiscard]] std::string ofCount(const CLI::Option& option) const
    {
        if (option.count() == 0)
            return say("chybí hodnota.", "the value is missing.");
        const auto least = static_cast<std::size_t>(option.get_items_expected_min());
        const auto most = static_cast<std::size_t>(option.get_items_expected_max());
        // The library's own number for "as many as there are".
        const bool isOpen = option.get_items_expected_max() >= CLI::detail::expected_max_vector_size;
        std::string wanted = countText(least);
        if (isOpen)
            wanted = say("nejméně {0}", "at least {0}", {wanted});
        else if (most > least)
            wanted = say("{0} až {1}", "{0} to {1}", {wanted, countText(most)});
        return say("má mít {0} {1}, má jich {2}.", "takes {0} {1}, has {2}.",
            {wanted, formOf(values, m_language, isOpen ? least : most), countText(option.count())});
    }

    Language m_language;
    const CLI::App& m_app;
    const CLI::ParseError& m_error;
    std::string m_what;
};

}  // namespace

std::string complaintOf(Language language, const CLI::App& app, const CLI::ParseError& error)
{
    return Complaint(language, app, error).text();
}

}  // namespace korvex
