// The options dialog: the three settings that the user changes directly, and the program's version.
#pragma once

#include "shell.h"

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QWidget;

namespace korvex {

class SourceNumberCounter;

class frmOptions : public QDialog {
    Q_OBJECT

public:
    /// Values go to the globals, and to the store only at the program's end.
    frmOptions(Shell& shell, SourceNumberCounter& sourceNumbers, QWidget& owner);

    /// Ok. Takes any start number: without its sign, 0 when the text does not begin with a number. Throws
    /// ArithmeticFault, and changes nothing, for one beyond 32 bits.
    void takeOver();

private:
    QWidget* makeGeneralPage();
    QWidget* makeFilesPage();

    Shell& m_shell;
    SourceNumberCounter& m_sourceNumbers;
    QLineEdit* tbMinNewID = nullptr;
    QCheckBox* chbNoPrach = nullptr;
    QCheckBox* chZaradit = nullptr;
};

}  // namespace korvex
