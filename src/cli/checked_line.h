// A line under check: where its bytes stand on an editor's screen, its fields, and how its numbers are written.
#pragma once

#include "findings.h"
#include "number_text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

struct CheckedLine {
    std::string_view bytes;
    CheckedFile file = CheckedFile::Points;
    std::uint32_t number = 0;  // from 1
    bool isUtf8 = false;

    /// The place of a byte of the line, or of its beginning.
    [[nodiscard]] Place placeOf(const char* at) const;
    [[nodiscard]] Place place() const { return {file, number, 1}; }
    /// The beginning of a piece of the line between quotation marks.
    [[nodiscard]] std::string quoted(Language language, std::string_view piece) const;
};

/// Where a number stands in a field, as the lenient reader finds it.
struct NumberExtent {
    std::string_view number;   // empty: the field begins with no number
    std::string_view surplus;  // what is not read, without blanks at its ends

    [[nodiscard]] static NumberExtent of(std::string_view field);
};

/// What a field is called and how it is written.
struct FieldKind {
    const char* czech = "";
    const char* english = "";
    std::optional<Pattern> pattern;  // of a whole number; none: a real
    /// Whether the program writes the field anew, or keeps it as it was.
    enum class Saved { Anew, AsRead } saved = Saved::Anew;

    /// A kept whole number: nothing else would tell that it is read rounded.
    [[nodiscard]] bool isRounded() const { return saved == Saved::AsRead && pattern == Pattern::Plain; }
};

/// What a field turned out to hold.
enum class NumberState {
    Sound,
    Odd,  // is read, but not as what it looks like
    OutOfRange,
};

/// Checks one number of a record; one with a decimal comma has been reported.
NumberState checkNumber(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    std::string_view field, const FieldKind& kind);

/// Checks the number that a description or dust record is found by; source: that number, if it is a whole one. It is
/// read as a real, so one that no source can have, such as 12.4 or 7000000001, is nothing worse than of no source.
/// False: the file cannot be loaded.
[[nodiscard]] bool checkRecordNumber(
    Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source, std::string_view field);

/// The fields of a text between commas.
[[nodiscard]] std::vector<std::string_view> splitFields(std::string_view text);

/// Reports a record with another number of fields than expected, at the first one that is missing or surplus.
/// count: of all fields that the record is to have, which the number of fields here is perhaps only the rest of.
void reportFieldCount(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source,
    const std::vector<std::string_view>& fields, std::size_t count, std::size_t expected);

/// Reports where a record differs from what the program would save for it, unless something more serious was reported
/// in front of that or in the same field.
void checkForm(Findings& findings, const CheckedLine& line, std::optional<std::int32_t> source, std::string_view saved);

/// The number that a field holds, if it holds a whole one that fits.
[[nodiscard]] std::optional<std::int32_t> integerOf(std::string_view field);
/// The same rounded, as the number of a points record is.
[[nodiscard]] std::optional<std::int32_t> roundedOf(std::string_view field);

}  // namespace korvex
