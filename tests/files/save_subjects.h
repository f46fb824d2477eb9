// Saves of an inventory and of a dust groups file, with what their files hold before and after, for tests that let a
// save go wrong and look at what is left.
#pragma once

#include "failing_file_calls.h"

#include "dust_groups_file.h"
#include "group_lines.h"
#include "safety_copies.h"
#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace korvex::test {

enum class OldFile { Missing, Empty, Shorter, Longer };

/// What a target holds, compared with its old and its new content. Mixture: the new one's beginning, written over the
/// old one so far.
enum class Held { Old, New, Beginning, Mixture, SomethingElse };

inline void PrintTo(Held held, std::ostream* out)
{
    switch (held) {
    case Held::Old:
        *out << "the old content";
        break;
    case Held::New:
        *out << "the new content";
        break;
    case Held::Beginning:
        *out << "the beginning of the new content";
        break;
    case Held::Mixture:
        *out << "the new content's beginning over the old content";
        break;
    case Held::SomethingElse:
        *out << "something else";
        break;
    }
}

struct SaveTarget {
    std::string path;
    std::optional<std::string> before;  // none: the file does not exist yet
    std::string after;

    [[nodiscard]] bool hadContent() const { return before && !before->empty(); }

    [[nodiscard]] Held held() const
    {
        if (!std::filesystem::exists(path))
            return before ? Held::SomethingElse : Held::Old;
        const std::string bytes = bytesOf(path);
        if (before && bytes == *before)
            return Held::Old;
        if (bytes == after)
            return Held::New;
        if (std::string_view(after).starts_with(bytes))
            return Held::Beginning;
        if (before && bytes.size() == before->size()) {
            std::size_t written = 0;
            while (written < std::min(bytes.size(), after.size()) && bytes[written] == after[written])
                ++written;
            if (std::string_view(bytes).substr(written) == std::string_view(*before).substr(written))
                return Held::Mixture;
        }
        return Held::SomethingElse;
    }

    /// A file that was to be created and is there, but empty.
    [[nodiscard]] bool isLeftOver() const
    {
        return !before && std::filesystem::exists(path) && std::filesystem::file_size(path) == 0;
    }
};

/// The contents of a save's safety copies by the path of the file they are of, as the folder's own list tells.
using CopiedContents = std::map<std::string, std::string>;

[[nodiscard]] inline CopiedContents copiedContents(const std::filesystem::path& folderOfSave)
{
    CopiedContents contents;
    std::istringstream list(bytesOf(folderOfSave / "odkud.txt"));
    for (std::string line; std::getline(list, line);) {
        const std::size_t tab = line.find('\t');
        if (tab == std::string::npos)
            ADD_FAILURE() << "half a line in the list of the copies: " << line;
        else
            contents[line.substr(tab + 1)] = bytesOf(folderOfSave / line.substr(0, tab));
    }
    return contents;
}

/// Something to save. Its folder and the folder of its copies are its own.
class SaveSubject {
public:
    SaveSubject() = default;
    SaveSubject(const SaveSubject&) = delete;
    SaveSubject& operator=(const SaveSubject&) = delete;
    virtual ~SaveSubject() = default;

    [[nodiscard]] virtual std::string name() const = 0;
    [[nodiscard]] virtual Result<void> save(FileCalls& calls) = 0;
    /// The data in memory are as they were made, and count as changed until they are saved.
    virtual void expectDataKept(bool saved) const = 0;

    [[nodiscard]] const std::vector<SaveTarget>& targets() const { return m_targets; }
    [[nodiscard]] std::string folder() const { return m_folder.path(); }
    [[nodiscard]] std::string copyFolder() const { return m_copyFolder; }

    /// The old files and nothing else; no copies.
    virtual void lay()
    {
        for (const SaveTarget& target : m_targets) {
            std::filesystem::remove(target.path);
            if (target.before)
                writeBytes(target.path, *target.before);
        }
        std::filesystem::remove_all(m_copyFolder);
    }

    [[nodiscard]] std::vector<std::string> names() const { return m_folder.names(); }

    /// The folders of the saves that were copied, oldest first.
    [[nodiscard]] std::vector<std::string> copiedSaves() const
    {
        std::vector<std::string> found;
        if (!std::filesystem::exists(m_copyFolder))
            return found;
        for (const auto& entry : std::filesystem::directory_iterator(m_copyFolder))
            found.push_back(entry.path().string());
        std::sort(found.begin(), found.end());
        return found;
    }

    void expectAllHold(Held wanted) const
    {
        for (const SaveTarget& target : m_targets)
            EXPECT_EQ(target.held(), wanted) << target.path;
    }

    [[nodiscard]] bool anyOldContentIsGone() const
    {
        return std::any_of(m_targets.begin(), m_targets.end(),
            [](const SaveTarget& target) { return target.hadContent() && target.held() != Held::Old; });
    }

    void expectCopiesHoldEveryOldContent(const CopiedContents& copies) const
    {
        for (const SaveTarget& target : m_targets) {
            if (!target.hadContent())
                continue;
            const auto copy = copies.find(target.path);
            ASSERT_NE(copy, copies.end()) << target.path;
            EXPECT_EQ(copy->second, *target.before) << target.path;
        }
    }

    /// Everything works: the second try of a user whose first one failed.
    void expectSavesNow()
    {
        FailingFileCalls healthy;
        healthy.skipFlushing();
        const Result<void> saved = save(healthy);
        ASSERT_TRUE(saved.ok()) << saved.error().message();
        expectAllHold(Held::New);
        EXPECT_EQ(names().size(), m_targets.size());
        EXPECT_EQ(healthy.openFiles(), 0U);
        expectDataKept(true);
    }

protected:
    [[nodiscard]] std::string pathOf(std::string_view name) const { return m_folder.path(name); }

    void addTarget(const std::string& path, OldFile kind, const std::string& after)
    {
        // No byte of the old content stands at the same place of the new one: what was written shows.
        std::string old(after.size() + 60, '#');
        for (std::size_t i = 0; i < old.size(); ++i)
            old[i]
                = static_cast<char>('A' + (i + m_targets.size()) % 7 + (i < after.size() && after[i] < 'a' ? 32 : 0));
        switch (kind) {
        case OldFile::Missing:
            m_targets.push_back({path, std::nullopt, after});
            break;
        case OldFile::Empty:
            m_targets.push_back({path, "", after});
            break;
        case OldFile::Shorter:
            m_targets.push_back({path, old.substr(0, after.size() / 3), after});
            break;
        case OldFile::Longer:
            m_targets.push_back({path, old, after});
            break;
        }
    }

    [[nodiscard]] SafetyCopies copies() const { return SafetyCopies(m_copyFolder); }

private:
    TemporaryFolder m_folder{FolderOn::Memory};
    TemporaryFolder m_stateFolder{FolderOn::Memory};
    std::string m_copyFolder = m_stateFolder.path("kopie");
    std::vector<SaveTarget> m_targets;
};

/// Three files: points, description, dust.
class InventorySave : public SaveSubject {
public:
    InventorySave(OldFile points, OldFile description, OldFile dust, std::size_t sources = 2)
    {
        m_request.files = {pathOf("body.txt"), pathOf("popis.txt"), pathOf("prach.txt")};
        m_request.comment = sources > 2 ? "Soupis" : "";
        m_request.copies = copies();
        std::string pointsBytes = header(";SOUBOR S BODY", "popisem", m_request.files.description, true);
        std::string descriptionBytes = header(";SOUBOR S POPISEM (bod\xF9)", "body", m_request.files.points, true);
        std::string dustBytes = header(";SOUBOR S PRACHEM", "popisem", m_request.files.description, false);
        for (std::size_t number = 1; number <= sources; ++number) {
            const std::string text = std::to_string(number);
            m_set.addFromRecords(
                number % 2 == 0 ? cPlosnyZdroj : cBodovyZdroj, text + ", 1, 2, 3, 0, 4, 5 ;Skládka", text + ", 1.5, 2");
            m_set.last().LineDust("1800,0,1,10,1");  // of use to the first type only
            m_rows.add(number % 3 == 0);
            const std::string written = std::string(9 - text.size(), '0') + text;
            pointsBytes += written + ", 0000001, 0000002, 0003, " + (number % 2 == 0 ? '2' : '1') + ", 4, 5 ;Skl\xE1"
                + "dka\r\n";
            descriptionBytes += written + ", 1.5, 2, 0, 0, 0, 0, 0, 0, 0\r\n";
            dustBytes += written + (number % 2 == 0 ? "\r\n" : ",1800,0,1,10,1\r\n");
        }
        addTarget(m_request.files.points, points, pointsBytes);
        addTarget(m_request.files.description, description, descriptionBytes);
        addTarget(m_request.files.dust, dust, dustBytes);
        m_data = data();
    }

    [[nodiscard]] std::string name() const override { return "inventory"; }

    void lay() override
    {
        SaveSubject::lay();
        m_set.modified(true);
    }

    [[nodiscard]] Result<void> save(FileCalls& calls) override
    {
        RecordingListener listener;
        const Result<SaveReport> saved = saveSourceSet(m_request, m_set, m_rows, listener, calls);
        if (!saved.ok())
            return saved.error();
        return {};
    }

    void expectDataKept(bool saved) const override
    {
        EXPECT_EQ(m_set.modified(), !saved);
        EXPECT_EQ(data(), m_data);
    }

    [[nodiscard]] SaveRequest& request() { return m_request; }

private:
    [[nodiscard]] std::string header(
        const std::string& title, const std::string& otherKind, const std::string& other, bool dustLast) const
    {
        if (m_request.comment.empty())
            return "";
        const std::string lines
            = ";" + m_request.comment + "\r\n" + title + "\r\n;Soubor s " + otherKind + ": " + other + "\r\n";
        return lines
            + (dustLast ? ";Soubor s prachem: " + m_request.files.dust : ";Soubor s body: " + m_request.files.points)
            + "\r\n";
    }

    /// Every source and its mark in display order.
    [[nodiscard]] std::string data() const
    {
        std::string text;
        for (std::size_t row = 0; row < m_rows.count(); ++row) {
            const cZdroje& source = m_set.at(m_rows.tag(row));
            source.appendLineSource(text);
            source.appendLineParameters(text);
            source.appendLineDust(text);
            text += m_rows.marked(row) ? "+\n" : "-\n";
        }
        return text;
    }

    SourceSet m_set;
    SourceRows m_rows;
    SaveRequest m_request;
    std::string m_data;
};

/// One file.
class GroupsSave : public SaveSubject {
public:
    explicit GroupsSave(OldFile old, std::size_t groups = 3)
    {
        std::string after = ";V\xE1pno\r\n";
        for (std::size_t number = 1; number <= groups; ++number) {
            m_groups.append(std::to_string(number) + ",0;Škvára");
            after += std::to_string(number) + ",0;\x8Akv\xE1ra\r\n";
        }
        m_lines = m_groups.lines();
        addTarget(pathOf("skupiny.spr"), old, after);
    }

    [[nodiscard]] std::string name() const override { return "groups"; }

    [[nodiscard]] Result<void> save(FileCalls& calls) override
    {
        const auto saved = saveGroupsFile(targets().front().path, "Vápno", m_groups, copies(), calls);
        if (!saved.ok())
            return saved.error();
        return {};
    }

    /// Whether they count as changed is known to the editor alone.
    void expectDataKept(bool /*saved*/) const override { EXPECT_EQ(m_groups.lines(), m_lines); }

private:
    GroupLines m_groups;
    std::vector<std::string> m_lines;
};

using SaveSubjects = std::vector<std::unique_ptr<SaveSubject>>;

/// Each kind of old file in front of and behind the others.
[[nodiscard]] inline SaveSubjects allSaves()
{
    SaveSubjects made;
    made.push_back(std::make_unique<InventorySave>(OldFile::Longer, OldFile::Shorter, OldFile::Missing));
    made.push_back(std::make_unique<InventorySave>(OldFile::Missing, OldFile::Longer, OldFile::Shorter));
    made.push_back(std::make_unique<InventorySave>(OldFile::Shorter, OldFile::Empty, OldFile::Longer));
    made.push_back(std::make_unique<InventorySave>(OldFile::Missing, OldFile::Missing, OldFile::Missing));
    made.push_back(std::make_unique<GroupsSave>(OldFile::Longer));
    made.push_back(std::make_unique<GroupsSave>(OldFile::Shorter));
    made.push_back(std::make_unique<GroupsSave>(OldFile::Missing));
    return made;
}

/// Larger than a page, for writes that take pages.
[[nodiscard]] inline SaveSubjects largeSaves()
{
    SaveSubjects made;
    made.push_back(std::make_unique<InventorySave>(OldFile::Shorter, OldFile::Longer, OldFile::Longer, 250));
    made.push_back(std::make_unique<GroupsSave>(OldFile::Longer, 700));
    return made;
}

}  // namespace korvex::test
