// Numbers as the data files hold them: a lenient reader and exact writers, none of which obeys a locale.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// Reads the longest leading decimal number of a text: blanks anywhere are skipped; optional sign; digits with "."
/// as the decimal point; an exponent (e, E) counts only when it has a digit. What follows is ignored. A text that
/// does not begin with a number is 0.
/// Throws ArithmeticFault when the number is too large or too small for the type (never a silent 0 or infinity).
[[nodiscard]] double readReal(std::string_view text);

/// As readReal, for a 32-bit real.
[[nodiscard]] float readSingle(std::string_view text);

/// As readReal, rounded to the nearest integer, halves to even; throws beyond the 32-bit range.
[[nodiscard]] std::int32_t readInteger(std::string_view text);

/// The nearest 32-bit integer, halves to even. Throws ArithmeticFault for what does not fit.
[[nodiscard]] std::int32_t roundToInteger(double value);

/// No number is written in more characters than this.
constexpr std::size_t widestNumber = 16;

/// Writes the shortest text that reads back to the same 32-bit real when that has at most 7 significant digits,
/// otherwise the value rounded to 7. Exponent form (1E-05, 1.677722E+07) below 1E-4 and from 1E+07 on; minus zero
/// is "0". Throws ArithmeticFault for infinity and not-a-number, which no file can hold.
/// Returns the end of what was written.
char* putSingle(char* to, float value);
[[nodiscard]] std::string singleText(float value);

/// Remembers the texts of the reals written last: an inventory has few different ones, and finding the shortest text
/// takes longer than copying it.
class SingleTexts {
public:
    SingleTexts() : m_known(size) { }

    /// As putSingle.
    char* put(char* to, float value);

private:
    struct Known {
        std::uint32_t bits = 0;
        std::uint8_t length = 0;  // 0: nothing is remembered here
        std::array<char, widestNumber - 1> text{};
    };
    static constexpr int sizeBits = 13;
    static constexpr std::size_t size = std::size_t{1} << sizeBits;

    std::vector<Known> m_known;
};

/// Widths of the display patterns in which every digit position is filled.
enum class Pattern : int {
    Plain = 1,         // "0"
    Altitude = 4,      // "0###"; also a stack number in its editor
    ShownNumber = 5,   // "0####", a source number in its editor
    Coordinate = 7,    // "0######"
    SourceNumber = 9,  // "0########"
};

/// Writes an integer padded with zeros to the pattern's width; a longer one is written whole, a negative one as
/// the sign and the padded digits (-000000001).
/// Returns the end of what was written.
char* putInteger(char* to, std::int32_t value, Pattern pattern = Pattern::Plain);
[[nodiscard]] std::string integerText(std::int32_t value, Pattern pattern = Pattern::Plain);

}  // namespace korvex
