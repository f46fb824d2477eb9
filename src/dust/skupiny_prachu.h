// The groups of one dust groups file, to choose from: numbers and names.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// What the collection needs from above.
class DustGroupsDesk {
public:
    DustGroupsDesk() = default;
    DustGroupsDesk(const DustGroupsDesk&) = delete;
    DustGroupsDesk& operator=(const DustGroupsDesk&) = delete;
    virtual ~DustGroupsDesk() = default;

    /// Hands over the lines of a file, without their ends, in UTF-8. False when it could not be read to its end: then
    /// the user has been told so.
    virtual bool readLines(const std::string& path, const std::function<void(std::string_view line)>& take) = 0;

    /// Opens the dust group editor on a file; returns the path that it ends with.
    virtual std::string edit(const std::string& path) = 0;
};

class cSkupinyPrachu {
public:
    explicit cSkupinyPrachu(DustGroupsDesk& desk) : m_desk(desk) { }

    [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(m_groups.size()); }

    /// The file's comment. A load takes one only while it is empty and never clears it, on purpose: the comment of the
    /// first file stays.
    [[nodiscard]] const std::string& Komentar() const { return m_comment; }
    void Komentar(const std::string& comment) { m_comment = comment; }

    /// The path loaded last without an error; empty before any.
    [[nodiscard]] const std::string& FileName() const { return m_fileName; }
    /// Loads the file; an empty path only drops the groups. After an error the groups read until then are there and
    /// FileName keeps its value.
    void FileName(const std::string& path);

    /// Name and number of the i-th group, from 1 in file order. A group without a name is called by its position:
    /// "(skupina 4)". Empty and 0 outside 1 … Count().
    [[nodiscard]] std::string SkupinaNazev(std::int32_t i) const;
    [[nodiscard]] std::int32_t SkupinaCislo(std::int32_t i) const;

    /// Has the editor work on the current file, then loads the file that the editor ends with.
    void Edit();

private:
    struct Group {
        std::int32_t number;
        std::string name;
    };

    void takeLine(std::string_view line);
    [[nodiscard]] const Group* groupAt(std::int32_t i) const;

    DustGroupsDesk& m_desk;
    std::vector<Group> m_groups;
    std::string m_comment;
    std::string m_fileName;
};

}  // namespace korvex
