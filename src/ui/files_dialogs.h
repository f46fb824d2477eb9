// The two dialogs in which the user names the three files of an inventory.
#pragma once

#include "loader.h"
#include "shell.h"
#include "source_files.h"

#include <QDialog>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace korvex {

/// What loading and saving share: a field and a browse button for each file, the check box "no dust file", the buttons.
class FilesDialog : public QDialog {
    Q_OBJECT

public:
    /// The names as confirmed: trimmed, and without a dust file when none is to be used.
    [[nodiscard]] SourceFiles files() const;

    /// Also stores the placement beside the owner.
    void done(int result) override;

protected:
    enum class Direction { Load, Save };

    FilesDialog(const QString& name, Direction direction, const SourceFiles& current, bool noDustFile, Shell& shell,
        QWidget& owner);

    /// Puts what the dialog adds between the files and the buttons, and the dialog in its place.
    void finish();
    [[nodiscard]] QGridLayout& grid() const { return *m_grid; }
    /// A points file was chosen by its browse button.
    virtual void pointsFileChosen() { }

    QLineEdit* tbBOD = nullptr;
    QLineEdit* tbPOP = nullptr;
    QLineEdit* tbPRA = nullptr;
    QCheckBox* chNoPrach = nullptr;
    QPushButton* cbOk = nullptr;

private:
    struct FileRow {
        QLabel* label;
        QLineEdit* field;
        QToolButton* browse;
    };

    FileRow addFileRow(const QString& fileKind, const QString& caption, const QString& path);
    void browse(std::size_t file);
    void updateDust();

    Direction m_direction;
    Shell& m_shell;
    QWidget& m_owner;
    QGridLayout* m_grid;
    std::array<FileRow, 3> m_rows{};
};

class frmLoadZdroje : public FilesDialog {
    Q_OBJECT

public:
    frmLoadZdroje(Shell& shell, QWidget& owner);

    [[nodiscard]] LoadMode mode() const;

private:
    void pointsFileChosen() override;

    QCheckBox* chAddData;
    QLabel* lbKomentarBOD;
};

class frmSaveZdroje : public FilesDialog {
    Q_OBJECT

public:
    frmSaveZdroje(Shell& shell, QWidget& owner);

private:
    /// Ok needs a points and a description file.
    void updateOk();
};

}  // namespace korvex
