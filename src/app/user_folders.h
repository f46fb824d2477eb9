// Where this user's settings and the copies of replaced files are kept.
#pragma once

#include <QString>

namespace korvex {

/// $XDG_CONFIG_HOME/korvexzdr
[[nodiscard]] QString settingsFolder();
/// $XDG_STATE_HOME/korvexzdr: the copies of the files that the last saves replaced.
[[nodiscard]] QString stateFolder();
/// $XDG_STATE_HOME/korvexzdr/ini: copies of the INI files of calling programs; they must not push the others out.
[[nodiscard]] QString iniCopiesFolder();

}  // namespace korvex
