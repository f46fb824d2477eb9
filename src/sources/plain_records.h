// The fast way through the records of points and description, beside the general one in source.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace korvex {

/// The values of a points record as its file holds them.
struct PlainPoints {
    std::int32_t number = 0;
    std::int32_t x = 0;         // m
    std::int32_t y = 0;         // m
    std::int32_t altitude = 0;  // m
    std::int32_t typeId = 0;
    std::int32_t group = 0;
    std::int32_t cluster = 0;
    std::string_view name;  // bytes of the code page, in the record

    /// False when one of the fields is not a plain number: the record is then read by the general rules.
    [[nodiscard]] bool read(std::string_view record);
};

using PlainParameters = std::array<float, 9>;

/// The first parameters of a description record, which may be followed by other lines. False as above.
[[nodiscard]] bool readPlainParameters(std::string_view record, int count, PlainParameters& parameters);

}  // namespace korvex
