// Texts that the user typed in the form of the user's locale.
#pragma once

#include <string>
#include <string_view>

namespace korvex {

/// The text with the first occurrence of the user's decimal separator replaced by "."; unchanged when it has none.
/// Every number field is read through it. separator: as the system's locale has it, in UTF-8.
[[nodiscard]] std::string NormalizeDecimal(std::string_view text, std::string_view separator);

/// A 32-bit real in the user's form: as files hold it, but with the user's decimal separator.
[[nodiscard]] std::string localSingleText(float value, std::string_view separator);

}  // namespace korvex
