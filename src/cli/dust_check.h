// Checking dust: the records of the dust file and the lines of a dust groups file.
#pragma once

#include "checked_line.h"
#include "checked_points.h"
#include "findings.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace korvex {

struct SourceType;

/// The groups of one file by number, each with its line.
using GroupLinesByNumber = std::map<std::int32_t, std::size_t>;

/// Checks a group and remembers it.
void checkGroupLine(Findings& findings, const CheckedLine& line, GroupLinesByNumber& groups);

class DustCheck {
public:
    /// groups: null when no groups file is given; references are then not looked at.
    DustCheck(Findings& findings, CheckedPoints& points, const GroupLinesByNumber* groups)
        : m_findings(findings), m_points(points), m_groups(groups)
    {
    }

    void take(const CheckedLine& line);

private:
    /// The source of a record; null when there is none, or when it is not the source's first one.
    CheckedPoint* sourceOf(const CheckedLine& line, std::optional<std::int32_t> number);
    /// Whether a group can be referred to, as far as is known.
    [[nodiscard]] bool isKnown(std::int32_t group) const
    {
        return m_groups == nullptr || m_groups->find(group) != m_groups->end();
    }
    void checkSavedForm(const CheckedLine& line, std::int32_t number, const SourceType& type);
    void checkWidth(const CheckedLine& line, std::int32_t number, std::string_view numberField);
    void checkDescription(
        const CheckedLine& line, std::int32_t number, std::string_view numberField, std::string_view description);
    [[nodiscard]] bool isPlausible(const std::vector<std::string_view>& fields, std::size_t groupAt) const;
    void joinDensity(const CheckedLine& line, std::int32_t number, std::vector<std::string_view>& fields);
    void checkReference(
        const CheckedLine& line, std::int32_t number, const std::vector<std::string_view>& fields, std::int32_t group);

    Findings& m_findings;
    CheckedPoints& m_points;
    const GroupLinesByNumber* m_groups;
};

}  // namespace korvex
