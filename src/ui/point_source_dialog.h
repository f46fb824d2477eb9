// The editor of a point source, with the stack gas calculations and the air pressure.
#pragma once

#include "source_dialog.h"

namespace korvex {

class frmBodovyZdroj : public SourceDialog {
    Q_OBJECT

public:
    frmBodovyZdroj(Shell& shell, QWidget& owner);

private:
    // The symbols of the method.
    enum Parameter { M, H, Vs, ts, d, w0, Alfa, Pd };  // NOLINT(readability-identifier-naming)

    void connectCalculation(QPushButton& button, void (frmBodovyZdroj::*calculate)());
    void calculateVs();
    void calculateD();
    void calculateW0();
    /// Whether a divisor and the air pressure can be divided by; says which cannot.
    [[nodiscard]] bool checkDivisors(const QString& title, float divisor, const QString& divisorIsZero);
    void setPressure();
    void showPressure();

    QPushButton* cmdNastavitTlak;
};

}  // namespace korvex
