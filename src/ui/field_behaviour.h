// How the text fields of all windows behave.
#pragma once

class QLineEdit;

namespace korvex {

/// The field selects its whole text when it gets the focus, also by a click.
void selectAllTextOnFocus(QLineEdit& field);

}  // namespace korvex
