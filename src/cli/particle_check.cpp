#include "particle_check.h"

#include "arithmetic_fault.h"
#include "blanks.h"
#include "check_limits.h"
#include "counted_noun.h"
#include "decimal_comma.h"
#include "number_text.h"
#include "plain_number.h"

#include <algorithm>
#include <array>
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

/// Tells which values of a list were torn by a decimal comma: those that, joined, leave as many values as the list is
/// to have, with shares that add up.
class TornValues {
public:
    TornValues(const std::vector<std::string_view>& fields, std::size_t first, std::size_t expected)
        : m_fields(fields), m_expected(expected), m_found(find(first, 0, 0.0))
    {
    }

    /// Indices of the fields with the first half of a value; none when there is no way.
    [[nodiscard]] std::vector<std::size_t> found() const { return m_found ? m_torn : std::vector<std::size_t>(); }

private:
    bool find(std::size_t at, std::size_t made, double sum)
    {
        const std::size_t left = m_fields.size() - at;
        const std::size_t wanted = m_expected - made;
        if (wanted == 0)
            return left == 0 && isWhole(sum);
        if (left < wanted || left > 2 * wanted || m_steps-- <= 0)
            return false;
        if (left > wanted && canBeTorn(m_fields[at], m_fields[at + 1])) {
            std::string joined(joinedFields(m_fields[at], m_fields[at + 1]));
            joined[m_fields[at].size()] = '.';
            m_torn.push_back(at);
            if (goOn(at + 2, made, sum, joined))
                return true;
            m_torn.pop_back();
        }
        return goOn(at + 1, made, sum, m_fields[at]);
    }
    bool goOn(std::size_t next, std::size_t made, double sum, std::string_view value)
    {
        try {
            if (made % 2 == 1)
                sum += static_cast<double>(readSingle(value));
        } catch (const ArithmeticFault&) {
            return false;
        }
        // Most ways end here.
        return (sum <= 1.0 || isWhole(sum)) && find(next, made + 1, sum);
    }

    const std::vector<std::string_view>& m_fields;
    std::size_t m_expected;
    int m_steps = 1000;  // enough for any real list
    std::vector<std::size_t> m_torn;
    bool m_found;
};

void reportCount(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    std::string_view countField, std::size_t values, std::size_t expected)
{
    findings.add(Rule::ParticleCount, line.placeOf(trimBlanks(countField).data()), source, [&] {
        return std::array{integerText(readInteger(countField)), countText(values), countText(expected)};
    });
}

}  // namespace

void checkParticles(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    const std::vector<std::string_view>& fields, std::size_t countAt)
{
    if (checkNumber(findings, line, source, fields[countAt], countKind) != NumberState::Sound)
        return;
    const std::int32_t count = std::max(roundedOf(fields[countAt]).value_or(0), 0);
    const std::size_t expected = static_cast<std::size_t>(count) * 2;
    const std::size_t first = countAt + 1;
    if (fields.size() - first > expected) {
        const std::vector<std::size_t> torn = TornValues(fields, first, expected).found();
        for (const std::size_t index : torn)
            reportDecimalComma(findings, line, source, fields, index);
        if (!torn.empty())
            return;
    }
    const std::size_t values = fields.size() - first;
    bool isSound = true;
    double sum = 0.0;
    for (std::size_t i = 0; i < std::min(values, expected); ++i) {
        const bool isShare = i % 2 == 1;
        const std::string_view value = fields[first + i];
        const NumberState state = checkNumber(findings, line, source, value, isShare ? shareKind : diameterKind);
        isSound = isSound && state == NumberState::Sound;
        if (isSound && isShare)
            sum += static_cast<double>(readSingle(value));
    }
    if (values != expected) {
        reportCount(findings, line, source, fields[countAt], values, expected);
    } else if (count > 0 && isSound && !isWhole(sum)) {
        findings.add(Rule::Shares, line.placeOf(fields[first].data()), source, [&] {
            constexpr double mostShown = 1E9;
            return std::array{singleText(static_cast<float>(std::clamp(sum, -mostShown, mostShown))),
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
