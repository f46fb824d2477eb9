#include "normalize_decimal.h"

#include "number_text.h"

namespace korvex {

namespace {

std::string withFirstReplaced(std::string_view text, std::string_view what, std::string_view by)
{
    std::string replaced(text);
    const std::size_t at = what.empty() ? std::string::npos : replaced.find(what);
    if (at != std::string::npos)
        replaced.replace(at, what.size(), by);
    return replaced;
}

}  // namespace

std::string NormalizeDecimal(std::string_view text, std::string_view separator)
{
    return withFirstReplaced(text, separator, ".");
}

std::string localSingleText(float value, std::string_view separator)
{
    return withFirstReplaced(singleText(value), ".", separator);
}

}  // namespace korvex
