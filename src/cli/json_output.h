// What a command answers to other programs.
#pragma once

#include "command_context.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <utility>

namespace korvex {

/// Members in the order in which they were added.
using Json = nlohmann::ordered_json;

/// With what was found in the data. A path may hold bytes that are no text; they must not stop the answer.
inline void writeJson(CommandContext& context, Json json)
{
    // An answer with a list of its own has them there.
    const bool isListed = json.contains("findings");
    for (const ToldFinding& finding : context.findings) {
        if (isListed)
            break;
        Json told = Json::object();
        if (!finding.file.empty())
            told["file"] = finding.file;
        if (finding.line > 0)
            told["line"] = finding.line;
        if (!finding.number.empty())
            told["number"] = finding.number;
        told["text"] = finding.text;
        json["findings"].push_back(std::move(told));
    }
    context.hasAnswered = true;
    context.out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

/// The answer of a command that refused because of what it found in the data, unless it gave one itself.
inline void writeRefusal(CommandContext& context)
{
    if (context.json && context.outcome == Outcome::CouldNotRun && !context.findings.empty() && !context.hasAnswered)
        writeJson(context, {{"written", 0}, {"files", Json::array()}, {"error", context.failure}});
}

/// A number as the data files have it; an empty text, for a value that is not there, is null.
[[nodiscard]] inline Json jsonNumber(std::string_view text)
{
    return text.empty() ? Json() : Json::parse(text);
}

}  // namespace korvex
