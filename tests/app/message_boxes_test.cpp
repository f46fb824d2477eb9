// The real message boxes: their Czech buttons, order and default, what Escape and closing answer, and plain text.
#include "message_boxes.h"

#include "czech_toolkit.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QString>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <functional>
#include <optional>

namespace korvex {

namespace {

BoxRequest question(BoxButtons buttons)
{
    return {QStringLiteral("Titulek"), QStringLiteral("Otázka ?"), BoxIcon::Question, buttons, {}};
}

/// As a user reads them, from left to right. A style may show an icon; the text is what counts.
QList<QAbstractButton*> buttonsFromLeft(const QMessageBox& box)
{
    QList<QAbstractButton*> buttons = box.buttons();
    std::sort(buttons.begin(), buttons.end(), [](const QAbstractButton* left, const QAbstractButton* right) {
        return left->mapToGlobal(QPoint()).x() < right->mapToGlobal(QPoint()).x();
    });
    return buttons;
}

QString captions(const QMessageBox& box)
{
    QStringList texts;
    for (const QAbstractButton* const button : buttonsFromLeft(box))
        texts << button->text();
    return texts.join(QLatin1Char(' '));
}

QPushButton* button(const QMessageBox& box, const QString& caption)
{
    for (QAbstractButton* const candidate : box.buttons()) {
        if (candidate->text().remove(QLatin1Char('&')) == caption)
            return qobject_cast<QPushButton*>(candidate);
    }
    return nullptr;
}

QLabel* textLabel(const QMessageBox& box)
{
    return box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
}

/// Everything that is on its way to the box has arrived when this returns.
void settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

}  // namespace

class MessageBoxesTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void buttonsAreCzechAndInOrder_data();
    void buttonsAreCzechAndInOrder();
    void enterAnswersWithTheFirstButton_data();
    void enterAnswersWithTheFirstButton();
    void detailsDoNotTakeTheDefaultAway();
    void eachButtonGivesItsAnswer_data();
    void eachButtonGivesItsAnswer();
    void underlinedLetterAnswers_data();
    void underlinedLetterAnswers();
    void escapeAndClosingAnswerWhereTheyCan_data();
    void escapeAndClosingAnswerWhereTheyCan();
    void boxWithYesAndNoOnlyStaysOnEscapeAndClosing();
    void iconIsTheOneAskedFor_data();
    void iconIsTheOneAskedFor();
    void titleIsTheOneGivenOrTheApplications();
    void textIsShownAsTyped_data();
    void textIsShownAsTyped();
    void longPathFitsTheScreen();
    void detailsAreShownOnDemandInCzech();
    void withoutDetailsNothingOffersThem();
    void boxOverAWindowLeavesOtherWindowsAlone();

private:
    using Look = std::function<void(QMessageBox&)>;
    /// Shows a box and hands it over once it can be used. The box is open no longer when this returns; one that
    /// nothing answered gives no answer.
    std::optional<BoxAnswer> shown(const BoxRequest& request, const Look& look, QWidget* parent = nullptr);
};

void MessageBoxesTest::init()
{
    // Any but the one that the platform without a display gives for every window.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support propagateSizeHints)")));
}

std::optional<BoxAnswer> MessageBoxesTest::shown(const BoxRequest& request, const Look& look, QWidget* parent)
{
    constexpr int pollMilliseconds = 5;
    constexpr qint64 deadlineMilliseconds = 20000;
    // The timer dies with this object: one left over would work the next box.
    QObject context;
    QElapsedTimer clock;
    clock.start();
    bool wasSeen = false;
    bool wasAnswered = true;
    auto* const poll = new QTimer(&context);
    QObject::connect(poll, &QTimer::timeout, &context, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || (!box->isActiveWindow() && clock.elapsed() < deadlineMilliseconds))
            return;
        poll->stop();
        wasSeen = true;
        look(*box);
        settle();
        if (box->isVisible()) {
            wasAnswered = false;
            box->done(0);
        }
    });
    poll->start(pollMilliseconds);
    ToolkitMessageBoxes boxes;
    const BoxAnswer answer = boxes.show(parent, request);
    if (!wasSeen)
        QTest::qFail("the box closed before it was looked at", __FILE__, __LINE__);
    return wasAnswered ? std::optional(answer) : std::nullopt;
}

void MessageBoxesTest::buttonsAreCzechAndInOrder_data()
{
    QTest::addColumn<BoxButtons>("buttons");
    QTest::addColumn<QString>("expected");
    QTest::newRow("one button") << BoxButtons::Ok << "OK";
    QTest::newRow("yes and no") << BoxButtons::YesNo << "&Ano &Ne";
    QTest::newRow("three buttons") << BoxButtons::YesNoCancel << "&Ano &Ne &Storno";
}

void MessageBoxesTest::buttonsAreCzechAndInOrder()
{
    QFETCH(const BoxButtons, buttons);
    QFETCH(const QString, expected);
    shown(question(buttons), [&](const QMessageBox& box) { QCOMPARE(captions(box), expected); });
}

void MessageBoxesTest::enterAnswersWithTheFirstButton_data()
{
    QTest::addColumn<BoxButtons>("buttons");
    QTest::addColumn<int>("key");
    QTest::addColumn<BoxAnswer>("expected");
    for (const auto& [name, key] : {std::pair("return", Qt::Key_Return), std::pair("enter", Qt::Key_Enter)}) {
        QTest::addRow("one button, %s", name) << BoxButtons::Ok << int(key) << BoxAnswer::Ok;
        QTest::addRow("yes and no, %s", name) << BoxButtons::YesNo << int(key) << BoxAnswer::Yes;
        QTest::addRow("three buttons, %s", name) << BoxButtons::YesNoCancel << int(key) << BoxAnswer::Yes;
    }
}

void MessageBoxesTest::enterAnswersWithTheFirstButton()
{
    QFETCH(const BoxButtons, buttons);
    QFETCH(const int, key);
    QFETCH(const BoxAnswer, expected);
    const auto answer = shown(question(buttons), [&](QMessageBox& box) {
        QVERIFY(qobject_cast<QPushButton*>(buttonsFromLeft(box).front())->isDefault());
        QCOMPARE(box.focusWidget(), buttonsFromLeft(box).front());
        QTest::keyClick(&box, static_cast<Qt::Key>(key));
    });
    QCOMPARE(answer, std::optional(expected));
}

void MessageBoxesTest::detailsDoNotTakeTheDefaultAway()
{
    for (const BoxButtons buttons : {BoxButtons::Ok, BoxButtons::YesNo, BoxButtons::YesNoCancel}) {
        BoxRequest request = question(buttons);
        request.details = QStringLiteral("řádek 1");
        const auto answer = shown(request, [&](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        QCOMPARE(answer, std::optional(buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::Yes));
    }
}

void MessageBoxesTest::eachButtonGivesItsAnswer_data()
{
    QTest::addColumn<BoxButtons>("buttons");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<BoxAnswer>("expected");
    QTest::newRow("OK") << BoxButtons::Ok << "OK" << BoxAnswer::Ok;
    QTest::newRow("Ano of two") << BoxButtons::YesNo << "Ano" << BoxAnswer::Yes;
    QTest::newRow("Ne of two") << BoxButtons::YesNo << "Ne" << BoxAnswer::No;
    QTest::newRow("Ano of three") << BoxButtons::YesNoCancel << "Ano" << BoxAnswer::Yes;
    QTest::newRow("Ne of three") << BoxButtons::YesNoCancel << "Ne" << BoxAnswer::No;
    QTest::newRow("Storno") << BoxButtons::YesNoCancel << "Storno" << BoxAnswer::Cancel;
}

void MessageBoxesTest::eachButtonGivesItsAnswer()
{
    QFETCH(const BoxButtons, buttons);
    QFETCH(const QString, caption);
    QFETCH(const BoxAnswer, expected);
    const auto answer = shown(question(buttons), [&](const QMessageBox& box) {
        QVERIFY(button(box, caption) != nullptr);
        QTest::mouseClick(button(box, caption), Qt::LeftButton);
    });
    QCOMPARE(answer, std::optional(expected));
}

void MessageBoxesTest::underlinedLetterAnswers_data()
{
    QTest::addColumn<BoxButtons>("buttons");
    QTest::addColumn<int>("key");
    QTest::addColumn<BoxAnswer>("expected");
    for (const auto& [name, buttons] :
        {std::pair("two", BoxButtons::YesNo), std::pair("three", BoxButtons::YesNoCancel)}) {
        QTest::addRow("A of %s", name) << buttons << int(Qt::Key_A) << BoxAnswer::Yes;
        QTest::addRow("N of %s", name) << buttons << int(Qt::Key_N) << BoxAnswer::No;
    }
    QTest::newRow("S of three") << BoxButtons::YesNoCancel << int(Qt::Key_S) << BoxAnswer::Cancel;
}

void MessageBoxesTest::underlinedLetterAnswers()
{
    QFETCH(const BoxButtons, buttons);
    QFETCH(const int, key);
    QFETCH(const BoxAnswer, expected);
    const auto answer = shown(question(buttons), [&](QMessageBox& box) {
        QTest::keyClick(&box, static_cast<Qt::Key>(key), Qt::AltModifier);
        // The button is shown pressed for a moment first.
        QTRY_VERIFY(!box.isVisible());
    });
    QCOMPARE(answer, std::optional(expected));
}

void MessageBoxesTest::escapeAndClosingAnswerWhereTheyCan_data()
{
    QTest::addColumn<BoxButtons>("buttons");
    QTest::addColumn<QString>("details");
    QTest::addColumn<BoxAnswer>("expected");
    QTest::newRow("one button") << BoxButtons::Ok << "" << BoxAnswer::Ok;
    QTest::newRow("three buttons") << BoxButtons::YesNoCancel << "" << BoxAnswer::Cancel;
    QTest::newRow("one button and details") << BoxButtons::Ok << "řádek 1" << BoxAnswer::Ok;
    QTest::newRow("three buttons and details") << BoxButtons::YesNoCancel << "řádek 1" << BoxAnswer::Cancel;
}

void MessageBoxesTest::escapeAndClosingAnswerWhereTheyCan()
{
    QFETCH(const BoxButtons, buttons);
    QFETCH(const QString, details);
    QFETCH(const BoxAnswer, expected);
    BoxRequest request = question(buttons);
    request.details = details;
    QCOMPARE(shown(request, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }), std::optional(expected));
    QCOMPARE(shown(request, [](QMessageBox& box) { box.close(); }), std::optional(expected));
}

void MessageBoxesTest::boxWithYesAndNoOnlyStaysOnEscapeAndClosing()
{
    for (const QString& details : {QString(), QStringLiteral("řádek 1")}) {
        BoxRequest request = question(BoxButtons::YesNo);
        request.details = details;
        const auto answer = shown(request, [](QMessageBox& box) {
            QTest::keyClick(&box, Qt::Key_Escape);
            settle();
            QVERIFY(box.isVisible());
            QVERIFY(!box.close());
            settle();
            QVERIFY(box.isVisible());
            // Still of use: No answers No.
            QTest::mouseClick(button(box, QStringLiteral("Ne")), Qt::LeftButton);
        });
        QCOMPARE(answer, std::optional(BoxAnswer::No));
    }
}

void MessageBoxesTest::iconIsTheOneAskedFor_data()
{
    QTest::addColumn<BoxIcon>("icon");
    QTest::addColumn<QMessageBox::Icon>("expected");
    QTest::newRow("information") << BoxIcon::Information << QMessageBox::Information;
    QTest::newRow("question") << BoxIcon::Question << QMessageBox::Question;
    QTest::newRow("exclamation") << BoxIcon::Exclamation << QMessageBox::Warning;
    QTest::newRow("critical") << BoxIcon::Critical << QMessageBox::Critical;
}

void MessageBoxesTest::iconIsTheOneAskedFor()
{
    QFETCH(const BoxIcon, icon);
    QFETCH(const QMessageBox::Icon, expected);
    BoxRequest request = question(BoxButtons::Ok);
    request.icon = icon;
    shown(request, [&](const QMessageBox& box) {
        QCOMPARE(box.icon(), expected);
        QVERIFY(!box.iconPixmap().isNull());
    });
}

void MessageBoxesTest::titleIsTheOneGivenOrTheApplications()
{
    BoxRequest request = question(BoxButtons::Ok);
    shown(request, [](const QMessageBox& box) { QCOMPARE(box.windowTitle(), QStringLiteral("Titulek")); });
    request.title.clear();
    shown(request, [](const QMessageBox& box) { QCOMPARE(box.windowTitle(), QStringLiteral("KORVEX")); });
}

void MessageBoxesTest::textIsShownAsTyped_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("mark-up") << "<b>tučně</b> & <br> &amp;";
    QTest::newRow("a page of mark-up") << "<html><body><h1>Zdroj</h1></body></html>";
    QTest::newRow("line ends") << "V popisném souboru nebylo\nnalezeno 3 zdrojů.";
    QTest::newRow("ampersand") << "Hůrka && syn";
    QTest::newRow("empty") << "";
}

void MessageBoxesTest::textIsShownAsTyped()
{
    QFETCH(const QString, text);
    BoxRequest request = question(BoxButtons::Ok);
    request.text = text;
    shown(request, [&](const QMessageBox& box) {
        QLabel* const label = textLabel(box);
        QVERIFY(label != nullptr);
        QCOMPARE(label->textFormat(), Qt::PlainText);
        // Places without width, where a long path may be broken, are no text.
        QCOMPARE(label->text().remove(QChar(0x200B)), text);
        QVERIFY(label->buddy() == nullptr);
    });
}

void MessageBoxesTest::longPathFitsTheScreen()
{
    BoxRequest request = question(BoxButtons::Ok);
    request.text = QStringLiteral("Soubor nelze otevřít.\n\n") + QStringLiteral("/slozka-v-dlouhe-ceste").repeated(60);
    shown(
        request, [](const QMessageBox& box) { QVERIFY(box.frameGeometry().width() <= box.screen()->size().width()); });
}

void MessageBoxesTest::detailsAreShownOnDemandInCzech()
{
    BoxRequest request = question(BoxButtons::Ok);
    request.details = QStringLiteral("řádek 5: zdroj <b>1</b>");
    shown(request, [&](const QMessageBox& box) {
        QCOMPARE(box.detailedText(), request.details);
        const QList<QAbstractButton*> all = box.buttons();
        QCOMPARE(all.size(), 2);
        const auto offers
            = [](const QAbstractButton* one) { return one->text().contains(QStringLiteral("podrobnosti")); };
        const auto details = std::find_if(all.begin(), all.end(), offers);
        QVERIFY2(details != all.end(), qPrintable(captions(box)));
    });
}

void MessageBoxesTest::withoutDetailsNothingOffersThem()
{
    shown(question(BoxButtons::YesNo), [](const QMessageBox& box) {
        QCOMPARE(box.buttons().size(), 2);
        QCOMPARE(box.detailedText(), QString());
    });
}

void MessageBoxesTest::boxOverAWindowLeavesOtherWindowsAlone()
{
    QWidget owner;
    owner.show();
    QVERIFY(QTest::qWaitForWindowExposed(&owner));
    shown(
        question(BoxButtons::Ok),
        [&](const QMessageBox& box) {
            QCOMPARE(box.windowModality(), Qt::WindowModal);
            QCOMPARE(box.parentWidget(), &owner);
        },
        &owner);
    shown(
        question(BoxButtons::Ok), [](const QMessageBox& box) { QCOMPARE(box.windowModality(), Qt::ApplicationModal); });
}

}  // namespace korvex

// As the program makes its toolkit up.
int main(int argc, char** argv)
{
    korvex::prepareToolkit();
    QApplication application(argc, argv);
    korvex::makeToolkitCzech(application);
    korvex::MessageBoxesTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "message_boxes_test.moc"
