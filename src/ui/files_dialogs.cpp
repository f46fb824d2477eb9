#include "files_dialogs.h"

#include "dialog_buttons.h"
#include "field_behaviour.h"
#include "file_dialogs.h"
#include "first_comment.h"
#include "globals.h"
#include "placement.h"
#include "text_conversion.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace korvex {

namespace {

std::string trimmedPath(const QLineEdit& field)
{
    return pathOf(field.text().trimmed());
}

/// What the titles of the file dialogs call the files, and the purposes under which they remember the last one.
const std::array<QString, 3> fileNames{
    QStringLiteral("soubor s body"), QStringLiteral("soubor s popisem"), QStringLiteral("soubor s prachem")};
constexpr std::array<FilePurpose, 3> purposes{FilePurpose::Points, FilePurpose::Description, FilePurpose::Dust};

constexpr int fieldCharacters = 50;

}  // namespace

FilesDialog::FilesDialog(
    const QString& name, Direction direction, const SourceFiles& current, bool noDustFile, Shell& shell, QWidget& owner)
    : QDialog(&owner), m_direction(direction), m_shell(shell), m_owner(owner), m_grid(new QGridLayout)
{
    setObjectName(name);
    setWindowModality(Qt::WindowModal);
    m_rows = {addFileRow(QStringLiteral("BOD"), QStringLiteral("Soubor s &body:"), pathText(current.points)),
        addFileRow(QStringLiteral("POP"), QStringLiteral("Soubor s pop&isem:"), pathText(current.description)),
        addFileRow(QStringLiteral("PRA"), QStringLiteral("Soubor s pr&achem:"), pathText(current.dust))};
    tbBOD = m_rows[0].field;
    tbPOP = m_rows[1].field;
    tbPRA = m_rows[2].field;
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        connect(m_rows[i].browse, &QToolButton::clicked, this, [this, i] { browse(i); });
    m_grid->setColumnStretch(1, 1);

    chNoPrach = new QCheckBox(QStringLiteral("&Nepoužívej soubor s prachem"), this);
    chNoPrach->setObjectName(QStringLiteral("chNoPrach"));
    chNoPrach->setChecked(noDustFile);
    m_grid->addWidget(chNoPrach, m_grid->rowCount(), 1);
    connect(chNoPrach, &QCheckBox::toggled, this, &FilesDialog::updateDust);
    updateDust();
}

FilesDialog::FileRow FilesDialog::addFileRow(const QString& fileKind, const QString& caption, const QString& path)
{
    const int row = m_grid->rowCount();
    auto* const label = new QLabel(caption, this);
    auto* const field = new QLineEdit(path, this);
    field->setObjectName(QStringLiteral("tb") + fileKind);
    field->setMinimumWidth(fieldCharacters * fontMetrics().averageCharWidth());
    label->setBuddy(field);
    SelectAllText(*field);
    auto* const browse = new QToolButton(this);
    browse->setObjectName(QStringLiteral("cbOpen") + fileKind);
    browse->setText(QStringLiteral("…"));
    browse->setFocusPolicy(Qt::StrongFocus);
    m_grid->addWidget(label, row, 0);
    m_grid->addWidget(field, row, 1);
    m_grid->addWidget(browse, row, 2);
    return {label, field, browse};
}

void FilesDialog::finish()
{
    const QString verb = m_direction == Direction::Load ? QStringLiteral("Otevři ") : QStringLiteral("Ulož ");
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        m_rows[i].browse->setToolTip(verb + fileNames[i]);
        m_rows[i].browse->setAccessibleName(verb + fileNames[i]);
    }
    const DialogButtons buttons = DialogButtons::make(*this);
    cbOk = buttons.ok;
    cbOk->setObjectName(QStringLiteral("cbOk"));
    buttons.storno->setObjectName(QStringLiteral("cbStorno"));
    buttons.help->setObjectName(QStringLiteral("cbHelp"));
    // The letter N is the check box's.
    buttons.help->setText(QStringLiteral("Nápo&věda"));
    connect(cbOk, &QPushButton::clicked, this, &QDialog::accept);

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(m_grid);
    layout->addStretch();
    layout->addLayout(buttons.row());
    tbBOD->setFocus();
    restoreSubordinatePlacement(*this, m_owner, m_shell.settings, Resizable::Yes);
}

SourceFiles FilesDialog::files() const
{
    return {trimmedPath(*tbBOD), trimmedPath(*tbPOP), chNoPrach->isChecked() ? std::string() : trimmedPath(*tbPRA)};
}

void FilesDialog::done(int result)
{
    storeSubordinatePlacement(*this, m_owner, m_shell.settings, Resizable::Yes);
    QDialog::done(result);
}

void FilesDialog::browse(std::size_t file)
{
    const QString filter = QString::fromStdString(m_shell.globals.fileFilters.at(file));
    const QString title = m_rows.at(file).browse->toolTip();
    const QString path = m_direction == Direction::Load
        ? m_shell.fileDialogs.openFile(this, title, filter, purposes.at(file))
        : m_shell.fileDialogs.saveFile(this, title, filter, purposes.at(file));
    if (path.isEmpty())
        return;
    m_rows.at(file).field->setText(path);
    if (file == 0)
        pointsFileChosen();
}

void FilesDialog::updateDust()
{
    const FileRow& dust = m_rows[2];
    const bool used = !chNoPrach->isChecked();
    dust.label->setEnabled(used);
    dust.field->setEnabled(used);
    dust.browse->setEnabled(used);
}

frmLoadZdroje::frmLoadZdroje(Shell& shell, QWidget& owner)
    : FilesDialog(
        QStringLiteral("frmLoadZdroje"), Direction::Load, shell.globals.files, shell.globals.noDust != 0, shell, owner)
    , chAddData(new QCheckBox(QStringLiteral("&Připoj data k stávajícím"), this))
    , lbKomentarBOD(new QLabel(this))
{
    setWindowTitle(QStringLiteral("Načtení seznamu zdrojů"));
    chAddData->setObjectName(QStringLiteral("chAddData"));
    grid().addWidget(chAddData, grid().rowCount(), 1);

    lbKomentarBOD->setObjectName(QStringLiteral("lbKomentarBOD"));
    lbKomentarBOD->setTextFormat(Qt::PlainText);
    lbKomentarBOD->setWordWrap(true);
    const int row = grid().rowCount();
    grid().addWidget(new QLabel(QStringLiteral("Komentář:"), this), row, 0, Qt::AlignTop);
    grid().addWidget(lbKomentarBOD, row, 1, 1, 2);
    // Two lines of comment must not move the buttons.
    grid().setRowMinimumHeight(row, 2 * fontMetrics().lineSpacing());
    finish();
}

LoadMode frmLoadZdroje::mode() const
{
    return chAddData->isChecked() ? LoadMode::Append : LoadMode::Replace;
}

void frmLoadZdroje::pointsFileChosen()
{
    const Result<std::string> comment = firstComment(trimmedPath(*tbBOD));
    // A file that cannot be read is reported when it is loaded.
    lbKomentarBOD->setText(comment.ok() ? QString::fromStdString(comment.value()) : QString());
}

frmSaveZdroje::frmSaveZdroje(Shell& shell, QWidget& owner)
    : FilesDialog(QStringLiteral("frmSaveZdroje"), Direction::Save, shell.globals.files,
        shell.globals.files.dust.empty(), shell, owner)
{
    setWindowTitle(QStringLiteral("Uložení seznamu zdrojů"));
    finish();
    connect(tbBOD, &QLineEdit::textChanged, this, &frmSaveZdroje::updateOk);
    connect(tbPOP, &QLineEdit::textChanged, this, &frmSaveZdroje::updateOk);
    updateOk();
}

void frmSaveZdroje::updateOk()
{
    const SourceFiles named = files();
    cbOk->setEnabled(!named.points.empty() && !named.description.empty());
}

}  // namespace korvex
