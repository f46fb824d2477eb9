#include "first_comment.h"

#include "code_page.h"
#include "input_file.h"
#include "source_files.h"

namespace korvex {

Result<std::string> firstComment(const std::string& path, FileCalls& calls)
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
            return std::string();
        const std::string_view text = trimBlanks(line.bytes);
        if (!text.empty() && text.front() == ';')
            return decodeCodePage(trimBlanks(text.substr(1)));
    }
}

}  // namespace korvex
