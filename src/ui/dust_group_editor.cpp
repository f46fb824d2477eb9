#include "dust_group_editor.h"

#include "blanks.h"
#include "detail_lines.h"
#include "dialog_buttons.h"
#include "dust_groups_file.h"
#include "field_behaviour.h"
#include "file_dialogs.h"
#include "focus_outline.h"
#include "globals.h"
#include "group_list_model.h"
#include "guard.h"
#include "help_key.h"
#include "ini_write.h"
#include "message_boxes.h"
#include "number_text.h"
#include "particle_fields.h"
#include "placement.h"
#include "text_conversion.h"
#include "user_folders.h"

#include <QFile>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>
#include <vector>

namespace korvex {

namespace {

const QString fileFilter
    = QStringLiteral("Soubory s popisem prachu (*.spr)|*.spr|Textové soubory (*.txt)|*.txt|Všechny soubory (*.*)|*.*");

const QString writeErrorTitle = QStringLiteral("Chyba při zápisu do souboru");
const QString saveTitle = QStringLiteral("Uložení skupin prachu");

template <class Widget>
Widget* named(Widget* widget, const char* name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QLabel* labelOf(QWidget* field, const QString& caption)
{
    auto* const label = new QLabel(caption, field->parentWidget());
    label->setBuddy(field);
    return label;
}

}  // namespace

frmSkupinyPrachu::frmSkupinyPrachu(Shell& shell, QWidget* owner)
    : QDialog(owner), m_shell(shell), m_groupList(new GroupListModel(m_groups, this))
{
    setObjectName(QStringLiteral("frmSkupinyPrachu"));
    setWindowTitle(QStringLiteral("Skupiny prachu"));
    setWindowModality(Qt::WindowModal);

    auto* const cmdStorno = named(dialogButton(*this, QStringLiteral("&Storno"), QStringLiteral("Zpět")), "cmdStorno");
    connect(cmdStorno, &QPushButton::clicked, this, &QDialog::reject);
    auto* const cmdHelp
        = named(dialogButton(*this, QStringLiteral("&Nápověda"), QStringLiteral("Nápověda k programu")), "cmdHelp");
    // Alt+N makes a new group: of two buttons with one letter it would press neither. Help has F1.
    cmdHelp->setShortcut({});
    connect(cmdHelp, &QPushButton::clicked, this, [this] { sendHelpKey(*this); });
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdStorno);
    buttons->addWidget(cmdHelp);

    auto* const layout = new QGridLayout(this);
    layout->addWidget(makeGroupsFrame(), 0, 0);
    layout->addWidget(makeDetailFrame(), 0, 1);
    layout->addWidget(makeFileFrame(), 1, 0, 1, 2);
    layout->addLayout(buttons, 2, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(0, 1);
    connectWidgets();
    switchDetail(false);
    lstSkupiny->setFocus();

    m_placement = new FreePlacement(*this, m_shell.settings, Resizable::Yes);
    adjustSize();
    m_placement->restore();
}

QGroupBox* frmSkupinyPrachu::makeGroupsFrame()
{
    auto* const frame = new QGroupBox(QStringLiteral("Seznam skupin"), this);
    lstSkupiny = named(new FocusShowing<QListView>(frame), "lstSkupiny");
    lstSkupiny->setModel(m_groupList);
    lstSkupiny->setAccessibleName(frame->title());
    lstSkupiny->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstSkupiny->setUniformItemSizes(true);
    constexpr int shownCharacters = 38;  // of a name; few are longer
    lstSkupiny->setMinimumWidth(fontMetrics().averageCharWidth() * shownCharacters);
    // Not by a click: see the filter of its viewport.
    lstSkupiny->setFocusPolicy(Qt::TabFocus);
    lstSkupiny->viewport()->installEventFilter(this);
    cmdNew = named(dialogButton(*this, QStringLiteral("&Nová"), {}), "cmdNew");
    cmdDel = named(dialogButton(*this, QStringLiteral("&Zruš"), {}), "cmdDel");
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(cmdNew);
    buttons->addWidget(cmdDel);
    buttons->addStretch();
    auto* const layout = new QVBoxLayout(frame);
    layout->addWidget(lstSkupiny);
    layout->addLayout(buttons);
    return frame;
}

QGroupBox* frmSkupinyPrachu::makeDetailFrame()
{
    m_detail = new QGroupBox(QStringLiteral("Detail vybrané skupiny"), this);
    txtSkupina = named(new QLineEdit(m_detail), "txtSkupina");
    showOnly(*txtSkupina);
    txtNazevSkupiny = named(new QLineEdit(m_detail), "txtNazevSkupiny");
    SelectAllText(*txtNazevSkupiny);
    // A semicolon would cut the name when the file is read again.
    filterKeys(*txtNazevSkupiny, [](int keyCode) { return keyCode != ';'; });
    lsvPrach = named(new FocusShowing<QTableView>(m_detail), "lsvPrach");
    // A table does not take its label's text for a name.
    lsvPrach->setAccessibleName(QStringLiteral("Prachové částice"));

    auto* const layout = new QGridLayout(m_detail);
    layout->addWidget(labelOf(txtSkupina, QStringLiteral("Číslo:")), 0, 0);
    layout->addWidget(txtSkupina, 0, 1);
    layout->addWidget(labelOf(txtNazevSkupiny, QStringLiteral("Název:")), 1, 0);
    layout->addWidget(txtNazevSkupiny, 1, 1);
    layout->addWidget(labelOf(lsvPrach, QStringLiteral("Prachové částice:")), 2, 0, 1, 2);
    layout->addWidget(lsvPrach, 3, 0, 1, 2);
    layout->addWidget(makeParticleFrame(), 4, 0, 1, 2);
    layout->setRowStretch(3, 1);
    return m_detail;
}

QGroupBox* frmSkupinyPrachu::makeParticleFrame()
{
    fraPopisCastice = named(new QGroupBox(QStringLiteral("Popis prašné částice"), m_detail), "fraPopisCastice");
    txtPrumer = named(new QLineEdit(fraPopisCastice), "txtPrumer");
    txtZastoupeni = named(new QLineEdit(fraPopisCastice), "txtZastoupeni");
    cmdAdd = named(dialogButton(*this, QStringLiteral("Přidej prachocou částici"), {}), "cmdAdd");
    cmdZrusCastici = named(dialogButton(*this, QStringLiteral("&Zruš"), {}), "cmdZrusCastici");
    // Both widths are equal.
    m_particles = new ParticleFields(*lsvPrach, *txtPrumer, *txtZastoupeni, 400, 400, m_shell.globals.decimalSeparator);

    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(cmdAdd);
    buttons->addWidget(cmdZrusCastici);
    buttons->addStretch();
    auto* const layout = new QGridLayout(fraPopisCastice);
    layout->addWidget(labelOf(txtPrumer, QStringLiteral("Průměr [um]:")), 0, 0);
    layout->addWidget(txtPrumer, 0, 1);
    layout->addWidget(labelOf(txtZastoupeni, QStringLiteral("Zastoupení [%/100]:")), 1, 0);
    layout->addWidget(txtZastoupeni, 1, 1);
    layout->addLayout(buttons, 2, 0, 1, 2);
    return fraPopisCastice;
}

QGroupBox* frmSkupinyPrachu::makeFileFrame()
{
    auto* const frame = new QGroupBox(QStringLiteral("Soubor se skupinami prachu "), this);
    txtFile = named(new QLineEdit(frame), "txtFile");
    showOnly(*txtFile);
    txtKomentar = named(new QLineEdit(frame), "txtKomentar");
    SelectAllText(*txtKomentar);
    cmdOpenFile = named(dialogButton(*this, QStringLiteral("&Otevři"), {}), "cmdOpenFile");
    cmdNewFile = named(dialogButton(*this, QStringLiteral("No&vý"), {}), "cmdNewFile");
    cmdSaveFile = named(dialogButton(*this, QStringLiteral("&Ulož"), {}), "cmdSaveFile");
    // A caller's editor works on the caller's file alone.
    for (QPushButton* const button : {cmdOpenFile, cmdNewFile, cmdSaveFile})
        button->setVisible(!m_shell.globals.commandLineMode);

    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(cmdOpenFile);
    buttons->addWidget(cmdNewFile);
    buttons->addWidget(cmdSaveFile);
    buttons->addStretch();
    auto* const layout = new QGridLayout(frame);
    layout->addWidget(labelOf(txtFile, QStringLiteral("Soubor:")), 0, 0);
    layout->addWidget(txtFile, 0, 1);
    layout->addWidget(labelOf(txtKomentar, QStringLiteral("Komentář:")), 1, 0);
    layout->addWidget(txtKomentar, 1, 1);
    layout->addLayout(buttons, 2, 1);
    return frame;
}

bool frmSkupinyPrachu::guarded(void (frmSkupinyPrachu::*command)())
{
    return runGuarded(m_shell.boxes, this, [this, command] { (this->*command)(); });
}

void frmSkupinyPrachu::connectWidgets()
{
    const auto connectButton = [this](QPushButton* button, void (frmSkupinyPrachu::*command)()) {
        connect(button, &QPushButton::clicked, this, [this, command] { guarded(command); });
    };
    connectButton(cmdNew, &frmSkupinyPrachu::newGroup);
    connectButton(cmdDel, &frmSkupinyPrachu::deleteGroup);
    connectButton(cmdAdd, &frmSkupinyPrachu::addParticle);
    connectButton(cmdZrusCastici, &frmSkupinyPrachu::removeParticle);
    connectButton(cmdOpenFile, &frmSkupinyPrachu::openFile);
    connectButton(cmdNewFile, &frmSkupinyPrachu::newFile);
    connectButton(cmdSaveFile, &frmSkupinyPrachu::saveFile);
    connect(m_particles, &ParticleFields::enterPressed, this, [this] { guarded(&frmSkupinyPrachu::addParticle); });
    // Not the current entry: the list makes its first one current when it only gets the focus.
    connect(lstSkupiny->selectionModel(), &QItemSelectionModel::selectionChanged, this,
        [this] { guarded(&frmSkupinyPrachu::showSelectedGroup); });
    connect(lstSkupiny, &QListView::clicked, this, [this] { guarded(&frmSkupinyPrachu::showSelectedGroup); });
    connect(txtKomentar, &QLineEdit::textEdited, this, [this] { m_changed = true; });
    txtNazevSkupiny->installEventFilter(this);
}

void frmSkupinyPrachu::switchDetail(bool on)
{
    // The number is the editor's to give, not the user's: its field is always readable.
    for (QWidget* const child : m_detail->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child != txtSkupina)
            child->setEnabled(on);
    }
}

/// No group is shown: nothing can be typed that would be stored under another group's number.
void frmSkupinyPrachu::clearDetail()
{
    switchDetail(false);
    txtSkupina->clear();
    txtNazevSkupiny->clear();
    m_particles->set({});
    m_particles->clearFields();
}

void frmSkupinyPrachu::refillGroups()
{
    m_groupList->refill();
}

std::optional<std::size_t> frmSkupinyPrachu::selectedGroup() const
{
    const QModelIndexList selected = lstSkupiny->selectionModel()->selectedIndexes();
    if (selected.isEmpty() || static_cast<std::size_t>(selected.front().row()) >= m_groups.count())
        return std::nullopt;
    return static_cast<std::size_t>(selected.front().row());
}

void frmSkupinyPrachu::showSelectedGroup()
{
    const std::optional<std::size_t> selected = selectedGroup();
    if (!selected)
        return;
    const std::string line = m_groups.line(*selected);
    // A line without particle data must not be stored again over the group shown before.
    clearDetail();
    txtNazevSkupiny->setText(toQString(groupNameOf(line)));
    if (!hasParticlePart(line))
        return;
    const DustGroup group = DustGroup::parse(line);
    switchDetail(true);
    txtSkupina->setText(QString::number(group.SkupinaCislo));
    m_particles->set(group.Castice);
    m_particles->showFirst();
}

void frmSkupinyPrachu::storeShownGroup()
{
    DustGroup group;
    group.SkupinaCislo = readInteger(txtSkupina->text().toStdString());
    group.SkupinaNazev = lineText(*txtNazevSkupiny);
    std::replace(group.SkupinaNazev.begin(), group.SkupinaNazev.end(), ';', ',');
    group.Castice = m_particles->list();
    m_groups.store(group);
    // As it was stored: without what a paste may have brought.
    txtNazevSkupiny->setText(toQString(group.SkupinaNazev));
    refillGroups();
    m_changed = true;
}

/// A name that was typed but not yet left, so that closing or saving by a key does not lose it.
void frmSkupinyPrachu::storeEditedName()
{
    if (txtNazevSkupiny->isEnabled() && txtNazevSkupiny->isModified())
        storeShownGroup();
}

void frmSkupinyPrachu::newGroup()
{
    const std::int32_t number = m_groups.newNumber();
    txtSkupina->setText(QString::number(number));
    txtNazevSkupiny->setText(QStringLiteral("Nová skupina %1").arg(number));
    m_particles->set({});
    m_particles->clearFields();
    storeShownGroup();
    switchDetail(true);
    txtNazevSkupiny->setFocus();
}

void frmSkupinyPrachu::deleteGroup()
{
    const std::optional<std::size_t> selected = selectedGroup();
    if (!selected)
        return;
    m_groups.remove(*selected);
    refillGroups();
    m_changed = true;
}

void frmSkupinyPrachu::addParticle()
{
    m_particles->enterTyped();
    storeShownGroup();
}

void frmSkupinyPrachu::removeParticle()
{
    m_particles->removeTyped();
    storeShownGroup();
}

void frmSkupinyPrachu::openFile()
{
    const QString path = m_shell.fileDialogs.openFile(
        this, QStringLiteral("Otevření skupin prachu"), fileFilter, FilePurpose::DustGroups);
    if (!path.isEmpty())
        OtevriSkupiny(pathOf(path), GroupListAfterReading::Refill);
}

void frmSkupinyPrachu::newFile()
{
    txtFile->setText(QStringLiteral("<nový soubor>"));
    m_groups.clear();
    refillGroups();
    clearDetail();
    m_changed = true;
}

void frmSkupinyPrachu::saveFile()
{
    storeEditedName();
    std::string path = m_shell.globals.dustGroupsPath;
    if (m_shell.globals.commandLineMode && m_readBrokeOff) {
        m_saveFailed = true;
        m_shell.boxes.show(this,
            {writeErrorTitle,
                QStringLiteral("Soubor se nepodařilo celý načíst, proto nebude přepsán.\n\n") + pathText(path),
                BoxIcon::Critical, BoxButtons::Ok, {}});
        return;
    }
    if (!m_shell.globals.commandLineMode)
        path = pathOf(m_shell.fileDialogs.saveFile(this, saveTitle, fileFilter, FilePurpose::DustGroups));
    if (!path.empty())
        UlozSkupiny(path);
}

void frmSkupinyPrachu::FileName(const std::string& path)
{
    if (!path.empty())
        OtevriSkupiny(path, GroupListAfterReading::Refill);
}

void frmSkupinyPrachu::OtevriSkupiny(const std::string& path, GroupListAfterReading list)
{
    m_groups.clear();
    clearDetail();
    std::string comment;
    const Result<void> read = readGroupsFile(path, [this, &comment](std::string_view line) {
        const std::string_view trimmed = trimBlanks(line);
        if (trimmed.empty())
            return;
        if (trimmed.front() != ';')
            m_groups.append(std::string(line));
        else if (trimBlanks(comment).empty())
            comment = trimmed.substr(1);
    });
    // A file that is not there yet can be made by saving; one that is there must not be replaced by a part of it.
    m_readBrokeOff = !read.ok() && QFile::exists(pathText(path));
    if (!read.ok()) {
        refillGroups();
        m_shell.boxes.show(this,
            {QStringLiteral("Chyba při čtení ze souboru"), toQString(read.error().message()), BoxIcon::Critical,
                BoxButtons::Ok, {}});
        return;
    }
    txtFile->setText(pathText(path));
    m_fileName = path;
    m_shell.globals.dustGroupsPath = path;
    txtKomentar->setText(toQString(comment));
    if (list == GroupListAfterReading::Refill)
        refillGroups();
    m_changed = false;
}

void frmSkupinyPrachu::UlozSkupiny(const std::string& path)
{
    const SafetyCopies copies(pathOf(stateFolder()));
    const Result<std::vector<std::size_t>> saved = saveGroupsFile(path, lineText(*txtKomentar), m_groups, copies);
    m_saveFailed = !saved.ok();
    if (m_saveFailed) {
        m_shell.boxes.show(
            this, {writeErrorTitle, toQString(saved.error().message()), BoxIcon::Critical, BoxButtons::Ok, {}});
        return;
    }
    m_changed = false;
    txtFile->setText(pathText(path));
    m_fileName = path;
    if (!m_shell.globals.iniPath.empty())
        iniWrite(m_shell.globals.iniPath, "Global", "VstZdrojSkupTxt", path, SafetyCopies(pathOf(iniCopiesFolder())));
    reportReplacedCharacters(saved.value());
}

void frmSkupinyPrachu::reportReplacedCharacters(const std::vector<std::size_t>& lines)
{
    if (lines.empty())
        return;
    const QString text = QStringLiteral("Některé znaky nelze v souboru uložit a byly nahrazeny otazníkem.\n"
                                        "Počet řádků, kterých se to týká: %1.");
    const QString details = detailLines(lines, [](std::size_t line) { return QStringLiteral("řádek %1").arg(line); });
    m_shell.boxes.show(this, {saveTitle, text.arg(lines.size()), BoxIcon::Exclamation, BoxButtons::Ok, details});
}

void frmSkupinyPrachu::reject()
{
    guarded(&frmSkupinyPrachu::storeEditedName);
    if (m_changed) {
        const BoxRequest question{windowTitle(),
            QStringLiteral("Byly provedeny změny ve skupinách prachu.\nMám tyto změny uložit ?"), BoxIcon::Question,
            BoxButtons::YesNoCancel, {}};
        const BoxAnswer answer = m_shell.boxes.show(this, question);
        if (answer == BoxAnswer::Cancel)
            return;
        if (answer == BoxAnswer::Yes) {
            m_saveFailed = false;
            // A cancelled save dialog closes all the same; after a failed save the groups are nowhere but here.
            if (!guarded(&frmSkupinyPrachu::saveFile) || m_saveFailed)
                return;
        }
    }
    QDialog::reject();
}

void frmSkupinyPrachu::done(int result)
{
    m_placement->store();
    QDialog::done(result);
}

/// Before a press in the group list is handled. Leaving the name stores the shown group and moves it to the end; the
/// press must still choose the group that was under the pointer, not the one that has come to stand there.
void frmSkupinyPrachu::takeFocusFromName(const QPoint& position)
{
    const QModelIndex pressed = lstSkupiny->indexAt(position);
    const std::string line = pressed.isValid() ? m_groups.line(static_cast<std::size_t>(pressed.row())) : std::string();
    lstSkupiny->setFocus(Qt::MouseFocusReason);
    if (!pressed.isValid())
        return;
    const std::vector<std::string>& lines = m_groups.lines();
    // Nothing was stored, or behind it: equal lines elsewhere do not matter.
    if (lines.at(static_cast<std::size_t>(pressed.row())) == line)
        return;
    auto now = std::find(lines.begin(), lines.end(), line);
    if (now == lines.end()) {
        // It was the shown group itself, stored with another name.
        const std::int32_t number = groupNumberOf(line);
        now = std::find_if(lines.begin(), lines.end(),
            [number](const std::string& stored) { return groupNumberOf(stored) == number; });
    }
    if (now == lines.end())
        return;
    m_pressedGroup = static_cast<int>(now - lines.begin());
    if (m_pressedGroup != pressed.row())
        QTimer::singleShot(0, this, [this] { lstSkupiny->setCurrentIndex(m_groupList->index(m_pressedGroup)); });
}

void frmSkupinyPrachu::keyPressEvent(QKeyEvent* event)
{
    // Enter belongs to the particle fields and to a button with the focus: in any other place it would press the
    // first button and make a group that nobody asked for.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter)
        QDialog::keyPressEvent(event);
}

bool frmSkupinyPrachu::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txtNazevSkupiny && event->type() == QEvent::FocusOut) {
        // Leaving the field for another one, not another program or a menu.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        const bool leaves = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
            || reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason;
        if (leaves && txtNazevSkupiny->isEnabled())
            guarded(&frmSkupinyPrachu::storeShownGroup);
    }
    if (watched == lstSkupiny->viewport() && event->type() == QEvent::MouseButtonPress)
        takeFocusFromName(static_cast<QMouseEvent*>(event)->pos());
    return QDialog::eventFilter(watched, event);
}

}  // namespace korvex
