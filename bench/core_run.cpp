// One load of an inventory, timed, with what it took in memory; with a second folder also the check and the saves.
#include "duplicate_check.h"
#include "loader.h"
#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <chrono>
#include <cstddef>
#include <exception>
#include <iomanip>
#include <iostream>
#include <malloc.h>
#include <span>
#include <string>
#include <string_view>
#include <sys/resource.h>

namespace {

using namespace korvex;

class NobodyWatches : public ProgressListener {
public:
    void statusText(std::string_view /*text*/) override { }
    void progressMaximum(std::size_t /*maximum*/) override { }
    void progressValue(std::size_t /*value*/) override { }
};

template <class Action>
double milliseconds(const Action& action)
{
    const auto begin = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// What the program holds of the heap, blocks with pages of their own included.
std::size_t heapInUse()
{
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

double peakMegabytes()
{
    constexpr double kibibytesToMegabytes = 1024.0 / 1e6;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * kibibytesToMegabytes;
}

SourceFiles filesIn(const std::string& folder)
{
    return {folder + "/body.txt", folder + "/popis.txt", folder + "/prach.txt"};
}

void print(std::string_view key, double value)
{
    std::cout << key << ' ' << value << '\n';
}

int fail(const FileError& error)
{
    std::cerr << "core_run: " << error.path << ": " << error.description << '\n';
    return 1;
}

int run(std::span<const char* const> folders)
{
    NobodyWatches nobody;
    const LoadRequest loadRequest{filesIn(folders.front()), LoadMode::Replace, MissingDescription::Accept};
    const std::size_t heapBefore = heapInUse();
    SourceSet set;
    LoadReport report;
    Result<void> loaded;
    print("load_ms", milliseconds([&] { loaded = loadSourceSet(loadRequest, set, report, nobody); }));
    if (!loaded.ok())
        return fail(loaded.error());
    if (set.empty()) {
        std::cerr << "core_run: there is no source in " << folders.front() << '\n';
        return 1;
    }
    print("set_bytes_per_source", static_cast<double>(heapInUse() - heapBefore) / static_cast<double>(set.size()));
    print("load_peak_mb", peakMegabytes());
    std::cout << "sources " << set.size() << '\n'
              << "reported " << report.missingDescription.size() + report.missingDust.size() + report.unknownType.size()
              << '\n';
    if (folders.size() == 1)
        return 0;

    SourceRows rows;
    rows.refill(set.size());
    std::size_t duplicates = 0;
    print("check_ms", milliseconds([&] { duplicates = markDuplicates(set, rows); }));
    std::cout << "duplicates " << duplicates << '\n';

    // The order of the files, not that of the check.
    rows.refill(set.size());
    SaveRequest saveRequest;
    saveRequest.files = filesIn(folders.back());
    saveRequest.comment = report.comment.value_or("");
    // The first save makes the files, the second one replaces them, which takes copies against a failure midway.
    for (const std::string_view key : {"save_ms", "save_over_ms"}) {
        Result<SaveReport> saved = SaveReport();
        print(key, milliseconds([&] { saved = saveSourceSet(saveRequest, set, rows, nobody); }));
        if (!saved.ok())
            return fail(saved.error());
    }
    print("peak_mb", peakMegabytes());
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    const auto count = static_cast<std::size_t>(argc);
    const auto folders = std::span<const char* const>(argv, count).subspan(count > 0 ? 1 : 0);
    if (folders.empty() || folders.size() > 2) {
        std::cerr
            << "usage: core_run FOLDER [OUTFOLDER]\n"
               "Loads FOLDER/body.txt, popis.txt and prach.txt; with OUTFOLDER also checks for duplicates and saves.\n";
        return 2;
    }
    std::cout << std::fixed << std::setprecision(4);
    try {
        return run(folders);
    } catch (const std::exception& fault) {
        std::cerr << "core_run: " << fault.what() << '\n';
        return 1;
    }
}
