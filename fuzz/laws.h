// What all fuzz targets share: a target, a law that must hold, and the ways an input is cut.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvex::fuzz {

/// One target: does everything with the input that it is about, checks its laws, and tells what came out. The main
/// program calls it under several locales and demands the same answer.
std::string run(std::string_view input);

/// Ends the process with a word about the law when it does not hold.
void require(bool holds, std::string_view law);
/// The same for two texts that must be equal; shows both.
void requireSame(std::string_view a, std::string_view b, std::string_view law);

/// The parts of an input between lines "====", so that several files fit into one that can be read and edited.
std::vector<std::string_view> parts(std::string_view input);

/// What it gives, or "!" and the fault's text when the action throws an ArithmeticFault.
template <class Action>
std::string outcome(const Action& action);

}  // namespace korvex::fuzz

#include "arithmetic_fault.h"

template <class Action>
std::string korvex::fuzz::outcome(const Action& action)
{
    try {
        return action();
    } catch (const ArithmeticFault& fault) {
        return std::string("!") + fault.what();
    }
}
