// A record of the dust file: its text stays as it is, with any bytes, both ways.
#include "code_page.h"
#include "laws.h"
#include "plain_records.h"
#include "slow_reading.h"
#include "source.h"

#include <algorithm>

namespace korvex::fuzz {

std::string run(std::string_view input)
{
    // Number and comma are ten characters wide; what stands behind them is the dust.
    constexpr std::size_t numberWidth = 10;
    const std::string record = decodeCodePage(input);
    const std::string_view dust = behindCharacters(record, numberWidth);
    const std::string_view dustBytes = input.substr(std::min(numberWidth, input.size()));
    requireSame(dust, slowDecode(dustBytes), "characters are counted, not bytes");

    std::string answer;
    for (const SourceType* const type : {&cBodovyZdroj, &cPlosnyZdroj, &cLiniovyZdroj}) {
        cZdroje source(*type);
        source.LineDust(dust);
        const std::string written = source.LineDust();
        requireSame(written, type->hasDust ? "000000000," + std::string(dust) : "000000000", "the dust stays as it is");
        if (type->hasDust)
            requireSame(behindCharacters(written, numberWidth), dust, "what was written is read the same");
        PlainPoints points;
        points.name = input;
        const cZdroje fast(*type, points, {}, dustBytes);
        requireSame(fast.LineDust(), written, "the fast way gives what the general one gives");
        requireSame(fast.NazevZdroje(), record, "and keeps the name beside it");
        answer += written + '\n';
    }
    return answer;
}

}  // namespace korvex::fuzz
