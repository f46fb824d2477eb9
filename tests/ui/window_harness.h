// A main window for tests: settings in memory, boxes and dialogs answered in advance, a folder of its own, and no
// warning of the toolkit let through.
#pragma once

#include "arguments.h"
#include "file_dialogs.h"
#include "globals.h"
#include "main_window.h"
#include "message_boxes.h"
#include "settings_store.h"
#include "shell.h"
#include "text_clipboard.h"

#include <QAction>
#include <QByteArray>
#include <QDialog>
#include <QList>
#include <QMap>
#include <QMenu>
#include <QObject>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>
#include <string>

class QHeaderView;
class QLabel;

namespace korvex {

class MemorySettings : public SettingsStore {
public:
    [[nodiscard]] QString get(const QString& section, const QString& key, const QString& defaultText) const override;
    void save(const QString& section, const QString& key, const QString& text) override;

    /// By "section/key".
    [[nodiscard]] const QMap<QString, QString>& texts() const { return m_texts; }

private:
    QMap<QString, QString> m_texts;
};

/// Records every box and answers it as told before. A box that was not expected fails the test.
class AnsweringBoxes : public MessageBoxes {
public:
    /// whileShown looks at the window as it is while the box is open.
    void answerNext(BoxAnswer answer, std::function<void()> whileShown = {});

    [[nodiscard]] const QList<BoxRequest>& shown() const { return m_shown; }
    [[nodiscard]] bool allAnswersUsed() const { return m_answers.isEmpty(); }

    BoxAnswer show(QWidget* parent, const BoxRequest& request) override;

private:
    struct Answer {
        BoxAnswer answer;
        std::function<void()> whileShown;
    };

    QList<Answer> m_answers;
    QList<BoxRequest> m_shown;
};

/// All of a box in one text, for comparing: "[Question] title | text | YesNo | details".
[[nodiscard]] QString describe(const BoxRequest& box);

/// Records what the file dialogs were opened with and answers with paths given before. A dialog that was not expected
/// fails the test.
class AnsweringFileChooser : public FileChooser {
public:
    /// An empty path cancels.
    void answerNext(const QString& path) { m_paths.append(path); }

    struct Shown {
        bool isSave;
        FileQuestion question;
    };
    [[nodiscard]] const QList<Shown>& shown() const { return m_shown; }
    [[nodiscard]] bool allAnswersUsed() const { return m_paths.isEmpty(); }

    QString open(QWidget* parent, const FileQuestion& question) override;
    QString save(QWidget* parent, const FileQuestion& question) override;

private:
    QString answer(Shown shown);

    QStringList m_paths;
    QList<Shown> m_shown;
};

class MemoryClipboard : public TextClipboard {
public:
    void put(const QString& text) override { m_texts.append(text); }

    /// Everything ever put there, in order.
    [[nodiscard]] const QStringList& texts() const { return m_texts; }

private:
    QStringList m_texts;
};

/// Works the program's own modal dialogs as they appear. A dialog that was not expected, or that is still open when
/// its user is done with it, fails the test and is rejected, so that the test ends.
class DialogUser : public QObject {
    Q_OBJECT

public:
    DialogUser();

    void useNext(const QString& objectName, std::function<void(QDialog&)> use);
    [[nodiscard]] bool allUsed() const { return m_uses.isEmpty(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Use {
        QString objectName;
        std::function<void(QDialog&)> use;
    };

    QList<Use> m_uses;
};

/// What the status bar showed, as painted: a text that is set while the program is busy and never painted is none.
class StatusSpy : public QObject {
    Q_OBJECT

public:
    struct Moment {
        QString text;
        bool hourglass;
        bool progressBar;
    };

    explicit StatusSpy(frmKORVEXZDR& window);

    [[nodiscard]] const QList<Moment>& moments() const { return m_moments; }
    [[nodiscard]] QStringList texts() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    frmKORVEXZDR& m_window;
    QList<Moment> m_moments;
};

/// Makes every warning of the toolkit a failure of the running test.
class WarningTrap {
public:
    WarningTrap();
    WarningTrap(const WarningTrap&) = delete;
    WarningTrap& operator=(const WarningTrap&) = delete;
    ~WarningTrap();

    /// The warnings that came while no test was running; a test of every program fails on them.
    [[nodiscard]] static QStringList& beforeTests();

private:
    QtMessageHandler m_previous;
};

/// The window and all that it is made from. The parts can be filled before the window is made by its first use.
class WindowHarness {
public:
    WindowHarness();
    WindowHarness(const WindowHarness&) = delete;
    WindowHarness& operator=(const WindowHarness&) = delete;
    ~WindowHarness();

    [[nodiscard]] Shell shell() { return {globals, settings, boxes, fileDialogs, clipboard}; }

    [[nodiscard]] frmKORVEXZDR& window();
    /// Shows the window and waits until it has the focus.
    void show();
    /// Starts the program as the command line says.
    void start(const QString& commandLine);

    template <class Widget>
    [[nodiscard]] Widget& find(const char* objectName)
    {
        auto* const found = window().findChild<Widget*>(QLatin1String(objectName));
        if (found == nullptr)
            qFatal("The window has no %s of this type.", objectName);
        return *found;
    }
    [[nodiscard]] QAction& item(const char* objectName) { return find<QAction>(objectName); }
    [[nodiscard]] QMenu& menu(const char* objectName) { return find<QMenu>(objectName); }
    [[nodiscard]] SourceListView& view() { return find<SourceListView>("lsvZdroje"); }
    [[nodiscard]] QHeaderView& header();
    /// The panel of StatusBar1.
    [[nodiscard]] QLabel& status();
    [[nodiscard]] SourceListModel& model() { return window().list(); }
    [[nodiscard]] SourceSet& set() { return window().list().set(); }

    /// Appends a source; the list shows it after a refill.
    void append(const SourceType& type, int number, const QString& name = QStringLiteral("X"));
    /// Point sources of these names, numbered from 1, and the list refilled.
    void fillWithNames(const QStringList& names);
    /// Point sources of these numbers, named "Zdroj" and the number, and the list refilled.
    void fillWithNumbers(const QList<int>& numbers);

    [[nodiscard]] QStringList numberColumn();
    [[nodiscard]] QStringList nameColumn();
    /// A letter a row in display order: "X" marked, "-" not.
    [[nodiscard]] QString marks();
    /// Marks as marks() tells them.
    void mark(const QString& marks);

    [[nodiscard]] QPoint rowCentre(int row, int column = SourceListModel::NumberColumn);
    void clickRow(int row, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton,
        int column = SourceListModel::NumberColumn);
    /// The place has to be in the viewport: a click and its double click as the system sends them.
    void doubleClick(QPoint place, Qt::KeyboardModifiers modifiers = {});
    void clickHeader(int column);

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    /// Writes lines as an inventory file has them: in the code page, with CR LF. Returns the path.
    std::string writeFile(const QString& name, const QStringList& lines);
    [[nodiscard]] QByteArray bytes(const QString& name) const;
    /// The three files "body.txt", "popis.txt", "prach.txt" with a record a source in each of them.
    SourceFiles writeInventory(const QStringList& pointsRecords, const QString& comment = {});

    Globals globals;
    MemorySettings settings;
    AnsweringBoxes boxes;
    AnsweringFileChooser chooser;
    FileDialogs fileDialogs{chooser, settings};
    MemoryClipboard clipboard;
    DialogUser dialogs;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<frmKORVEXZDR> m_window;
};

/// A points record: "000000012, 0000000, 0000000, 0000, 1, 0, 0 ;Kotelna".
[[nodiscard]] QString pointsRecord(const SourceType& type, int number, const QString& name);

/// The base of all tests of the shell: a fresh harness for every test function, and at its end nothing left over.
class ShellTest : public QObject {
    Q_OBJECT

protected:
    [[nodiscard]] WindowHarness& harness() { return *m_harness; }

private slots:
    void initTestCase();
    void init();
    void cleanup();

private:
    std::unique_ptr<WarningTrap> m_trap;
    std::unique_ptr<WindowHarness> m_harness;
};

/// Runs a test program with the toolkit made up as the program has it, and folders of its own for what it stores.
int runShellTest(const std::function<std::unique_ptr<QObject>()>& makeTest, int argc, char** argv);

}  // namespace korvex

#define KORVEX_SHELL_TEST_MAIN(Test)                                                                                   \
    int main(int argc, char** argv)                                                                                    \
    {                                                                                                                  \
        return korvex::runShellTest(                                                                                   \
            []() -> std::unique_ptr<QObject> { return std::make_unique<Test>(); }, argc, argv);                        \
    }
