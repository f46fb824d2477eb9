// Checking the points file: record by record, and what its records have to do with one another.
#pragma once

#include "checked_line.h"
#include "checked_points.h"
#include "findings.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace korvex {

/// Checks a record and remembers its source.
void checkPointsRecord(Findings& findings, const CheckedLine& line, CheckedPoints& points);

/// Numbers that several sources have. Needs sorted points, as the following.
void checkNumbers(Findings& findings, const CheckedPoints& points);

/// Which of the other files have been gone through.
struct PartnerFiles {
    bool description = false;
    bool dust = false;
};

/// Points without a description or dust record.
void checkPartners(Findings& findings, const CheckedPoints& points, const PartnerFiles& files);

/// Coordinates far from all others, and several sources at one place.
void checkPlaces(Findings& findings, const CheckedPoints& points);

}  // namespace korvex
