// Every window in a light, a dark and a high-contrast theme, with a usual and a large font: whole and readable. A
// second run draws at the double scale. A picture with something wrong in it, or with KORVEX_KEEP_PICTURES set every
// one, is kept in build/pictures, in a folder for each look.
#include "example_town_test.h"
#include "look_checks.h"
#include "theme_palettes.h"

#include "about_box.h"
#include "file_dialogs.h"
#include "help_pages.h"
#include "help_viewer.h"
#include "message_boxes.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QHeaderView>
#include <QImage>
#include <QMenuBar>
#include <QMessageBox>
#include <QPixmap>
#include <QProgressBar>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextBrowser>

namespace korvex {

namespace {

const QString drawn = QStringLiteral(KORVEX_PICTURES "/");

constexpr int usualPoints = 9;
constexpr int largePoints = 14;

}  // namespace

class ThemesTest : public ExampleTownTest {
    Q_OBJECT

private slots:
    void mainWindow_data() { addLooks(); }
    void mainWindow();
    void emptyMainWindow_data() { addLooks(); }
    void emptyMainWindow();
    void menus_data() { addLooks(); }
    void menus();
    void dialogs_data() { addLooks(); }
    void dialogs();
    void dustGroups_data() { addLooks(); }
    void dustGroups();
    void sourceEditors_data() { addLooks(); }
    void sourceEditors();
    void newSourceWithoutDust_data() { addLooks(); }
    void newSourceWithoutDust();
    void pressureDialog_data() { addLooks(); }
    void pressureDialog();
    void help_data() { addLooks(); }
    void help();
    void messageBoxes_data() { addLooks(); }
    void messageBoxes();
    void fileDialogs_data() { addLooks(); }
    void fileDialogs();
    void themeChangesUnderOpenWindows_data() { addThemes(); }
    void themeChangesUnderOpenWindows();

private:
    static void addThemes()
    {
        QTest::addColumn<Theme>("theme");
        for (const Theme theme : {Theme::Light, Theme::Dark, Theme::HighContrast})
            QTest::newRow(qPrintable(nameOf(theme))) << theme;
    }
    static void addLooks()
    {
        QTest::addColumn<Theme>("theme");
        QTest::addColumn<int>("points");
        for (const Theme theme : {Theme::Light, Theme::Dark, Theme::HighContrast}) {
            QTest::newRow(qPrintable(nameOf(theme))) << theme << usualPoints;
            QTest::newRow(qPrintable(nameOf(theme) + QStringLiteral("-large"))) << theme << largePoints;
        }
    }
    void dress()
    {
        QFETCH(const Theme, theme);
        QFETCH(const int, points);
        QApplication::setPalette(paletteOf(theme));
        QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), points));
    }
    void openDressedTown()
    {
        dress();
        openTown();
    }
    /// Draws the window and notes what is wrong with it.
    void look(QWidget& window, const QString& name)
    {
        QCoreApplication::processEvents();
        const QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QStringList findings = cutTexts(window) + misplacedWidgets(window) + faintTexts(window, picture)
            + faintPictures(window, picture) + hiddenEdges(window, picture);
        note(name, findings);
        if (!findings.isEmpty() || qEnvironmentVariableIsSet("KORVEX_KEEP_PICTURES"))
            keep(picture, name);
    }
    /// Writing the pictures takes longer than all the rest.
    static void keep(const QImage& picture, const QString& name)
    {
        const QString scale = picture.devicePixelRatio() > 1 ? QStringLiteral("-200") : QString();
        const QString folder = drawn + QLatin1String(QTest::currentDataTag()) + scale;
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(picture.save(folder + QLatin1Char('/') + name + QStringLiteral(".png")));
    }
    /// The same, and once more as small as the window can be made.
    void lookAtDialog(QWidget& dialog, const QString& name)
    {
        look(dialog, name);
        const QSize opened = dialog.size();
        dialog.resize(dialog.minimumSizeHint());
        QCoreApplication::processEvents();
        note(name + QStringLiteral(" at its smallest"), cutTexts(dialog));
        note(name + QStringLiteral(" at its smallest"), misplacedWidgets(dialog));
        dialog.resize(opened);
    }
    void note(const QString& name, const QStringList& findings)
    {
        for (const QString& finding : findings)
            m_findings << name + QStringLiteral(": ") + finding;
    }
    /// Every page of tabs.
    void lookAtPages(QDialog& dialog, QTabWidget& pages)
    {
        for (int page = 0; page < pages.count(); ++page) {
            pages.setCurrentIndex(page);
            lookAtDialog(dialog, dialog.objectName() + QString::number(page + 1));
        }
    }
    void lookAtNext(const char* dialogName)
    {
        harness().dialogs.useNext(QLatin1String(dialogName), [this](QDialog& dialog) {
            lookAtDialog(dialog, dialog.objectName());
            dialog.reject();
        });
    }
    void judge()
    {
        const QString findings = m_findings.join(QLatin1Char('\n'));
        m_findings.clear();
        QVERIFY2(findings.isEmpty(), qPrintable(QLatin1Char('\n') + findings));
    }

    QStringList m_findings;
};

void ThemesTest::mainWindow()
{
    openDressedTown();
    harness().show();
    harness().clickRow(3);
    harness().mark(QStringLiteral("X-X-------------"));
    harness().clickHeader(SourceListModel::NameColumn);
    look(harness().window(), QStringLiteral("frmKORVEXZDR"));
    judge();
}

void ThemesTest::emptyMainWindow()
{
    dress();
    harness().show();
    harness().window().progressBar().show();
    harness().window().progressBar().setValue(45);
    look(harness().window(), QStringLiteral("frmKORVEXZDR-empty"));
    harness().window().progressBar().hide();
    judge();
}

void ThemesTest::menus()
{
    openDressedTown();
    harness().show();
    for (const char* const name :
        {"mnuSoubor", "mnuVybraneZdrojeZnecisteni", "mnuVNovyZdrojX", "mnuVypocty", "mnuSelect", "mnuNapoveda"}) {
        QMenu& menu = harness().menu(name);
        menu.popup(harness().window().mapToGlobal(QPoint()));
        menu.setActiveAction(menu.actions().first());
        look(menu, QLatin1String(name));
        menu.hide();
    }
    judge();
}

void ThemesTest::dialogs()
{
    openDressedTown();
    harness().mark(QStringLiteral("X-X-------------"));
    harness().dialogs.useNext(QStringLiteral("frmOptions"), [this](QDialog& dialog) {
        auto* const pages = dialog.findChild<QTabWidget*>();
        QVERIFY(pages != nullptr);
        lookAtPages(dialog, *pages);
        dialog.reject();
    });
    harness().item("mnuMoznosti").trigger();
    lookAtNext("frmLoadZdroje");
    harness().item("mnuVLoad").trigger();
    lookAtNext("frmSaveZdroje");
    harness().item("mnuVSave").trigger();
    lookAtNext("frmVypocetVsDw0");
    harness().item("mnuVypocetVsDw0").trigger();
    lookAtNext("About");
    harness().item("mnuNOAplikaci").trigger();
    judge();
}

void ThemesTest::dustGroups()
{
    openDressedTown();
    harness().dialogs.useNext(QStringLiteral("frmSkupinyPrachu"), [this](QDialog& dialog) {
        look(dialog, QStringLiteral("frmSkupinyPrachu-none"));
        chooseGroup(dialog);
        lookAtDialog(dialog, QStringLiteral("frmSkupinyPrachu"));
        dialog.reject();
    });
    harness().item("mnuSkupinyPrachu").trigger();
    judge();
}

void ThemesTest::sourceEditors()
{
    openDressedTown();
    constexpr int point = 0;
    constexpr int area = 3;
    constexpr int line = 4;
    for (const auto& [row, name] :
        {std::pair(point, "frmBodovyZdroj"), std::pair(area, "frmPlosnyZdroj"), std::pair(line, "frmLiniovyZdroj")}) {
        harness().dialogs.useNext(QLatin1String(name), [this](QDialog& editor) {
            lookAtPages(editor, tabs(editor));
            editor.reject();
        });
        harness().clickRow(row);
        harness().item("mnuVNastavZdroj").trigger();
    }
    judge();
}

void ThemesTest::newSourceWithoutDust()
{
    openDressedTown();
    globals().noDust = 1;
    make(cPlosnyZdroj, [this](QDialog& editor) {
        for (int page = 0; page < tabs(editor).count(); ++page) {
            tabs(editor).setCurrentIndex(page);
            lookAtDialog(editor, QStringLiteral("frmPlosnyZdroj-new%1").arg(page + 1));
        }
        press(editor, "cbStorno");
    });
    judge();
}

void ThemesTest::pressureDialog()
{
    openDressedTown();
    globals().lastEditorTab = ParametersTab;
    harness().dialogs.useNext(QStringLiteral("frmBodovyZdroj"), [this](QDialog& editor) {
        lookAtNext("frmTlak");
        press(editor, "cmdNastavitTlak");
        editor.reject();
    });
    harness().clickRow(0);
    harness().item("mnuVNastavZdroj").trigger();
    judge();
}

void ThemesTest::help()
{
    dress();
    HelpViewer viewer(harness().settings);
    for (const QString& page :
        {contentsHelpPage, QStringLiteral("frmBodovyZdroj"), QStringLiteral("soubory"), QStringLiteral("About")}) {
        viewer.open(page);
        look(viewer, QStringLiteral("HelpViewer-") + page);
        if (child<QTextBrowser>(viewer, "page").horizontalScrollBar()->maximum() > 0)
            note(page, {QStringLiteral("wider than the window")});
    }
    field(viewer, "question").setText(QStringLiteral("prach"));
    QTest::keyClick(&field(viewer, "question"), Qt::Key_Return);
    // The cross that clears the field fades in.
    constexpr int fading = 250;
    QTest::qWait(fading);
    look(viewer, QStringLiteral("HelpViewer-search"));
    judge();
}

void ThemesTest::messageBoxes()
{
    openDressedTown();
    ToolkitMessageBoxes boxes;
    const QString path = QStringLiteral("/home/jana/brlozdin/body.txt");
    const BoxRequest requests[]{
        {QStringLiteral("Zrušit všechny zdroje"), QStringLiteral("Mám opravdu zrušit všechny zdroje ?"),
            BoxIcon::Question, BoxButtons::YesNo, {}},
        {QStringLiteral("Bodový zdroj"), QStringLiteral("Byly provedeny změny zdroje.\nMám tyto změny převzít ?"),
            BoxIcon::Exclamation, BoxButtons::YesNoCancel, {}},
        {QStringLiteral("Načtení seznamu zdrojů"), QStringLiteral("Soubor nelze přečíst.\n\n") + path,
            BoxIcon::Critical, BoxButtons::Ok, QStringLiteral("řádek 1\nřádek 2")},
        {{}, QStringLiteral("Kontrola skončila."), BoxIcon::Information, BoxButtons::Ok, {}},
    };
    for (const BoxRequest& request : requests) {
        const QString name = QStringLiteral("box-%1").arg(static_cast<int>(request.icon));
        harness().dialogs.useNext({}, [this, name](QDialog& box) {
            look(box, name);
            for (QAbstractButton* const button : box.findChildren<QAbstractButton*>()) {
                const auto* const messages = qobject_cast<QMessageBox*>(&box);
                if (messages != nullptr && messages->buttonRole(button) == QMessageBox::ActionRole) {
                    button->click();
                    look(box, name + QStringLiteral("-details"));
                }
            }
            box.done(0);
        });
        boxes.show(&harness().window(), request);
    }
    judge();
}

void ThemesTest::fileDialogs()
{
    openDressedTown();
    ToolkitFileChooser chooser(harness().boxes);
    const QString filter = QString::fromStdString(globals().fileFilters.front());
    const QString examples = QStringLiteral(KORVEX_SOURCE_DIR "/examples/");
    harness().dialogs.useNext(QStringLiteral("QFileDialog"), [this](QDialog& dialog) {
        look(dialog, QStringLiteral("open"));
        dialog.reject();
    });
    chooser.open(&harness().window(), {QStringLiteral("Otevři soubor s body"), filter, examples, {}});
    harness().dialogs.useNext(QStringLiteral("QFileDialog"), [this](QDialog& dialog) {
        look(dialog, QStringLiteral("save"));
        dialog.reject();
    });
    chooser.save(
        &harness().window(), {QStringLiteral("Ulož soubor s body"), filter, examples, QStringLiteral("body.txt")});
    judge();
}

/// Desktops change by the hour of the day, whatever is open then.
void ThemesTest::themeChangesUnderOpenWindows()
{
    QFETCH(const Theme, theme);
    const auto begin
        = [theme] { QApplication::setPalette(paletteOf(theme == Theme::Light ? Theme::Dark : Theme::Light)); };
    const auto change = [this, theme](QWidget& window) {
        QApplication::setPalette(paletteOf(theme));
        QCoreApplication::processEvents();
        const QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        note(window.objectName(), faintTexts(window, picture));
        note(window.objectName(), faintPictures(window, picture));
        note(window.objectName(), hiddenEdges(window, picture));
    };
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), usualPoints));
    begin();
    openTown();
    change(harness().window());
    begin();
    harness().dialogs.useNext(QStringLiteral("frmBodovyZdroj"), [&change](QDialog& editor) {
        tabs(editor).setCurrentIndex(DescriptionTab);
        change(editor);
        editor.reject();
    });
    harness().clickRow(0);
    harness().item("mnuVNastavZdroj").trigger();
    begin();
    harness().dialogs.useNext(QStringLiteral("frmSkupinyPrachu"), [&change](QDialog& dialog) {
        chooseGroup(dialog);
        change(dialog);
        dialog.reject();
    });
    harness().item("mnuSkupinyPrachu").trigger();
    begin();
    HelpViewer viewer(harness().settings);
    viewer.open(QStringLiteral("frmBodovyZdroj"));
    change(viewer);
    judge();
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::ThemesTest)

#include "themes_test.moc"
