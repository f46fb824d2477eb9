// The batch calculation of Vs, d and w0 for the marked point sources.
#pragma once

#include "shell.h"

#include <QDialog>

#include <array>
#include <cstddef>

class QLineEdit;
class QListView;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QStringListModel;

namespace korvex {

class SourceListModel;

/// Works on the list and set that it is handed; changes go straight into the sources, without an undo.
class frmVypocetVsDw0 : public QDialog {
    Q_OBJECT

public:
    frmVypocetVsDw0(Shell& shell, SourceListModel& list, QWidget& owner);

    /// Also stores the placement beside the owner.
    void done(int result) override;

private:
    void buildWidgets();
    void start();
    void run();

    Shell& m_shell;
    SourceListModel& m_list;
    QWidget& m_owner;
    std::array<QRadioButton*, 3> optVypocet{};
    QLineEdit* txtTlak = nullptr;
    QListView* lstLog = nullptr;
    QStringListModel* m_log = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QPushButton* cbStorno = nullptr;
};

}  // namespace korvex
