// The pictures of the help and the README are the windows as they are: draws every window anew and compares. What was
// drawn is in build/pictures; with KORVEX_UPDATE_PICTURES set it takes the place of the pictures of the help.
#include "example_town_test.h"

#include <QApplication>
#include <QDir>
#include <QFontInfo>
#include <QImage>
#include <QPixmap>

#include <cstdlib>

namespace korvex {
namespace {

const QString kept = QStringLiteral(KORVEX_SOURCE_DIR "/help/KORVEXV2001/obrazky/");
const QString drawn = QStringLiteral(KORVEX_PICTURES "/help/");

/// The part of the dots that differ, each by more than the eye sees.
double difference(const QImage& a, const QImage& b)
{
    constexpr int visible = 48;
    if (a.size() != b.size())
        return 1.0;
    qint64 different = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor one = a.pixelColor(x, y);
            const QColor other = b.pixelColor(x, y);
            const int distance = std::abs(one.red() - other.red()) + std::abs(one.green() - other.green())
                + std::abs(one.blue() - other.blue());
            different += distance > visible ? 1 : 0;
        }
    }
    return static_cast<double>(different) / static_cast<double>(a.width() * a.height());
}

}  // namespace

class HelpPicturesTest : public ExampleTownTest {
    Q_OBJECT

private slots:
    void mainWindow();
    void options();
    void loadDialog();
    void saveDialog();
    void batchDialog();
    void dustGroups();
    void sourceEditors_data();
    void sourceEditors();
    void pressureDialog();
    void everyPictureIsDrawnHere();

private:
    /// The pictures were drawn with this font.
    void openTown()
    {
        const QFont font(QStringLiteral("DejaVu Sans"), 9);
        if (!QFontInfo(font).exactMatch() || QFontInfo(font).family() != QStringLiteral("DejaVu Sans"))
            QSKIP("The font of the pictures is not here.");
        QApplication::setFont(font);
        ExampleTownTest::openTown();
    }
    void compare(QWidget& window)
    {
        // A cursor that blinks and a focus that comes late would make pictures of chance.
        if (QWidget* const focus = window.focusWidget())
            focus->clearFocus();
        QCoreApplication::processEvents();
        const QString name = window.objectName() + QStringLiteral(".png");
        const QImage picture = window.grab().toImage();
        QVERIFY(QDir().mkpath(drawn));
        QVERIFY(picture.save(drawn + name));
        if (qEnvironmentVariableIsSet("KORVEX_UPDATE_PICTURES")) {
            QVERIFY(QDir().mkpath(kept));
            QVERIFY(picture.save(kept + name));
        }
        constexpr double mostDifferent = 0.02;
        const double different = difference(picture, QImage(kept + name));
        QVERIFY2(different <= mostDifferent,
            qPrintable(QStringLiteral("%1 has aged: tools/pictures draws it anew").arg(name)));
        m_compared.append(name);
    }

    static QStringList m_compared;
};

QStringList HelpPicturesTest::m_compared;

void HelpPicturesTest::mainWindow()
{
    openTown();
    harness().window().resize(560, 420);
    harness().mark(QStringLiteral("X-X-------------"));
    compare(harness().window());
}

void HelpPicturesTest::options()
{
    openTown();
    harness().dialogs.useNext(QStringLiteral("frmOptions"), [this](QDialog& dialog) {
        compare(dialog);
        dialog.reject();
    });
    harness().item("mnuMoznosti").trigger();
}

void HelpPicturesTest::loadDialog()
{
    openTown();
    harness().dialogs.useNext(QStringLiteral("frmLoadZdroje"), [this](QDialog& dialog) {
        compare(dialog);
        dialog.reject();
    });
    harness().item("mnuVLoad").trigger();
}

void HelpPicturesTest::saveDialog()
{
    openTown();
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"), [this](QDialog& dialog) {
        compare(dialog);
        dialog.reject();
    });
    harness().item("mnuVSave").trigger();
}

void HelpPicturesTest::batchDialog()
{
    openTown();
    harness().mark(QStringLiteral("X-X-------------"));
    harness().dialogs.useNext(QStringLiteral("frmVypocetVsDw0"), [this](QDialog& dialog) {
        compare(dialog);
        dialog.reject();
    });
    harness().item("mnuVypocetVsDw0").trigger();
}

void HelpPicturesTest::dustGroups()
{
    openTown();
    harness().dialogs.useNext(QStringLiteral("frmSkupinyPrachu"), [this](QDialog& dialog) {
        chooseGroup(dialog);
        compare(dialog);
        dialog.reject();
    });
    harness().item("mnuSkupinyPrachu").trigger();
}

void HelpPicturesTest::sourceEditors_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("tab");
    QTest::newRow("frmBodovyZdroj") << 0 << int(ParametersTab);
    QTest::newRow("frmPlosnyZdroj") << 3 << int(ParametersTab);
    QTest::newRow("frmLiniovyZdroj") << 4 << int(ParametersTab);
}

void HelpPicturesTest::sourceEditors()
{
    QFETCH(const int, row);
    QFETCH(const int, tab);
    openTown();
    globals().lastEditorTab = tab;
    harness().dialogs.useNext(QLatin1String(QTest::currentDataTag()), [this](QDialog& editor) {
        compare(editor);
        editor.reject();
    });
    harness().clickRow(row);
    harness().item("mnuVNastavZdroj").trigger();
}

void HelpPicturesTest::pressureDialog()
{
    openTown();
    globals().lastEditorTab = ParametersTab;
    harness().dialogs.useNext(QStringLiteral("frmBodovyZdroj"), [this](QDialog& editor) {
        harness().dialogs.useNext(QStringLiteral("frmTlak"), [this](QDialog& dialog) {
            compare(dialog);
            dialog.reject();
        });
        press(editor, "cmdNastavitTlak");
        editor.reject();
    });
    harness().clickRow(0);
    harness().item("mnuVNastavZdroj").trigger();
}

void HelpPicturesTest::everyPictureIsDrawnHere()
{
    if (m_compared.isEmpty())
        QSKIP("Nothing was compared.");
    m_compared.sort();
    QCOMPARE(QDir(kept).entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name), m_compared);
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::HelpPicturesTest)

#include "help_pictures_test.moc"
