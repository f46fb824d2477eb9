// The guard of the user commands: which faults it turns into the run-time error box, and what it leaves alone.
#include "guard.h"

#include "arithmetic_fault.h"
#include "message_boxes.h"

#include <QList>
#include <QObject>
#include <QRegularExpression>
#include <QString>
#include <QTest>
#include <QWidget>

#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvex {

namespace {

class RecordingBoxes : public MessageBoxes {
public:
    BoxAnswer show(QWidget* parent, const BoxRequest& request) override
    {
        parents << parent;
        requests << request;
        return BoxAnswer::Ok;
    }

    QList<QWidget*> parents;
    QList<BoxRequest> requests;
};

}  // namespace

class GuardTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void commandThatGoesWellShowsNothing();
    void faultShowsTheRunTimeErrorBox_data();
    void faultShowsTheRunTimeErrorBox();
    void arithmeticFaultNamesKindAndSubjectInCzech();
    void dataStayAsTheCommandLeftThem();
    void whatIsNoRunTimeErrorPassesThrough();
    void boxMayHaveNoParent();

private:
    /// Runs a command that faults over a parent of its own; true when that showed one box over it and false came back.
    bool showsOneBox(const std::function<void()>& command)
    {
        m_boxes.parents.clear();
        m_boxes.requests.clear();
        QWidget parent;
        return !runGuarded(m_boxes, &parent, command) && m_boxes.parents == QList<QWidget*>{&parent};
    }

    RecordingBoxes m_boxes;
};

void GuardTest::commandThatGoesWellShowsNothing()
{
    RecordingBoxes boxes;
    int runs = 0;
    QVERIFY(runGuarded(boxes, nullptr, [&] { ++runs; }));
    QCOMPARE(runs, 1);
    QVERIFY(boxes.requests.isEmpty());
}

void GuardTest::faultShowsTheRunTimeErrorBox_data()
{
    QTest::addColumn<std::function<void()>>("command");
    QTest::addColumn<QString>("text");
    using Command = std::function<void()>;
    QTest::newRow("division by zero") << Command([] { throw ArithmeticFault(FaultKind::DivisionByZero, ""); })
                                      << "Dělení nulou.";
    QTest::newRow("invalid operation") << Command([] { throw ArithmeticFault(FaultKind::InvalidOperation, ""); })
                                       << "Neplatná operace.";
    QTest::newRow("beyond range") << Command([] { throw ArithmeticFault(FaultKind::Overflow, ""); })
                                  << "Číslo je mimo rozsah.";
    QTest::newRow("index out of range") << Command([] {
        throw std::out_of_range("Index parametru 12 je mimo rozsah.");
    }) << "Index parametru 12 je mimo rozsah.";
    QTest::newRow("no memory") << Command([] { throw std::bad_alloc(); }) << "Nedostatek paměti.";
    QTest::newRow("text too long") << Command([] { throw std::length_error("basic_string::append"); })
                                   << "Text je příliš dlouhý.";
}

void GuardTest::faultShowsTheRunTimeErrorBox()
{
    QFETCH(const std::function<void()>, command);
    QFETCH(const QString, text);
    QVERIFY(showsOneBox(command));
    const BoxRequest& box = m_boxes.requests.front();
    QCOMPARE(box.title, QStringLiteral("Chyba při běhu programu"));
    QCOMPARE(box.text, text);
    QCOMPARE(box.icon, BoxIcon::Critical);
    QCOMPARE(box.buttons, BoxButtons::Ok);
    QCOMPARE(box.details, QString());
}

void GuardTest::arithmeticFaultNamesKindAndSubjectInCzech()
{
    QVERIFY(showsOneBox([] { throw ArithmeticFault(FaultKind::Overflow, "převýšení"); }));
    QCOMPARE(m_boxes.requests.front().text, QStringLiteral("Číslo je mimo rozsah: převýšení."));
}

void GuardTest::dataStayAsTheCommandLeftThem()
{
    std::vector<int> data{1, 2};
    QVERIFY(showsOneBox([&] {
        data.push_back(3);
        if (data.size() == 3)
            throw ArithmeticFault(FaultKind::DivisionByZero, "");
        data.clear();
    }));
    QCOMPARE(data, std::vector<int>({1, 2, 3}));
}

void GuardTest::whatIsNoRunTimeErrorPassesThrough()
{
    RecordingBoxes boxes;
    QVERIFY_THROWS_EXCEPTION(
        std::logic_error, runGuarded(boxes, nullptr, [] { throw std::logic_error("a fault of ours"); }));
    QVERIFY(boxes.requests.isEmpty());
}

void GuardTest::boxMayHaveNoParent()
{
    RecordingBoxes boxes;
    QVERIFY(!runGuarded(boxes, nullptr, [] { throw std::bad_alloc(); }));
    QCOMPARE(boxes.parents, QList<QWidget*>{nullptr});
}

}  // namespace korvex

QTEST_MAIN(korvex::GuardTest)

#include "guard_test.moc"
