#include "user_folders.h"

#include <QDir>
#include <QStandardPaths>

namespace korvex {

namespace {

const QString programFolder = QStringLiteral("/korvexzdr");

}  // namespace

QString settingsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + programFolder;
}

QString stateFolder()
{
    // The toolkit knows no place for state before 6.7.
    const QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (QDir::isAbsolutePath(folder))
        return folder + programFolder;
    return QDir::homePath() + QStringLiteral("/.local/state") + programFolder;
}

QString iniCopiesFolder()
{
    return stateFolder() + QStringLiteral("/ini");
}

}  // namespace korvex
