#include "laws.h"

#include <cstdio>
#include <cstdlib>

namespace korvex::fuzz {

namespace {

void show(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fputc('\n', stderr);
}

}  // namespace

void require(bool holds, std::string_view law)
{
    if (holds)
        return;
    show("BROKEN LAW:");
    show(law);
    std::abort();
}

void requireSame(std::string_view a, std::string_view b, std::string_view law)
{
    if (a == b)
        return;
    show(a);
    show("----");
    show(b);
    require(false, law);
}

std::vector<std::string_view> parts(std::string_view input)
{
    constexpr std::string_view border = "====\n";
    std::vector<std::string_view> found;
    for (;;) {
        const std::size_t end = input.find(border);
        found.push_back(input.substr(0, end));
        if (end == std::string_view::npos)
            return found;
        input.remove_prefix(end + border.size());
    }
}

}  // namespace korvex::fuzz
