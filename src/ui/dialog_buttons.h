// The row of Ok, Storno and help buttons that dialogs share.
#pragma once

class QDialog;
class QHBoxLayout;
class QPushButton;
class QString;

namespace korvex {

/// A button of a dialog. Enter presses the one with the focus, in a field the one that setDefault was called for.
[[nodiscard]] QPushButton* dialogButton(QDialog& dialog, const QString& caption, const QString& toolTip);

/// Buttons with the captions and tool tips they have all over the program.
struct DialogButtons {
    QPushButton* ok = nullptr;
    QPushButton* storno = nullptr;
    QPushButton* help = nullptr;

    /// Ok is the default button; what it does is up to the dialog. Storno and Escape reject the
    /// dialog, help sends it the key F1.
    static DialogButtons make(QDialog& dialog);
    [[nodiscard]] QHBoxLayout* row() const;
};

}  // namespace korvex
