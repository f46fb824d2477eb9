#include "file_error.h"

#include "number_text.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace korvex {

namespace {

struct Words {
    int errorNumber;
    const char* czech;
    const char* english;
};

constexpr std::array knownErrors{
    Words{ENOENT, "Soubor nebo složka neexistuje.", "The file or folder does not exist."},
    Words{EACCES, "K souboru chybí oprávnění.", "Permission to the file is missing."},
    Words{EPERM, "K souboru chybí oprávnění.", "Permission to the file is missing."},
    Words{EISDIR, "Místo souboru je zde složka.", "There is a folder in the place of the file."},
    Words{ENOTDIR, "Část cesty k souboru není složka.", "A part of the path to the file is not a folder."},
    Words{ENOSPC, "Na disku není dost místa.", "There is not enough room on the disk."},
    Words{EDQUOT, "Byla vyčerpána disková kvóta.", "The disk quota is used up."},
    Words{EFBIG, "Soubor by byl příliš velký.", "The file would be too large."},
    Words{EROFS, "Disk je jen pro čtení.", "The disk is read-only."},
    Words{ETXTBSY, "Soubor je právě používán.", "The file is in use."},
    Words{EBUSY, "Soubor je právě používán.", "The file is in use."},
    Words{EAGAIN, "Soubor je právě používán.", "The file is in use."},
    Words{EINTR, "Práce se souborem byla přerušena.", "Work with the file was interrupted."},
    Words{EOVERFLOW, "Soubor je příliš velký.", "The file is too large."},
    Words{ESTALE, "Síťový disk není dostupný.", "The network disk cannot be reached."},
    Words{ENOTCONN, "Síťový disk není dostupný.", "The network disk cannot be reached."},
    Words{EHOSTDOWN, "Síťový disk není dostupný.", "The network disk cannot be reached."},
    Words{EREMOTEIO, "Síťový disk není dostupný.", "The network disk cannot be reached."},
    Words{ETIMEDOUT, "Síťový disk neodpovídá.", "The network disk does not answer."},
    Words{ENOLCK, "Síťový disk neodpovídá.", "The network disk does not answer."},
    Words{EIO, "Chyba vstupu nebo výstupu.", "Input or output failed."},
    Words{ENAMETOOLONG, "Název souboru je příliš dlouhý.", "The name of the file is too long."},
    Words{ELOOP, "Odkazy v cestě k souboru tvoří smyčku.", "The links in the path to the file form a loop."},
    Words{EMFILE, "Je otevřeno příliš mnoho souborů.", "Too many files are open."},
    Words{ENFILE, "Je otevřeno příliš mnoho souborů.", "Too many files are open."},
    Words{ENXIO, "Není to obyčejný soubor.", "It is not a regular file."},
    Words{EINVAL, "Není to obyčejný soubor.", "It is not a regular file."},
    Words{ENODEV, "Není to obyčejný soubor.", "It is not a regular file."},
    Words{ENOMEM, "Nedostatek paměti.", "Out of memory."},
};

const Words* wordsOf(int errorNumber)
{
    const auto* const found = std::find_if(knownErrors.begin(), knownErrors.end(),
        [errorNumber](const Words& words) { return words.errorNumber == errorNumber; });
    return found != knownErrors.end() ? found : nullptr;
}

}  // namespace

std::string FileError::message() const
{
    const std::string place = line > 0 ? "Řádek " + std::to_string(line) + ": " : "";
    return place + description + (path.empty() ? "" : "\n\n" + path);
}

std::string systemErrorText(int errorNumber)
{
    // The system's own words would be English, or whatever the locale has.
    const Words* const words = wordsOf(errorNumber);
    return words != nullptr ? words->czech : "Chyba systému číslo " + integerText(errorNumber) + ".";
}

std::string englishSystemErrorText(int errorNumber)
{
    const Words* const words = wordsOf(errorNumber);
    return words != nullptr ? words->english : "System error number " + integerText(errorNumber) + ".";
}

FileError systemError(FileStep step, const std::string& path, int errorNumber)
{
    return {step, path, 0, systemErrorText(errorNumber), englishSystemErrorText(errorNumber)};
}

FileError missingName(FileStep step, const char* contents)
{
    return {step, "", 0, std::string("Není zadán soubor s ") + contents + "."};
}

}  // namespace korvex
