// The About box: its texts, the title's shadow, where the box and its button stand.
#include "dialog_checks.h"
#include "window_harness.h"

#include "version.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include <cstdlib>
#include <functional>

namespace korvex {

class AboutBoxTest : public ShellTest {
    Q_OBJECT

private slots:
    void titleOfTheWindow();
    void titleShadowProductVersionAndLegalNotice();
    void shadowStandsAboveAndToTheRightOfTheTitle();
    void shadowLiesBehindTheTitleInAnotherColour();
    void titleIsInArial();
    void pictureAndLineAreShown();
    void buttonIsCentredAndHasARightCaption();
    void windowIsCentredOverTheMainWindow_data();
    void windowIsCentredOverTheMainWindow();
    void windowIsModalAndHasItsOneButton();
    void buttonEnterEscapeAndCloseBoxCloseIt_data();
    void buttonEnterEscapeAndCloseBoxCloseIt();
    void nothingIsStored();
    void everyFocusableWidgetHasAName();

private:
    void inBox(std::function<void(QDialog&)> use)
    {
        harness().dialogs.useNext(QStringLiteral("About"), std::move(use));
        harness().item("mnuNOAplikaci").trigger();
    }
};

void AboutBoxTest::titleOfTheWindow()
{
    inBox([](QDialog& box) {
        QCOMPARE(box.windowTitle(), QStringLiteral("O aplikaci"));
        box.accept();
    });
}

void AboutBoxTest::titleShadowProductVersionAndLegalNotice()
{
    inBox([](QDialog& box) {
        QCOMPARE(child<QLabel>(box, "lbNazev").text(), QStringLiteral("KORVEX"));
        QCOMPARE(child<QLabel>(box, "lbStin").text(), QStringLiteral("KORVEX"));
        QCOMPARE(child<QLabel>(box, "lbAplikace").text(), QStringLiteral("Produkt: KORVEXv2001 - Zdroje"));
        QCOMPARE(child<QLabel>(box, "lbVerze").text(),
            QStringLiteral("Verze: %1.%2.%3").arg(version::major).arg(version::minor).arg(version::revision));
        QCOMPARE(child<QLabel>(box, "lbVerze").text(), QStringLiteral("Verze: ") + QLatin1String(version::number));
        QCOMPARE(child<QLabel>(box, "lbCopyright").text(), QString::fromUtf8(version::legalNotice));
        box.accept();
    });
}

void AboutBoxTest::shadowStandsAboveAndToTheRightOfTheTitle()
{
    inBox([](QDialog& box) {
        const auto& title = child<QLabel>(box, "lbNazev");
        const auto& shadow = child<QLabel>(box, "lbStin");
        // 50 twips at 15 to the pixel.
        QCOMPARE(shadow.mapTo(&box, QPoint()) - title.mapTo(&box, QPoint()), QPoint(3, -3));
        QCOMPARE(shadow.size(), title.size());
        QVERIFY(title.parentWidget()->rect().contains(title.geometry()));
        QVERIFY(title.parentWidget()->rect().contains(shadow.geometry()));
        box.accept();
    });
}

void AboutBoxTest::shadowLiesBehindTheTitleInAnotherColour()
{
    inBox([](QDialog& box) {
        const auto& title = child<QLabel>(box, "lbNazev");
        const auto& shadow = child<QLabel>(box, "lbStin");
        QVERIFY(title.palette().color(title.foregroundRole()) != shadow.palette().color(shadow.foregroundRole()));
        const QObjectList& siblings = title.parentWidget()->children();
        QVERIFY(siblings.indexOf(&shadow) < siblings.indexOf(&title));
        box.accept();
    });
}

void AboutBoxTest::titleIsInArial()
{
    inBox([](QDialog& box) {
        for (const char* const name : {"lbNazev", "lbStin"})
            QCOMPARE(child<QLabel>(box, name).font().family(), QStringLiteral("Arial"));
        box.accept();
    });
}

void AboutBoxTest::pictureAndLineAreShown()
{
    inBox([](QDialog& box) {
        const auto& picture = child<QLabel>(box, "Image1");
        QVERIFY(!picture.pixmap(Qt::ReturnByValue).isNull());
        QVERIFY(picture.isVisible());
        QCOMPARE(child<QFrame>(box, "Line1").frameShape(), QFrame::HLine);
        QVERIFY(child<QFrame>(box, "Line1").isVisible());
        box.accept();
    });
}

void AboutBoxTest::buttonIsCentredAndHasARightCaption()
{
    inBox([](QDialog& box) {
        const auto& button = child<QPushButton>(box, "cbOk");
        QCOMPARE(button.text(), QStringLiteral("&Ok"));
        const int left = button.mapTo(&box, QPoint()).x();
        QVERIFY2(std::abs(left - (box.width() - button.width()) / 2) <= 1, qPrintable(QString::number(left)));
        box.accept();
    });
}

void AboutBoxTest::windowIsCentredOverTheMainWindow_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::newRow("at the corner") << QPoint(0, 0);
    QTest::newRow("further in") << QPoint(130, 90);
}

void AboutBoxTest::windowIsCentredOverTheMainWindow()
{
    QFETCH(const QPoint, place);
    harness().show();
    harness().window().move(place);
    harness().window().resize(600, 400);
    // The second time the toolkit knows how big the box and its frame are.
    for (int opening = 0; opening < 2; ++opening) {
        inBox([this](QDialog& box) {
            const QPoint off = box.frameGeometry().center() - harness().window().frameGeometry().center();
            constexpr int most = 4;  // half of a thin frame, and rounding
            QVERIFY2(off.manhattanLength() <= most, qPrintable(QStringLiteral("%1, %2").arg(off.x()).arg(off.y())));
            box.accept();
        });
    }
}

void AboutBoxTest::windowIsModalAndHasItsOneButton()
{
    inBox([](QDialog& box) {
        QVERIFY(box.isModal());
        QCOMPARE(box.findChildren<QAbstractButton*>().size(), 1);
        QCOMPARE(defaultButtons(box), QStringList{QStringLiteral("cbOk")});
        box.accept();
    });
}

void AboutBoxTest::buttonEnterEscapeAndCloseBoxCloseIt_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("Enter") << 1;
    QTest::newRow("Escape") << 2;
    QTest::newRow("close box") << 3;
}

void AboutBoxTest::buttonEnterEscapeAndCloseBoxCloseIt()
{
    QFETCH(const int, way);
    inBox([way](QDialog& box) {
        QVERIFY(box.isVisible());
        if (way == 0)
            child<QPushButton>(box, "cbOk").click();
        else if (way == 1)
            QTest::keyClick(&box, Qt::Key_Return);
        else if (way == 2)
            QTest::keyClick(&box, Qt::Key_Escape);
        else
            box.close();
        QVERIFY(!box.isVisible());
    });
}

void AboutBoxTest::nothingIsStored()
{
    inBox([](QDialog& box) {
        box.move(200, 100);
        box.accept();
    });
    QVERIFY(harness().settings.texts().isEmpty());
}

void AboutBoxTest::everyFocusableWidgetHasAName()
{
    inBox([](QDialog& box) {
        QCOMPARE(namelessWidgets(box), QStringList());
        box.accept();
    });
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::AboutBoxTest)

#include "about_box_test.moc"
