// Every window by the keyboard alone: Tab comes to every control and back to the first, the focus can be seen wherever
// it is, every control has a name that can be spoken, and no text of the toolkit is left in English.
#include "example_town_test.h"

#include "file_dialogs.h"
#include "help_pages.h"
#include "help_viewer.h"
#include "message_boxes.h"

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QFileDialog>
#include <QImage>
#include <QMenu>
#include <QPixmap>
#include <QRadioButton>
#include <QScopeGuard>
#include <QSet>
#include <QTabWidget>

#include <algorithm>
#include <memory>
#include <utility>

namespace korvex {
namespace {

QString nameOf(const QWidget& widget)
{
    return QLatin1String(widget.metaObject()->className()) + QLatin1Char(' ') + widget.objectName();
}

/// What Tab has to come to.
bool isTabStop(const QWidget& widget)
{
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0
        && widget.focusProxy() == nullptr;
}

/// Of choices that exclude each other Tab comes to one, and the arrows to the rest.
bool sharesATabStop(const QWidget& widget, const QSet<QWidget*>& visited)
{
    const auto* const choice = qobject_cast<const QRadioButton*>(&widget);
    if (choice == nullptr)
        return false;
    return std::any_of(visited.begin(), visited.end(), [choice](const QWidget* other) {
        const auto* const otherChoice = qobject_cast<const QRadioButton*>(other);
        return otherChoice != nullptr && otherChoice->parentWidget() == choice->parentWidget()
            && otherChoice->group() == choice->group();
    });
}

/// Presses the key from control to control until it comes back to the first; empty if it never does.
QList<QWidget*> walk(Qt::Key key)
{
    QList<QWidget*> visited;
    constexpr int most = 500;
    for (int presses = 0; presses < most; ++presses) {
        QWidget* const focus = QApplication::focusWidget();
        if (focus == nullptr)
            return {};
        // A page goes from link to link before it lets the focus go on.
        if (visited.isEmpty() || focus != visited.last()) {
            if (!visited.isEmpty() && focus == visited.first())
                return visited;
            if (visited.contains(focus))
                return {};
            visited.append(focus);
        }
        QTest::keyClick(focus, key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    }
    // The only control is the next one as well.
    return visited.size() == 1 ? visited : QList<QWidget*>();
}

QImage pictureOf(const QWidget& widget)
{
    QWidget& window = *widget.window();
    const QRect place(widget.mapTo(&window, QPoint()), widget.size());
    constexpr int aroundIt = 4;
    return window.grab(place.adjusted(-aroundIt, -aroundIt, aroundIt, aroundIt)).toImage();
}

/// The controls that look the same with the focus and without.
QStringList focusHiddenOn(const QList<QWidget*>& visited)
{
    QStringList hidden;
    for (qsizetype i = 0; i < visited.size(); ++i) {
        QWidget& widget = *visited[i];
        QWidget& next = *visited[(i + 1) % visited.size()];
        if (&next == &widget)
            continue;
        widget.setFocus(Qt::TabFocusReason);
        const QImage with = pictureOf(widget);
        next.setFocus(Qt::TabFocusReason);
        if (with == pictureOf(widget))
            hidden << nameOf(widget);
    }
    return hidden;
}

/// Texts that the toolkit shows where it lacks its translation.
QStringList englishTexts(const QWidget& window)
{
    static const QSet<QString> english{QStringLiteral("Open"), QStringLiteral("Save"), QStringLiteral("Cancel"),
        QStringLiteral("Close"), QStringLiteral("Apply"), QStringLiteral("Reset"), QStringLiteral("Help"),
        QStringLiteral("Discard"), QStringLiteral("Yes"), QStringLiteral("No"), QStringLiteral("Abort"),
        QStringLiteral("Retry"), QStringLiteral("Ignore"), QStringLiteral("Choose"), QStringLiteral("Show Details..."),
        QStringLiteral("Hide Details..."), QStringLiteral("Back"), QStringLiteral("Forward"), QStringLiteral("Undo"),
        QStringLiteral("Redo"), QStringLiteral("Cut"), QStringLiteral("Copy"), QStringLiteral("Paste"),
        QStringLiteral("Delete"), QStringLiteral("Select All"), QStringLiteral("Look in:"),
        QStringLiteral("File name:"), QStringLiteral("Files of type:"), QStringLiteral("Name"), QStringLiteral("Size"),
        QStringLiteral("Type"), QStringLiteral("Date Modified"), QStringLiteral("Parent Directory"),
        QStringLiteral("Create New Folder"), QStringLiteral("List View"), QStringLiteral("Detail View")};
    QStringList texts{window.windowTitle()};
    QList<const QWidget*> widgets = window.findChildren<const QWidget*>();
    widgets.append(&window);
    for (const QWidget* const widget : std::as_const(widgets)) {
        texts << widget->toolTip() << widget->accessibleName();
        if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
            texts << button->text();
        if (const auto* const label = qobject_cast<const QLabel*>(widget))
            texts << label->text();
        for (const QAction* const action : widget->actions())
            texts << action->text();
    }
    QStringList found;
    for (const QString& text : std::as_const(texts)) {
        const QString plain = QString(text).remove(QLatin1Char('&')).section(QLatin1Char('\t'), 0, 0);
        if (english.contains(plain))
            found << plain;
    }
    return found;
}

}  // namespace

class KeyboardWalkTest : public ExampleTownTest {
    Q_OBJECT

private slots:
    void mainWindow();
    void emptyMainWindow();
    void plainDialogs_data();
    void plainDialogs();
    void options();
    void sourceEditors_data();
    void sourceEditors();
    void sourceEditorWithoutDust();
    void dustGroups();
    void pressureDialog();
    void help();
    void messageBoxes();
    void fileDialogs();
    void fieldMenuIsCzech();

private:
    /// Goes round the window and notes what is wrong.
    void walkThrough(QWidget& window, const QString& name)
    {
        QVERIFY2(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }), qPrintable(name));
        const int flashTime = QApplication::cursorFlashTime();
        QApplication::setCursorFlashTime(0);
        const auto flashAgain = qScopeGuard([flashTime] { QApplication::setCursorFlashTime(flashTime); });

        note(name, QStringLiteral("has no name to speak"), namelessWidgets(window));
        note(name, QStringLiteral("is English"), englishTexts(window));
        if (QApplication::focusWidget() == nullptr)
            QTest::keyClick(&window, Qt::Key_Tab);
        const QList<QWidget*> forwards = walk(Qt::Key_Tab);
        const QList<QWidget*> backwards = walk(Qt::Key_Backtab);
        const QSet<QWidget*> visited(forwards.begin(), forwards.end());
        if (forwards.isEmpty() || visited != QSet<QWidget*>(backwards.begin(), backwards.end()))
            note(name, QStringLiteral("is a trap"),
                {QApplication::focusWidget() == nullptr ? QString() : nameOf(*QApplication::focusWidget())});
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            if (isTabStop(*widget) && !visited.contains(widget) && !sharesATabStop(*widget, visited))
                note(name, QStringLiteral("is not reached"), {nameOf(*widget)});
        }
        // The toolkit's own lists of files and places show the focus once they have been read, in their own time.
        if (qobject_cast<QFileDialog*>(&window) == nullptr)
            note(name, QStringLiteral("hides the focus"), focusHiddenOn(forwards));
        m_visited += static_cast<int>(forwards.size());
    }
    void walkThroughPages(QDialog& dialog, QTabWidget& pages)
    {
        for (int page = 0; page < pages.count(); ++page) {
            pages.setCurrentIndex(page);
            walkThrough(dialog, dialog.objectName() + QLatin1Char('/') + pages.tabText(page));
        }
    }
    void walkThroughNext(const char* dialogName)
    {
        harness().dialogs.useNext(QLatin1String(dialogName), [this](QDialog& dialog) {
            walkThrough(dialog, dialog.objectName());
            dialog.reject();
        });
    }
    void note(const QString& window, const QString& what, const QStringList& where)
    {
        for (const QString& widget : where)
            m_findings << QStringLiteral("%1: %2 %3").arg(window, widget, what);
    }
    /// leastStops: how many controls the windows have at least, so that none is passed over.
    void judge(int leastStops)
    {
        const QString findings = std::exchange(m_findings, {}).join(QLatin1Char('\n'));
        const int visited = std::exchange(m_visited, 0);
        QVERIFY2(findings.isEmpty(), qPrintable(QLatin1Char('\n') + findings));
        QVERIFY2(visited >= leastStops, qPrintable(QString::number(visited)));
    }

    QStringList m_findings;
    int m_visited = 0;
};

void KeyboardWalkTest::mainWindow()
{
    openTown();
    harness().show();
    walkThrough(harness().window(), QStringLiteral("frmKORVEXZDR"));
    judge(2);
}

void KeyboardWalkTest::emptyMainWindow()
{
    harness().show();
    walkThrough(harness().window(), QStringLiteral("frmKORVEXZDR, no sources"));
    judge(2);
}

void KeyboardWalkTest::plainDialogs_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("leastStops");
    QTest::newRow("frmLoadZdroje") << QByteArray("mnuVLoad") << 10;
    QTest::newRow("frmSaveZdroje") << QByteArray("mnuVSave") << 9;
    QTest::newRow("frmVypocetVsDw0") << QByteArray("mnuVypocetVsDw0") << 5;
    QTest::newRow("About") << QByteArray("mnuNOAplikaci") << 1;
}

void KeyboardWalkTest::plainDialogs()
{
    QFETCH(const QByteArray, command);
    QFETCH(const int, leastStops);
    openTown();
    harness().show();
    harness().mark(QStringLiteral("X-X-------------"));
    walkThroughNext(QTest::currentDataTag());
    harness().item(command.constData()).trigger();
    judge(leastStops);
}

void KeyboardWalkTest::options()
{
    openTown();
    harness().show();
    harness().dialogs.useNext(QStringLiteral("frmOptions"), [this](QDialog& dialog) {
        walkThroughPages(dialog, *dialog.findChild<QTabWidget*>());
        dialog.reject();
    });
    harness().item("mnuMoznosti").trigger();
    judge(10);
}

void KeyboardWalkTest::sourceEditors_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("frmBodovyZdroj") << 0;
    QTest::newRow("frmPlosnyZdroj") << 3;
    QTest::newRow("frmLiniovyZdroj") << 4;
}

void KeyboardWalkTest::sourceEditors()
{
    QFETCH(const int, row);
    openTown();
    harness().show();
    harness().dialogs.useNext(QLatin1String(QTest::currentDataTag()), [this](QDialog& editor) {
        walkThroughPages(editor, tabs(editor));
        editor.reject();
    });
    harness().clickRow(row);
    harness().item("mnuVNastavZdroj").trigger();
    judge(25);
}

void KeyboardWalkTest::sourceEditorWithoutDust()
{
    openTown();
    globals().noDust = 1;
    harness().show();
    make(cBodovyZdroj, [this](QDialog& editor) {
        walkThroughPages(editor, tabs(editor));
        press(editor, "cbStorno");
    });
    judge(20);
}

void KeyboardWalkTest::dustGroups()
{
    openTown();
    harness().show();
    harness().dialogs.useNext(QStringLiteral("frmSkupinyPrachu"), [this](QDialog& dialog) {
        walkThrough(dialog, QStringLiteral("frmSkupinyPrachu, no group"));
        chooseGroup(dialog);
        walkThrough(dialog, QStringLiteral("frmSkupinyPrachu"));
        // Passing through the name stores the group.
        harness().boxes.answerNext(BoxAnswer::No);
        dialog.reject();
    });
    harness().item("mnuSkupinyPrachu").trigger();
    judge(15);
}

void KeyboardWalkTest::pressureDialog()
{
    openTown();
    globals().lastEditorTab = ParametersTab;
    harness().show();
    harness().dialogs.useNext(QStringLiteral("frmBodovyZdroj"), [this](QDialog& editor) {
        walkThroughNext("frmTlak");
        press(editor, "cmdNastavitTlak");
        editor.reject();
    });
    harness().clickRow(0);
    harness().item("mnuVNastavZdroj").trigger();
    judge(3);
}

void KeyboardWalkTest::help()
{
    HelpViewer viewer(harness().settings);
    viewer.open(contentsHelpPage);
    walkThrough(viewer, QStringLiteral("HelpViewer"));
    judge(3);
}

void KeyboardWalkTest::messageBoxes()
{
    openTown();
    harness().show();
    ToolkitMessageBoxes boxes;
    for (const BoxButtons buttons : {BoxButtons::Ok, BoxButtons::YesNo, BoxButtons::YesNoCancel}) {
        for (const QString& details : {QString(), QStringLiteral("řádek 1\nřádek 2")}) {
            harness().dialogs.useNext({}, [this](QDialog& box) {
                walkThrough(box, QStringLiteral("box"));
                box.done(0);
            });
            boxes.show(&harness().window(),
                {QStringLiteral("Kontrola"), QStringLiteral("Nalezeno ?"), BoxIcon::Question, buttons, details});
        }
    }
    judge(2 * (1 + 2 + 3) + 3);
}

void KeyboardWalkTest::fileDialogs()
{
    openTown();
    harness().show();
    ToolkitFileChooser chooser(harness().boxes);
    const FileQuestion question{QStringLiteral("Soubor s body"), QString::fromStdString(globals().fileFilters.front()),
        QStringLiteral(KORVEX_SOURCE_DIR "/examples/"), {}};
    walkThroughNext("QFileDialog");
    chooser.open(&harness().window(), question);
    walkThroughNext("QFileDialog");
    chooser.save(&harness().window(), question);
    judge(12);
}

void KeyboardWalkTest::fieldMenuIsCzech()
{
    harness().show();
    auto& comment = harness().find<QLineEdit>("tbKomentar");
    const std::unique_ptr<QMenu> menu(comment.createStandardContextMenu());
    QVERIFY(menu->actions().size() > 5);
    QCOMPARE(englishTexts(*menu), QStringList());
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::KeyboardWalkTest)

#include "keyboard_walk_test.moc"
