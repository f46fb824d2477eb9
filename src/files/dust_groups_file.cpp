#include "dust_groups_file.h"

#include "blanks.h"
#include "code_page.h"
#include "group_lines.h"
#include "input_file.h"
#include "replace_files.h"

#include <vector>

namespace korvex {

Result<void> readGroupsFile(
    const std::string& path, const std::function<void(std::string_view line)>& take, FileCalls& calls)
{
    Result<InputFile> file = InputFile::open(path, calls);
    if (!file.ok())
        return file.error();
    LineReader lines(file.value());
    TextLine line;
    for (;;) {
        const Result<bool> more = lines.next(line);
        if (!more.ok())
            return more.error();
        if (!more.value())
            return {};
        take(decodeCodePage(line.bytes));
    }
}

Result<std::vector<std::size_t>> saveGroupsFile(const std::string& path, std::string_view comment,
    const GroupLines& groups, const SafetyCopies& copies, FileCalls& calls)
{
    std::vector<Replacement> replacement(1);
    replacement.front().path = path;
    std::vector<std::size_t> replacedLines;
    std::size_t lineNumber = 0;
    const auto appendLine = [&](std::string_view line) {
        ++lineNumber;
        std::string& room = replacement.front().bytes.room();
        if (appendCodePage(room, line) > 0)
            replacedLines.push_back(lineNumber);
        room += "\r\n";
    };
    appendLine(";" + std::string(trimBlanks(comment)));
    for (const std::string& line : groups.lines())
        appendLine(line);
    if (const Result<void> replaced = replaceFiles(replacement, copies, calls); !replaced.ok())
        return replaced.error();
    return replacedLines;
}

}  // namespace korvex
