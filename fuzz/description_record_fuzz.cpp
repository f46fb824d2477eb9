// A record of the description file: the fast and the general way give the same, and writing it is a fixed point.
#include "input_file.h"
#include "laws.h"
#include "number_text.h"
#include "plain_records.h"
#include "slow_reading.h"
#include "source.h"

#include <optional>

namespace korvex::fuzz {

namespace {

/// The values as the file will hold them, behind the number.
std::optional<std::string> slowParameters(std::string_view record, const SourceType& type)
{
    const std::vector<std::string> fields = slowFields(record, ',');
    std::string out;
    for (int i = 0; i < type.parameterCount; ++i) {
        const auto n = static_cast<std::size_t>(i) + 1;
        const std::optional<float> value = slowSingle(n < fields.size() ? fields[n] : "");
        if (!value)
            return std::nullopt;
        out += ", " + singleText(*value);
    }
    return out + (type.hasDust ? ", 0" : "");
}

}  // namespace

std::string run(std::string_view input)
{
    std::string_view rest = input;
    const std::string_view record = takeLine(rest);
    SingleTexts texts;
    std::string answer;
    for (const SourceType* const type : {&cBodovyZdroj, &cPlosnyZdroj, &cLiniovyZdroj}) {
        cZdroje source(*type);
        source.Parameters(0, 42);
        const std::string before = source.LineParameters();
        const std::string read = outcome([&] {
            source.LineParameters(record);
            return source.LineParameters();
        });
        const bool failed = read.front() == '!';
        const std::optional<std::string> slow = slowParameters(record, *type);
        require(failed == !slow.has_value(), "a record fails where the plainest reader fails");
        requireSame(failed ? before : "000000000" + *slow, source.LineParameters(),
            "a record is what the plainest reader makes of it");
        std::string remembered;
        source.appendLineParameters(remembered, &texts);
        requireSame(remembered, source.LineParameters(), "remembered texts are the texts");
        if (!failed) {
            cZdroje again(*type);
            // What rounds up out of the range when it is written cannot be read again, and says so.
            const std::string written = outcome([&] {
                again.LineParameters(read);
                return again.LineParameters();
            });
            if (written.front() != '!')
                requireSame(written, read, "writing what was read is a fixed point");
        }
        // The fast way gets the text to the end of the file.
        PlainParameters plain;
        if (readPlainParameters(input, type->parameterCount, plain)) {
            require(!failed, "the fast way takes nothing that is out of range");
            const cZdroje fast(*type, PlainPoints(), plain, std::nullopt);
            requireSame(fast.LineParameters(), read, "the fast way gives what the general one gives");
        }
        answer += read + '\n';
    }
    return answer;
}

}  // namespace korvex::fuzz
