// Copying the marked rows: what reaches the clipboard, and the desktop's clipboard itself.
#include "window_harness.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>

namespace korvex {

class ClipboardTest : public ShellTest {
    Q_OBJECT

private slots:
    void rowsTwoAndFiveAreTwoLinesInDisplayOrder();
    void displayOrderOfASortIsFollowed();
    void withoutAMarkAnEmptyTextIsPut();
    void linesAreWhatTheListShows();
    void copyingKeepsMarksFlagAndStatus();
    void pointerIsNormalAfterwards();

    void desktopClipboardHoldsThePlainText();
    void desktopClipboardForgetsWhatItHeld();
};

void ClipboardTest::rowsTwoAndFiveAreTwoLinesInDisplayOrder()
{
    harness().fillWithNumbers({11, 12, 13, 14, 15, 16});
    harness().mark(QStringLiteral("-X--X-"));
    harness().item("mnuVybraneZdrojeSchranka").trigger();
    QCOMPARE(
        harness().clipboard.texts(), QStringList{QStringLiteral("000000012\tZdroj 12\r\n000000015\tZdroj 15\r\n")});
}

void ClipboardTest::displayOrderOfASortIsFollowed()
{
    harness().fillWithNames({QStringLiteral("cihelna"), QStringLiteral("Čáslav"), QStringLiteral("Adamov")});
    harness().model().sortByHeader(SourceListModel::NameColumn);
    harness().mark(QStringLiteral("XXX"));
    harness().item("mnuVybraneZdrojeSchranka").trigger();
    QCOMPARE(harness().clipboard.texts(),
        QStringList{QStringLiteral("000000003\tAdamov\r\n000000001\tcihelna\r\n000000002\tČáslav\r\n")});
}

void ClipboardTest::withoutAMarkAnEmptyTextIsPut()
{
    harness().fillWithNumbers({11, 12});
    harness().item("mnuVybraneZdrojeSchranka").trigger();
    QCOMPARE(harness().clipboard.texts(), QStringList{QString()});
}

void ClipboardTest::linesAreWhatTheListShows()
{
    harness().append(cBodovyZdroj, 1, QStringLiteral(" Kotelna, sever "));
    harness().append(cLiniovyZdroj, 1234567890, QString());
    harness().window().refill();
    harness().model().markAll(true);
    harness().item("mnuVybraneZdrojeSchranka").trigger();
    QString expected;
    for (int row = 0; row < 2; ++row)
        expected += harness().numberColumn().value(row) + QLatin1Char('\t') + harness().nameColumn().value(row)
            + QStringLiteral("\r\n");
    QCOMPARE(harness().clipboard.texts(), QStringList{expected});
    QCOMPARE(expected, QStringLiteral("000000001\t Kotelna, sever \r\n1234567890\t\r\n"));
}

void ClipboardTest::copyingKeepsMarksFlagAndStatus()
{
    harness().fillWithNumbers({11, 12});
    harness().mark(QStringLiteral("-X"));
    harness().set().modified(true);
    harness().item("mnuVybraneZdrojeSchranka").trigger();
    QCOMPARE(harness().marks(), QStringLiteral("-X"));
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().status().text(), QString());
}

void ClipboardTest::pointerIsNormalAfterwards()
{
    harness().fillWithNumbers({11});
    harness().item("mnuVybraneZdrojeSchranka").trigger();
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void ClipboardTest::desktopClipboardHoldsThePlainText()
{
    DesktopClipboard desktop;
    const QString text = QStringLiteral("000000012\tŽlutý kůň\r\n000000015\tZdroj 15\r\n");
    desktop.put(text);
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data != nullptr);
    QCOMPARE(data->text(), text);
    QCOMPARE(data->formats(), QStringList{QStringLiteral("text/plain")});
}

void ClipboardTest::desktopClipboardForgetsWhatItHeld()
{
    auto* const picture = new QMimeData;
    picture->setData(QStringLiteral("image/png"), "not a picture");
    picture->setText(QStringLiteral("old"));
    QGuiApplication::clipboard()->setMimeData(picture);
    DesktopClipboard desktop;
    desktop.put({});
    QCOMPARE(QGuiApplication::clipboard()->text(), QString());
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data == nullptr || !data->hasFormat(QStringLiteral("image/png")));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::ClipboardTest)

#include "clipboard_test.moc"
