// The dialog in which the user sets the air pressure of the stack gas calculations.
#pragma once

#include "shell.h"

#include <QDialog>

class QLineEdit;

namespace korvex {

class frmTlak : public QDialog {
    Q_OBJECT

public:
    frmTlak(Shell& shell, QWidget& owner);

    /// The pressure in Pa; any value is taken, also 0, which the calculations refuse.
    void Tlak(float pressure);
    [[nodiscard]] float Tlak() const { return m_pressure; }
    /// Before it is shown: centred over a widget, with its top at the widget's top.
    void placeOver(const QWidget& widget);
    /// Whether it was left by Ok.
    [[nodiscard]] bool confirmed() const { return m_confirmed; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeOver();

    Shell& m_shell;
    QLineEdit* txtTlak;
    float m_pressure = 0.0F;
    bool m_confirmed = false;
};

}  // namespace korvex
