// A record of the points file: the fast and the general way give the same, and writing it is a fixed point.
#include "code_page.h"
#include "laws.h"
#include "number_text.h"
#include "plain_records.h"
#include "slow_reading.h"
#include "source.h"

#include <optional>

namespace korvex::fuzz {

namespace {

/// What the record must become, put together field by field.
std::optional<std::string> slowRecord(std::string_view record, const SourceType& type)
{
    const std::vector<std::string> fields = slowFields(record, ',');
    std::string out;
    const auto take = [&](std::size_t n, Pattern pattern) {
        const std::optional<std::int32_t> value = slowInteger(n <= fields.size() ? fields[n - 1] : "");
        if (value)
            out += integerText(*value, pattern);
        return value.has_value();
    };
    if (!take(1, Pattern::SourceNumber))
        return std::nullopt;
    out += ", ";
    if (!take(2, Pattern::Coordinate))
        return std::nullopt;
    out += ", ";
    if (!take(3, Pattern::Coordinate))
        return std::nullopt;
    out += ", ";
    if (!take(4, Pattern::Altitude))
        return std::nullopt;
    out += ", " + integerText(type.TypZdrojeId) + ", ";
    if (!take(6, Pattern::Plain))
        return std::nullopt;
    out += ", ";
    if (!take(7, Pattern::Plain))
        return std::nullopt;
    return out + " ;" + slowField(record, ';', 2);
}

}  // namespace

std::string run(std::string_view input)
{
    const std::string record = slowDecode(input);
    requireSame(decodeCodePage(input), record, "the code page is read as its table says");
    requireSame(encodeCodePage(record), input, "every byte survives being read and written");

    std::string answer;
    for (const SourceType* const type : {&cBodovyZdroj, &cPlosnyZdroj, &cLiniovyZdroj}) {
        cZdroje source(*type);
        source.ICZ(42);
        const std::string before = source.LineSource();
        const std::string read = outcome([&] {
            source.LineSource(record);
            return source.LineSource();
        });
        const bool failed = read.front() == '!';
        const std::optional<std::string> slow = slowRecord(record, *type);
        require(failed == !slow.has_value(), "a record fails where the plainest reader fails");
        requireSame(failed ? before : *slow, source.LineSource(), "a record is what the plainest reader makes of it");
        if (!failed) {
            cZdroje again(*type);
            again.LineSource(read);
            requireSame(again.LineSource(), read, "writing what was read is a fixed point");
        }
        PlainPoints plain;
        if (plain.read(input)) {
            require(!failed, "the fast way takes nothing that is out of range");
            const cZdroje fast(*type, plain, {}, std::nullopt);
            requireSame(fast.LineSource(), read, "the fast way gives what the general one gives");
            requireSame(fast.LineDust(), source.LineDust(), "the dust is that of a new source both ways");
        }
        answer += read + '\n';
    }
    return answer;
}

}  // namespace korvex::fuzz
