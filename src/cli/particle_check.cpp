#include "particle_check.h"

#include "blanks.h"
#include "check_limits.h"
#include "number_text.h"
#include "plain_number.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace korvex {

namespace {

constexpr FieldKind countKind{"počet částic", "count of particles", Pattern::Plain, FieldKind::Saved::AsRead};
constexpr FieldKind diameterKind{"průměr částice", "diameter", std::nullopt, FieldKind::Saved::AsRead};
constexpr FieldKind shareKind{"zastoupení", "share", std::nullopt, FieldKind::Saved::AsRead};

bool isWhole(double sum)
{
    // The limit itself is allowed, whatever the binary fractions add up to.
    constexpr double rounding = 1E-6;
    return std::abs(sum - 1.0) <= static_cast<double>(limits::shareDifference.value) + rounding;
}

}  // namespace

void checkParticles(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    const std::vector<std::string_view>& fields, std::size_t countAt)
{
    if (checkNumber(findings, line, source, fields[countAt], countKind) != NumberState::Sound)
        return;
    const std::size_t values = fields.size() - countAt - 1;
    const std::int32_t count = std::max(roundedOf(fields[countAt]).value_or(0), 0);
    const std::size_t expected = static_cast<std::size_t>(count) * 2;
    bool isSound = true;
    double sum = 0.0;
    for (std::size_t i = 0; i < std::min(values, expected); ++i) {
        const bool isShare = i % 2 == 1;
        const std::string_view value = fields[countAt + 1 + i];
        const NumberState state = checkNumber(findings, line, source, value, isShare ? shareKind : diameterKind);
        isSound = isSound && state == NumberState::Sound;
        if (isSound && isShare)
            sum += static_cast<double>(readSingle(value));
    }
    if (values != expected) {
        findings.add(Rule::ParticleCount, line.placeOf(trimBlanks(fields[countAt]).data()), source, [&] {
            return std::vector{integerText(count), integerText(static_cast<std::int32_t>(values)),
                singleText(static_cast<float>(expected))};
        });
    } else if (count > 0 && isSound && !isWhole(sum)) {
        findings.add(Rule::Shares, line.placeOf(fields[countAt + 1].data()), source, [&] {
            constexpr double mostShown = 1E9;
            return std::vector{singleText(static_cast<float>(std::clamp(sum, -mostShown, mostShown))),
                singleText(limits::shareDifference.value)};
        });
    }
}

bool isSoundParticleList(std::string_view fromCount)
{
    PlainFields fields(fromCount);
    std::int32_t count = 0;
    if (!fields.next(count) || count < 0)
        return false;
    double sum = 0.0;
    for (std::int32_t i = 0; i < count; ++i) {
        float diameter = 0.0F;
        float share = 0.0F;
        if (!fields.next(diameter) || !fields.next(share))
            return false;
        sum += static_cast<double>(share);
    }
    const char last = fromCount.empty() ? ',' : fromCount.back();
    return fields.rest().empty() && last != ',' && (count == 0 || isWhole(sum));
}

}  // namespace korvex
