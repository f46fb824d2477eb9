// The rules for the looks of windows find what is wrong, and nothing where all is well.
#include "look_checks.h"
#include "theme_palettes.h"
#include "window_harness.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>

namespace korvex {

namespace {

/// A window with a control of each kind that the rules look at.
struct Sample {
    Sample()
    {
        window.setObjectName(QStringLiteral("sample"));
        window.resize(400, 200);
        label.setObjectName(QStringLiteral("label"));
        label.setGeometry(10, 10, 200, 30);
        field.setObjectName(QStringLiteral("field"));
        field.setGeometry(10, 50, 200, 30);
        button.setObjectName(QStringLiteral("button"));
        button.setGeometry(10, 90, 200, 30);
        box.setObjectName(QStringLiteral("box"));
        box.setGeometry(10, 130, 200, 30);
        window.show();
    }

    [[nodiscard]] QStringList findings()
    {
        const QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        QStringList all = cutTexts(window) + misplacedWidgets(window) + faintTexts(window, picture)
            + faintPictures(window, picture) + hiddenEdges(window, picture);
        for (QString& finding : all)
            finding = finding.section(QLatin1Char(' '), 0, -2).section(QStringLiteral(" \""), 0, 0);
        return all;
    }

    QWidget window;
    QLabel label{QStringLiteral("Popisek"), &window};
    QLineEdit field{QStringLiteral("101325"), &window};
    QPushButton button{QStringLiteral("Tlačítko"), &window};
    QCheckBox box{QStringLiteral("Volba"), &window};
};

using Spoil = void (*)(Sample&);

}  // namespace

class LookChecksTest : public ShellTest {
    Q_OBJECT

private slots:
    void findWhatIsWrong_data();
    void findWhatIsWrong();
};

void LookChecksTest::findWhatIsWrong_data()
{
    QTest::addColumn<Spoil>("spoil");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, Spoil spoil, const char* expected) {
        const QString finding = QString::fromUtf8(expected);
        QTest::newRow(name) << spoil << (finding.isEmpty() ? QStringList() : QStringList(finding));
    };
    row(
        "nothing", [](Sample&) {}, "");
    row(
        "a label too narrow", [](Sample& sample) { sample.label.resize(20, 30); }, "cut: label");
    row(
        "a label too low", [](Sample& sample) { sample.label.resize(200, 6); }, "cut: label");
    row(
        "a button too narrow", [](Sample& sample) { sample.button.resize(40, 30); }, "cut: button");
    row(
        "a check box too narrow", [](Sample& sample) { sample.box.resize(30, 30); }, "cut: box");
    row(
        "a number cut off", [](Sample& sample) { sample.field.resize(30, 30); }, "cut: field");
    row(
        "one over the other", [](Sample& sample) { sample.button.move(60, 60); }, "overlap: field");
    row(
        "half out of the window", [](Sample& sample) { sample.field.move(250, 50); }, "out of its place: field");
    row(
        "a colour of its own",
        [](Sample& sample) {
            QPalette palette;
            palette.setColor(QPalette::WindowText, Qt::lightGray);
            sample.label.setPalette(palette);
        },
        "faint: label");
    row(
        "a picture in the colour of the ground",
        [](Sample& sample) {
            QPixmap picture(16, 16);
            picture.fill(sample.window.palette().color(QPalette::Window));
            sample.label.setPixmap(picture);
        },
        "faint picture: label");
    row(
        "a field without a frame",
        [](Sample& sample) {
            sample.field.setFrame(false);
            sample.field.setPalette(QPalette(sample.window.palette().color(QPalette::Window)));
            QPalette palette = sample.field.palette();
            palette.setColor(QPalette::Base, palette.color(QPalette::Window));
            sample.field.setPalette(palette);
        },
        "no edge: field");
}

void LookChecksTest::findWhatIsWrong()
{
    QFETCH(const Spoil, spoil);
    QFETCH(const QStringList, expected);
    QApplication::setPalette(paletteOf(Theme::Light));
    Sample sample;
    spoil(sample);
    QCOMPARE(sample.findings(), expected);
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::LookChecksTest)

#include "look_checks_test.moc"
