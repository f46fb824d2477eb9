// Checking the description file: the form of its records, their sources, and the physics of their values.
#pragma once

#include "checked_line.h"
#include "checked_points.h"
#include "findings.h"
#include "number_text.h"
#include "plain_records.h"

#include <cstddef>
#include <cstdint>
#include <optional>

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
    [[nodiscard]] bool isAsSaved(
        std::string_view record, std::int32_t number, const SourceType& type, const PlainParameters& parameters);
    void checkOddRecord(const CheckedLine& line);

    Findings& m_findings;
    CheckedPoints& m_points;
    float m_pressure;
    SingleTexts m_texts;
};

}  // namespace korvex
