// Dust particles of one size distribution, and the one rule by which they are entered.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

struct DustParticle {
    float Prumer = 0.0F;      // diameter, µm
    float Zastoupeni = 0.0F;  // share in the dust, fraction of 1

    friend bool operator==(const DustParticle&, const DustParticle&) = default;
};

/// Particles in the order in which they were entered; no step reorders them. A diameter entered occurs once; a list
/// read from a file may hold one several times, and is kept so.
class ParticleList {
public:
    [[nodiscard]] const std::vector<DustParticle>& particles() const { return m_particles; }
    [[nodiscard]] std::size_t count() const { return m_particles.size(); }

    void clear() { m_particles.clear(); }
    /// As read, without the rule.
    void append(DustParticle particle) { m_particles.push_back(particle); }

    /// Enters a particle. The first row of exactly this diameter gets the share, any but 0, also a negative one; with
    /// share 0 the row goes. Without such a row one is appended, but only when diameter and share are above 0. Does
    /// nothing otherwise.
    void enter(DustParticle particle);

    /// Reads particles from the fields diameter, share, diameter, share, … behind the first `skipped` ones of a text
    /// split at ",". Missing fields are 0. Throws ArithmeticFault when a number is out of range or count promises
    /// beyond reason more than the text holds, and leaves the list as it was; a count below 0 counts as 0.
    void read(std::string_view text, std::size_t skipped, std::int32_t count);

    /// "," and diameter and "," and share of each particle.
    void appendTo(std::string& out) const;

private:
    std::vector<DustParticle> m_particles;
};

}  // namespace korvex
