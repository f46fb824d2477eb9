// How the text fields of all windows behave: what can be typed, what focus does, and how numbers are read and shown.
#pragma once

#include <QString>

#include <cstdint>
#include <string>

class QLineEdit;

namespace korvex {

/// lo <= x <= hi.
[[nodiscard]] constexpr bool InRange(double x, double lo, double hi)
{
    return lo <= x && x <= hi;
}

/// Whether a typed key is a digit or Backspace; key codes are those of the characters.
[[nodiscard]] constexpr bool IsDigitKey(int keyCode)
{
    constexpr int backspace = 8;
    return InRange(keyCode, '0', '9') || keyCode == backspace;
}

/// Also "." and ",".
[[nodiscard]] constexpr bool IsNumberKey(int keyCode)
{
    return IsDigitKey(keyCode) || keyCode == '.' || keyCode == ',';
}

[[nodiscard]] constexpr bool IsSignedDigitKey(int keyCode)
{
    return IsDigitKey(keyCode) || keyCode == '-';
}

[[nodiscard]] constexpr bool IsSignedNumberKey(int keyCode)
{
    return IsNumberKey(keyCode) || keyCode == '-';
}

/// Swallows every typed character that the test refuses, also what a dead key puts together. A paste passes on
/// purpose: it is the way to values that the keys do not offer.
void filterKeys(QLineEdit& field, bool (*accepts)(int keyCode));

/// The field only shows its text, and looks so; the text can still be selected and copied.
void showOnly(QLineEdit& field);

/// The field selects its whole text when it gets the focus, also by a click.
void SelectAllText(QLineEdit& field);

/// A field's text as one line: a pasted text may hold line ends, which would tear a record of a file in two.
[[nodiscard]] std::string lineText(const QLineEdit& field);

/// The number at the front of a field's text, which may have the user's decimal separator; 0 when there is none.
/// Throws ArithmeticFault for one out of range; the field is then brought before the user: its tab is shown and it
/// has the focus.
[[nodiscard]] float fieldSingle(QLineEdit& field, const std::string& decimalSeparator);

/// The same without the user's decimal separator: only "." is a decimal point, a comma ends the number.
[[nodiscard]] float plainFieldSingle(QLineEdit& field);
[[nodiscard]] std::int32_t fieldInteger(QLineEdit& field);

/// A number as fields show it, with the user's decimal separator.
[[nodiscard]] QString singleFieldText(float value, const std::string& decimalSeparator);

}  // namespace korvex
