// What a command answers to other programs.
#pragma once

#include "command_context.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace korvex {

/// Members in the order in which they were added.
using Json = nlohmann::ordered_json;

/// A path may hold bytes that are no text; they must not stop the answer.
inline void writeJson(CommandContext& context, const Json& json)
{
    context.out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

/// A number as the data files have it; an empty text, for a value that is not there, is null.
[[nodiscard]] inline Json jsonNumber(std::string_view text)
{
    return text.empty() ? Json() : Json::parse(text);
}

}  // namespace korvex
