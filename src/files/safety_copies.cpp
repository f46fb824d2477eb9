#include "safety_copies.h"

#include "number_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <system_error>

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

/// The folder just made stays whatever its name: the clock may have been set back since the others were made.
void dropOldest(const fs::path& parent, const fs::path& justMade)
{
    std::error_code error;
    std::vector<fs::path> folders;
    for (fs::directory_iterator entry(parent, error), end; !error && entry != end; entry.increment(error)) {
        if (SafetyCopies::isNameOfSave(entry->path().filename().string()) && entry->path() != justMade)
            folders.push_back(entry->path());
    }
    if (folders.size() < savesKept)
        return;
    std::sort(folders.begin(), folders.end());
    folders.resize(folders.size() + 1 - savesKept);
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
    std::vector<fs::path> existing;
    for (const std::string& path : paths) {
        std::error_code error;
        if (fs::is_regular_file(path, error) && fs::file_size(path, error) > 0)
            existing.emplace_back(path);
    }
    if (existing.empty())
        return {};
    const fs::path folder = makeFolder(m_folder);
    if (folder.empty())
        return {};

    std::error_code error;
    std::size_t copied = 0;
    std::ofstream list(folder / "odkud.txt", std::ios::binary);
    for (std::size_t i = 0; i < existing.size(); ++i) {
        // Files of one name from several folders must not overwrite one another.
        const std::string name = integerText(static_cast<std::int32_t>(i + 1)) + '-' + existing[i].filename().string();
        if (fs::copy_file(existing[i], folder / name, error)) {
            list << name << '\t' << fs::absolute(existing[i], error).string() << '\n';
            ++copied;
        }
    }
    list.close();
    if (copied == 0) {
        fs::remove_all(folder, error);
        return {};
    }
    dropOldest(m_folder, folder);
    return folder.string();
}

}  // namespace korvex
