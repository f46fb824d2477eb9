// Reading and writing numbers: as the plainest way would, and writing what was read is a fixed point.
#include "laws.h"
#include "normalize_decimal.h"
#include "number_text.h"
#include "slow_reading.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

namespace korvex::fuzz {

namespace {

template <class Real>
std::optional<Real> attempt(Real (*read)(std::string_view), std::string_view text)
{
    try {
        return read(text);
    } catch (const ArithmeticFault&) {
        return std::nullopt;
    }
}

template <class Real>
bool same(std::optional<Real> a, std::optional<Real> b)
{
    if (!a || !b)
        return a.has_value() == b.has_value();
    // Zero and minus zero are the same number for everybody.
    return *a == *b;
}

/// Writes the real in every way there is and reads it again.
std::string writtenAndRead(float value)
{
    const std::string text = singleText(value);
    require(text.size() <= widestNumber, "no number is wider than said");
    const std::optional<float> again = attempt(readSingle, text);
    // The largest reals can round up out of the range; nothing that was read from a file is one of those.
    if (again)
        requireSame(singleText(*again), text, "writing what was read is a fixed point");
    else
        require(std::abs(value) > 3.402822E38F, "only the largest reals cannot be read again");

    static SingleTexts texts;
    for (int i = 0; i < 2; ++i) {
        std::array<char, widestNumber + 16> room{};
        requireSame({room.data(), static_cast<std::size_t>(texts.put(room.data(), value) - room.data())}, text,
            "a remembered text is the text");
    }
    for (const std::string_view separator : {",", ".", "\xD9\xAB"}) {
        const std::string local = localSingleText(value, separator);
        requireSame(NormalizeDecimal(local, separator), text, "the user's form and back");
    }
    return text;
}

std::string writtenAndRead(std::int32_t value)
{
    std::string all;
    for (const Pattern pattern :
        {Pattern::Plain, Pattern::Altitude, Pattern::ShownNumber, Pattern::Coordinate, Pattern::SourceNumber}) {
        const std::string text = integerText(value, pattern);
        require(readInteger(text) == value, "an integer reads back in every pattern");
        all += text + ' ';
    }
    return all;
}

}  // namespace

std::string run(std::string_view input)
{
    std::string answer;
    const std::optional<double> real = attempt(readReal, input);
    require(same(real, slowReal(input)), "reals are read as the plainest way reads them");
    const std::optional<float> single = attempt(readSingle, input);
    require(same(single, slowSingle(input)), "32-bit reals are read as the plainest way reads them");
    const std::optional<std::int32_t> integer = attempt(readInteger, input);
    require(same(integer, slowInteger(input)), "integers are read as the plainest way reads them");
    if (single)
        answer += writtenAndRead(*single) + ' ';
    if (integer)
        answer += writtenAndRead(*integer);

    // Any four bytes are a real, too; reading texts alone would hardly ever meet most of them.
    if (input.size() >= sizeof(float)) {
        float bits = 0;
        std::memcpy(&bits, input.data(), sizeof bits);
        if (std::isfinite(bits))
            answer += writtenAndRead(bits);
    }
    return answer;
}

}  // namespace korvex::fuzz
