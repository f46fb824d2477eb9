#include "fields.h"

namespace korvex {

std::string_view field(std::string_view text, char separator, std::size_t n)
{
    Fields fields(text, separator);
    std::string_view found;
    for (std::size_t i = 0; i < n; ++i)
        found = fields.next();
    return found;
}

}  // namespace korvex
