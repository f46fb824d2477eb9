// Made-up inventories are the same everywhere, are what they are said to be, and hold nothing that the program changes.
#include "failing_file_calls.h"
#include "inventory_maker.h"

#include "blanks.h"
#include "duplicate_check.h"
#include "fields.h"
#include "loader.h"
#include "number_text.h"
#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {
namespace {

constexpr std::size_t sourceCount = 5'000;

InventoryRequest requestOf(std::size_t count)
{
    InventoryRequest request;
    request.count = count;
    return request;
}

/// The lines of a file without their ends; every line must have one.
std::vector<std::string> linesOf(const std::string& bytes)
{
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = bytes.find("\r\n", begin)) != std::string::npos; begin = end + 2)
        lines.push_back(bytes.substr(begin, end - begin));
    EXPECT_EQ(begin, bytes.size());
    return lines;
}

std::vector<std::string> recordsOf(const std::string& bytes)
{
    std::vector<std::string> lines = linesOf(bytes);
    lines.erase(lines.begin(), std::find_if_not(lines.begin(), lines.end(), isCommentLine));
    return lines;
}

/// The text of a record's field without the blank in front.
std::string_view fieldOf(const std::string& record, std::size_t n)
{
    return trimBlanks(field(record, ',', n));
}

std::vector<std::string_view> numbersOf(const std::vector<std::string>& records)
{
    std::vector<std::string_view> numbers;
    for (const std::string& record : records)
        numbers.push_back(fieldOf(record, 1));
    return numbers;
}

std::size_t significantDigits(std::string_view number)
{
    std::string digits;
    for (const char c : number.substr(0, number.find('E'))) {
        if (c >= '0' && c <= '9')
            digits += c;
    }
    digits.erase(0, digits.find_first_not_of('0'));
    return digits.size();
}

/// FNV-1a.
std::uint64_t fingerprint(const InventoryBytes& bytes)
{
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const std::string* const file : {&bytes.points, &bytes.description, &bytes.dust}) {
        for (const char c : *file)
            hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    }
    return hash;
}

struct Loaded {
    SourceSet set;
    LoadReport report;
};

/// Writes the files into the folder and loads them.
void load(const test::TemporaryFolder& folder, const InventoryBytes& bytes, Loaded& loaded)
{
    LoadRequest request;
    request.files = {folder.write("body.txt", bytes.points), folder.write("popis.txt", bytes.description),
        folder.write("prach.txt", bytes.dust)};
    test::RecordingListener listener;
    const Result<void> result = loadSourceSet(request, loaded.set, loaded.report, listener);
    ASSERT_TRUE(result.ok()) << result.error().message();
}

// Figures of one machine are compared with those of another only when both measured the same inventory. Whoever changes
// the inventory on purpose writes the new fingerprints down here and measures anew.
TEST(InventoryMaker, MakesTheSameBytesOnEveryMachine)
{
    InventoryRequest request = requestOf(sourceCount);
    EXPECT_EQ(fingerprint(makeInventory(request)), 0x4B04E5EF286796C1U);
    request.seed = 2;
    request.leavesOutRecords = true;
    request.doublesNumbers = true;
    request.shuffles = true;
    EXPECT_EQ(fingerprint(makeInventory(request)), 0xE496088292E0CEB1U);
}

TEST(InventoryMaker, MakesOtherSourcesFromAnotherSeed)
{
    InventoryRequest request = requestOf(sourceCount);
    const InventoryBytes first = makeInventory(request);
    request.seed = 2;
    const InventoryBytes second = makeInventory(request);
    EXPECT_NE(first.points, second.points);
    EXPECT_NE(first.description, second.description);
    EXPECT_NE(first.dust, second.dust);
}

TEST(InventoryMaker, BeginsALargeInventoryWithTheSourcesOfASmallOne)
{
    const std::vector<std::string> small = recordsOf(makeInventory(requestOf(100)).points);
    std::vector<std::string> large = recordsOf(makeInventory(requestOf(1000)).points);
    large.resize(small.size());
    EXPECT_EQ(small, large);
}

TEST(InventoryMaker, LoadsWithoutAnyReport)
{
    const test::TemporaryFolder folder;
    Loaded loaded;
    load(folder, makeInventory(requestOf(sourceCount)), loaded);
    EXPECT_EQ(loaded.set.size(), sourceCount);
    EXPECT_TRUE(loaded.report.missingDescription.empty());
    EXPECT_TRUE(loaded.report.missingDust.empty());
    EXPECT_TRUE(loaded.report.unknownType.empty());
    EXPECT_EQ(loaded.report.comment, "Vymyšlený soupis pro měření, zdrojů 5000");
    SourceRows rows;
    rows.refill(loaded.set.size());
    EXPECT_EQ(markDuplicates(loaded.set, rows), 0U);
}

TEST(InventoryMaker, SavingWhatWasLoadedChangesNothingButThePathsInTheHeaders)
{
    const test::TemporaryFolder folder;
    const InventoryBytes made = makeInventory(requestOf(sourceCount));
    Loaded loaded;
    load(folder, made, loaded);
    SourceRows rows;
    rows.refill(loaded.set.size());
    const test::TemporaryFolder saved;
    SaveRequest request;
    request.files = {saved.path("body.txt"), saved.path("popis.txt"), saved.path("prach.txt")};
    request.comment = loaded.report.comment.value_or("");
    test::RecordingListener listener;
    ASSERT_TRUE(saveSourceSet(request, loaded.set, rows, listener).ok());

    const std::map<std::string_view, const std::string*> expected{
        {"body.txt", &made.points}, {"popis.txt", &made.description}, {"prach.txt", &made.dust}};
    for (const auto& [name, bytes] : expected) {
        std::string written = saved.bytes(name);
        const std::string folderName = saved.path() + '/';
        int paths = 0;
        for (std::size_t at = 0; (at = written.find(folderName, at)) != std::string::npos; ++paths)
            written.erase(at, folderName.size());
        EXPECT_EQ(paths, 2) << name;
        EXPECT_EQ(written, *bytes) << name;
    }
}

TEST(InventoryMaker, HasSixtyStacksFifteenAreasAndTwentyFiveRoadsInAHundred)
{
    std::map<std::string_view, double> counts;
    const std::vector<std::string> records = recordsOf(makeInventory(requestOf(sourceCount)).points);
    for (const std::string& record : records)
        ++counts[fieldOf(record, 5)];
    ASSERT_EQ(counts.size(), 3U);
    constexpr double tolerance = 0.02;
    EXPECT_NEAR(counts["1"] / sourceCount, 0.60, tolerance);
    EXPECT_NEAR(counts["2"] / sourceCount, 0.15, tolerance);
    EXPECT_NEAR(counts["3"] / sourceCount, 0.25, tolerance);
}

TEST(InventoryMaker, NumbersRiseInAllThreeFiles)
{
    const InventoryBytes made = makeInventory(requestOf(sourceCount));
    const std::vector<std::string> points = recordsOf(made.points);
    const std::vector<std::string> description = recordsOf(made.description);
    const std::vector<std::string> dust = recordsOf(made.dust);
    const std::vector<std::string_view> numbers = numbersOf(points);
    EXPECT_EQ(std::adjacent_find(numbers.begin(), numbers.end(), std::greater_equal<>()), numbers.end());
    EXPECT_EQ(numbers, numbersOf(description));
    EXPECT_EQ(numbers, numbersOf(dust));
}

TEST(InventoryMaker, HalfOfTheStacksHaveDustByGroupAndTheOthersOneToEightParticles)
{
    double byGroup = 0;
    double stacks = 0;
    std::map<std::int32_t, int> particleCounts;
    const std::vector<std::string> records = recordsOf(makeInventory(requestOf(sourceCount)).dust);
    for (const std::string& record : records) {
        if (record.find(',') == std::string::npos)
            continue;
        ++stacks;
        if (fieldOf(record, 3) != "0")
            ++byGroup;
        else
            ++particleCounts[readInteger(fieldOf(record, 4))];
    }
    constexpr double tolerance = 0.03;
    EXPECT_NEAR(byGroup / stacks, 0.5, tolerance);
    ASSERT_EQ(particleCounts.size(), 8U);
    EXPECT_EQ(particleCounts.begin()->first, 1);
    EXPECT_EQ(particleCounts.rbegin()->first, 8);
}

TEST(InventoryMaker, SharesOfParticlesAddUpToOne)
{
    const std::vector<std::string> records = recordsOf(makeInventory(requestOf(sourceCount)).dust);
    std::size_t seen = 0;
    for (const std::string& record : records) {
        Fields fields(record, ',');
        fields.next();
        fields.next();
        if (fields.next() != "0")
            continue;
        ++seen;
        double sum = 0;
        for (std::int32_t left = readInteger(fields.next()); left > 0; --left) {
            EXPECT_GT(readReal(fields.next()), 0.0) << record;
            const double share = readReal(fields.next());
            EXPECT_GT(share, 0.0) << record;
            sum += share;
        }
        EXPECT_NEAR(sum, 1.0, 1E-9) << record;
        EXPECT_EQ(fields.next(), "") << record;
    }
    EXPECT_GT(seen, 0U);
}

TEST(InventoryMaker, AThirdOfTheNamesHasLettersBeyondAscii)
{
    double accented = 0;
    const std::vector<std::string> records = recordsOf(makeInventory(requestOf(sourceCount)).points);
    for (const std::string& record : records) {
        const std::string_view name = field(record, ';', 2);
        EXPECT_FALSE(name.empty()) << record;
        if (std::any_of(name.begin(), name.end(), [](char c) { return static_cast<signed char>(c) < 0; }))
            ++accented;
    }
    constexpr double tolerance = 0.03;
    EXPECT_NEAR(accented / sourceCount, 1.0 / 3.0, tolerance);
}

TEST(InventoryMaker, NumbersHaveOneToSevenSignificantDigits)
{
    std::array<int, 8> counts{};
    const std::vector<std::string> records = recordsOf(makeInventory(requestOf(sourceCount)).description);
    for (const std::string& record : records) {
        constexpr std::size_t fieldCount = 10;
        EXPECT_EQ(std::count(record.begin(), record.end(), ','), fieldCount - 1) << record;
        for (std::size_t n = 2; n <= fieldCount; ++n) {
            const std::size_t digits = significantDigits(fieldOf(record, n));
            ASSERT_LT(digits, counts.size()) << record;
            ++counts[digits];
        }
    }
    for (std::size_t digits = 1; digits < counts.size(); ++digits)
        EXPECT_GT(counts[digits], static_cast<int>(sourceCount / 20)) << digits;
}

TEST(InventoryMaker, LeavesOutAFewPerMilleOfTheRecordsAndChangesNoOther)
{
    InventoryRequest request = requestOf(sourceCount);
    const InventoryBytes whole = makeInventory(request);
    request.leavesOutRecords = true;
    const InventoryBytes holed = makeInventory(request);
    EXPECT_EQ(holed.points, whole.points);
    const auto leftOut = [](const std::string& from, const std::string& to) {
        const std::vector<std::string> before = linesOf(from);
        const std::vector<std::string> after = linesOf(to);
        EXPECT_TRUE(std::includes(before.begin() + 4, before.end(), after.begin() + 4, after.end()));
        return static_cast<double>(before.size() - after.size()) / sourceCount;
    };
    for (const double share : {leftOut(whole.description, holed.description), leftOut(whole.dust, holed.dust)}) {
        EXPECT_GT(share, 0.001);
        EXPECT_LT(share, 0.009);
    }

    const test::TemporaryFolder folder;
    Loaded loaded;
    load(folder, holed, loaded);
    EXPECT_EQ(loaded.set.size(), sourceCount);
    EXPECT_FALSE(loaded.report.missingDescription.empty());
    EXPECT_FALSE(loaded.report.missingDust.empty());
}

TEST(InventoryMaker, DoublesAFewPerMilleOfTheNumbersAndChangesNoOther)
{
    InventoryRequest request = requestOf(sourceCount);
    const std::vector<std::string> single = recordsOf(makeInventory(request).points);
    request.doublesNumbers = true;
    const InventoryBytes made = makeInventory(request);
    const std::vector<std::string> records = recordsOf(made.points);
    ASSERT_EQ(records.size(), single.size());
    std::size_t doubled = 0;
    for (std::size_t i = 0; i < records.size(); ++i) {
        constexpr std::size_t numberWidth = 9;
        EXPECT_EQ(records[i].substr(numberWidth), single[i].substr(numberWidth));
        if (records[i] == single[i])
            continue;
        ++doubled;
        ASSERT_GT(i, 0U);
        EXPECT_EQ(fieldOf(records[i], 1), fieldOf(records[i - 1], 1));
    }
    EXPECT_GT(doubled, sourceCount / 1000);
    EXPECT_LT(doubled, sourceCount / 1000 * 9);

    const test::TemporaryFolder folder;
    Loaded loaded;
    load(folder, made, loaded);
    SourceRows rows;
    rows.refill(loaded.set.size());
    EXPECT_GT(markDuplicates(loaded.set, rows), 0U);
}

TEST(InventoryMaker, ShufflesEachFileInAnOrderOfItsOwn)
{
    InventoryRequest request = requestOf(sourceCount);
    const InventoryBytes ordered = makeInventory(request);
    request.shuffles = true;
    const InventoryBytes shuffled = makeInventory(request);
    std::set<std::vector<std::string>> numberOrders;
    for (const auto& [before, after] : {std::pair(&ordered.points, &shuffled.points),
             std::pair(&ordered.description, &shuffled.description), std::pair(&ordered.dust, &shuffled.dust)}) {
        std::vector<std::string> lines = linesOf(*after);
        const std::vector<std::string> expected = linesOf(*before);
        EXPECT_TRUE(std::equal(lines.begin(), lines.begin() + 4, expected.begin())) << "the header stays in front";
        const std::vector<std::string> records = recordsOf(*after);
        const std::vector<std::string_view> numbers = numbersOf(records);
        numberOrders.emplace(numbers.begin(), numbers.end());
        std::sort(lines.begin() + 4, lines.end());
        EXPECT_EQ(lines, expected);
    }
    EXPECT_EQ(numberOrders.size(), 3U);

    const test::TemporaryFolder folder;
    Loaded loaded;
    load(folder, shuffled, loaded);
    EXPECT_EQ(loaded.set.size(), sourceCount);
    EXPECT_TRUE(loaded.report.missingDescription.empty());
    EXPECT_TRUE(loaded.report.missingDust.empty());
}

}  // namespace
}  // namespace korvex
