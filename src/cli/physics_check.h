// Whether the values of a source can be right: ranges, and what follows from one another.
#pragma once

#include "checked_line.h"
#include "checked_points.h"
#include "findings.h"
#include "plain_records.h"
#include "source_type.h"

namespace korvex {

/// One source with its description record.
struct DescribedSource {
    const CheckedLine& line;
    const CheckedPoint& point;
    const SourceType& type;
    const PlainParameters& parameters;
    float pressure;  // Pa
};

void checkPhysics(Findings& findings, const DescribedSource& source);

}  // namespace korvex
