#include "state_folder.h"

#include <cstdlib>
#include <string_view>

namespace korvex {

namespace {

std::string_view environmentValue(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? std::string_view(value) : std::string_view();
}

}  // namespace

std::string stateFolder()
{
    constexpr std::string_view programFolder = "/korvexzdr";
    const std::string_view state = environmentValue("XDG_STATE_HOME");
    if (!state.empty() && state.front() == '/')
        return std::string(state).append(programFolder);
    const std::string_view home = environmentValue("HOME");
    if (home.empty())
        return {};
    return std::string(home).append("/.local/state").append(programFolder);
}

SafetyCopies safetyCopies()
{
    return SafetyCopies(stateFolder(), SafetyCopies::Missing::Refuse);
}

}  // namespace korvex
