// The dust of one source as the source keeps it: one text.
#pragma once

#include "particle_list.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace korvex {

/// "density,group" or, with particles given by hand (group 0), "density,0,n,d1,z1,…"; numbers with ".".
struct DustDescription {
    std::string Hustota;     // density in kg/m3 as it was written
    std::int32_t group = 0;  // SkupinaCislo of the chosen dust group
    ParticleList particles;  // only with group 0
    bool isSet = false;      // false: the text holds no "," and tells nothing, not even a density

    /// Throws ArithmeticFault for a number out of range or a count of particles beyond reason.
    [[nodiscard]] static DustDescription parse(std::string_view text);
    [[nodiscard]] std::string text() const;
};

}  // namespace korvex
