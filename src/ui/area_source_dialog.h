// The editor of an area source, whose fourth parameter is a temperature or a plume rise.
#pragma once

#include "source_dialog.h"

class QComboBox;

namespace korvex {

class frmPlosnyZdroj : public SourceDialog {
    Q_OBJECT

public:
    frmPlosnyZdroj(Shell& shell, QWidget& owner);

protected:
    /// The choice is not stored by itself: d = w0 = 0 stands for a plume rise. When it is chosen, the two fields are
    /// switched off, and so are read as 0 whatever they still hold.
    void fill(const SourceValues& values) override;

private:
    // The symbols of the method.
    enum Parameter { tsOrDeltaH = 3, d = 4, w0 = 5 };  // NOLINT(readability-identifier-naming)

    [[nodiscard]] bool isPlumeRise() const;
    void choiceMade();

    QComboBox* cboTeplotaVznos = nullptr;
};

}  // namespace korvex
