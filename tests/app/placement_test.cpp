// Windows that reopen where they were left: what is stored, what is taken back, and what is done with damaged values.
#include "window_harness.h"

#include "placement.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <memory>

namespace korvex {
namespace {

const QString freeSection = QStringLiteral("Form:frmZkouska");
const QString subordinateSection = QStringLiteral("SubForm:frmPodokno");

constexpr QSize designedSize(320, 240);

/// What placement has to say goes through events that come later.
void letTheWindowSettle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
    QTest::qWait(0);
    QCoreApplication::processEvents();
}

/// One opening of a free window, as a run of the program would make it.
class FreeWindow {
public:
    explicit FreeWindow(SettingsStore& store, Resizable resizable = Resizable::Yes)
        : placement(window, store, resizable)
    {
        window.setObjectName(QStringLiteral("frmZkouska"));
        window.resize(designedSize);
        window.setMinimumSize(resizable == Resizable::No ? designedSize : QSize(40, 40));
        placement.restore();
    }

    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        letTheWindowSettle();
    }
    void moveTo(QPoint place, QSize size)
    {
        window.resize(size);
        window.move(place);
        letTheWindowSettle();
    }

    QWidget window;
    FreePlacement placement;
};

}  // namespace

class PlacementTest : public ShellTest {
    Q_OBJECT

private slots:
    void freeWindowFirstOpensAtTheTopLeftCornerWithItsDesignedSize();
    void freeWindowIsStoredInTwipsUnderItsName();
    void freeWindowReopensWhereItWasLeft();
    void freeWindowDoesNotCreepOverFiveRuns_data();
    void freeWindowDoesNotCreepOverFiveRuns();
    void freeWindowTakesFractionsOfTwips();
    void freeWindowLeftOfTheScreenStaysThere();
    void freeWindowClosedMaximisedReopensMaximisedWithItsNormalBounds();
    void freeWindowClosedMinimisedIsStoredAsMinimisedWithItsNormalBounds();
    void freeWindowThatWasNeverShownKeepsWhatIsStored();
    void freeWindowIgnoresDamagedValues_data();
    void freeWindowIgnoresDamagedValues();
    void freeWindowThatIsNotResizableKeepsItsSizeAndStoresNone();

    void dialogFirstOpensAtItsOwnersTopLeftCorner();
    void dialogIsStoredRelativeToItsOwnerInTwips();
    void dialogFollowsItsOwner();
    void dialogDoesNotCreepOverFiveOpenings();
    void dialogIsPushedBackAtTheBottomAndTheRight_data();
    void dialogIsPushedBackAtTheBottomAndTheRight();
    void dialogAboveOrLeftOfTheScreenIsNotCorrected();
    void dialogIgnoresDamagedValues_data();
    void dialogIgnoresDamagedValues();
    void dialogThatIsNotResizableKeepsItsSizeAndStoresNone();

    void mainWindowRemembersItsPlacement();

private:
    MemorySettings& settings() { return harness().settings; }
    QString stored(const QString& section, const char* key)
    {
        return settings().get(section, QLatin1String(key), QStringLiteral("nothing"));
    }
    void store(const QString& section, const char* key, const QString& text)
    {
        settings().save(section, QLatin1String(key), text);
    }
    /// A dialog over an owner, both shown; not modal, so that the test goes on.
    std::unique_ptr<QDialog> openDialog(QWidget& owner, Resizable resizable = Resizable::Yes)
    {
        auto dialog = std::make_unique<QDialog>(&owner);
        dialog->setObjectName(QStringLiteral("frmPodokno"));
        dialog->setMinimumSize(120, 80);
        restoreSubordinatePlacement(*dialog, owner, settings(), resizable);
        harness().dialogs.useNext(QStringLiteral("frmPodokno"), [](QDialog& shown) {
            letTheWindowSettle();
            shown.hide();
        });
        return dialog;
    }
    static void showOwner(QWidget& owner, QPoint place)
    {
        owner.resize(400, 300);
        owner.move(place);
        owner.show();
        QVERIFY(QTest::qWaitForWindowExposed(&owner));
        letTheWindowSettle();
    }
};

void PlacementTest::freeWindowFirstOpensAtTheTopLeftCornerWithItsDesignedSize()
{
    FreeWindow free(settings());
    free.show();
    QCOMPARE(free.window.pos(), QPoint(0, 0));
    QCOMPARE(free.window.size(), designedSize);
    QVERIFY(!free.window.isMaximized());
    QVERIFY(!free.window.isMinimized());
}

void PlacementTest::freeWindowIsStoredInTwipsUnderItsName()
{
    FreeWindow free(settings());
    free.show();
    free.moveTo(QPoint(31, 47), QSize(301, 203));
    free.placement.store();
    QCOMPARE(stored(freeSection, "Left"), QStringLiteral("465"));
    QCOMPARE(stored(freeSection, "Top"), QStringLiteral("705"));
    QCOMPARE(stored(freeSection, "Width"), QStringLiteral("4515"));
    QCOMPARE(stored(freeSection, "Height"), QStringLiteral("3045"));
    QCOMPARE(stored(freeSection, "WindowState"), QStringLiteral("0"));
    QCOMPARE(settings().texts().size(), 5);
}

void PlacementTest::freeWindowReopensWhereItWasLeft()
{
    {
        FreeWindow free(settings());
        free.show();
        free.moveTo(QPoint(31, 47), QSize(301, 203));
        free.placement.store();
    }
    FreeWindow free(settings());
    free.show();
    QCOMPARE(free.window.pos(), QPoint(31, 47));
    QCOMPARE(free.window.size(), QSize(301, 203));
}

void PlacementTest::freeWindowDoesNotCreepOverFiveRuns_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::newRow("at the corner") << QPoint(0, 0);
    QTest::newRow("further in") << QPoint(31, 47);
    QTest::newRow("partly off the screen") << QPoint(-20, -10);
}

void PlacementTest::freeWindowDoesNotCreepOverFiveRuns()
{
    QFETCH(const QPoint, place);
    QPoint left;
    {
        FreeWindow free(settings());
        free.show();
        free.moveTo(place, QSize(301, 203));
        // Not always where it was moved to: some platforms take a frame that is off the screen back a little.
        left = free.window.pos();
        free.placement.store();
    }
    const QMap<QString, QString> first = settings().texts();
    for (int run = 0; run < 5; ++run) {
        FreeWindow free(settings());
        free.show();
        QCOMPARE(free.window.pos(), left);
        QCOMPARE(free.window.size(), QSize(301, 203));
        free.placement.store();
        QCOMPARE(settings().texts(), first);
    }
}

void PlacementTest::freeWindowTakesFractionsOfTwips()
{
    store(freeSection, "Left", QStringLiteral("457.5"));
    store(freeSection, "Top", QStringLiteral("1.5E3"));
    FreeWindow free(settings());
    QCOMPARE(free.window.pos(), QPoint(31, 100));
}

void PlacementTest::freeWindowLeftOfTheScreenStaysThere()
{
    store(freeSection, "Left", QStringLiteral("-750"));
    store(freeSection, "Top", QStringLiteral("-150"));
    FreeWindow free(settings());
    free.show();
    QCOMPARE(free.window.pos(), QPoint(-50, -10));
}

void PlacementTest::freeWindowClosedMaximisedReopensMaximisedWithItsNormalBounds()
{
    {
        FreeWindow free(settings());
        free.show();
        free.moveTo(QPoint(31, 47), QSize(301, 203));
        free.window.showMaximized();
        letTheWindowSettle();
        QVERIFY(free.window.size() != QSize(301, 203));
        free.placement.store();
        QVERIFY(free.window.isMaximized());
    }
    QCOMPARE(stored(freeSection, "WindowState"), QStringLiteral("2"));
    QCOMPARE(stored(freeSection, "Left"), QStringLiteral("465"));
    QCOMPARE(stored(freeSection, "Top"), QStringLiteral("705"));
    QCOMPARE(stored(freeSection, "Width"), QStringLiteral("4515"));
    QCOMPARE(stored(freeSection, "Height"), QStringLiteral("3045"));
    // Once more without a change of state in between: the bounds come out of the store again.
    const QMap<QString, QString> first = settings().texts();
    for (int run = 0; run < 2; ++run) {
        FreeWindow free(settings());
        free.show();
        QVERIFY(free.window.isMaximized());
        free.placement.store();
        QCOMPARE(settings().texts(), first);
    }
    FreeWindow free(settings());
    free.show();
    free.window.showNormal();
    letTheWindowSettle();
    QVERIFY(!free.window.isMaximized());
    QCOMPARE(free.window.pos(), QPoint(31, 47));
    QCOMPARE(free.window.size(), QSize(301, 203));
}

void PlacementTest::freeWindowClosedMinimisedIsStoredAsMinimisedWithItsNormalBounds()
{
    {
        FreeWindow free(settings());
        free.show();
        free.moveTo(QPoint(31, 47), QSize(301, 203));
        free.window.showMinimized();
        letTheWindowSettle();
        free.placement.store();
    }
    QCOMPARE(stored(freeSection, "WindowState"), QStringLiteral("1"));
    QCOMPARE(stored(freeSection, "Left"), QStringLiteral("465"));
    QCOMPARE(stored(freeSection, "Width"), QStringLiteral("4515"));
    FreeWindow free(settings());
    QVERIFY(free.window.isMinimized());
}

void PlacementTest::freeWindowThatWasNeverShownKeepsWhatIsStored()
{
    store(freeSection, "Left", QStringLiteral("465"));
    store(freeSection, "Top", QStringLiteral("705"));
    store(freeSection, "Width", QStringLiteral("4515"));
    store(freeSection, "Height", QStringLiteral("3045"));
    store(freeSection, "WindowState", QStringLiteral("2"));
    const QMap<QString, QString> before = settings().texts();
    FreeWindow free(settings());
    free.placement.store();
    QCOMPARE(settings().texts(), before);
}

void PlacementTest::freeWindowIgnoresDamagedValues_data()
{
    QTest::addColumn<QString>("damaged");
    QTest::newRow("empty") << QString();
    QTest::newRow("letters") << QStringLiteral("abc");
    QTest::newRow("decimal comma") << QStringLiteral("1,5");
    QTest::newRow("nan") << QStringLiteral("nan");
    QTest::newRow("inf") << QStringLiteral("inf");
    QTest::newRow("beyond any screen") << QStringLiteral("1E30");
    QTest::newRow("beyond any screen, negative") << QStringLiteral("-99999999999");
}

void PlacementTest::freeWindowIgnoresDamagedValues()
{
    QFETCH(const QString, damaged);
    for (const char* const key : {"Left", "Top", "Width", "Height", "WindowState"})
        store(freeSection, key, damaged);
    FreeWindow free(settings());
    free.show();
    QCOMPARE(free.window.pos(), QPoint(0, 0));
    QCOMPARE(free.window.size(), designedSize);
    QCOMPARE(free.window.windowState() & ~Qt::WindowActive, Qt::WindowNoState);

    // One good value among damaged ones still counts.
    store(freeSection, "Left", QStringLiteral("750"));
    FreeWindow other(settings());
    QCOMPARE(other.window.pos(), QPoint(50, 0));
}

void PlacementTest::freeWindowThatIsNotResizableKeepsItsSizeAndStoresNone()
{
    store(freeSection, "Left", QStringLiteral("750"));
    store(freeSection, "Width", QStringLiteral("15000"));
    store(freeSection, "Height", QStringLiteral("15000"));
    FreeWindow free(settings(), Resizable::No);
    free.show();
    QCOMPARE(free.window.pos(), QPoint(50, 0));
    QCOMPARE(free.window.size(), designedSize);
    free.placement.store();
    QCOMPARE(stored(freeSection, "Width"), QStringLiteral("15000"));
    QCOMPARE(stored(freeSection, "Height"), QStringLiteral("15000"));
    QCOMPARE(stored(freeSection, "WindowState"), QStringLiteral("0"));
}

void PlacementTest::dialogFirstOpensAtItsOwnersTopLeftCorner()
{
    QWidget owner;
    showOwner(owner, QPoint(70, 40));
    const std::unique_ptr<QDialog> dialog = openDialog(owner);
    const QSize designed = dialog->size();
    dialog->exec();
    QCOMPARE(dialog->pos(), QPoint(70, 40));
    QCOMPARE(dialog->size(), designed);
}

void PlacementTest::dialogIsStoredRelativeToItsOwnerInTwips()
{
    QWidget owner;
    showOwner(owner, QPoint(70, 40));
    QDialog dialog(&owner);
    dialog.setObjectName(QStringLiteral("frmPodokno"));
    dialog.resize(201, 103);
    dialog.move(60, 51);
    storeSubordinatePlacement(dialog, owner, settings(), Resizable::Yes);
    QCOMPARE(stored(subordinateSection, "RelLeft"), QStringLiteral("-150"));
    QCOMPARE(stored(subordinateSection, "RelTop"), QStringLiteral("165"));
    QCOMPARE(stored(subordinateSection, "Width"), QStringLiteral("3015"));
    QCOMPARE(stored(subordinateSection, "Height"), QStringLiteral("1545"));
    QCOMPARE(settings().texts().size(), 4);
}

void PlacementTest::dialogFollowsItsOwner()
{
    store(subordinateSection, "RelLeft", QStringLiteral("300"));
    store(subordinateSection, "RelTop", QStringLiteral("-150"));
    store(subordinateSection, "Width", QStringLiteral("3000"));
    store(subordinateSection, "Height", QStringLiteral("1500"));
    QWidget owner;
    showOwner(owner, QPoint(70, 40));
    for (const QPoint place : {QPoint(70, 40), QPoint(160, 90), QPoint(0, 0)}) {
        owner.move(place);
        letTheWindowSettle();
        const std::unique_ptr<QDialog> dialog = openDialog(owner);
        dialog->exec();
        QCOMPARE(dialog->pos(), place + QPoint(20, -10));
        QCOMPARE(dialog->size(), QSize(200, 100));
    }
}

void PlacementTest::dialogDoesNotCreepOverFiveOpenings()
{
    QWidget owner;
    showOwner(owner, QPoint(70, 40));
    QMap<QString, QString> first;
    for (int opening = 0; opening < 5; ++opening) {
        const std::unique_ptr<QDialog> dialog = openDialog(owner);
        if (opening == 0) {
            dialog->move(owner.pos() + QPoint(33, 21));
            dialog->resize(230, 140);
        }
        dialog->exec();
        QCOMPARE(dialog->pos(), owner.pos() + QPoint(33, 21));
        QCOMPARE(dialog->size(), QSize(230, 140));
        storeSubordinatePlacement(*dialog, owner, settings(), Resizable::Yes);
        if (opening == 0)
            first = settings().texts();
        QCOMPARE(settings().texts(), first);
    }
}

void PlacementTest::dialogIsPushedBackAtTheBottomAndTheRight_data()
{
    QTest::addColumn<QPoint>("beyond");  // the owner's place, from the screen's lower right corner
    QTest::addColumn<bool>("pushedUp");
    QTest::addColumn<bool>("pushedLeft");
    QTest::newRow("both") << QPoint(-60, -50) << true << true;
    QTest::newRow("bottom") << QPoint(-500, -50) << true << false;
    QTest::newRow("right") << QPoint(-60, -400) << false << true;
    QTest::newRow("neither") << QPoint(-500, -400) << false << false;
    QTest::newRow("owner off the screen") << QPoint(200, 300) << true << true;
}

void PlacementTest::dialogIsPushedBackAtTheBottomAndTheRight()
{
    QFETCH(const QPoint, beyond);
    QFETCH(const bool, pushedUp);
    QFETCH(const bool, pushedLeft);
    store(subordinateSection, "Width", QStringLiteral("3000"));
    store(subordinateSection, "Height", QStringLiteral("1500"));
    QWidget owner;
    const QRect screen = owner.screen()->geometry();
    const QPoint corner(screen.x() + screen.width(), screen.y() + screen.height());
    showOwner(owner, corner + beyond);
    const std::unique_ptr<QDialog> dialog = openDialog(owner);
    dialog->exec();
    const QRect frame = dialog->frameGeometry();
    QCOMPARE(dialog->pos().y() == owner.pos().y(), !pushedUp);
    QCOMPARE(dialog->pos().x() == owner.pos().x(), !pushedLeft);
    // Pushed back it touches the edge.
    if (pushedUp)
        QCOMPARE(frame.y() + frame.height(), corner.y());
    if (pushedLeft)
        QCOMPARE(frame.x() + frame.width(), corner.x());
    QCOMPARE(dialog->size(), QSize(200, 100));
}

void PlacementTest::dialogAboveOrLeftOfTheScreenIsNotCorrected()
{
    store(subordinateSection, "RelLeft", QStringLiteral("-1500"));
    store(subordinateSection, "RelTop", QStringLiteral("-1200"));
    QWidget owner;
    showOwner(owner, QPoint(20, 10));
    const std::unique_ptr<QDialog> dialog = openDialog(owner);
    dialog->exec();
    QCOMPARE(dialog->pos(), QPoint(-80, -70));
}

void PlacementTest::dialogIgnoresDamagedValues_data()
{
    freeWindowIgnoresDamagedValues_data();
}

void PlacementTest::dialogIgnoresDamagedValues()
{
    QFETCH(const QString, damaged);
    for (const char* const key : {"RelLeft", "RelTop", "Width", "Height"})
        store(subordinateSection, key, damaged);
    QWidget owner;
    showOwner(owner, QPoint(70, 40));
    const std::unique_ptr<QDialog> dialog = openDialog(owner);
    dialog->exec();
    QCOMPARE(dialog->pos(), QPoint(70, 40));
    QVERIFY(dialog->width() >= 120);
    QVERIFY(dialog->width() < 1000);
}

void PlacementTest::dialogThatIsNotResizableKeepsItsSizeAndStoresNone()
{
    store(subordinateSection, "Width", QStringLiteral("15000"));
    store(subordinateSection, "Height", QStringLiteral("15000"));
    QWidget owner;
    showOwner(owner, QPoint(70, 40));
    const std::unique_ptr<QDialog> dialog = openDialog(owner, Resizable::No);
    dialog->exec();
    QVERIFY(dialog->width() < 1000);
    storeSubordinatePlacement(*dialog, owner, settings(), Resizable::No);
    QCOMPARE(stored(subordinateSection, "Width"), QStringLiteral("15000"));
    QCOMPARE(stored(subordinateSection, "RelTop"), QStringLiteral("0"));
}

void PlacementTest::mainWindowRemembersItsPlacement()
{
    harness().show();
    harness().window().resize(700, 500);
    harness().window().move(31, 47);
    letTheWindowSettle();
    QVERIFY(harness().window().close());
    const QString section = QStringLiteral("Form:frmKORVEXZDR");
    QCOMPARE(stored(section, "Left"), QStringLiteral("465"));
    QCOMPARE(stored(section, "Top"), QStringLiteral("705"));
    QCOMPARE(stored(section, "Width"), QStringLiteral("10500"));
    QCOMPARE(stored(section, "Height"), QStringLiteral("7500"));
    QCOMPARE(stored(section, "WindowState"), QStringLiteral("0"));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::PlacementTest)

#include "placement_test.moc"
