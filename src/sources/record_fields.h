// The numbers of a record, field by field; a number out of range says in which field it stands.
#pragma once

#include "fields.h"

#include <cstdint>
#include <string_view>

namespace korvex {

class RecordFields {
public:
    explicit RecordFields(std::string_view record) : m_fields(record, ',') { }

    void skip();
    /// All three throw ArithmeticFault with the field's number in its text.
    [[nodiscard]] std::int32_t nextInteger();
    [[nodiscard]] float nextSingle();
    [[nodiscard]] double nextReal();

private:
    std::string_view next();

    Fields m_fields;
    std::int32_t m_number = 0;
};

}  // namespace korvex
