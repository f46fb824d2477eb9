// Loads an inventory, checks it for duplicates and saves it again: the smoke test and the stopwatch of the core.
#include "duplicate_check.h"
#include "loader.h"
#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <chrono>
#include <csignal>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <iostream>
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

class Stopwatch {
public:
    /// Milliseconds since the start or the last call.
    double lap()
    {
        const auto now = std::chrono::steady_clock::now();
        const std::chrono::duration<double, std::milli> elapsed = now - m_start;
        m_start = now;
        return elapsed.count();
    }

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

std::string inFolder(const std::string& folder, const std::string& path)
{
    return path.empty() ? path : (std::filesystem::path(folder) / std::filesystem::path(path).filename()).string();
}

long peakKibibytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

int fail(const FileError& error)
{
    std::cerr << "roundtrip: " << error.path;
    if (error.line > 0)
        std::cerr << ':' << error.line;
    std::cerr << ": " << error.description << '\n';
    return 1;
}

int run(const SourceFiles& from, const std::string& folder)
{
    NobodyWatches nobody;
    SourceSet set;
    LoadReport loaded;
    Stopwatch stopwatch;
    const Result<void> load = loadSourceSet({from, LoadMode::Replace, MissingDescription::Accept}, set, loaded, nobody);
    if (!load.ok())
        return fail(load.error());
    const double loadTime = stopwatch.lap();

    SourceRows rows;
    rows.refill(set.size());
    const std::size_t duplicates = markDuplicates(set, rows);
    const double checkTime = stopwatch.lap();

    // The order of the files, not that of the check.
    rows.refill(set.size());
    SaveRequest request;
    request.files = {inFolder(folder, from.points), inFolder(folder, from.description), inFolder(folder, from.dust)};
    request.comment = loaded.comment.value_or("");
    stopwatch.lap();
    const Result<SaveReport> save = saveSourceSet(request, set, rows, nobody);
    if (!save.ok())
        return fail(save.error());
    const double saveTime = stopwatch.lap();

    std::cout << std::fixed << std::setprecision(1) << "sources " << set.size() << '\n'
              << "missing_description " << loaded.missingDescription.size() << '\n'
              << "missing_dust " << loaded.missingDust.size() << '\n'
              << "duplicates " << duplicates << '\n'
              << "load_ms " << loadTime << '\n'
              << "check_ms " << checkTime << '\n'
              << "save_ms " << saveTime << '\n'
              << "peak_rss_kib " << peakKibibytes() << '\n';
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    constexpr int argumentCount = 5;
    if (argc != argumentCount) {
        std::cerr << "usage: roundtrip POINTS DESCRIPTION DUST OUTFOLDER   (DUST may be - for none)\n";
        return 2;
    }
    // A limit on the size of files is then an error of the write and not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    const std::string dust = argv[3];
    try {
        return run({argv[1], argv[2], dust == "-" ? "" : dust}, argv[4]);
    } catch (const std::exception& fault) {
        std::cerr << "roundtrip: " << fault.what() << '\n';
        return 1;
    }
}
