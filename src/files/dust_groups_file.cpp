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

Result<void> saveGroupsFile(const std::string& path, std::string_view comment, const GroupLines& groups,
    const SafetyCopies& copies, FileCalls& calls)
{
    std::vector<Replacement> replacement(1);
    replacement.front().path = path;
    OutputBytes& bytes = replacement.front().bytes;
    const auto appendLine = [&bytes](std::string_view line) {
        std::string& room = bytes.room();
        appendCodePage(room, line);
        room += "\r\n";
    };
    appendLine(";" + std::string(trimBlanks(comment)));
    for (const std::string& line : groups.lines())
        appendLine(line);
    return replaceFiles(replacement, copies, calls);
}

}  // namespace korvex
