#include "utf8_text.h"

#include "code_page.h"

#include <string>

namespace korvex {

bool looksLikeUtf8(std::string_view line)
{
    const std::string_view beyondAscii = line.substr(asciiLength(line));
    const auto isContinuation = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    // Nearly all lines of the code page end here: a letter follows their first one beyond ASCII.
    if (beyondAscii.size() < 2 || !isContinuation(beyondAscii[1]))
        return false;
    std::string encoded;
    return appendCodePage(encoded, beyondAscii) == 0;
}

}  // namespace korvex
