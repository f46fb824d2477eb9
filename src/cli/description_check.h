// Checking the description file: the form of its records, their sources, and the physics of their values.
#pragma once

#include "checked_line.h"
#include "checked_points.h"
#include "findings.h"
#include "number_text.h"
#include "plain_records.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace korvex {

struct SourceType;

class DescriptionCheck {
public:
    /// pressure: the air pressure in Pa that Vs belongs to.
    DescriptionCheck(Findings& findings, CheckedPoints& points, float pressure)
        : m_findings(findings), m_points(points), m_pressure(pressure)
    {
    }

    void take(const CheckedLine& line);

private:
    /// The source of a record; null when there is none, or when it is not the source's first one.
    CheckedPoint* sourceOf(const CheckedLine& line, std::optional<std::int32_t> number);
    [[nodiscard]] std::string_view savedRecord(
        std::int32_t number, const SourceType& type, const PlainParameters& parameters);
    void checkOddRecord(const CheckedLine& line);
    void joinFirstTorn(const CheckedLine& line, std::int32_t number, std::vector<std::string_view>& fields);
    /// A stack's last field is no parameter: whatever it holds, 0 is saved.
    void checkConstant(
        const CheckedLine& line, std::int32_t number, const SourceType& type, std::string_view lastField);
    void checkSavedForm(const CheckedLine& line, std::int32_t number, const SourceType& type);

    Findings& m_findings;
    CheckedPoints& m_points;
    float m_pressure;
    SingleTexts m_texts;
    std::array<char, std::size_t{10} * (widestNumber + 2)> m_saved{};
};

}  // namespace korvex
