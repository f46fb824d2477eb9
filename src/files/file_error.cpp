#include "file_error.h"

#include <cerrno>

namespace korvex {

std::string FileError::message() const
{
    const std::string place = line > 0 ? "Řádek " + std::to_string(line) + ": " : "";
    return place + description + (path.empty() ? "" : "\n\n" + path);
}

std::string systemErrorText(int errorNumber)
{
    switch (errorNumber) {
    case ENOENT:
        return "Soubor nebo složka neexistuje.";
    case EACCES:
    case EPERM:
        return "K souboru chybí oprávnění.";
    case EISDIR:
        return "Místo souboru je zde složka.";
    case ENOTDIR:
        return "Část cesty k souboru není složka.";
    case ENOSPC:
        return "Na disku není dost místa.";
    case EDQUOT:
        return "Byla vyčerpána disková kvóta.";
    case EFBIG:
        return "Soubor by byl příliš velký.";
    case EROFS:
        return "Disk je jen pro čtení.";
    case ETXTBSY:
    case EBUSY:
    case EAGAIN:
        return "Soubor je právě používán.";
    case EINTR:
        return "Práce se souborem byla přerušena.";
    case EOVERFLOW:
        return "Soubor je příliš velký.";
    case ESTALE:
    case ENOTCONN:
    case EHOSTDOWN:
    case EREMOTEIO:
        return "Síťový disk není dostupný.";
    case ETIMEDOUT:
    case ENOLCK:
        return "Síťový disk neodpovídá.";
    case EIO:
        return "Chyba vstupu nebo výstupu.";
    case ENAMETOOLONG:
        return "Název souboru je příliš dlouhý.";
    case ELOOP:
        return "Odkazy v cestě k souboru tvoří smyčku.";
    case EMFILE:
    case ENFILE:
        return "Je otevřeno příliš mnoho souborů.";
    case ENXIO:
    case EINVAL:
    case ENODEV:
        return "Není to obyčejný soubor.";
    case ENOMEM:
        return "Nedostatek paměti.";
    default:
        // The system's own words would be English, or whatever the locale has.
        return "Chyba systému číslo " + std::to_string(errorNumber) + ".";
    }
}

FileError systemError(FileStep step, const std::string& path, int errorNumber)
{
    return {step, path, 0, systemErrorText(errorNumber)};
}

FileError missingName(FileStep step, const char* contents)
{
    return {step, "", 0, std::string("Není zadán soubor s ") + contents + "."};
}

}  // namespace korvex
