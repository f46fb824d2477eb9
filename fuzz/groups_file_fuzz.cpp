// A dust groups file: every line survives, reading and writing is a fixed point, and the groups in it are found.
#include "blanks.h"
#include "dust_groups_file.h"
#include "group_line.h"
#include "group_lines.h"
#include "laws.h"
#include "memory_files.h"
#include "number_text.h"
#include "skupiny_prachu.h"
#include "slow_reading.h"

namespace korvex::fuzz {

namespace {

constexpr const char* path = "skupiny.spr";

struct Contents {
    std::string comment;
    GroupLines groups;
};

std::vector<std::string> readAll(MemoryFiles& files)
{
    std::vector<std::string> lines;
    const Result<void> read = readGroupsFile(
        path, [&lines](std::string_view line) { lines.emplace_back(line); }, files);
    require(read.ok(), "a file in memory can be read");
    require(files.openCount() == 0, "what was opened is closed");
    return lines;
}

/// As the editor takes the lines.
Contents contentsOf(const std::vector<std::string>& lines)
{
    Contents contents;
    for (const std::string& line : lines) {
        const std::string trimmed = slowTrim(line);
        if (trimmed.empty())
            continue;
        if (trimmed.front() != ';')
            contents.groups.append(line);
        else if (contents.comment.empty())
            contents.comment = slowTrim(trimmed.substr(1));
    }
    return contents;
}

class MemoryDesk : public DustGroupsDesk {
public:
    explicit MemoryDesk(MemoryFiles& files) : m_files(files) { }
    bool readLines(const std::string& file, const std::function<void(std::string_view)>& take) override
    {
        return readGroupsFile(file, take, m_files).ok();
    }
    std::string edit(const std::string& file) override { return file; }

private:
    MemoryFiles& m_files;
};

void checkLine(const std::string& line)
{
    DustGroup group;
    const std::string written = outcome([&] {
        group = DustGroup::parse(line);
        return group.line();
    });
    if (written.front() == '!')
        return;
    require(groupNumberOf(written) == group.SkupinaCislo, "a group's number is the first field");
    requireSame(groupNameOf(written), group.SkupinaNazev, "a group's name stands behind the semicolon");
    require(hasParticlePart(written), "a written group has its particles");
    const std::string again = outcome([&] { return DustGroup::parse(written).line(); });
    if (again.front() != '!')
        requireSame(again, written, "writing a group that was read is a fixed point");
}

void checkStoring(GroupLines groups)
{
    const std::size_t before = groups.count();
    const std::string added = outcome([&] {
        DustGroup group;
        group.SkupinaCislo = groups.newNumber();
        for (const std::string& line : groups.lines())
            require(groupNumberOf(line) < group.SkupinaCislo, "a new number is above all others");
        groups.store(group);
        require(groups.count() == before + 1, "a new group is one more");
        group.SkupinaNazev = "x";
        groups.store(group);
        require(groups.count() == before + 1, "a stored group gives way to itself");
        requireSame(groups.lines().back(), group.line(), "what was stored last stands last");
        return std::string("added");
    });
    require(added == "added" || groups.count() == before, "without a number nothing is added");
}

}  // namespace

std::string run(std::string_view input)
{
    MemoryFiles files;
    files.put(path, input);
    const std::vector<std::string> lines = readAll(files);
    const std::vector<std::string> slow = slowLines(input);
    require(lines.size() == slow.size(), "no line appears or vanishes");
    for (std::size_t i = 0; i < lines.size(); ++i)
        requireSame(lines[i], slowDecode(slow[i]), "a line is read as it stands");

    const Contents contents = contentsOf(lines);
    MemoryDesk desk(files);
    cSkupinyPrachu groups(desk);
    groups.FileName(path);
    requireSame(groups.FileName(), path, "the file is the current one");
    require(groups.Count() == static_cast<std::int32_t>(contents.groups.count()), "every group can be chosen");
    std::string answer;
    for (std::int32_t i = 1; i <= groups.Count(); ++i) {
        const std::string& line = contents.groups.line(static_cast<std::size_t>(i) - 1);
        require(groups.SkupinaCislo(i) == slowInteger(slowField(line, ',', 1)).value_or(0), "by its number");
        const std::string name = slowField(line, ';', 2);
        requireSame(
            groups.SkupinaNazev(i), name.empty() ? "(skupina " + integerText(i) + ")" : name, "and by its name");
        checkLine(line);
        answer += groups.SkupinaNazev(i) + '\n';
    }
    checkStoring(contents.groups);

    const auto save = [&files](const Contents& saved) {
        const auto written = saveGroupsFile(path, saved.comment, saved.groups, SafetyCopies(""), files);
        require(written.ok(), "a file in memory can be written");
        require(written.value().empty(), "what came from the code page goes back to it");
        require(files.openCount() == 0, "what was opened is closed");
        return files.bytes(path);
    };
    const std::string first = save(contents);
    const Contents read = contentsOf(readAll(files));
    require(read.groups.lines() == contents.groups.lines(), "a save loses no group");
    requireSame(read.comment, contents.comment, "nor the comment");
    requireSame(save(read), first, "writing what was read is a fixed point");
    return answer + first;
}

}  // namespace korvex::fuzz
