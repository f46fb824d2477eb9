// F1, the help buttons and the menu item: in every window its page, also over modal dialogs and boxes.
#include "dialog_checks.h"
#include "point_source_test.h"
#include "window_harness.h"

#include "context_help.h"
#include "help_viewer.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMap>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QWindow>

#include <functional>
#include <memory>

namespace korvex {

class ContextHelpTest : public ShellTest {
    Q_OBJECT

private slots:
    void nothingIsMadeBeforeTheFirstPress();
    void keyShowsThePageOfTheWindow_data() { addWindows(); }
    void keyShowsThePageOfTheWindow();
    void helpButtonShowsThePageOfTheWindow_data() { addWindowsWithButton(); }
    void helpButtonShowsThePageOfTheWindow();
    void menuItemShowsThePageOfTheMainWindow();
    void helpIsUsableWhileADialogIsOpen_data() { addDialogs(); }
    void helpIsUsableWhileADialogIsOpen();
    void closingTheDialogLeavesTheHelpAlone();
    void helpIsReusedAndComesBackFromItsClosing();
    void keyShowsTheSectionOfTheTab_data();
    void keyShowsTheSectionOfTheTab();
    void boxShowsThePageOfWhatItTells_data();
    void boxShowsThePageOfWhatItTells();
    void boxShowsTheRowOfItsMessage();
    void boxShowsThePageOfItsOwner();
    void fileDialogShowsThePageOfItsOwner();
    void boxOfAFileDialogShowsThePageOfItsOwner();
    void windowUnknownToTheHelpShowsTheContents();
    void openMenuIsClosed();
    void heldKeyOpensOnce();
    void keyInTheHelpItselfDoesNothing();
    void noWindowSeesTheKey();
    void keyWithAModifierIsLeftAlone_data();
    void keyWithAModifierIsLeftAlone();
    void closingTheMainWindowWithTheHelpOpenIsQuiet();

private:
    /// Opens the window, does this in it and leaves it.
    void inWindow(const QString& name, const std::function<void(QWidget&)>& use);
    void inDialog(const QString& name, const char* item, const std::function<void(QWidget&)>& use);
    static void addWindows()
    {
        addDialogs();
        QTest::newRow("frmKORVEXZDR") << QStringLiteral("frmKORVEXZDR");
    }
    static void addDialogs()
    {
        addWindowsWithButton();
        QTest::newRow("frmTlak") << QStringLiteral("frmTlak");
        QTest::newRow("About") << QStringLiteral("About");
    }
    static void addWindowsWithButton()
    {
        QTest::addColumn<QString>("name");
        for (const char* const name : {"frmBodovyZdroj", "frmPlosnyZdroj", "frmLiniovyZdroj", "frmLoadZdroje",
                 "frmSaveZdroje", "frmOptions", "frmSkupinyPrachu", "frmVypocetVsDw0"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
};

namespace {

HelpViewer* viewer()
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const found = qobject_cast<HelpViewer*>(window))
            return found;
    }
    return nullptr;
}

/// The page that the help shows; empty when it is not open.
QString shownPage()
{
    const HelpViewer* const help = viewer();
    return help != nullptr && help->isVisible() ? help->page() : QString();
}

QTextBrowser& shownText()
{
    return child<QTextBrowser>(*viewer(), "page");
}

QString shownSection()
{
    return shownText().source().fragment();
}

/// As the system sends it: to the window, from where it finds the widget with the focus.
void pressF1(QWidget& window)
{
    QTest::keyClick(window.windowHandle(), Qt::Key_F1);
}

QPushButton& helpButton(const QWidget& window)
{
    for (QPushButton* const button : window.findChildren<QPushButton*>()) {
        if (button->objectName() == QStringLiteral("cbHelp") || button->objectName() == QStringLiteral("cmdHelp"))
            return *button;
    }
    qFatal("%s has no help button.", qPrintable(window.objectName()));
}

}  // namespace

void ContextHelpTest::inDialog(const QString& name, const char* item, const std::function<void(QWidget&)>& use)
{
    harness().dialogs.useNext(name, [&use](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        use(dialog);
        dialog.reject();
    });
    harness().item(item).trigger();
}

void ContextHelpTest::inWindow(const QString& name, const std::function<void(QWidget&)>& use)
{
    static const QMap<QString, const char*> items{{QStringLiteral("frmBodovyZdroj"), "mnuVBodovyZdroj"},
        {QStringLiteral("frmPlosnyZdroj"), "mnuVPlosnyZdroj"}, {QStringLiteral("frmLiniovyZdroj"), "mnuVLiniovyZdroj"},
        {QStringLiteral("frmLoadZdroje"), "mnuVLoad"}, {QStringLiteral("frmSaveZdroje"), "mnuVSave"},
        {QStringLiteral("frmOptions"), "mnuMoznosti"}, {QStringLiteral("frmSkupinyPrachu"), "mnuSkupinyPrachu"},
        {QStringLiteral("frmVypocetVsDw0"), "mnuVypocetVsDw0"}, {QStringLiteral("About"), "mnuNOAplikaci"}};
    harness().show();
    harness().fillWithNames({QStringLiteral("Kotelna")});
    if (name == QStringLiteral("frmKORVEXZDR")) {
        use(harness().window());
    } else if (name == QStringLiteral("frmTlak")) {
        inDialog(QStringLiteral("frmBodovyZdroj"), "mnuVBodovyZdroj", [&](QWidget& editor) {
            harness().dialogs.useNext(name, [&use](QDialog& dialog) {
                QVERIFY(waitUntilActive(dialog));
                use(dialog);
                dialog.reject();
            });
            press(editor, "cmdNastavitTlak");
        });
    } else {
        inDialog(name, items.value(name), use);
    }
}

void ContextHelpTest::nothingIsMadeBeforeTheFirstPress()
{
    const ContextHelp help(harness().settings);
    harness().show();
    QTest::keyClick(harness().window().windowHandle(), Qt::Key_F2);
    QVERIFY(viewer() == nullptr);
}

void ContextHelpTest::keyShowsThePageOfTheWindow()
{
    const ContextHelp help(harness().settings);
    QFETCH(const QString, name);
    inWindow(name, [&name](QWidget& window) {
        QCOMPARE(window.objectName(), name);
        pressF1(window);
        QCOMPARE(shownPage(), name);
        QVERIFY(window.isVisible());
    });
    QCOMPARE(shownPage(), name);
}

void ContextHelpTest::helpButtonShowsThePageOfTheWindow()
{
    const ContextHelp help(harness().settings);
    QFETCH(const QString, name);
    inWindow(name, [&name](QWidget& window) {
        helpButton(window).click();
        QTRY_COMPARE(shownPage(), name);
        QVERIFY(window.isVisible());
    });
    QCOMPARE(shownPage(), name);
}

void ContextHelpTest::menuItemShowsThePageOfTheMainWindow()
{
    const ContextHelp help(harness().settings);
    harness().show();
    QVERIFY(harness().item("mnuNHelp").isEnabled());
    harness().item("mnuNHelp").trigger();
    QTRY_COMPARE(shownPage(), QStringLiteral("frmKORVEXZDR"));
}

void ContextHelpTest::helpIsUsableWhileADialogIsOpen()
{
    const ContextHelp help(harness().settings);
    QFETCH(const QString, name);
    inWindow(name, [](QWidget& dialog) {
        // A dialog modal to the whole program would shut the help out.
        QCOMPARE(dialog.windowModality(), Qt::WindowModal);
        pressF1(dialog);
        HelpViewer& shown = *viewer();
        QVERIFY(QTest::qWaitForWindowActive(&shown));
        auto& page = child<QTextBrowser>(shown, "page");
        QVERIFY(page.hasFocus());
        // Keys and mouse as the system sends them, which the toolkit keeps from a window that is blocked.
        QTest::keyClick(shown.windowHandle(), Qt::Key_Home, Qt::AltModifier);
        QCOMPARE(shownPage(), QStringLiteral("obsah"));
        auto& contents = child<QTreeWidget>(shown, "contents");
        const QPoint place = contents.visualItemRect(contents.topLevelItem(1)).center();
        QTest::mouseClick(shown.windowHandle(), Qt::LeftButton, {}, contents.viewport()->mapTo(&shown, place));
        QCOMPARE(shownPage(), QStringLiteral("uvod"));
        QTest::keyClick(shown.windowHandle(), Qt::Key_Escape);
        QVERIFY(!shown.isVisible());
        QVERIFY(dialog.isVisible());
    });
}

void ContextHelpTest::closingTheDialogLeavesTheHelpAlone()
{
    const ContextHelp help(harness().settings);
    QPointer<HelpViewer> shown;
    inWindow(QStringLiteral("frmPlosnyZdroj"), [&shown](QWidget& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Lom"));
        pressF1(editor);
        shown = viewer();
        QCOMPARE(field(editor, "txtNazevZdroje").text(), QStringLiteral("Lom"));
    });
    QVERIFY(shown);
    QVERIFY(shown->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(shown);
    shown->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(shown));
    QTest::keyClick(shown->windowHandle(), Qt::Key_Home, Qt::AltModifier);
    QCOMPARE(shownPage(), QStringLiteral("obsah"));
}

void ContextHelpTest::helpIsReusedAndComesBackFromItsClosing()
{
    const ContextHelp help(harness().settings);
    harness().show();
    pressF1(harness().window());
    const HelpViewer* const first = viewer();
    viewer()->close();
    harness().window().activateWindow();
    inWindow(QStringLiteral("frmOptions"), [](QWidget& dialog) { pressF1(dialog); });
    QCOMPARE(viewer(), first);
    QCOMPARE(shownPage(), QStringLiteral("frmOptions"));
    viewer()->showMinimized();
    pressF1(harness().window());
    QVERIFY(!viewer()->isMinimized());
    QCOMPARE(shownPage(), QStringLiteral("frmKORVEXZDR"));
}

void ContextHelpTest::keyShowsTheSectionOfTheTab_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("headings");
    const QStringList ofEditor{
        QStringLiteral("Záložka Popis"), QStringLiteral("Záložka Parametry"), QStringLiteral("Záložka Prach")};
    for (const char* const name : {"frmBodovyZdroj", "frmPlosnyZdroj", "frmLiniovyZdroj"})
        QTest::newRow(name) << QString::fromLatin1(name) << ofEditor;
    QTest::newRow("frmOptions") << QStringLiteral("frmOptions")
                                << QStringList{QStringLiteral("Záložka Obecné"), QStringLiteral("Záložka Soubory")};
}

void ContextHelpTest::keyShowsTheSectionOfTheTab()
{
    const ContextHelp help(harness().settings);
    QFETCH(const QString, name);
    QFETCH(const QStringList, headings);
    inWindow(name, [&](QWidget& window) {
        QTabWidget& tabs = *window.findChild<QTabWidget*>();
        QCOMPARE(tabs.count(), static_cast<int>(headings.size()));
        for (int i = 0; i < tabs.count(); ++i) {
            tabs.setCurrentIndex(i);
            pressF1(window);
            QCOMPARE(shownPage(), name);
            const QTextCursor section = shownText().cursorForPosition({0, 0});
            // The last section may not reach the top of the window.
            const bool isAtTheEnd
                = shownText().verticalScrollBar()->value() == shownText().verticalScrollBar()->maximum();
            QVERIFY2(isAtTheEnd || section.block().text() == headings.at(i), qPrintable(section.block().text()));
            QVERIFY(shownText().verticalScrollBar()->value() > 0);
        }
    });
}

void ContextHelpTest::boxShowsThePageOfWhatItTells_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("icon");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("section");
    const auto box = [](const char* title, const char* text, BoxIcon icon, const char* page, const char* section) {
        QTest::newRow(qPrintable(QString::fromUtf8(text).section(QLatin1Char('\n'), 0, 0)))
            << QString::fromUtf8(title) << QString::fromUtf8(text) << static_cast<int>(icon)
            << QString::fromLatin1(page) << QString::fromLatin1(section);
    };
    box("Kontrola duplicit", "Bylo nalezeno 2 duplicit.", BoxIcon::Information, "duplicity", "postup");
    box("Výpočet středového bodu úseku liniových zdrojů", "Hotovo…", BoxIcon::Information, "vypocty", "stred");
    box("", "Uložit změny ?", BoxIcon::Question, "ukladani", "zmena");
    box("Čtení skupin prachu ze souboru", "Soubor nebo složka neexistuje.", BoxIcon::Critical, "prach", "ztrata");
    box("Plošný zdroj", "Byly provedeny změny zdroje.\nMám tyto změny převzít ?", BoxIcon::Question, "frmPlosnyZdroj",
        "tlacitka");
    box("Nový zdroj", "Automaticky přidělované číslo zdroje nemůže být větší než 99999.\nZkuste upravit hodnotu",
        BoxIcon::Exclamation, "hlaseni", "automaticky-pridelovane-cislo-zdroje-nemuze");
    box("Chyba při běhu programu", "Dělení nulou", BoxIcon::Critical, "hlaseni", "deleni-nulou");
    box("Načtení seznamu zdrojů", "body.txt\nŘádek 7: Číslo je mimo rozsah: 99999999999", BoxIcon::Critical, "hlaseni",
        "cislo-je-mimo-rozsah");
    box("Vypočet (d)", "Parametr 'w0' nesmí být nulový.", BoxIcon::Exclamation, "hlaseni",
        "parametr-w0-nesmi-byt-nulovy");
    box("Uložení seznamu zdrojů", "Dva z ukládaných souborů mají stejný název.", BoxIcon::Critical, "hlaseni",
        "dva-z-ukladanych-souboru-maji");
    box("Načtení seznamu zdrojů", "Soubor nebo složka neexistuje.\n/tmp/body.txt", BoxIcon::Critical, "hlaseni",
        "soubor-nebo-slozka-neexistuje");
    box("Skupiny prachu", "Byly provedeny změny ve skupinách prachu.\nMám tyto změny uložit ?", BoxIcon::Question,
        "hlaseni", "byly-provedeny-zmeny-ve-skupinach");
    box("", "Hlášení, které nápověda nezná", BoxIcon::Critical, "hlaseni", "");
    box("Plošný zdroj", "Jiná otázka", BoxIcon::Question, "frmPlosnyZdroj", "popis");
}

void ContextHelpTest::boxShowsThePageOfWhatItTells()
{
    const ContextHelp help(harness().settings);
    QFETCH(const QString, title);
    QFETCH(const QString, text);
    QFETCH(const int, icon);
    QFETCH(const QString, page);
    QFETCH(const QString, section);
    inWindow(QStringLiteral("frmPlosnyZdroj"), [&](QWidget& editor) {
        harness().dialogs.useNext(QString(), [&](QDialog& box) {
            QVERIFY(waitUntilActive(box));
            pressF1(box);
            QCOMPARE(shownPage(), page);
            QCOMPARE(shownSection(), section);
            box.reject();
        });
        ToolkitMessageBoxes boxes;
        boxes.show(&editor, {title, text, static_cast<BoxIcon>(icon), BoxButtons::Ok, {}});
    });
}

void ContextHelpTest::boxShowsTheRowOfItsMessage()
{
    const ContextHelp help(harness().settings);
    inWindow(QStringLiteral("frmPlosnyZdroj"), [this](QWidget& editor) {
        const QString message = QStringLiteral("Soubor je právě používán.");
        harness().dialogs.useNext(QString(), [&](QDialog& box) {
            QVERIFY(waitUntilActive(box));
            pressF1(box);
            QVERIFY(shownText().verticalScrollBar()->value() > 0);
            const QTextCursor row = shownText().document()->find(message);
            QVERIFY(!row.isNull());
            const QRect place = shownText().cursorRect(row);
            QVERIFY(place.top() >= 0 && place.top() < shownText().viewport()->height() / 4);
            box.reject();
        });
        ToolkitMessageBoxes boxes;
        boxes.show(&editor, {{}, message, BoxIcon::Critical, BoxButtons::Ok, {}});
    });
}

void ContextHelpTest::boxShowsThePageOfItsOwner()
{
    const ContextHelp help(harness().settings);
    inWindow(QStringLiteral("frmLiniovyZdroj"), [this](QWidget& editor) {
        harness().dialogs.useNext(QString(), [](QDialog& box) {
            QVERIFY(waitUntilActive(box));
            pressF1(box);
            QCOMPARE(shownPage(), QStringLiteral("frmLiniovyZdroj"));
            QTest::keyClick(viewer()->windowHandle(), Qt::Key_Home, Qt::AltModifier);
            QCOMPARE(shownPage(), QStringLiteral("obsah"));
            QVERIFY(box.isVisible());
            box.reject();
        });
        ToolkitMessageBoxes boxes;
        boxes.show(&editor, {{}, QStringLiteral("Text"), BoxIcon::Information, BoxButtons::Ok, {}});
        QVERIFY(editor.isVisible());
    });
}

void ContextHelpTest::fileDialogShowsThePageOfItsOwner()
{
    const ContextHelp help(harness().settings);
    inWindow(QStringLiteral("frmSkupinyPrachu"), [this](QWidget& editor) {
        harness().dialogs.useNext(QStringLiteral("QFileDialog"), [](QDialog& dialog) {
            QVERIFY(waitUntilActive(dialog));
            pressF1(dialog);
            QCOMPARE(shownPage(), QStringLiteral("frmSkupinyPrachu"));
            QTest::keyClick(viewer()->windowHandle(), Qt::Key_Home, Qt::AltModifier);
            QCOMPARE(shownPage(), QStringLiteral("obsah"));
            QVERIFY(dialog.isVisible());
            dialog.reject();
        });
        ToolkitMessageBoxes boxes;
        ToolkitFileChooser chooser(boxes);
        QCOMPARE(chooser.open(&editor, {QStringLiteral("Otevři"), QStringLiteral("Vše|*"), QDir::tempPath(), {}}),
            QString());
    });
}

void ContextHelpTest::boxOfAFileDialogShowsThePageOfItsOwner()
{
    const ContextHelp help(harness().settings);
    inWindow(QStringLiteral("frmSaveZdroje"), [this](QWidget& window) {
        QFileDialog dialog(&window);
        harness().dialogs.useNext(QString(), [](QDialog& box) {
            QVERIFY(waitUntilActive(box));
            pressF1(box);
            QCOMPARE(shownPage(), QStringLiteral("frmSaveZdroje"));
            box.reject();
        });
        ToolkitMessageBoxes boxes;
        boxes.show(&dialog, {{}, QStringLiteral("Soubor již existuje"), BoxIcon::Exclamation, BoxButtons::Ok, {}});
    });
}

void ContextHelpTest::windowUnknownToTheHelpShowsTheContents()
{
    const ContextHelp help(harness().settings);
    QWidget other;
    other.setObjectName(QStringLiteral("frmNeznam"));
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    pressF1(other);
    QCOMPARE(shownPage(), QStringLiteral("obsah"));
}

void ContextHelpTest::openMenuIsClosed()
{
    const ContextHelp help(harness().settings);
    harness().show();
    harness().view().setFocus();
    QMenu& menu = harness().menu("mnuSoubor");
    QTest::keyClick(harness().window().windowHandle(), Qt::Key_S, Qt::AltModifier);
    QTRY_VERIFY(QApplication::activePopupWidget() == &menu);
    QTest::keyClick(&menu, Qt::Key_F1);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    QCOMPARE(shownPage(), QStringLiteral("frmKORVEXZDR"));
    // The keys are back where they were before the menu.
    QVERIFY(harness().window().focusWidget() == &harness().view());
}

void ContextHelpTest::heldKeyOpensOnce()
{
    const ContextHelp help(harness().settings);
    harness().show();
    pressF1(harness().window());
    viewer()->close();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(&harness().view(), &repeated);
    QVERIFY(repeated.isAccepted());
    QCOMPARE(shownPage(), QString());
}

void ContextHelpTest::keyInTheHelpItselfDoesNothing()
{
    const ContextHelp help(harness().settings);
    harness().show();
    pressF1(harness().window());
    HelpViewer& shown = *viewer();
    QVERIFY(QTest::qWaitForWindowActive(&shown));
    QTest::keyClick(shown.windowHandle(), Qt::Key_Home, Qt::AltModifier);
    pressF1(shown);
    QCOMPARE(shownPage(), QStringLiteral("obsah"));
    QVERIFY(shown.isActiveWindow());
}

void ContextHelpTest::noWindowSeesTheKey()
{
    const ContextHelp help(harness().settings);
    inWindow(QStringLiteral("frmOptions"), [](QWidget& dialog) {
        const HelpKeySpy spy(dialog);
        pressF1(dialog);
        helpButton(dialog).click();
        QCoreApplication::processEvents();
        QCOMPARE(spy.presses(), 0);
        QCOMPARE(shownPage(), QStringLiteral("frmOptions"));
    });
}

void ContextHelpTest::keyWithAModifierIsLeftAlone_data()
{
    QTest::addColumn<int>("modifier");
    QTest::newRow("Shift") << static_cast<int>(Qt::ShiftModifier);
    QTest::newRow("Ctrl") << static_cast<int>(Qt::ControlModifier);
    QTest::newRow("Alt") << static_cast<int>(Qt::AltModifier);
}

void ContextHelpTest::keyWithAModifierIsLeftAlone()
{
    const ContextHelp help(harness().settings);
    QFETCH(const int, modifier);
    harness().show();
    const HelpKeySpy spy(harness().window());
    QTest::keyClick(&harness().window(), Qt::Key_F1, Qt::KeyboardModifier(modifier));
    QVERIFY(spy.presses() > 0);
    QVERIFY(viewer() == nullptr);
}

void ContextHelpTest::closingTheMainWindowWithTheHelpOpenIsQuiet()
{
    auto help = std::make_unique<ContextHelp>(harness().settings);
    harness().show();
    pressF1(harness().window());
    harness().window().close();
    QVERIFY(!harness().window().isVisible());
    help.reset();
    QVERIFY(!harness().settings.get(QStringLiteral("Form:HelpViewer"), QStringLiteral("Width"), {}).isEmpty());
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::ContextHelpTest)

#include "context_help_test.moc"
