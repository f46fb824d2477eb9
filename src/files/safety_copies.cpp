#include "safety_copies.h"

#include "number_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace korvex {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t savesKept = 10;

std::string twoDigits(int number)
{
    return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

/// The local time as a folder name that sorts by time: 2026-11-21_08-53-12.
std::string timeName()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return integerText(local.tm_year + 1900) + '-' + twoDigits(local.tm_mon + 1) + '-' + twoDigits(local.tm_mday) + '_'
        + twoDigits(local.tm_hour) + '-' + twoDigits(local.tm_min) + '-' + twoDigits(local.tm_sec);
}

/// A new folder for one save; several saves within a second are told apart by a number. Empty when none can be made.
fs::path makeFolder(const fs::path& parent)
{
    std::error_code error;
    fs::create_directories(parent, error);
    const std::string name = timeName();
    // Behind those of the same second that are there, also where the first of them were dropped again.
    int attempt = 99;
    while (attempt > 0 && !fs::exists(parent / (name + '_' + twoDigits(attempt - 1)), error))
        --attempt;
    for (; attempt < 100; ++attempt) {
        fs::path folder = parent / (name + '_' + twoDigits(attempt));
        if (fs::create_directory(folder, error))
            return folder;
        if (error)
            return {};
    }
    return {};
}

const char* const listName = "odkud.txt";
/// A file in a folder of copies that must not be dropped. Its text is for the user who finds it.
const char* const keepName = "nedokonceno.txt";
const char* const keepText
    = "Uložení po této kopii se nezdařilo. Složka zůstane, dokud se tytéž soubory neuloží celé.\n";

bool isKept(const fs::path& folder)
{
    std::error_code error;
    return fs::exists(folder / keepName, error);
}

/// Every folder of a save, the oldest first.
std::vector<fs::path> foldersOfSaves(const fs::path& parent)
{
    std::error_code error;
    std::vector<fs::path> folders;
    for (fs::directory_iterator entry(parent, error), end; !error && entry != end; entry.increment(error)) {
        if (SafetyCopies::isNameOfSave(entry->path().filename().string()))
            folders.push_back(entry->path());
    }
    std::sort(folders.begin(), folders.end());
    return folders;
}

/// Those of the files that exist and hold something.
std::vector<fs::path> filesToCopy(const std::vector<std::string>& paths)
{
    std::vector<fs::path> files;
    for (const std::string& path : paths) {
        std::error_code error;
        if (fs::is_regular_file(path, error) && fs::file_size(path, error) > 0)
            files.emplace_back(path);
    }
    return files;
}

/// As odkud.txt has them.
std::vector<std::string> fullPaths(const std::vector<std::string>& paths)
{
    std::vector<std::string> full;
    for (const std::string& path : paths) {
        std::error_code error;
        const fs::path absolute = fs::absolute(path, error);
        full.push_back(error ? path : absolute.string());
    }
    return full;
}

/// Where the files in a folder of copies come from.
std::vector<std::string> originsIn(const fs::path& folder)
{
    std::vector<std::string> origins;
    std::ifstream list(folder / listName, std::ios::binary);
    for (std::string line; std::getline(list, line);) {
        const std::size_t tab = line.find('\t');
        if (tab != std::string::npos)
            origins.push_back(line.substr(tab + 1));
    }
    return origins;
}

bool contains(const std::vector<std::string>& paths, const std::string& path)
{
    return std::find(paths.begin(), paths.end(), path) != paths.end();
}

/// Has what was written to a file or folder put on the disk: the originals are about to be overwritten.
void flushToDisk(const fs::path& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return;
    ::fsync(file);
    ::close(file);
}

/// The folder just made stays whatever its name: the clock may have been set back since the others were made.
void dropOldest(const fs::path& parent, const fs::path& justMade, const std::string& spared)
{
    std::vector<fs::path> folders = foldersOfSaves(parent);
    const auto stays
        = [&](const fs::path& folder) { return folder == justMade || folder.filename() == spared || isKept(folder); };
    folders.erase(std::remove_if(folders.begin(), folders.end(), stays), folders.end());
    if (folders.size() < savesKept)
        return;
    folders.resize(folders.size() + 1 - savesKept);
    std::error_code error;
    for (const fs::path& folder : folders)
        fs::remove_all(folder, error);
}

}  // namespace

bool SafetyCopies::isNameOfSave(std::string_view name)
{
    constexpr std::string_view form = "0000-00-00_00-00-00_00";
    const auto fits = [](char expected, char c) { return expected == '0' ? c >= '0' && c <= '9' : c == expected; };
    return std::equal(form.begin(), form.end(), name.begin(), name.end(), fits);
}

std::string SafetyCopies::copy(const std::vector<std::string>& paths) const
{
    if (m_folder.empty())
        return {};
    const std::vector<fs::path> existing = filesToCopy(paths);
    if (existing.empty())
        return {};
    const fs::path folder = makeFolder(m_folder);
    if (folder.empty())
        return {};

    std::error_code error;
    std::size_t copied = 0;
    std::ofstream list(folder / listName, std::ios::binary);
    for (std::size_t i = 0; i < existing.size(); ++i) {
        // Files of one name from several folders must not overwrite one another.
        const std::string name = integerText(static_cast<std::int32_t>(i + 1)) + '-' + existing[i].filename().string();
        if (fs::copy_file(existing[i], folder / name, error)) {
            flushToDisk(folder / name);
            list << name << '\t' << fs::absolute(existing[i], error).string() << '\n';
            ++copied;
        } else {
            // Half a file would pass for a copy.
            fs::remove(folder / name, error);
        }
    }
    list.close();
    if (copied == 0 || !list) {
        fs::remove_all(folder, error);
        return {};
    }
    flushToDisk(folder / listName);
    flushToDisk(folder);
    dropOldest(m_folder, folder, m_spared);
    return folder.string();
}

bool SafetyCopies::refuses(const std::string& copied, const std::vector<std::string>& paths) const
{
    if (m_missing == Missing::GoOn)
        return false;
    const std::vector<std::string> origins = copied.empty() ? std::vector<std::string>() : originsIn(copied);
    std::vector<std::string> wanted;
    for (const fs::path& path : filesToCopy(paths))
        wanted.push_back(path.string());
    wanted = fullPaths(wanted);
    return !std::all_of(
        wanted.begin(), wanted.end(), [&origins](const std::string& path) { return contains(origins, path); });
}

std::string SafetyCopies::keep(const std::string& copied, const std::vector<std::string>& paths) const
{
    if (m_folder.empty())
        return {};
    const std::vector<std::string> broken = fullPaths(paths);
    const auto holdsOneOfThem = [&broken](const fs::path& folder) {
        const std::vector<std::string> origins = originsIn(folder);
        return std::any_of(
            origins.begin(), origins.end(), [&broken](const std::string& origin) { return contains(broken, origin); });
    };
    for (const fs::path& folder : foldersOfSaves(m_folder)) {
        if (isKept(folder) && holdsOneOfThem(folder))
            return folder.string();
    }
    if (!copied.empty() && holdsOneOfThem(copied))
        std::ofstream(fs::path(copied) / keepName, std::ios::binary) << keepText;
    return copied;
}

void SafetyCopies::release(const std::vector<std::string>& paths) const
{
    if (m_folder.empty())
        return;
    const std::vector<std::string> whole = fullPaths(paths);
    for (const fs::path& folder : foldersOfSaves(m_folder)) {
        if (!isKept(folder))
            continue;
        const std::vector<std::string> origins = originsIn(folder);
        const auto isWhole = [&whole](const std::string& origin) { return contains(whole, origin); };
        std::error_code error;
        if (std::all_of(origins.begin(), origins.end(), isWhole))
            fs::remove(folder / keepName, error);
    }
}

}  // namespace korvex
