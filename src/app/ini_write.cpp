#include "ini_write.h"

#include "code_page.h"
#include "ini_text.h"
#include "input_file.h"
#include "replace_files.h"

#include <cerrno>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace korvex {

namespace {

bool isMissing(const std::string& path)
{
    struct stat status { };
    return ::stat(path.c_str(), &status) != 0 && errno == ENOENT;
}

}  // namespace

void iniWrite(const std::string& path, std::string_view section, std::string_view key, std::string_view value,
    const SafetyCopies& copies, FileCalls& calls)
{
    FileBytes old;
    Result<InputFile> file = InputFile::open(path, calls);
    if (file.ok()) {
        Result<FileBytes> bytes = file.value().readAll();
        if (!bytes.ok())
            return;
        old = std::move(bytes.value());
    } else if (!isMissing(path)) {
        return;  // what cannot be read must not be replaced by a file of one line
    }

    std::string changed = withIniValue(old.view(), encodeCodePage(section), encodeCodePage(key), encodeCodePage(value));
    if (changed == old.view())
        return;
    std::vector<Replacement> replacement(1);
    replacement.front().path = path;
    replacement.front().bytes.room() = std::move(changed);
    // Its outcome is not looked at, as told above.
    static_cast<void>(replaceFiles(replacement, copies, calls));
}

}  // namespace korvex
