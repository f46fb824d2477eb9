// Asking for help: what the help buttons and the help menu do.
#pragma once

class QWidget;

namespace korvex {

/// Sends the key F1 to a window, as if the user had pressed it there.
void sendHelpKey(QWidget& window);

}  // namespace korvex
