// What the tool says of arguments that it cannot take: the argument library complains in English only.
#pragma once

#include "language.h"

#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace korvex {

/// app: as it stands after the failed parse.
[[nodiscard]] std::string complaintOf(Language language, const CLI::App& app, const CLI::ParseError& error);

}  // namespace korvex
