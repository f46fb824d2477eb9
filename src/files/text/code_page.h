// The 8-bit code page of all data files (Windows-1250), applied at the edge of a file: inside, text is UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvex {

/// UTF-8 of code-page bytes. Every byte has a character: the five that the code page leaves undefined (81 83 88 90
/// 98 hex) become U+0081 … U+0098, so that any file survives being read and written.
[[nodiscard]] std::string decodeCodePage(std::string_view bytes);

/// The same into a place of the caller's own. Returns the end of what was written.
char* putDecoded(char* to, std::string_view bytes);
/// No byte takes more than this in UTF-8.
constexpr std::size_t mostDecodedBytes = 3;

/// Appends the code-page bytes of UTF-8 text. A character that the code page lacks, or a byte that is no UTF-8, is
/// written as "?". Returns how many were.
std::size_t appendCodePage(std::string& out, std::string_view utf8);
[[nodiscard]] std::string encodeCodePage(std::string_view utf8);

/// How many bytes at the front of a text are plain ASCII: those are the same in the code page and in UTF-8.
[[nodiscard]] std::size_t asciiLength(std::string_view text);

/// The text behind the first n characters of UTF-8 text; empty when it is not longer.
[[nodiscard]] std::string_view behindCharacters(std::string_view utf8, std::size_t n);

}  // namespace korvex
