// An inventory read from separated values: everything is checked, nothing is guessed.
#pragma once

#include "csv_text.h"
#include "source_set.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

enum class CsvFault {
    Encoding,  // UTF-16, or UTF-8 with damaged bytes
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
    ThousandsSeparators,
    OtherDecimalMark,  // than the reals before it
    OutOfRange,        // of the numbers of the files
    UnusualValue,      // outside of what the quantity can be
    Rounded,           // the files cannot hold all its digits
    UnknownType,
    TemperatureOfPlume,  // d and w0 are 0, so the area source has a plume rise and no temperature, or the reverse
    Semicolon,
    LineEnd,
    ControlCharacter,
    UnusualDust,  // neither a group nor as many particles as it says
    NotInCodePage,
    CommentDiffers,
    CommentBlanks,  // it would be trimmed
    GeometryDiffers,
    DoubledNumber,  // a source before it has the same number; what both share agrees
    SharedDescription,
    SharedDust,
    ShiftedDust,
};

/// What can be written all the same, though something gets lost by it or is likely meant otherwise.
[[nodiscard]] bool isAcceptable(CsvFault fault);

struct CsvFinding {
    CsvFault fault;
    TextPlace place;
    std::string column;  // its name; empty when no column is to blame
    std::string text;    // what stands there
    std::string detail;  // Rounded: what would be written; UnusualValue: from where to where
    /// FieldCount: how many the header has, and how many there are. DoubledNumber: the line of the source before.
    std::size_t expected = 0;
    std::size_t count = 0;
};

/// What the table was taken for.
struct CsvForm {
    enum class Encoding { Utf8, CodePage } encoding = Encoding::Utf8;
    char separator = ',';
    bool hasDecimalComma = false;
};

/// Whether the geometry has to agree with the columns that it is made of.
enum class GeometryColumn { Check, Ignore };

struct CsvInventory {
    CsvForm form;
    SourceSet set;
    std::string comment;
    bool hasDust = false;              // there is a column for it
    std::vector<CsvFinding> findings;  // by place; the set lacks the sources with any but acceptable ones
};

/// The columns may stand in any order. Bytes that are no UTF-8 are taken for the code page of the data files.
[[nodiscard]] CsvInventory readCsv(std::string_view bytes, GeometryColumn geometry);

}  // namespace korvex
