// The toolkit made Czech: its own texts, its buttons and their order, whatever the desktop and the user's language.
#pragma once

class QApplication;

namespace korvex {

/// Before the application object is made.
void prepareToolkit();

/// Installs the Czech texts and the order of buttons.
void makeToolkitCzech(QApplication& application);

}  // namespace korvex
