// Copies of the files that a save is about to replace.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {

/// Keeps the last ten saves in a folder of their own each, below one folder.
class SafetyCopies {
public:
    /// Whether a save goes on when a copy cannot be made: of the window it does, for its user looks at what is saved.
    enum class Missing { GoOn, Refuse };

    /// folder: where the copies go; empty when none are to be made, or can be.
    explicit SafetyCopies(std::string folder, Missing missing = Missing::GoOn)
        : m_folder(std::move(folder)), m_missing(missing)
    {
    }

    [[nodiscard]] const std::string& folder() const { return m_folder; }

    /// The copies of an earlier save, by the name of their folder, that copy does not drop however old they are.
    void spare(std::string name) { m_spared = std::move(name); }

    /// Copies those of the files that exist and are not empty, lists in odkud.txt where they come from, and drops the
    /// oldest save beyond ten. All is on the disk when it returns. Returns the folder of the copies, empty when there
    /// are none.
    [[nodiscard]] std::string copy(const std::vector<std::string>& paths) const;

    /// Whether a save of these files must not begin: one of them has no copy among those that copy made. copied: what
    /// it returned.
    [[nodiscard]] bool refuses(const std::string& copied, const std::vector<std::string>& paths) const;

    /// After a save that broke off while it wrote these files: the folder of their last whole contents, empty when
    /// there is none. It is not dropped any more before release: with every new try the broken files themselves would
    /// be copied, and in the end only they would be left. copied: what copy returned for this save.
    [[nodiscard]] std::string keep(const std::string& copied, const std::vector<std::string>& paths) const;

    /// After a save of these files that went through: what was kept for them is dropped with the others in time.
    void release(const std::vector<std::string>& paths) const;

    /// Whether a folder has a name that this class gives. Only such a folder is ever dropped.
    [[nodiscard]] static bool isNameOfSave(std::string_view name);

private:
    std::string m_folder;
    Missing m_missing;
    std::string m_spared{};
};

}  // namespace korvex
