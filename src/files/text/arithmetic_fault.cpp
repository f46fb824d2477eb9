#include "arithmetic_fault.h"

namespace korvex {

namespace {

std::string describe(FaultKind kind, const std::string& subject)
{
    std::string text;
    switch (kind) {
    case FaultKind::InvalidOperation:
        text = "Neplatná operace";
        break;
    case FaultKind::DivisionByZero:
        text = "Dělení nulou";
        break;
    case FaultKind::Overflow:
        text = "Číslo je mimo rozsah";
        break;
    }
    if (!subject.empty())
        text += ": " + subject;
    return text + ".";
}

}  // namespace

ArithmeticFault::ArithmeticFault(FaultKind kind, const std::string& subject)
    : std::runtime_error(describe(kind, subject)), m_kind(kind), m_subject(subject)
{
}

}  // namespace korvex
