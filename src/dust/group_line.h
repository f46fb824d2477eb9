// One line of a dust groups file: a group's number, particles and name.
#pragma once

#include "particle_list.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace korvex {

/// A dust group as its line describes it: "number,count,d1,z1,…,dn,zn;name".
struct DustGroup {
    std::int32_t SkupinaCislo = 0;  // the key by which sources refer to the group; 0 can never be referred to
    std::string SkupinaNazev;       // must not hold ";"
    ParticleList Castice;

    /// Throws ArithmeticFault for a number out of range or a count beyond reason.
    [[nodiscard]] static DustGroup parse(std::string_view line);
    [[nodiscard]] std::string line() const;
};

/// The group number of a line (field 1); 0 when there is none, also for one beyond 32 bits: such a line stays as it is
/// but nothing can refer to it.
[[nodiscard]] std::int32_t groupNumberOf(std::string_view line);
/// The group's name: behind the first ";", up to a second one.
[[nodiscard]] std::string_view groupNameOf(std::string_view line);
/// Whether a line carries a number and particles at all: its part before ";" holds a ",".
[[nodiscard]] bool hasParticlePart(std::string_view line);

}  // namespace korvex
