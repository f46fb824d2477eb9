#include "main_window.h"

#include "about_box.h"
#include "calculations.h"
#include "duplicate_report.h"
#include "dust_group_editor.h"
#include "field_behaviour.h"
#include "globals.h"
#include "guard.h"
#include "help_key.h"
#include "load_save.h"
#include "message_boxes.h"
#include "number_text.h"
#include "options_dialog.h"
#include "settings.h"
#include "source_commands.h"
#include "version.h"
#include "window_progress.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QStatusBar>
#include <QStyle>

#include <algorithm>
#include <array>
#include <cstddef>

namespace korvex {

namespace {

/// The stored widths are in twips, 1440 to the inch; a pixel of a layout is a 96th of an inch.
constexpr int twipsPerPixel = 15;

/// What the column of numbers needs to show them whole, with their icons.
int widthOfNumbers(const QWidget& list)
{
    const QString number = QString::fromStdString(integerText(0, Pattern::SourceNumber));
    const int margin = list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1;
    // Both the icon and the text have a margin on either side.
    return list.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &list)
        + list.fontMetrics().horizontalAdvance(number) + 4 * margin;
}

constexpr std::size_t fewestToCheck = 2;  // a single source has no duplicate

}  // namespace

frmKORVEXZDR::frmKORVEXZDR(Shell shell)
    : m_shell(shell)
    , m_placement(*this, shell.settings, Resizable::Yes)
    , m_menu(*this)
    , m_list(new SourceListModel(this))
{
    setObjectName(QStringLiteral("frmKORVEXZDR"));
    buildWidgets();
    m_placement.restore();
    readSettings(m_shell.settings, m_shell.globals);
    setWindowTitle(QString::fromUtf8(version::productName));
    buildFileFilters();
    applyColumnWidths();
    connectCommands();
    connectList();
    updateMenuState();
}

frmKORVEXZDR::~frmKORVEXZDR()
{
    // A window destroyed while it is shown takes the focus from the list when nothing of this class is left to hear it.
    lsvZdroje->disconnect(this);
}

void frmKORVEXZDR::buildWidgets()
{
    auto* const content = new QWidget(this);
    lsvZdroje = new SourceListView(*m_list, content);
    lsvZdroje->setObjectName(QStringLiteral("lsvZdroje"));
    lbPocetZdroju = new QLabel(content);
    lbPocetZdroju->setObjectName(QStringLiteral("lbPocetZdroju"));
    tbKomentar = new QLineEdit(content);
    tbKomentar->setObjectName(QStringLiteral("tbKomentar"));
    SelectAllText(*tbKomentar);
    auto* const commentLabel = new QLabel(QStringLiteral("Komentář (je uložen v hlavičce datového souboru)"), content);
    commentLabel->setBuddy(tbKomentar);

    auto* const layout = new QGridLayout(content);
    layout->addWidget(lsvZdroje, 0, 0);
    layout->addWidget(lbPocetZdroju, 1, 0);
    layout->addWidget(commentLabel, 2, 0);
    layout->addWidget(tbKomentar, 3, 0);
    layout->setRowStretch(0, 1);
    setCentralWidget(content);

    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    m_status = new QLabel(statusBar());
    m_status->setTextFormat(Qt::PlainText);
    // A long path must not widen the window.
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(m_status, 1);
    paProgress = new QProgressBar(statusBar());
    paProgress->setObjectName(QStringLiteral("paProgress"));
    paProgress->setAccessibleName(QStringLiteral("Průběh"));
    statusBar()->addPermanentWidget(paProgress);
    paProgress->hide();

    lsvZdroje->setFocus();
    constexpr int shownRows = 28;
    constexpr int shownCharacters = 72;
    resize(std::max(shownCharacters * fontMetrics().averageCharWidth(), menuBar()->sizeHint().width()),
        shownRows * lsvZdroje->verticalHeader()->defaultSectionSize());
}

void frmKORVEXZDR::buildFileFilters()
{
    Globals& globals = m_shell.globals;
    const std::string title = version::applicationTitle;
    for (std::size_t i = 0; i < globals.fileFilters.size(); ++i) {
        const std::string& extension = globals.defaultExtensions[i];
        std::string& filter = globals.fileFilters[i];
        filter = "Datové soubory ";
        filter += title;
        filter += " (*.";
        filter += extension;
        filter += ")| *.";
        filter += extension;
        filter += "|Všechny soubory (*.*)|*.*";
    }
}

void frmKORVEXZDR::applyColumnWidths()
{
    QHeaderView* const header = lsvZdroje->horizontalHeader();
    const int smallest = header->minimumSectionSize();
    int numberWidth = std::max(m_shell.globals.numberColumnWidth / twipsPerPixel, smallest);
    // The width to begin with is for the usual font; one that the user chose stays.
    if (m_shell.globals.numberColumnWidth == Globals().numberColumnWidth)
        numberWidth = std::max(numberWidth, widthOfNumbers(*lsvZdroje));
    header->resizeSection(SourceListModel::NumberColumn, numberWidth);
    header->resizeSection(
        SourceListModel::NameColumn, std::max(m_shell.globals.nameColumnWidth / twipsPerPixel, smallest));
}

void frmKORVEXZDR::command(QAction* action, void (frmKORVEXZDR::*run)())
{
    m_commands.insert(action);
    connect(action, &QAction::triggered, this,
        [this, run] { runGuarded(m_shell.boxes, this, [this, run] { (this->*run)(); }); });
}

void frmKORVEXZDR::connectCommands()
{
    m_commands.insert(m_menu.mnuExit);
    connect(m_menu.mnuExit, &QAction::triggered, this, &QWidget::close);
    command(m_menu.mnuVLoad, &frmKORVEXZDR::open);
    command(m_menu.mnuSkupinyPrachu, &frmKORVEXZDR::editDustGroups);
    command(m_menu.mnuMoznosti, &frmKORVEXZDR::showOptions);
    command(m_menu.mnuVSaveMark, &frmKORVEXZDR::saveMarked);
    command(m_menu.mnuVSave, &frmKORVEXZDR::saveAll);
    command(m_menu.mnuVybraneZdrojeSchranka, &frmKORVEXZDR::copyMarked);
    command(m_menu.mnuVypocetVsDw0, &frmKORVEXZDR::showStackGas);
    command(m_menu.mnuVypocetXY, &frmKORVEXZDR::calculateXY);
    command(m_menu.mnuNHelp, &frmKORVEXZDR::showHelp);
    command(m_menu.mnuNOAplikaci, &frmKORVEXZDR::showAbout);
    command(m_menu.mnuVZrusVybrane, &frmKORVEXZDR::deleteMarked);
    command(m_menu.mnuVZrus, &frmKORVEXZDR::deleteAll);
    command(m_menu.mnuVKontrolaDuplicit, &frmKORVEXZDR::checkDuplicates);
    command(m_menu.mnuVSelectAll, &frmKORVEXZDR::markAll);
    const auto typeCommand = [this](QAction* action, const SourceType& type) {
        m_commands.insert(action);
        connect(action, &QAction::triggered, this, [this, typeId = type.TypZdrojeId] { markByType(typeId); });
    };
    typeCommand(m_menu.mnuSelectBodove, cBodovyZdroj);
    typeCommand(m_menu.mnuSelectPlosne, cPlosnyZdroj);
    typeCommand(m_menu.mnuSelectLiniove, cLiniovyZdroj);
    command(m_menu.mnuVNastavZdroj, &frmKORVEXZDR::editCurrentSource);
    const auto newCommand = [this](QAction* action, const SourceType& type) {
        m_commands.insert(action);
        connect(action, &QAction::triggered, this,
            [this, &type] { runGuarded(m_shell.boxes, this, [this, &type] { newSource(*this, type); }); });
    };
    newCommand(m_menu.mnuVBodovyZdroj, cBodovyZdroj);
    newCommand(m_menu.mnuVPlosnyZdroj, cPlosnyZdroj);
    newCommand(m_menu.mnuVLiniovyZdroj, cLiniovyZdroj);
    connect(m_menu.mnuVybraneZdrojeZnecisteni, &QMenu::aboutToShow, this, &frmKORVEXZDR::updateMenuState);
}

void frmKORVEXZDR::connectList()
{
    connect(lsvZdroje, &SourceListView::rowClicked, this, &frmKORVEXZDR::showRowStatus);
    connect(lsvZdroje, &SourceListView::statusOutdated, this, [this] { showStatus({}); });
    connect(lsvZdroje, &SourceListView::editRequested, this,
        [this] { runGuarded(m_shell.boxes, this, [this] { editCurrentRow(); }); });
    connect(lsvZdroje, &SourceListView::deleteRequested, m_menu.mnuVZrusVybrane, &QAction::trigger);
    connect(lsvZdroje, &SourceListView::invertRequested, this, &frmKORVEXZDR::invertMarks);
    connect(lsvZdroje, &SourceListView::markAllRequested, this, &frmKORVEXZDR::markAll);
    connect(lsvZdroje, &SourceListView::unmarkAllRequested, this, &frmKORVEXZDR::unmarkAll);
    connect(lsvZdroje, &SourceListView::newSourceRequested, this, [this](int typeId) {
        const std::array<QAction*, 3> newSource{
            m_menu.mnuVBodovyZdroj, m_menu.mnuVPlosnyZdroj, m_menu.mnuVLiniovyZdroj};
        newSource.at(static_cast<std::size_t>(typeId - 1))->trigger();
    });
    connect(lsvZdroje, &SourceListView::newSourceMenuRequested, this, [this] {
        updateMenuState();
        m_menu.mnuVNovyZdrojX->popup(lsvZdroje->viewport()->mapToGlobal(lsvZdroje->viewport()->rect().topLeft()));
    });
    connect(lsvZdroje, &SourceListView::sourceMenuRequested, this, [this](const QPoint& position) {
        updateMenuState();
        m_menu.mnuVybraneZdrojeZnecisteni->popup(position);
    });
}

QString frmKORVEXZDR::comment() const
{
    return QString::fromStdString(lineText(*tbKomentar));
}

void frmKORVEXZDR::comment(const QString& text)
{
    tbKomentar->setText(text);
    tbKomentar->setCursorPosition(0);
}

void frmKORVEXZDR::refill()
{
    showStatus(QStringLiteral("Zobrazuji zdroje…"));
    const int row = std::max(lsvZdroje->currentRow(), 0);
    m_list->refill();
    lsvZdroje->makeCurrent(std::min(row, m_list->rowCount() - 1));
    showStatus({});
    updateMenuState();
}

void frmKORVEXZDR::enable(QAction* action, bool enabled)
{
    action->setEnabled(enabled && m_commands.contains(action));
}

void frmKORVEXZDR::updateMenuState()
{
    const Globals& globals = m_shell.globals;
    const std::size_t count = m_list->set().size();
    const bool hasSources = count > 0;

    m_menu.mnuSkupinyPrachu->setVisible(globals.noDust == 0);
    for (QAction* const action : {m_menu.mnuVSave, m_menu.mnuVSaveMark, m_menu.mnuVZrus, m_menu.mnuVZrusVybrane,
             m_menu.mnuVNastavZdroj, m_menu.mnuVybraneZdrojeSchranka, m_menu.mnuVypocetXY, m_menu.mnuVypocetVsDw0})
        enable(action, hasSources);
    m_menu.mnuSelect->menuAction()->setEnabled(hasSources);
    m_menu.mnuVypocty->menuAction()->setEnabled(hasSources);
    enable(m_menu.mnuVKontrolaDuplicit, count >= fewestToCheck);
    for (QAction* const action : {m_menu.mnuVLoad, m_menu.mnuSkupinyPrachu, m_menu.mnuMoznosti, m_menu.mnuVBodovyZdroj,
             m_menu.mnuVPlosnyZdroj, m_menu.mnuVLiniovyZdroj, m_menu.mnuNHelp, m_menu.mnuNOAplikaci})
        enable(action, true);
    lbPocetZdroju->setText(QStringLiteral("Počet: %1").arg(count));
    if (!hasSources)
        m_sourceNumbers.reset(globals.minNewId);
    if (globals.commandLineMode) {
        for (QAction* const action : {m_menu.mnuVLoad, m_menu.mnuSD2, m_menu.mnuVSaveMark, m_menu.mnuVSave,
                 m_menu.mnuVDelimiter1, m_menu.mnuSkupinyPrachu})
            action->setVisible(false);
    }
}

void frmKORVEXZDR::showStatus(const QString& text)
{
    showStatusText(*m_status, text.toStdString());
}

void frmKORVEXZDR::open()
{
    openSources(*this);
}

void frmKORVEXZDR::saveMarked()
{
    saveSources(*this, SaveScope::Marked);
}

void frmKORVEXZDR::saveAll()
{
    saveSources(*this, SaveScope::All);
}

void frmKORVEXZDR::editDustGroups()
{
    frmSkupinyPrachu editor(m_shell, this);
    editor.FileName(m_shell.globals.dustGroupsPath);
    editor.exec();
    // A file that could not be read stays the current one: with its name forgotten, the next source editor would show
    // a source without its group, and not even say why.
    if (!editor.FileName().empty())
        m_shell.globals.dustGroupsPath = editor.FileName();
}

void frmKORVEXZDR::showOptions()
{
    frmOptions(m_shell, m_sourceNumbers, *this).exec();
    updateMenuState();
}

void frmKORVEXZDR::showHelp()
{
    sendHelpKey(*this);
}

void frmKORVEXZDR::showAbout()
{
    About(*this).exec();
}

void frmKORVEXZDR::copyMarked()
{
    copyMarkedToClipboard(*this);
}

void frmKORVEXZDR::showStackGas()
{
    showStackGasBatch(*this);
}

void frmKORVEXZDR::calculateXY()
{
    calculateMidpoints(*this);
}

void frmKORVEXZDR::showRowStatus(int row)
{
    showStatus(m_list->numberText(row) + QStringLiteral("   ") + m_list->nameText(row));
}

void frmKORVEXZDR::editCurrentRow()
{
    korvex::editCurrentRow(*this);
}

void frmKORVEXZDR::editCurrentSource()
{
    korvex::editCurrentSource(*this);
}

void frmKORVEXZDR::deleteMarked()
{
    showStatus(QStringLiteral("Ruším vybrané zdroje…"));
    SourceSet& set = m_list->set();
    set.removeMarked(m_list->rows().marks());
    set.modified(true);
    refill();
    showStatus({});
}

void frmKORVEXZDR::deleteAll()
{
    const BoxRequest question{QStringLiteral("Zrušit všechny zdroje"),
        QStringLiteral("Mám opravdu zrušit všechny zdroje ?"), BoxIcon::Question, BoxButtons::YesNo, {}};
    if (m_shell.boxes.show(this, question) != BoxAnswer::Yes)
        return;
    const WindowProgress hourglass(*m_status, *paProgress);
    m_list->set().clear();
    comment({});
    refill();
}

void frmKORVEXZDR::markByType(std::int32_t typeId)
{
    m_list->markByType(typeId);
}

void frmKORVEXZDR::markAll()
{
    showStatus(QStringLiteral("Označuji všechny zdroje…"));
    m_list->markAll(true);
    showStatus({});
}

void frmKORVEXZDR::unmarkAll()
{
    showStatus(QStringLiteral("Ruším označení všech zdrojů…"));
    m_list->markAll(false);
    showStatus({});
}

void frmKORVEXZDR::invertMarks()
{
    showStatus(QStringLiteral("Inveruji vybrané zdroje…"));
    m_list->invertMarks();
    showStatus({});
}

void frmKORVEXZDR::checkDuplicates()
{
    runDuplicateCheck(*this, DuplicateReport::Always);
}

/// Whether the window may close: there is nothing to save, it was saved, or it is to be thrown away.
bool frmKORVEXZDR::confirmClosing()
{
    if (!m_list->set().modified())
        return true;
    const BoxRequest question{{}, QStringLiteral("Uložit změny ?"), BoxIcon::Question, BoxButtons::YesNo, {}};
    if (m_shell.boxes.show(this, question) != BoxAnswer::Yes)
        return true;
    bool saved = false;
    runGuarded(m_shell.boxes, this, [this, &saved] { saved = saveSources(*this, SaveScope::All); });
    // A calling program waits for its editor to end: there the window closes whatever became of the save.
    return saved || m_shell.globals.commandLineMode;
}

void frmKORVEXZDR::closeEvent(QCloseEvent* event)
{
    if (!confirmClosing()) {
        event->ignore();
        return;
    }
    const WindowProgress hourglass(*m_status, *paProgress);
    showStatus(QStringLiteral("Končím…"));
    Globals& globals = m_shell.globals;
    const QHeaderView* const header = lsvZdroje->horizontalHeader();
    globals.numberColumnWidth = header->sectionSize(SourceListModel::NumberColumn) * twipsPerPixel;
    globals.nameColumnWidth = header->sectionSize(SourceListModel::NameColumn) * twipsPerPixel;
    m_list->set().clear();
    m_list->refill();
    m_placement.store();
    saveSettings(m_shell.settings, globals);
    event->accept();
}

}  // namespace korvex
