#include "message.h"

#include "code_page.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>

namespace korvex {

namespace {

struct SystemMessage {
    int errorNumber;
    const char* english;
};

constexpr std::array systemMessages{
    SystemMessage{ENOENT, "The file or folder does not exist."},
    SystemMessage{EACCES, "There is no permission for the file."},
    SystemMessage{EISDIR, "This is a folder, not a file."},
    SystemMessage{ENOTDIR, "A part of the path is no folder."},
    SystemMessage{ENOSPC, "There is not enough room on the disk."},
    SystemMessage{EDQUOT, "The disk quota is used up."},
    SystemMessage{EFBIG, "The file would be too large."},
    SystemMessage{EROFS, "The disk is read-only."},
    SystemMessage{EBUSY, "The file is in use."},
    SystemMessage{EINTR, "The work with the file was interrupted."},
    SystemMessage{EOVERFLOW, "The file is too large."},
    SystemMessage{ESTALE, "The network disk is not available."},
    SystemMessage{ETIMEDOUT, "The network disk does not answer."},
    SystemMessage{EIO, "Input or output error."},
    SystemMessage{ENAMETOOLONG, "The file name is too long."},
    SystemMessage{ELOOP, "The links in the path form a loop."},
    SystemMessage{EMFILE, "Too many files are open."},
    SystemMessage{EINVAL, "This is no ordinary file."},
    SystemMessage{ENOMEM, "Out of memory."},
};

}  // namespace

std::string errorText(Language language, const FileError& error)
{
    if (language == Language::Czech)
        return error.description;
    for (const SystemMessage& message : systemMessages) {
        if (systemErrorText(message.errorNumber) == error.description)
            return message.english;
    }
    constexpr std::string_view otherNumber = "Chyba systému číslo ";
    if (error.description.rfind(otherNumber, 0) == 0)
        return "System error number " + error.description.substr(otherNumber.size());
    return error.description;
}

void appendFilled(std::string& out, std::string_view pattern, std::span<const std::string_view> values)
{
    for (;;) {
        const std::size_t place = pattern.find('{');
        out += pattern.substr(0, place);
        if (place == std::string_view::npos)
            return;
        pattern.remove_prefix(place);
        const bool isPlace = pattern.size() >= 3 && pattern[2] == '}';
        const auto index = isPlace ? static_cast<std::size_t>(pattern[1] - '0') : values.size();
        out += index < values.size() ? values[index] : pattern.substr(0, 1);
        pattern.remove_prefix(index < values.size() ? 3 : 1);
    }
}

std::string quotedText(Language language, std::string_view utf8)
{
    constexpr std::size_t shown = 40;
    const std::string_view rest = utf8.size() > shown ? behindCharacters(utf8, shown) : std::string_view();
    std::string out = text(language, "„", "\"");
    const std::size_t begin = out.size();
    out += utf8.substr(0, utf8.size() - rest.size());
    std::replace_if(
        out.begin() + static_cast<std::ptrdiff_t>(begin), out.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
    if (!rest.empty())
        out += "…";
    return out + text(language, "“", "\"");
}

}  // namespace korvex
