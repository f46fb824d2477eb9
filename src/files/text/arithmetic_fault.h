// The one exception of the program for a number that cannot be computed or held.
#pragma once

#include <stdexcept>
#include <string>

namespace korvex {

enum class FaultKind {
    InvalidOperation,  // no real result: the root of a negative number, 0/0
    DivisionByZero,
    Overflow,  // beyond the range of the type that has to hold the result
};

/// A number that has no result or does not fit its type. Every user command runs inside a guard that shows it
/// as a run-time error and leaves the data as it was.
class ArithmeticFault : public std::runtime_error {
public:
    /// subject: what failed, in Czech, as the user knows it (a field's text, a quantity); may be empty.
    ArithmeticFault(FaultKind kind, const std::string& subject);

    [[nodiscard]] FaultKind kind() const { return m_kind; }
    [[nodiscard]] const std::string& subject() const { return m_subject; }

private:
    FaultKind m_kind;
    std::string m_subject;
};

}  // namespace korvex
