// Telling a calling program, through its INI file, which files were saved.
#pragma once

#include "file_calls.h"
#include "safety_copies.h"

#include <string>
#include <string_view>

namespace korvex {

/// Sets a key of a section in an INI file; all texts are UTF-8 and are written in the 8-bit code page. Reports nothing:
/// a missing folder or a read-only file leaves the file as it was and the caller goes on, for the inventory itself is
/// saved by then. A file that has the value already is not touched; of one that is changed a copy is made before.
void iniWrite(const std::string& path, std::string_view section, std::string_view key, std::string_view value,
    const SafetyCopies& copies, FileCalls& calls = FileCalls::system());

}  // namespace korvex
