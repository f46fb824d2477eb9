// Paths at which no file can be read or written, each in its own way, and what a box says of it.
#pragma once

#include "window_harness.h"

#include <QDir>
#include <QFile>
#include <QString>
#include <QtGlobal>

#include <sys/stat.h>
#include <unistd.h>

namespace korvex {

enum class Trouble {
    NoFile,
    NoFolder,
    FileAsFolder,
    Folder,
    LoopOfLinks,
    TooLongName,
    Pipe,
    Device,
    NotAllowed,  // to an ordinary user: see AsOrdinaryUser
    FailingRead,
    FullDevice,
};

/// The text of the box, without the path.
[[nodiscard]] inline QString wordsOf(Trouble trouble)
{
    switch (trouble) {
    case Trouble::NoFile:
    case Trouble::NoFolder:
        return QStringLiteral("Soubor nebo složka neexistuje.");
    case Trouble::FileAsFolder:
        return QStringLiteral("Část cesty k souboru není složka.");
    case Trouble::Folder:
        return QStringLiteral("Místo souboru je zde složka.");
    case Trouble::LoopOfLinks:
        return QStringLiteral("Odkazy v cestě k souboru tvoří smyčku.");
    case Trouble::TooLongName:
        return QStringLiteral("Název souboru je příliš dlouhý.");
    case Trouble::Pipe:
    case Trouble::Device:
        return QStringLiteral("Není to obyčejný soubor.");
    case Trouble::NotAllowed:
        return QStringLiteral("K souboru chybí oprávnění.");
    case Trouble::FailingRead:
        return QStringLiteral("Chyba vstupu nebo výstupu.");
    case Trouble::FullDevice:
        break;
    }
    return QStringLiteral("Na disku není dost místa.");
}

/// Makes what is in the way, in the folder of the harness; a system call that refuses ends the program.
class TroubledFiles {
public:
    explicit TroubledFiles(WindowHarness& harness) : m_harness(harness) { }

    [[nodiscard]] QString path(Trouble trouble)
    {
        switch (trouble) {
        case Trouble::NoFile:
            return named("chybí.txt");
        case Trouble::NoFolder:
            return named("chybí/a b.txt");
        case Trouble::FileAsFolder:
            write("soubor");
            return named("soubor/a.txt");
        case Trouble::Folder:
            require(QDir().mkdir(named("složka.txt")), "mkdir");
            return named("složka.txt");
        case Trouble::LoopOfLinks:
            require(QFile::link(named("druhý"), named("první")) && QFile::link(named("první"), named("druhý")), "link");
            return named("první");
        case Trouble::TooLongName:
            return m_harness.path(QString(300, QLatin1Char('x')));
        case Trouble::Pipe:
            require(::mkfifo(QFile::encodeName(named("roura")).constData(), S_IRUSR | S_IWUSR) == 0, "mkfifo");
            return named("roura");
        case Trouble::Device:
            return QStringLiteral("/dev/null");
        case Trouble::NotAllowed:
            write("cizí.txt");
            require(QFile::setPermissions(named("cizí.txt"), {}), "chmod");
            return named("cizí.txt");
        case Trouble::FailingRead:
            // The memory of a program has nothing at its very beginning.
            return QStringLiteral("/proc/self/mem");
        case Trouble::FullDevice:
            break;
        }
        return QStringLiteral("/dev/full");
    }

private:
    [[nodiscard]] QString named(const char* name) const { return m_harness.path(QString::fromUtf8(name)); }
    void write(const char* name) { static_cast<void>(m_harness.writeFile(QString::fromUtf8(name), {})); }

    static void require(bool done, const char* call)
    {
        if (!done)
            qFatal("The test cannot do this: %s.", call);
    }

    WindowHarness& m_harness;
};

/// The administrator may read and write everything: for the life of this object the program runs as somebody else,
/// who may use the folder of the harness.
class AsOrdinaryUser {
public:
    explicit AsOrdinaryUser(const WindowHarness& harness) : m_administrator(::geteuid() == 0)
    {
        constexpr uid_t nobody = 65534;
        const QString folder = harness.path(QString());
        if (!QFile::setPermissions(folder, QFile::permissions(folder) | everything))
            qFatal("The test cannot open its folder to others.");
        m_isOrdinary = !m_administrator || ::seteuid(nobody) == 0;
    }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;
    ~AsOrdinaryUser()
    {
        if (m_administrator && ::seteuid(0) != 0)
            qFatal("The test cannot become the administrator again.");
    }

    /// False where the administrator may not become somebody else: then nothing can be shown.
    [[nodiscard]] bool isOrdinary() const { return m_isOrdinary; }

private:
    static constexpr QFile::Permissions everything = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
        | QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther
        | QFile::ExeOther;

    bool m_administrator;
    bool m_isOrdinary = false;
};

}  // namespace korvex
