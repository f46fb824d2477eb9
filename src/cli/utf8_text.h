// Telling text in UTF-8 from text of the code page.
#pragma once

#include <cstddef>
#include <string_view>

namespace korvex {

/// Length of the well-formed UTF-8 character at the front of bytes; 0: there is none.
[[nodiscard]] std::size_t utf8CharacterLength(std::string_view bytes);

/// Not the first byte of a UTF-8 character.
[[nodiscard]] bool isUtf8Continuation(char byte);

/// Whether bytes are nothing but well-formed characters.
[[nodiscard]] bool isUtf8(std::string_view bytes);

/// Whether a line is text in UTF-8 and not of the code page. Text of the code page nearly never looks so: the letters
/// of a character would have to meet by chance, and make one that the code page has as well.
[[nodiscard]] bool looksLikeUtf8(std::string_view line);

/// Where the first character stands that is most likely UTF-8, on a line that is otherwise of the code page, with its
/// length; length 0: there is none.
struct Utf8Piece {
    std::size_t at = 0;
    std::size_t length = 0;
};
[[nodiscard]] Utf8Piece findUtf8Piece(std::string_view line);

}  // namespace korvex
