// The dust of a source and the particles in it: read as the plainest way would, written as a fixed point.
#include "dust_description.h"
#include "laws.h"
#include "number_text.h"
#include "slow_reading.h"

#include <algorithm>
#include <cmath>

namespace korvex::fuzz {

namespace {

void checkAgainstSlow(const DustDescription& description, std::string_view text)
{
    const std::vector<std::string> fields = slowFields(text, ',');
    require(description.isSet == (fields.size() > 1), "only a text with a comma tells something");
    if (!description.isSet)
        return;
    const auto field = [&](std::size_t n) { return n <= fields.size() ? fields[n - 1] : std::string(); };
    requireSame(description.Hustota, field(1), "the density stays as it was written");
    require(description.group == slowInteger(field(2)), "the group is the second field");
    std::size_t expected = 0;
    if (description.group == 0)
        expected = static_cast<std::size_t>(std::max(slowInteger(field(3)).value_or(0), 0));
    require(description.particles.count() == expected, "there are as many particles as announced");
    for (std::size_t i = 0; i < expected; ++i) {
        const DustParticle particle = description.particles.particles()[i];
        require(particle.Prumer == slowSingle(field(4 + 2 * i)), "a diameter is where it belongs");
        require(particle.Zastoupeni == slowSingle(field(5 + 2 * i)), "a share is where it belongs");
    }
}

/// Entering a particle leaves one of its diameter at most where there was one at most.
void checkEntering(ParticleList list, DustParticle particle)
{
    const auto ofSize = [&list, particle] {
        return std::count_if(list.particles().begin(), list.particles().end(),
            [particle](const DustParticle& other) { return other.Prumer == particle.Prumer; });
    };
    const auto before = ofSize();
    const std::size_t count = list.count();
    list.enter(particle);
    const bool isNew = before == 0 && particle.Prumer > 0 && particle.Zastoupeni > 0;
    const bool goes = before > 0 && particle.Zastoupeni == 0;
    require(list.count() == count + (isNew ? 1 : 0) - (goes ? 1 : 0), "a particle comes, goes or changes");
    require(ofSize() == before + (isNew ? 1 : 0) - (goes ? 1 : 0), "and nothing else does");
}

}  // namespace

std::string run(std::string_view input)
{
    DustDescription description;
    const std::string answer = outcome([&] {
        description = DustDescription::parse(input);
        return description.text();
    });
    if (answer.front() == '!')
        return answer;
    checkAgainstSlow(description, input);
    if (!description.isSet)
        return answer;
    // What rounds up out of the range when it is written cannot be read again, and says so.
    const std::string again = outcome([&] { return DustDescription::parse(answer).text(); });
    if (again.front() != '!')
        requireSame(again, answer, "writing what was read is a fixed point");
    if (description.particles.count() > 0) {
        const DustParticle last = description.particles.particles().back();
        checkEntering(description.particles, last);
        checkEntering(description.particles, {last.Prumer, 0});
        checkEntering(description.particles, {last.Zastoupeni, last.Prumer});
    }
    return answer;
}

}  // namespace korvex::fuzz
