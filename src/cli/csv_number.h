// The numbers of a table: read strictly, for a number that was taken for another one shows nowhere.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvex {

/// A sign and digits, and nothing else.
[[nodiscard]] bool isWholeNumber(std::string_view text);

/// Digits in groups, as people and spreadsheets write large numbers: with blanks, points, commas or apostrophes. Not
/// with a single point or comma, which could as well be a decimal mark.
[[nodiscard]] bool hasThousandsSeparators(std::string_view text);

/// A stack's dust as the window writes it: "density,group", or "density,0,n" and n pairs of diameter and share. Blanks
/// around the numbers do not matter; the decimal mark is the point.
[[nodiscard]] bool isDustText(std::string_view text);

/// The decimal mark of a table. Where fields are parted by something else than a comma it is the one of the first real
/// that has any: then a point in a table of decimal commas, likely a separator of thousands, is not taken for one.
class DecimalMark {
public:
    explicit DecimalMark(char separator) : m_mark(separator == ',' ? '.' : '\0') { }

    enum class Form {
        Real,
        OtherMark,  // a real, but with the mark that the table does not have
        None,
    };
    /// Puts into plain what is to be read, with a point.
    [[nodiscard]] Form take(std::string_view text, std::string& plain);
    [[nodiscard]] bool isComma() const { return m_mark == ','; }

private:
    char m_mark;  // NUL: not known yet
};

/// What a data file would hold instead of a real (as take gave it) that was read to this value; none: the same number.
[[nodiscard]] std::optional<std::string> roundedInFile(std::string_view plain, float value);

}  // namespace korvex
