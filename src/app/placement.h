// Windows that reopen where the user left them.
#pragma once

#include <QObject>
#include <QRect>
#include <QString>

class QWidget;

namespace korvex {

class SettingsStore;

enum class Resizable { No, Yes };

/// Placement of a free window, absolute on the screen: section "Form:" and the window's name. Positions and sizes are
/// stored in twips of 15 a pixel; a value that is no number, or beyond any screen, counts as missing. Where the desktop
/// tells no positions (Wayland) only sizes are kept, and stored positions are left alone.
class FreePlacement : public QObject {
    Q_OBJECT

public:
    /// The window's object name is its name in the store.
    FreePlacement(QWidget& window, SettingsStore& store, Resizable resizable);

    /// Whether the window was ever placed and stored.
    [[nodiscard]] bool isStored() const;
    /// Before the window is shown. A window never placed before opens at the top left corner of the screen.
    void restore();
    /// Stores the normal bounds, also of a maximised window, and the state that the window has.
    void store();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void noteNormalBounds();

    QWidget& m_window;
    SettingsStore& m_store;
    Resizable m_resizable;
    // Asked of a maximised window, the toolkit gives the maximised bounds: so they are noted while it is normal.
    QRect m_normal;
};

/// Placement of a dialog relative to the window that owns it: section "SubForm:" and the dialog's name.
void storeSubordinatePlacement(const QWidget& dialog, const QWidget& owner, SettingsStore& store, Resizable resizable);
/// Before the dialog is shown. Pushes it back on the screen at the bottom and the right, on purpose not at the other
/// two sides: a dialog left of its owner on another screen stays there.
void restoreSubordinatePlacement(QWidget& dialog, const QWidget& owner, SettingsStore& store, Resizable resizable);

}  // namespace korvex
