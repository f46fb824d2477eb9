#include "particle_list.h"

#include "arithmetic_fault.h"
#include "fields.h"
#include "number_text.h"

#include <algorithm>
#include <utility>

namespace korvex {

void ParticleList::enter(DustParticle particle)
{
    const auto same = std::find_if(m_particles.begin(), m_particles.end(),
        [&particle](const DustParticle& row) { return row.Prumer == particle.Prumer; });
    if (same == m_particles.end()) {
        if (particle.Prumer > 0.0F && particle.Zastoupeni > 0.0F)
            m_particles.push_back(particle);
    } else if (particle.Zastoupeni == 0.0F) {
        m_particles.erase(same);
    } else {
        same->Zastoupeni = particle.Zastoupeni;
    }
}

void ParticleList::read(std::string_view text, std::size_t skipped, std::int32_t count)
{
    // Zeros for a few missing fields are harmless; a damaged count must not ask for gigabytes of them.
    constexpr std::int64_t mostMissing = 10000;
    const std::int64_t fieldCount = 1 + std::count(text.begin(), text.end(), ',');
    const std::int64_t present = std::max<std::int64_t>(fieldCount - static_cast<std::int64_t>(skipped), 0) / 2;
    if (count > present + mostMissing)
        throw ArithmeticFault(FaultKind::Overflow,
            "počet částic " + integerText(count) + ", na řádku je jich jen "
                + integerText(static_cast<std::int32_t>(present)));

    std::vector<DustParticle> particles;
    particles.reserve(static_cast<std::size_t>(std::max(count, 0)));
    Fields fields(text, ',');
    for (std::size_t i = 0; i < skipped; ++i)
        fields.next();
    for (std::int32_t i = 0; i < count; ++i) {
        const float diameter = readSingle(fields.next());
        const float share = readSingle(fields.next());
        particles.push_back({diameter, share});
    }
    m_particles = std::move(particles);
}

void ParticleList::appendTo(std::string& out) const
{
    for (const DustParticle& particle : m_particles) {
        out += ',';
        out += singleText(particle.Prumer);
        out += ',';
        out += singleText(particle.Zastoupeni);
    }
}

}  // namespace korvex
