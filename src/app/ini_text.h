// Setting one value in the text of an INI file that belongs to another program.
#pragma once

#include <string>
#include <string_view>

namespace korvex {

/// The bytes of an INI file in which a key of a section has a value; the file, the names and the value are in the same
/// 8-bit code page. The file is its owner's: everything but the one line stays byte for byte, the order, comments,
/// blank lines and the kind of line end too (a file without any gets CR LF).
///
/// - Names compare without blanks around them and without letter case, the latter for ASCII letters only.
/// - A section begins with "[name]", text behind "]" is ignored. Of several sections of one name, and of several keys
///   in it, the first is meant, for readers stop there.
/// - An existing key keeps its spelling and what stands before "="; everything behind "=" is replaced. Blanks
///   that stood behind "=" are not kept: readers trim them, and a value that begins with a blank could not be told from
///   them, so that it would grow each time it is written.
/// - A new key goes behind the section's last line that is not blank, a new section to the end of the file.
///   A last line without a line end gets one first.
/// - A line end inside the value (a path may have one here) would tear the line in two; its bytes are written as "?",
///   as any character that the file cannot hold.
///
/// Section and key are names of our own: not empty, without line ends, "]", "=" or a leading ";".
/// Setting the same value again changes nothing.
[[nodiscard]] std::string withIniValue(
    std::string_view file, std::string_view section, std::string_view key, std::string_view value);

}  // namespace korvex
