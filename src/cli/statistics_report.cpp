#include "statistics_report.h"

#include "code_page.h"
#include "number_text.h"
#include "source_type.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {

namespace {

using Row = std::vector<std::string>;

/// Characters of UTF-8 text.
std::size_t widthOf(std::string_view utf8)
{
    const auto isFirst = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), isFirst));
}

/// The first column to the left, numbers to the right.
void printTable(TextOutput& out, const std::vector<Row>& rows)
{
    std::vector<std::size_t> widths(rows.front().size());
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], widthOf(row[i]));
    }
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string blanks(widths[i] - widthOf(row[i]), ' ');
            if (i == 0)
                out << "  " << row[i] << blanks;
            else
                out << "  " << blanks << row[i];
        }
        out << '\n';
    }
}

std::string countText(std::size_t count)
{
    TextOutput text;
    text << count;
    return text.text();
}

Row tallyRow(std::string name, const Tally& tally)
{
    return {std::move(name), countText(tally.count()), countText(tally.countOfType[0]), countText(tally.countOfType[1]),
        countText(tally.countOfType[2]), statisticText(tally.emission.full), statisticText(tally.emission.withAlfa),
        statisticText(tally.emission.withPd), statisticText(tally.emission.withBoth)};
}

Row tallyHead(std::string name, Language language)
{
    return {std::move(name), text(language, "zdrojů", "sources"), text(language, "bodových", "point"),
        text(language, "plošných", "area"), text(language, "liniových", "line"), "M [g/s]", "M·Alfa", "M·Pd/24",
        "M·Alfa·Pd/24"};
}

void printTallies(TextOutput& out, std::string name, const std::map<std::int32_t, Tally>& tallies, Language language)
{
    std::vector<Row> rows{tallyHead(std::move(name), language)};
    for (const auto& [number, tally] : tallies)
        rows.push_back(tallyRow(integerText(number), tally));
    out << '\n';
    printTable(out, rows);
}

std::string typeText(std::int32_t typeId, Language language)
{
    if (typeId == cBodovyZdroj.TypZdrojeId)
        return text(language, "bodové", "point");
    return typeId == cPlosnyZdroj.TypZdrojeId ? text(language, "plošné", "area") : text(language, "liniové", "line");
}

void printRanges(TextOutput& out, const std::vector<ValueRange>& ranges, Language language)
{
    std::vector<Row> rows{{text(language, "veličina", "quantity"), text(language, "zdrojů", "sources"),
        text(language, "nejmenší", "smallest"), text(language, "medián", "median"),
        text(language, "největší", "largest")}};
    for (const ValueRange& range : ranges) {
        if (range.count > 0) {
            rows.push_back({typeText(range.typeId, language) + " " + range.symbol + " [" + range.unit + "]",
                countText(range.count), singleText(range.smallest), singleText(range.median),
                singleText(range.largest)});
        }
    }
    out << '\n';
    printTable(out, rows);
}

}  // namespace

std::string statisticText(double value)
{
    if (std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max()))
        return singleText(static_cast<float>(value));
    // A sum of nonsense, but no reason to say nothing at all.
    constexpr int decimals = 6;
    std::array<char, 32> buffer{};
    const auto end
        = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific, decimals)
              .ptr;
    return {buffer.data(), end};
}

void printStatistics(TextOutput& out, const InventoryStatistics& statistics, Language language)
{
    std::vector<Row> rows{tallyHead(text(language, "typ", "type"), language)};
    for (const std::int32_t typeId : {cBodovyZdroj.TypZdrojeId, cPlosnyZdroj.TypZdrojeId, cLiniovyZdroj.TypZdrojeId}) {
        const Tally& tally = statistics.ofType[static_cast<std::size_t>(typeId) - 1];
        if (tally.count() > 0)
            rows.push_back(tallyRow(typeText(typeId, language), tally));
    }
    rows.push_back(tallyRow(text(language, "celkem", "all"), statistics.all));
    printTable(out, rows);
    printTallies(out, text(language, "skupina", "group"), statistics.ofGroup, language);
    printTallies(out, text(language, "shluk", "cluster"), statistics.ofCluster, language);
    printRanges(out, statistics.ranges, language);
    out << '\n'
        << text(language,
               "M je emise bodových a plošných zdrojů a ML × délka úseku u liniových, vše v g/s.\n"
               "1 g/s po celý rok (365 dní) je 31.536 t.\n",
               "M is the emission of point and area sources, and ML × length of the segment of line sources, in g/s.\n"
               "1 g/s throughout a year of 365 days is 31.536 t.\n");
    if (statistics.roadLength > 0.0) {
        out << text(language, "Délka liniových zdrojů: ", "Length of the line sources: ")
            << statisticText(statistics.roadLength) << " m\n";
    }
}

}  // namespace korvex
