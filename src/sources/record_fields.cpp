#include "record_fields.h"

#include "arithmetic_fault.h"
#include "number_text.h"

#include <string>

namespace korvex {

namespace {

/// Reads a field and, when that fails, says which one it was.
template <class Read>
auto readNamed(std::int32_t fieldNumber, Read read)
{
    try {
        return read();
    } catch (const ArithmeticFault& fault) {
        throw ArithmeticFault(fault.kind(), "pole " + integerText(fieldNumber) + ", " + fault.subject());
    }
}

}  // namespace

std::string_view RecordFields::next()
{
    ++m_number;
    // A name behind a number is no part of it, and of no use in a message about it.
    return field(m_fields.next(), ';', 1);
}

void RecordFields::skip()
{
    next();
}

std::int32_t RecordFields::nextInteger()
{
    const std::string_view text = next();
    return readNamed(m_number, [text] { return readInteger(text); });
}

float RecordFields::nextSingle()
{
    const std::string_view text = next();
    return readNamed(m_number, [text] { return readSingle(text); });
}

double RecordFields::nextReal()
{
    const std::string_view text = next();
    return readNamed(m_number, [text] { return readReal(text); });
}

}  // namespace korvex
