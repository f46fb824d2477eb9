// An inventory read from comma-separated values: everything is checked, nothing is guessed.
#pragma once

#include "csv_text.h"
#include "source_set.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

enum class CsvFault {
    OpenQuote,
    TextAfterQuote,
    QuoteInside,
    NoHeader,
    UnknownColumn,
    DoubledColumn,
    MissingColumn,
    FieldCount,
    Empty,      // a value that the type has
    NotOfType,  // a value that the type does not have
    NotInteger,
    NotReal,
    OutOfRange,
    UnknownType,
    TemperatureOfPlume,  // d and w0 are 0, so the area source has a plume rise and no temperature, or the reverse
    Semicolon,
    LineEnd,
    NotInCodePage,
    CommentDiffers,
    CommentBlanks,  // it would be trimmed
    GeometryDiffers,
    SharedDescription,
    SharedDust,
    ShiftedDust,
};

struct CsvFinding {
    CsvFault fault;
    TextPlace place;
    std::string column;  // its name; empty when no column is to blame
    std::string text;    // what stands there
};

/// Whether the geometry has to agree with the columns that it is made of.
enum class GeometryColumn { Check, Ignore };

struct CsvInventory {
    SourceSet set;
    std::string comment;
    bool hasDust = false;              // there is a column for it
    std::vector<CsvFinding> findings;  // in file order; the set is only of use when there are none
};

/// The columns may stand in any order. Reals are rounded to what the data files hold.
[[nodiscard]] CsvInventory readCsv(std::string_view text, GeometryColumn geometry);

}  // namespace korvex
