// The editor of a line source, with the midpoint of its segment.
#pragma once

#include "source_dialog.h"

class QCheckBox;

namespace korvex {

class frmLiniovyZdroj : public SourceDialog {
    Q_OBJECT

public:
    frmLiniovyZdroj(Shell& shell, QWidget& owner);

    void done(int result) override;

protected:
    void readBack(SourceValues& values) override;

private:
    enum Parameter { X1el = 1, Y1el, X2el, Y2el };

    void calculateMidpoint();

    QPushButton* cmdCalcXY = nullptr;
    QCheckBox* chbAutoCalcXY = nullptr;
};

}  // namespace korvex
