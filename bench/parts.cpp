// The small parts of the core under Google Benchmark: where the time of a load, a check or a save goes.
#include "code_page.h"
#include "duplicate_check.h"
#include "inventory_maker.h"
#include "loader.h"
#include "number_text.h"
#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

using namespace korvex;

constexpr std::size_t sourceCount = 20'000;

class NobodyWatches : public ProgressListener {
public:
    void statusText(std::string_view /*text*/) override { }
    void progressMaximum(std::size_t /*maximum*/) override { }
    void progressValue(std::size_t /*value*/) override { }
};

enum class FileOrder { ByNumber, Shuffled };

InventoryBytes inventory(FileOrder order)
{
    InventoryRequest request;
    request.count = sourceCount;
    request.shuffles = order == FileOrder::Shuffled;
    return makeInventory(request);
}

/// The records of one file, in UTF-8, without the header.
std::vector<std::string> records(const std::string& bytes)
{
    std::vector<std::string> found;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = bytes.find("\r\n", begin)) != std::string::npos; begin = end + 2) {
        if (bytes[begin] != ';')
            found.push_back(decodeCodePage(std::string_view(bytes).substr(begin, end - begin)));
    }
    return found;
}

const std::vector<std::string>& pointsRecords()
{
    static const std::vector<std::string> found = records(inventory(FileOrder::ByNumber).points);
    return found;
}

const std::vector<std::string>& descriptionRecords()
{
    static const std::vector<std::string> found = records(inventory(FileOrder::ByNumber).description);
    return found;
}

/// The fields of all description records but the number.
const std::vector<std::string_view>& numberTexts()
{
    static const std::vector<std::string_view> texts = [] {
        std::vector<std::string_view> found;
        for (const std::string_view record : descriptionRecords()) {
            std::size_t begin = record.find(',') + 1;
            for (std::size_t end = begin; end != std::string_view::npos; begin = end + 1) {
                end = record.find(',', begin);
                found.push_back(record.substr(begin, end - begin));
            }
        }
        return found;
    }();
    return texts;
}

std::vector<float> numbers()
{
    std::vector<float> values;
    for (const std::string_view text : numberTexts())
        values.push_back(readSingle(text));
    return values;
}

const SourceType& typeOf(std::string_view pointsRecord)
{
    constexpr std::size_t typeOffset = 35;  // behind the padded number, place and altitude
    return *sourceTypeOf(pointsRecord.at(typeOffset) - '0');
}

SourceSet filledSet()
{
    SourceSet set;
    set.reserve(sourceCount);
    for (std::size_t i = 0; i < sourceCount; ++i)
        set.addFromRecords(typeOf(pointsRecords()[i]), pointsRecords()[i], descriptionRecords()[i]);
    return set;
}

/// The three files of an inventory in a folder of their own.
class Folder {
public:
    explicit Folder(const InventoryBytes& bytes)
    {
        std::string name = (std::filesystem::temp_directory_path() / "korvex-parts.XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("there is no room for temporary files");
        m_path = name;
        write("body.txt", bytes.points);
        write("popis.txt", bytes.description);
        write("prach.txt", bytes.dust);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    [[nodiscard]] SourceFiles files() const
    {
        return {(m_path / "body.txt").string(), (m_path / "popis.txt").string(), (m_path / "prach.txt").string()};
    }

private:
    void write(const char* name, const std::string& bytes) const
    {
        std::ofstream file(m_path / name, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    std::filesystem::path m_path;
};

void countItems(benchmark::State& state, std::size_t perRound)
{
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(perRound));
}

void readSingles(benchmark::State& state)
{
    const std::vector<std::string_view>& texts = numberTexts();
    for (auto round : state) {
        static_cast<void>(round);
        float sum = 0;
        for (const std::string_view text : texts)
            sum += readSingle(text);
        benchmark::DoNotOptimize(sum);
    }
    countItems(state, texts.size());
}
BENCHMARK(readSingles);

void readIntegers(benchmark::State& state)
{
    const std::vector<std::string>& points = pointsRecords();
    for (auto round : state) {
        static_cast<void>(round);
        std::int64_t sum = 0;
        for (const std::string_view record : points)
            sum += readInteger(record.substr(0, record.find(',')));
        benchmark::DoNotOptimize(sum);
    }
    countItems(state, points.size());
}
BENCHMARK(readIntegers);

void writeSingles(benchmark::State& state)
{
    const std::vector<float> values = numbers();
    std::array<char, widestNumber> room{};
    for (auto round : state) {
        static_cast<void>(round);
        for (const float value : values)
            benchmark::DoNotOptimize(putSingle(room.data(), value));
        benchmark::ClobberMemory();
    }
    countItems(state, values.size());
}
BENCHMARK(writeSingles);

void writeIntegers(benchmark::State& state)
{
    std::array<char, widestNumber> room{};
    for (auto round : state) {
        static_cast<void>(round);
        for (std::int32_t number = 0; number < static_cast<std::int32_t>(sourceCount); ++number)
            benchmark::DoNotOptimize(putInteger(room.data(), number * 53, Pattern::SourceNumber));
        benchmark::ClobberMemory();
    }
    countItems(state, sourceCount);
}
BENCHMARK(writeIntegers);

void parseRecords(benchmark::State& state)
{
    for (auto round : state) {
        static_cast<void>(round);
        const SourceSet set = filledSet();
        benchmark::DoNotOptimize(&set);
    }
    countItems(state, sourceCount);
}
BENCHMARK(parseRecords)->Unit(benchmark::kMicrosecond);

void writeRecords(benchmark::State& state)
{
    const SourceSet set = filledSet();
    std::string line;
    for (auto round : state) {
        static_cast<void>(round);
        for (std::size_t position = 1; position <= set.size(); ++position) {
            line.clear();
            set.at(position).appendLineSource(line);
            set.at(position).appendLineParameters(line);
            set.at(position).appendLineDust(line);
            benchmark::DoNotOptimize(line.data());
        }
    }
    countItems(state, set.size());
}
BENCHMARK(writeRecords)->Unit(benchmark::kMicrosecond);

void encodeRecords(benchmark::State& state)
{
    std::string bytes;
    for (auto round : state) {
        static_cast<void>(round);
        bytes.clear();
        for (const std::string& record : pointsRecords())
            benchmark::DoNotOptimize(appendCodePage(bytes, record));
    }
    countItems(state, sourceCount);
}
BENCHMARK(encodeRecords)->Unit(benchmark::kMicrosecond);

/// The pairing of the three files is what the two loads differ by.
void load(benchmark::State& state, FileOrder order)
{
    const Folder folder(inventory(order));
    NobodyWatches nobody;
    for (auto round : state) {
        static_cast<void>(round);
        SourceSet set;
        LoadReport report;
        const Result<void> loaded
            = loadSourceSet({folder.files(), LoadMode::Replace, MissingDescription::Accept}, set, report, nobody);
        if (!loaded.ok() || set.size() != sourceCount) {
            state.SkipWithError("the inventory was not loaded");
            break;
        }
    }
    countItems(state, sourceCount);
}
BENCHMARK_CAPTURE(load, inNumberOrder, FileOrder::ByNumber)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(load, inThreeOrders, FileOrder::Shuffled)->Unit(benchmark::kMicrosecond);

void refillRows(benchmark::State& state)
{
    SourceRows rows;
    for (auto round : state) {
        static_cast<void>(round);
        rows.refill(sourceCount);
        benchmark::ClobberMemory();
    }
    countItems(state, sourceCount);
}
BENCHMARK(refillRows)->Unit(benchmark::kMicrosecond);

/// Back and forth: every sort turns all rows round.
void sortRowsByNumber(benchmark::State& state)
{
    const SourceSet set = filledSet();
    SourceRows rows;
    rows.refill(set.size());
    bool isRising = true;
    for (auto round : state) {
        static_cast<void>(round);
        isRising = !isRising;
        rows.sortByNumber(set, isRising ? SortDirection::Ascending : SortDirection::Descending);
    }
    countItems(state, set.size());
}
BENCHMARK(sortRowsByNumber)->Unit(benchmark::kMicrosecond);

/// The ranks of a sort by name are in no order at all.
void sortRowsByRank(benchmark::State& state)
{
    std::vector<std::int64_t> ranks(sourceCount);
    for (std::size_t i = 0; i < ranks.size(); ++i)
        ranks[i] = static_cast<std::int64_t>(i * 7919 % sourceCount);
    SourceRows rows;
    for (auto round : state) {
        static_cast<void>(round);
        rows.refill(sourceCount);
        rows.sortByRank(ranks, SortDirection::Ascending);
    }
    countItems(state, sourceCount);
}
BENCHMARK(sortRowsByRank)->Unit(benchmark::kMicrosecond);

void checkDuplicates(benchmark::State& state)
{
    const SourceSet set = filledSet();
    SourceRows rows;
    for (auto round : state) {
        static_cast<void>(round);
        rows.refill(set.size());
        benchmark::DoNotOptimize(markDuplicates(set, rows));
    }
    countItems(state, set.size());
}
BENCHMARK(checkDuplicates)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
