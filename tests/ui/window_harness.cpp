#include "window_harness.h"

#include "code_page.h"
#include "czech_toolkit.h"
#include "number_text.h"
#include "start_up.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QTimer>

#include <utility>

namespace korvex {

namespace {

/// Warnings that no code of ours can avoid, by their exact text: the offscreen platform says so of any program.
const QStringList unavoidableWarnings{
    // It has no window manager to tell the least size to, which comes from the layout of every window that is shown.
    QStringLiteral("This plugin does not support propagateSizeHints()"),
    // Every menu that opens is raised and takes the keyboard.
    QStringLiteral("This plugin does not support raise()"),
    QStringLiteral("This plugin does not support grabbing the keyboard"),
};

QtMessageHandler handlerBelow = nullptr;
bool testIsRunning = false;

void failOnWarning(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const bool isWarning = type == QtWarningMsg || type == QtCriticalMsg || type == QtFatalMsg;
    if (isWarning && !unavoidableWarnings.contains(message)) {
        if (testIsRunning)
            QTest::qFail(qPrintable(QStringLiteral("a warning of the toolkit: ") + message), __FILE__, __LINE__);
        else
            WarningTrap::beforeTests().append(message);
    }
    if (handlerBelow != nullptr && (!isWarning || type == QtFatalMsg))
        handlerBelow(type, context, message);
}

const char* nameOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Information:
        return "Information";
    case BoxIcon::Question:
        return "Question";
    case BoxIcon::Exclamation:
        return "Exclamation";
    case BoxIcon::Critical:
        return "Critical";
    }
    return "?";
}

const char* nameOf(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::Ok:
        return "Ok";
    case BoxButtons::YesNo:
        return "YesNo";
    case BoxButtons::YesNoCancel:
        return "YesNoCancel";
    }
    return "?";
}

bool hasButton(BoxButtons buttons, BoxAnswer answer)
{
    switch (answer) {
    case BoxAnswer::Ok:
        return buttons == BoxButtons::Ok;
    case BoxAnswer::Cancel:
        return buttons == BoxButtons::YesNoCancel;
    case BoxAnswer::Yes:
    case BoxAnswer::No:
        return buttons != BoxButtons::Ok;
    }
    return false;
}

/// The answer that does least.
BoxAnswer harmlessAnswer(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::Ok:
        return BoxAnswer::Ok;
    case BoxButtons::YesNo:
        return BoxAnswer::No;
    case BoxButtons::YesNoCancel:
        break;
    }
    return BoxAnswer::Cancel;
}

void fail(const QString& text)
{
    QTest::qFail(qPrintable(text), __FILE__, __LINE__);
}

}  // namespace

QString MemorySettings::get(const QString& section, const QString& key, const QString& defaultText) const
{
    return m_texts.value(section + QLatin1Char('/') + key, defaultText);
}

void MemorySettings::save(const QString& section, const QString& key, const QString& text)
{
    m_texts[section + QLatin1Char('/') + key] = text;
}

QString describe(const BoxRequest& box)
{
    return QStringLiteral("[%1] %2 | %3 | %4 | %5")
        .arg(QLatin1String(nameOf(box.icon)), box.title, box.text, QLatin1String(nameOf(box.buttons)), box.details);
}

void AnsweringBoxes::answerNext(BoxAnswer answer, std::function<void()> whileShown)
{
    m_answers.append({answer, std::move(whileShown)});
}

BoxAnswer AnsweringBoxes::show(QWidget* /*parent*/, const BoxRequest& request)
{
    m_shown.append(request);
    if (m_answers.isEmpty()) {
        fail(QStringLiteral("an unexpected box: ") + describe(request));
        return harmlessAnswer(request.buttons);
    }
    const Answer answer = m_answers.takeFirst();
    if (!hasButton(request.buttons, answer.answer)) {
        fail(QStringLiteral("a box without the button of the answer: ") + describe(request));
        return harmlessAnswer(request.buttons);
    }
    if (answer.whileShown)
        answer.whileShown();
    return answer.answer;
}

QString AnsweringFileChooser::open(QWidget* /*parent*/, const FileQuestion& question)
{
    return answer({false, question});
}

QString AnsweringFileChooser::save(QWidget* /*parent*/, const FileQuestion& question)
{
    return answer({true, question});
}

QString AnsweringFileChooser::answer(Shown shown)
{
    m_shown.append(std::move(shown));
    if (m_paths.isEmpty()) {
        fail(QStringLiteral("an unexpected file dialog: ") + m_shown.last().question.title);
        return {};
    }
    return m_paths.takeFirst();
}

DialogUser::DialogUser()
{
    QCoreApplication::instance()->installEventFilter(this);
}

void DialogUser::useNext(const QString& objectName, std::function<void(QDialog&)> use)
{
    m_uses.append({objectName, std::move(use)});
}

bool DialogUser::eventFilter(QObject* watched, QEvent* event)
{
    auto* const dialog = event->type() == QEvent::Show ? qobject_cast<QDialog*>(watched) : nullptr;
    if (dialog == nullptr)
        return false;
    if (m_uses.isEmpty() || m_uses.first().objectName != dialog->objectName()) {
        fail(QStringLiteral("an unexpected dialog: ") + dialog->objectName());
        QTimer::singleShot(0, dialog, &QDialog::reject);
        return false;
    }
    // Later: the dialog's own loop has to run before it can be left.
    QTimer::singleShot(0, dialog, [dialog, use = m_uses.takeFirst().use] {
        use(*dialog);
        if (dialog->isVisible()) {
            fail(QStringLiteral("a dialog was left open: ") + dialog->objectName());
            dialog->reject();
        }
    });
    return false;
}

StatusSpy::StatusSpy(frmKORVEXZDR& window) : m_window(window)
{
    window.statusLabel().installEventFilter(this);
}

QStringList StatusSpy::texts() const
{
    QStringList texts;
    for (const Moment& moment : m_moments)
        texts << moment.text;
    return texts;
}

bool StatusSpy::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        const QString text = m_window.statusLabel().text();
        const QCursor* const pointer = QGuiApplication::overrideCursor();
        if (m_moments.isEmpty() || m_moments.last().text != text)
            m_moments.append({text, pointer != nullptr && pointer->shape() == Qt::WaitCursor,
                m_window.progressBar().isVisibleTo(&m_window)});
    }
    return QObject::eventFilter(watched, event);
}

WarningTrap::WarningTrap() : m_previous(qInstallMessageHandler(failOnWarning))
{
    if (m_previous != failOnWarning)
        handlerBelow = m_previous;
}

WarningTrap::~WarningTrap()
{
    qInstallMessageHandler(m_previous);
}

QStringList& WarningTrap::beforeTests()
{
    static QStringList warnings;
    return warnings;
}

WindowHarness::WindowHarness() = default;

WindowHarness::~WindowHarness() = default;

frmKORVEXZDR& WindowHarness::window()
{
    if (!m_window)
        m_window = std::make_unique<frmKORVEXZDR>(shell());
    return *m_window;
}

void WindowHarness::show()
{
    window().show();
    if (!QTest::qWaitForWindowActive(&window()))
        fail(QStringLiteral("the window does not become active"));
}

void WindowHarness::start(const QString& commandLine)
{
    cArgumenty arguments;
    arguments.Parse(commandLine.toStdString());
    startUp(arguments, window());
}

QHeaderView& WindowHarness::header()
{
    return *view().horizontalHeader();
}

QLabel& WindowHarness::status()
{
    auto* const panel = find<QStatusBar>("StatusBar1").findChild<QLabel*>();
    if (panel == nullptr)
        qFatal("The status bar has no panel.");
    return *panel;
}

void WindowHarness::append(const SourceType& type, int number, const QString& name)
{
    set().addFromRecords(type, pointsRecord(type, number, name).toStdString(), {});
}

void WindowHarness::fillWithNames(const QStringList& names)
{
    int number = 0;
    for (const QString& name : names)
        append(cBodovyZdroj, ++number, name);
    window().refill();
}

void WindowHarness::fillWithNumbers(const QList<int>& numbers)
{
    for (const int number : numbers)
        append(cBodovyZdroj, number, QStringLiteral("Zdroj %1").arg(number));
    window().refill();
}

QStringList WindowHarness::numberColumn()
{
    QStringList texts;
    for (int row = 0; row < model().rowCount(); ++row)
        texts << model().index(row, SourceListModel::NumberColumn).data().toString();
    return texts;
}

QStringList WindowHarness::nameColumn()
{
    QStringList texts;
    for (int row = 0; row < model().rowCount(); ++row)
        texts << model().index(row, SourceListModel::NameColumn).data().toString();
    return texts;
}

QString WindowHarness::marks()
{
    QString marks;
    for (int row = 0; row < model().rowCount(); ++row)
        marks += model().marked(row) ? QLatin1Char('X') : QLatin1Char('-');
    return marks;
}

void WindowHarness::mark(const QString& marks)
{
    if (marks.size() != model().rowCount())
        qFatal("There are %d rows to mark.", model().rowCount());
    for (int row = 0; row < model().rowCount(); ++row)
        model().mark(row, marks.at(row) == QLatin1Char('X'));
}

QPoint WindowHarness::rowCentre(int row, int column)
{
    return view().visualRect(model().index(row, column)).center();
}

void WindowHarness::clickRow(int row, Qt::KeyboardModifiers modifiers, Qt::MouseButton button, int column)
{
    QTest::mouseClick(view().viewport(), button, modifiers, rowCentre(row, column));
}

void WindowHarness::doubleClick(QPoint place, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(view().viewport(), Qt::LeftButton, modifiers, place);
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, modifiers, place);
    QTest::mouseRelease(view().viewport(), Qt::LeftButton, modifiers, place);
}

void WindowHarness::clickHeader(int column)
{
    const QPoint place(
        header().sectionViewportPosition(column) + header().sectionSize(column) / 2, header().viewport()->height() / 2);
    QTest::mouseClick(header().viewport(), Qt::LeftButton, {}, place);
}

std::string WindowHarness::writeFile(const QString& name, const QStringList& lines)
{
    std::string bytes;
    for (const QString& line : lines)
        bytes += encodeCodePage(line.toStdString()) + "\r\n";
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray::fromStdString(bytes)) < 0)
        qFatal("The test cannot write %s.", qPrintable(file.fileName()));
    return QFile::encodeName(file.fileName()).toStdString();
}

QByteArray WindowHarness::bytes(const QString& name) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::ReadOnly))
        fail(QStringLiteral("there is no file ") + name);
    return file.readAll();
}

SourceFiles WindowHarness::writeInventory(const QStringList& pointsRecords, const QString& comment)
{
    QStringList points = pointsRecords;
    if (!comment.isEmpty())
        points.prepend(QLatin1Char(';') + comment);
    QStringList descriptions;
    QStringList dust;
    for (const QString& record : pointsRecords) {
        const QString number = record.section(QLatin1Char(','), 0, 0);
        descriptions << number + QStringLiteral(", 1.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0");
        dust << number + QStringLiteral(",2000,0,1,10,1");
    }
    return {writeFile(QStringLiteral("body.txt"), points), writeFile(QStringLiteral("popis.txt"), descriptions),
        writeFile(QStringLiteral("prach.txt"), dust)};
}

QString pointsRecord(const SourceType& type, int number, const QString& name)
{
    return QStringLiteral("%1, 0000000, 0000000, 0000, %2, 0, 0 ;%3")
        .arg(QString::fromStdString(integerText(number, Pattern::SourceNumber)))
        .arg(type.TypZdrojeId)
        .arg(name);
}

void ShellTest::initTestCase()
{
    QCOMPARE(WarningTrap::beforeTests(), QStringList());
}

void ShellTest::init()
{
    m_trap = std::make_unique<WarningTrap>();
    testIsRunning = true;
    m_harness = std::make_unique<WindowHarness>();
}

void ShellTest::cleanup()
{
    const bool allBoxesCame = m_harness->boxes.allAnswersUsed();
    const bool allFileDialogsCame = m_harness->chooser.allAnswersUsed();
    const bool allDialogsCame = m_harness->dialogs.allUsed();
    const bool progressIsHidden = m_harness->find<QProgressBar>("paProgress").isHidden();
    const bool pointerIsNormal = QGuiApplication::overrideCursor() == nullptr;
    m_harness.reset();
    testIsRunning = false;
    m_trap.reset();

    QVERIFY2(allBoxesCame, "a box that the test expected did not come");
    QVERIFY2(allFileDialogsCame, "a file dialog that the test expected did not come");
    QVERIFY2(allDialogsCame, "a dialog that the test expected did not come");
    QVERIFY2(progressIsHidden, "the progress bar was left on the window");
    QVERIFY2(pointerIsNormal, "the hourglass was left on");
}

int runShellTest(const std::function<std::unique_ptr<QObject>()>& makeTest, int argc, char** argv)
{
    const WarningTrap trap;
    // By hand the programs are run without the environment that the suite gives them.
    const QTemporaryDir home;
    for (const char* const variable : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, QFile::encodeName(home.path()));
    prepareToolkit();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("korvexzdr"));
    makeToolkitCzech(application);
    const std::unique_ptr<QObject> test = makeTest();
    return QTest::qExec(test.get(), argc, argv);
}

}  // namespace korvex
