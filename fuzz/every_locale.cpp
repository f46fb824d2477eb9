// The entry that libFuzzer and the replay program call: a target's answer must not depend on the locale.
#include "laws.h"

#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// A decimal comma, and an "I" whose small letter is not "i"; those that the machine has.
std::vector<std::string> locales()
{
    std::vector<std::string> found;
    for (const char* const name : {"cs_CZ.UTF-8", "tr_TR.UTF-8"}) {
        if (std::setlocale(LC_ALL, name) != nullptr)
            found.emplace_back(name);
        else
            std::fprintf(stderr, "not tried, this machine does not have it: %s\n", name);
    }
    std::setlocale(LC_ALL, "C");
    return found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::vector<std::string> others = locales();
    // A copy of its own: reading behind the end shows, and an empty input has an address.
    const std::vector<char> bytes(data, data + size);
    const std::string_view input(bytes.data(), bytes.size());
    const std::string answer = korvex::fuzz::run(input);
    if (others.empty())
        return 0;
    std::setlocale(LC_ALL, others[size % others.size()].c_str());
    const std::string other = korvex::fuzz::run(input);
    std::setlocale(LC_ALL, "C");
    korvex::fuzz::requireSame(answer, other, "the answer does not depend on the locale");
    return 0;
}
