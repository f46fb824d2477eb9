// The dust panel of the source editors: its texts, the description shown and read, particles by hand, and the groups.
#include "dust_panel.h"

#include "dialog_checks.h"
#include "window_harness.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <cstdlib>
#include <stdexcept>

namespace korvex {
namespace {

QStringList particles(const QWidget& panel)
{
    const QAbstractItemModel& model = *child<QTableView>(panel, "lsvPrach").model();
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << model.index(row, 0).data().toString() + QLatin1Char('/') + model.index(row, 1).data().toString();
    return texts;
}

}  // namespace

class DustPanelTest : public ShellTest {
    Q_OBJECT

private slots:
    void labelsToolTipsAndCaptions();
    void columnsHaveTheirProportion();
    void everyFocusableWidgetHasAName();
    void listOfGroupsIsInFileOrderAfterByHand();
    void unreadableFileSaysSoAndLeavesByHand();
    void emptyPathEmptiesTheList();

    void descriptionsThatStay_data();
    void descriptionsThatStay();
    void textWithoutACommaLeavesTheDensity_data();
    void textWithoutACommaLeavesTheDensity();
    void withoutACountThereAreNoParticles();
    void groupOfTheFileIsSelectedAndSwitchesTheParticlesOff();
    void groupSharedByTwoIsTheFirst();
    void unknownGroupReadsAsByHandWithoutParticles();
    void unknownGroupLeavesTheSelectionAsItWas();
    void switchingToAGroupKeepsTheRows();
    void densityIsShownInTheUsersForm();
    void numberOutOfRangeIsAFault();

    void particleRule_data();
    void particleRule();
    void addedParticleMovesTheFocusToTheDiameter();
    void clickedRowIsCopiedIntoTheFields();
    void focusAloneCopiesNoRow();
    void keysOfTheFields();
    void pastedDensityPasses();
    void fieldsSelectTheirTextOnFocus();
    void eightParticlesByKeyboardAlone();
    void editingResetsToByHand();
    void editingReadsTheFileThatTheEditorEndsWith();
    void hundredThousandGroups();

private:
    /// In a window of its own, which goes with the main window at the end of the test.
    [[nodiscard]] uscPrach& panel()
    {
        if (m_panel == nullptr) {
            auto* const host = new QWidget(&harness().window(), Qt::Window);
            m_panel = new uscPrach(harness().window().shell(), host);
            auto* const layout = new QVBoxLayout(host);
            layout->addWidget(m_panel);
            host->show();
            if (!QTest::qWaitForWindowActive(host))
                QTest::qFail("the host window does not become active", __FILE__, __LINE__);
        }
        return *m_panel;
    }
    template <class Widget>
    [[nodiscard]] Widget& part(const char* name)
    {
        return child<Widget>(panel(), name);
    }
    [[nodiscard]] QComboBox& choice() { return part<QComboBox>("cboPrachoveSkupiny"); }
    [[nodiscard]] QLineEdit& field(const char* name) { return part<QLineEdit>(name); }
    [[nodiscard]] QString count() { return part<QLabel>("lblCount").text(); }
    void add(const QString& diameter, const QString& share)
    {
        field("txtPrumer").setText(diameter);
        field("txtZastoupeni").setText(share);
        part<QPushButton>("cmdAdd").click();
    }
    std::string threeGroups()
    {
        return harness().writeFile(QStringLiteral("a.spr"),
            {QStringLiteral(";k"), QStringLiteral("3,1,10,1;Škvára"), QStringLiteral("7,0;"), QStringLiteral("5,0;B"),
                QStringLiteral("3,0;Druhá")});
    }
    [[nodiscard]] QStringList choices()
    {
        QStringList texts;
        for (int i = 0; i < choice().count(); ++i)
            texts << choice().itemText(i);
        return texts;
    }

    void separator(const char* text)
    {
        static_cast<void>(harness().window());
        harness().globals.decimalSeparator = text;
    }

    QPointer<uscPrach> m_panel;
};

void DustPanelTest::labelsToolTipsAndCaptions()
{
    QCOMPARE(captionOf(panel(), choice()), QStringLiteral("Prachová skupina:"));
    QCOMPARE(choice().toolTip(), QStringLiteral("Seznam skupin prachu"));
    QCOMPARE(choices(), QStringList(QStringLiteral("(manuálně)")));
    QCOMPARE(part<QTableView>("lsvPrach").toolTip(), QStringLiteral("Uživatelem definované prachové částice"));
    const QAbstractItemModel& model = *part<QTableView>("lsvPrach").model();
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("Průměr"));
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Zastoupení"));
    QCOMPARE(captionOf(panel(), field("txtPrumer")), QStringLiteral("Průměr prašné částice [um]:"));
    QCOMPARE(captionOf(panel(), field("txtZastoupeni")), QStringLiteral("Zastoupení částice [%/100]:"));
    QCOMPARE(part<QGroupBox>("fraPopisCastice").title(), QStringLiteral("Popis prašné částice"));
    QCOMPARE(part<QPushButton>("cmdAdd").text(), QStringLiteral("Přidej prachocou částici"));
    QCOMPARE(count(), QStringLiteral("Počet: 0"));
    QCOMPARE(part<QLabel>("lblCount").toolTip(), QStringLiteral("Počet uživatelem definovaných prachových částic"));
    QCOMPARE(captionOf(panel(), field("txtHustota")), QStringLiteral("Hustota prachových částic [kg/m3]:"));
    QCOMPARE(part<QPushButton>("cmdSkupinyPrachu").text(), QStringLiteral("Editace prachových skupin"));
    QCOMPARE(part<QPushButton>("cmdSkupinyPrachu").toolTip(), QStringLiteral("Soubor s prachovými skupinami ()"));
}

void DustPanelTest::columnsHaveTheirProportion()
{
    const QTableView& list = part<QTableView>("lsvPrach");
    const int first = list.columnWidth(0);
    const int second = list.columnWidth(1);
    QVERIFY2(
        std::abs(first * 750 - second * 600) <= 2 * 750, qPrintable(QStringLiteral("%1 %2").arg(first).arg(second)));
}

void DustPanelTest::everyFocusableWidgetHasAName()
{
    QCOMPARE(namelessWidgets(panel()).join(QLatin1Char(' ')), QString());
}

void DustPanelTest::listOfGroupsIsInFileOrderAfterByHand()
{
    const std::string path = threeGroups();
    panel().SouborSkupinyPrachu(path);
    QCOMPARE(choices(),
        QStringList({QStringLiteral("(manuálně)"), QStringLiteral("Škvára"), QStringLiteral("(skupina 2)"),
            QStringLiteral("B"), QStringLiteral("Druhá")}));
    QCOMPARE(choice().currentIndex(), 0);
    QCOMPARE(panel().SouborSkupinyPrachu(), path);
    QCOMPARE(part<QPushButton>("cmdSkupinyPrachu").toolTip(),
        QStringLiteral("Soubor s prachovými skupinami (%1)").arg(QFile::decodeName(path.c_str())));
}

void DustPanelTest::unreadableFileSaysSoAndLeavesByHand()
{
    const std::string path = threeGroups();
    panel().SouborSkupinyPrachu(path);
    const QString missing = harness().path(QStringLiteral("chybi.spr"));
    harness().boxes.answerNext(BoxAnswer::Ok);
    panel().SouborSkupinyPrachu(QFile::encodeName(missing).toStdString());
    QCOMPARE(describe(harness().boxes.shown().last()),
        QStringLiteral("[Critical] Čtení skupin prachu ze souboru | Soubor nebo složka neexistuje.\n\n%1 | Ok | ")
            .arg(missing));
    QCOMPARE(choices(), QStringList(QStringLiteral("(manuálně)")));
    QCOMPARE(panel().SouborSkupinyPrachu(), path);
}

void DustPanelTest::emptyPathEmptiesTheList()
{
    panel().SouborSkupinyPrachu(threeGroups());
    panel().SouborSkupinyPrachu({});
    QCOMPARE(choices(), QStringList(QStringLiteral("(manuálně)")));
    QCOMPARE(harness().boxes.shown().size(), 0);
}

void DustPanelTest::descriptionsThatStay_data()
{
    QTest::addColumn<QString>("text");
    for (const char* const text : {"2500,3", "2500,0,2,10,0.6,50,0.4", "1500,0,0", "2.5,5", "2500,0,2,10,0.6,10,0.4"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void DustPanelTest::descriptionsThatStay()
{
    QFETCH(const QString, text);
    for (const char* const decimal : {".", ","}) {
        separator(decimal);
        panel().SouborSkupinyPrachu(threeGroups());
        panel().Prach(text.toStdString());
        QCOMPARE(QString::fromStdString(panel().Prach()), text);
    }
}

void DustPanelTest::textWithoutACommaLeavesTheDensity_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("a number") << QStringLiteral("1800");
}

void DustPanelTest::textWithoutACommaLeavesTheDensity()
{
    QFETCH(const QString, text);
    panel().SouborSkupinyPrachu(threeGroups());
    panel().Prach("2500,0,1,10,1");
    panel().Prach("2600,3");
    panel().Prach(text.toStdString());
    QCOMPARE(choice().currentIndex(), 0);
    QCOMPARE(particles(panel()), QStringList());
    QCOMPARE(field("txtHustota").text(), QStringLiteral("2600"));
    QCOMPARE(count(), QStringLiteral("Počet: 0"));
    QCOMPARE(panel().Prach(), std::string("2600,0,0"));
}

void DustPanelTest::withoutACountThereAreNoParticles()
{
    panel().Prach("2500,0");
    QCOMPARE(field("txtHustota").text(), QStringLiteral("2500"));
    QCOMPARE(particles(panel()), QStringList());
    QCOMPARE(panel().Prach(), std::string("2500,0,0"));
}

void DustPanelTest::groupOfTheFileIsSelectedAndSwitchesTheParticlesOff()
{
    panel().SouborSkupinyPrachu(threeGroups());
    panel().Prach("2500,3");
    QCOMPARE(choice().currentText(), QStringLiteral("Škvára"));
    QCOMPARE(particles(panel()), QStringList());
    for (const char* const name : {"lsvPrach", "fraPopisCastice", "cmdAdd", "txtPrumer", "txtZastoupeni", "lblCount"})
        QVERIFY2(!part<QWidget>(name).isEnabled(), name);
    for (const QLabel* const label : part<QGroupBox>("fraPopisCastice").findChildren<QLabel*>())
        QVERIFY(!label->isEnabled());
    QVERIFY(field("txtHustota").isEnabled());
    choice().setCurrentIndex(0);
    for (const char* const name : {"lsvPrach", "fraPopisCastice", "cmdAdd", "txtPrumer", "txtZastoupeni", "lblCount"})
        QVERIFY2(part<QWidget>(name).isEnabled(), name);
}

void DustPanelTest::groupSharedByTwoIsTheFirst()
{
    panel().SouborSkupinyPrachu(threeGroups());
    panel().Prach("2500,5");
    panel().Prach("2500,3");
    QCOMPARE(choice().currentIndex(), 1);
}

void DustPanelTest::unknownGroupReadsAsByHandWithoutParticles()
{
    panel().SouborSkupinyPrachu(threeGroups());
    panel().Prach("2500,44");
    QCOMPARE(choice().currentText(), QStringLiteral("(manuálně)"));
    QCOMPARE(particles(panel()), QStringList());
    QCOMPARE(panel().Prach(), std::string("2500,0,0"));
}

void DustPanelTest::unknownGroupLeavesTheSelectionAsItWas()
{
    panel().SouborSkupinyPrachu(threeGroups());
    panel().Prach("2500,5");
    panel().Prach("2600,44");
    QCOMPARE(panel().Prach(), std::string("2600,5"));
}

void DustPanelTest::switchingToAGroupKeepsTheRows()
{
    panel().SouborSkupinyPrachu(threeGroups());
    panel().Prach("2500,0,2,10,0.6,50,0.4");
    QCOMPARE(count(), QStringLiteral("Počet: 2"));
    choice().setCurrentIndex(1);
    QCOMPARE(panel().Prach(), std::string("2500,3"));
    choice().setCurrentIndex(0);
    QCOMPARE(particles(panel()), QStringList({QStringLiteral("10/0.6"), QStringLiteral("50/0.4")}));
    QCOMPARE(panel().Prach(), std::string("2500,0,2,10,0.6,50,0.4"));
}

void DustPanelTest::densityIsShownInTheUsersForm()
{
    separator(",");
    panel().Prach("2.5,0,0");
    QCOMPARE(field("txtHustota").text(), QStringLiteral("2,5"));
    QCOMPARE(panel().Prach(), std::string("2.5,0,0"));
    field("txtHustota").setText(QStringLiteral("2500"));
    QCOMPARE(panel().Prach(), std::string("2500,0,0"));
}

void DustPanelTest::numberOutOfRangeIsAFault()
{
    panel().Prach("2500,0,1,10,1");
    for (const char* const text : {"1E39,0,0", "1,0,2000000000,10,1", "1,99999999999"}) {
        bool failed = false;
        try {
            panel().Prach(text);
        } catch (const std::runtime_error&) {
            failed = true;
        }
        QVERIFY2(failed, text);
    }
}

void DustPanelTest::particleRule_data()
{
    QTest::addColumn<QString>("diameter");
    QTest::addColumn<QString>("share");
    QTest::addColumn<QString>("read");
    const auto row = [](const char* name, const char* diameter, const char* share, const char* read) {
        QTest::newRow(name) << QString::fromLatin1(diameter) << QString::fromLatin1(share) << QString::fromLatin1(read);
    };
    row("changed", "10", "0.5", "2,10,0.5,50,0.4");
    row("changed to negative", "10", "-1", "2,10,-1,50,0.4");
    row("removed", "10", "0", "1,50,0.4");
    row("new with share 0", "20", "0", "2,10,0.6,50,0.4");
    row("new with negative share", "20", "-1", "2,10,0.6,50,0.4");
    row("new with comma", "2,5", "0,1", "3,10,0.6,50,0.4,2.5,0.1");
    row("no numbers", "", "", "2,10,0.6,50,0.4");
}

void DustPanelTest::particleRule()
{
    QFETCH(const QString, diameter);
    QFETCH(const QString, share);
    QFETCH(const QString, read);
    separator(",");
    panel().Prach("2500,0,2,10,0.6,50,0.4");
    add(diameter, share);
    QCOMPARE(QString::fromStdString(panel().Prach()), QStringLiteral("2500,0,") + read);
    QCOMPARE(count(), QStringLiteral("Počet: ") + read.section(QLatin1Char(','), 0, 0));
}

void DustPanelTest::addedParticleMovesTheFocusToTheDiameter()
{
    clickInto(field("txtHustota"));
    QVERIFY(field("txtHustota").hasFocus());
    add(QStringLiteral("10"), QStringLiteral("1"));
    QVERIFY(field("txtPrumer").hasFocus());
}

void DustPanelTest::clickedRowIsCopiedIntoTheFields()
{
    panel().Prach("2500,0,2,10,0.6,50,0.4");
    QTableView& list = part<QTableView>("lsvPrach");
    for (int presses = 0; presses < 2; ++presses) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(1, 1)).center());
        QCOMPARE(field("txtPrumer").text(), QStringLiteral("50"));
        QCOMPARE(field("txtZastoupeni").text(), QStringLiteral("0.4"));
        field("txtPrumer").clear();
    }
}

void DustPanelTest::focusAloneCopiesNoRow()
{
    panel().Prach("2500,0,2,10,0.6,50,0.4");
    field("txtPrumer").setText(QStringLiteral("7"));
    QTableView& list = part<QTableView>("lsvPrach");
    list.setFocus(Qt::TabFocusReason);
    QCOMPARE(field("txtPrumer").text(), QStringLiteral("7"));
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(field("txtPrumer").text(), QStringLiteral("50"));
    QCOMPARE(field("txtZastoupeni").text(), QStringLiteral("0.4"));
}

void DustPanelTest::keysOfTheFields()
{
    const QString typed = QStringLiteral("1a-+2.e,3; 4");
    for (const char* const name : {"txtPrumer", "txtZastoupeni"}) {
        QTest::keyClicks(&field(name), typed);
        QCOMPARE(field(name).text(), QStringLiteral("12.,34"));
        QTest::keyClick(&field(name), Qt::Key_Backspace);
        QCOMPARE(field(name).text(), QStringLiteral("12.,3"));
    }
    QTest::keyClicks(&field("txtHustota"), typed);
    QCOMPARE(field("txtHustota").text(), QStringLiteral("1234"));
    QTest::keyClick(&field("txtHustota"), Qt::Key_Backspace);
    QCOMPARE(field("txtHustota").text(), QStringLiteral("123"));
}

void DustPanelTest::pastedDensityPasses()
{
    QApplication::clipboard()->setText(QStringLiteral("2500.5"));
    field("txtHustota").paste();
    QCOMPARE(panel().Prach(), std::string("2500.5,0,0"));
}

void DustPanelTest::fieldsSelectTheirTextOnFocus()
{
    panel().Prach("2500,0,1,10,0.5");
    for (const char* const name : {"txtHustota", "txtPrumer", "txtZastoupeni"}) {
        field(name).setText(QStringLiteral("75"));
        clickInto(field(name));
        QVERIFY(field(name).hasFocus());
        QTRY_COMPARE(field(name).selectedText(), QStringLiteral("75"));
    }
}

void DustPanelTest::eightParticlesByKeyboardAlone()
{
    separator(",");
    field("txtHustota").setFocus();
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("2500"));
    QLineEdit& diameter = field("txtPrumer");
    for (int presses = 0; presses < 6 && !diameter.hasFocus(); ++presses)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(diameter.hasFocus());
    QString expected = QStringLiteral("2500,0,8");
    for (int i = 1; i <= 8; ++i) {
        QTRY_COMPARE(diameter.selectedText(), diameter.text());
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("%1,5").arg(i));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(field("txtZastoupeni").hasFocus());
        QTRY_COMPARE(field("txtZastoupeni").selectedText(), field("txtZastoupeni").text());
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("0,%1").arg(i));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(diameter.hasFocus());
        expected += QStringLiteral(",%1.5,0.%1").arg(i);
    }
    QCOMPARE(QString::fromStdString(panel().Prach()), expected);
    QCOMPARE(count(), QStringLiteral("Počet: 8"));
}

// The file may have changed under the group that was chosen.
void DustPanelTest::editingResetsToByHand()
{
    panel().SouborSkupinyPrachu(threeGroups());
    panel().Prach("2500,3");
    harness().dialogs.useNext(QStringLiteral("frmSkupinyPrachu"), [](QDialog& editor) { editor.reject(); });
    part<QPushButton>("cmdSkupinyPrachu").click();
    QCOMPARE(choice().currentText(), QStringLiteral("(manuálně)"));
    QCOMPARE(choice().count(), 5);
    QVERIFY(part<QWidget>("lsvPrach").isEnabled());
    QCOMPARE(panel().Prach(), std::string("2500,0,0"));
}

void DustPanelTest::editingReadsTheFileThatTheEditorEndsWith()
{
    panel().SouborSkupinyPrachu(threeGroups());
    const std::string other
        = harness().writeFile(QStringLiteral("b.spr"), {QStringLiteral(";x"), QStringLiteral("9,0;I")});
    harness().dialogs.useNext(QStringLiteral("frmSkupinyPrachu"), [&](QDialog& editor) {
        harness().chooser.answerNext(QFile::decodeName(other.c_str()));
        child<QPushButton>(editor, "cmdOpenFile").click();
        editor.reject();
    });
    part<QPushButton>("cmdSkupinyPrachu").click();
    QCOMPARE(panel().SouborSkupinyPrachu(), other);
    QCOMPARE(choices(), QStringList({QStringLiteral("(manuálně)"), QStringLiteral("I")}));
    QVERIFY(part<QPushButton>("cmdSkupinyPrachu").toolTip().contains(QFile::decodeName(other.c_str())));
}

// Each step within half a second on the machine that the program is made for; four times that for a busy one.
void DustPanelTest::hundredThousandGroups()
{
    constexpr int many = 100'000;
    constexpr qint64 most = 2000;
    QStringList lines;
    for (int number = 1; number <= many; ++number)
        lines << QStringLiteral("%1,2,2.5,0.25,5,0.75;Skupina %1").arg(number);
    const std::string path = harness().writeFile(QStringLiteral("big.spr"), lines);
    static_cast<void>(panel());
    QElapsedTimer timer;
    timer.start();
    panel().SouborSkupinyPrachu(path);
    qInfo("open: %lld ms", static_cast<long long>(timer.elapsed()));
    QVERIFY(timer.elapsed() < most);
    timer.start();
    panel().Prach("2500,99999");
    QCoreApplication::processEvents();
    qInfo("choose: %lld ms", static_cast<long long>(timer.elapsed()));
    QVERIFY(timer.elapsed() < most);
    QCOMPARE(choice().currentText(), QStringLiteral("Skupina 99999"));
    timer.start();
    choice().showPopup();
    QCoreApplication::processEvents();
    qInfo("open the list: %lld ms", static_cast<long long>(timer.elapsed()));
    QVERIFY(timer.elapsed() < most);
    choice().hidePopup();
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::DustPanelTest)

#include "dust_panel_test.moc"
