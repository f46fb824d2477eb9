#include "safety_copy_list.h"

#include "file_lines.h"
#include "replace_files.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace korvex {

namespace fs = std::filesystem;

namespace {

/// A line of the list: the name of the copy, a tabulator, the full path that it came from.
void takeLine(const fs::path& folder, std::string_view line, std::vector<CopiedFile>& files)
{
    // A name may hold a tabulator itself; a full path begins with a slash and a name holds none.
    const std::size_t tabulator = line.find("\t/");
    if (tabulator == std::string_view::npos)
        return;
    const std::string_view name = line.substr(0, tabulator);
    if (name.empty() || name.find('/') != std::string_view::npos)
        return;
    const fs::path copy = folder / name;
    std::error_code error;
    const bool isThere = fs::is_regular_file(copy, error);
    const std::uintmax_t size = isThere ? fs::file_size(copy, error) : 0;
    files.push_back({copy.string(), std::string(line.substr(tabulator + 1)), error ? 0 : size, isThere});
}

Result<std::vector<CopiedFile>> filesIn(const fs::path& folder)
{
    std::vector<CopiedFile> files;
    const Result<void> read = forEachLine((folder / "odkud.txt").string(), [&](const TextLine& line) -> Result<void> {
        takeLine(folder, line.bytes, files);
        return {};
    });
    if (!read.ok())
        return read.error();
    return files;
}

}  // namespace

std::string SafetyCopy::time() const
{
    constexpr std::size_t dateLength = 10;
    constexpr std::size_t length = 19;
    std::string time = name.substr(0, length);
    time[dateLength] = ' ';
    std::replace(time.begin() + dateLength, time.end(), '-', ':');
    return time;
}

Result<SafetyCopyList> safetyCopiesIn(const std::string& folder)
{
    SafetyCopyList list;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (!SafetyCopies::isNameOfSave(name))
            continue;
        Result<std::vector<CopiedFile>> files = filesIn(entry->path());
        if (files.ok())
            list.copies.push_back({name, std::move(files.value())});
        else
            list.damaged.push_back({name, files.error()});
    }
    if (error && error != std::errc::no_such_file_or_directory)
        return systemError(FileStep::Open, folder, error.value());
    const auto isNewer = [](const auto& a, const auto& b) { return a.name > b.name; };
    std::sort(list.copies.begin(), list.copies.end(), isNewer);
    std::sort(list.damaged.begin(), list.damaged.end(), isNewer);
    return list;
}

Result<void> restoreFiles(const SafetyCopy& copy, const SafetyCopies& copies)
{
    std::vector<Replacement> replacements;
    for (const CopiedFile& file : copy.files) {
        Result<InputFile> opened = InputFile::open(file.copy, FileCalls::system());
        if (!opened.ok())
            return opened.error();
        const Result<FileBytes> bytes = opened.value().readAll();
        if (!bytes.ok())
            return bytes.error();
        Replacement replacement{file.origin, {}};
        replacement.bytes.room() += bytes.value().view();
        replacements.push_back(std::move(replacement));
    }
    SafetyCopies others = copies;
    others.spare(copy.name);
    return replaceFiles(replacements, others, FileCalls::system());
}

}  // namespace korvex
