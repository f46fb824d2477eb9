// The About box: title with its shadow, product, version and legal notice.
#pragma once

#include <QDialog>

namespace korvex {

class About : public QDialog {
    Q_OBJECT

public:
    explicit About(QWidget& owner);

protected:
    void showEvent(QShowEvent* event) override;
};

}  // namespace korvex
