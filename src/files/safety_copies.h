// Copies of the files that a save is about to replace.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {

/// Keeps the last ten saves in a folder of their own each, below one folder. A copy that cannot be made never stops
/// a save: nothing here reports an error.
class SafetyCopies {
public:
    /// folder: where the copies go; empty when none are to be made.
    explicit SafetyCopies(std::string folder) : m_folder(std::move(folder)) { }

    /// Copies those of the files that exist and drops the oldest save beyond ten. Returns the folder of the copies,
    /// empty when there are none.
    [[nodiscard]] std::string copy(const std::vector<std::string>& paths) const;

    /// Whether a folder has a name that this class gives. Only such a folder is ever dropped.
    [[nodiscard]] static bool isNameOfSave(std::string_view name);

private:
    std::string m_folder;
};

}  // namespace korvex
