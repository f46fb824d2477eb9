// The base of the tests of the source editors: a source of a type, its editor opened as the program opens it.
#pragma once

#include "point_source_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include <functional>
#include <utility>

namespace korvex {

[[nodiscard]] inline QString editorName(const SourceType& type)
{
    switch (type.TypZdrojeId) {
    case cPlosnyZdroj.TypZdrojeId:
        return QStringLiteral("frmPlosnyZdroj");
    case cLiniovyZdroj.TypZdrojeId:
        return QStringLiteral("frmLiniovyZdroj");
    default:
        return QStringLiteral("frmBodovyZdroj");
    }
}

/// The menu item that makes a source of the type.
[[nodiscard]] inline const char* newItemName(const SourceType& type)
{
    switch (type.TypZdrojeId) {
    case cPlosnyZdroj.TypZdrojeId:
        return "mnuVPlosnyZdroj";
    case cLiniovyZdroj.TypZdrojeId:
        return "mnuVLiniovyZdroj";
    default:
        return "mnuVBodovyZdroj";
    }
}

/// The type of a data row, by its column "typeId".
[[nodiscard]] inline const SourceType& rowType()
{
    QFETCH(const int, typeId);
    return *sourceTypeOf(typeId);
}

inline void addAllTypes()
{
    QTest::addColumn<int>("typeId");
    QTest::newRow("stack") << cBodovyZdroj.TypZdrojeId;
    QTest::newRow("area") << cPlosnyZdroj.TypZdrojeId;
    QTest::newRow("line") << cLiniovyZdroj.TypZdrojeId;
}

/// The name of a parameter's field.
[[nodiscard]] inline QByteArray parameterName(int index)
{
    return "tPar" + QByteArray::number(index);
}

[[nodiscard]] inline QLineEdit& parameterField(const QWidget& editor, int index)
{
    return field(editor, parameterName(index).constData());
}

/// The run-time error box of a number out of range, up to the number.
[[nodiscard]] inline bool isOutOfRange(const BoxRequest& box)
{
    return box.title == QStringLiteral("Chyba při běhu programu") && box.icon == BoxIcon::Critical
        && box.buttons == BoxButtons::Ok && box.text.startsWith(QStringLiteral("Číslo je mimo rozsah"));
}

/// An area with a temperature or a line, with another value in every field.
[[nodiscard]] inline cZdroje sampleSource(const SourceType& type)
{
    cZdroje source(type);
    source.LineSource("42, 1234, -567, 250, 0, 3, 4 ;Skládka Říčany");
    source.LineParameters(type.TypZdrojeId == cLiniovyZdroj.TypZdrojeId
            ? "42, 0.25, 100, 200, 301, 400, 7, 0.5, 0.8, 24"
            : "42, 1.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 12");
    source.LineDust("2500,0,1,10,1");
    return source;
}

class SourceEditorTest : public ShellTest {
protected:
    /// Works in the editor of a source and says whether the edit was confirmed.
    bool edit(cZdroje& source, std::function<void(QDialog&)> use)
    {
        SourceWindows windows(harness().window().shell(), harness().set(), harness().window());
        harness().dialogs.useNext(editorName(source.type()), std::move(use));
        source.Edit(windows);
        return source.EditOk();
    }
    /// Looks at the editor of a source of the type and leaves it by Storno.
    void look(const SourceType& type, const std::function<void(QDialog&)>& at)
    {
        cZdroje source = sampleSource(type);
        edit(source, [&at](QDialog& editor) {
            at(editor);
            press(editor, "cbStorno");
        });
    }
    /// The same in a window that has the focus, opened on a tab.
    void lookActive(const SourceType& type, EditorTab tab, const std::function<void(QDialog&)>& at)
    {
        harness().show();
        harness().globals.lastEditorTab = tab;
        look(type, [&at](QDialog& editor) {
            QVERIFY(waitUntilActive(editor));
            at(editor);
        });
    }
    /// The command for a new source of the type, and this done in the editor.
    void make(const SourceType& type, std::function<void(QDialog&)> use)
    {
        harness().dialogs.useNext(editorName(type), std::move(use));
        harness().item(newItemName(type)).trigger();
    }
    void makeAndConfirm(const SourceType& type = cPlosnyZdroj)
    {
        make(type, [](QDialog& editor) { press(editor, "cbOK"); });
    }
    void makeAndCancel(const SourceType& type = cPlosnyZdroj)
    {
        make(type, [](QDialog& editor) { press(editor, "cbStorno"); });
    }
    /// As the window that is made first leaves them.
    [[nodiscard]] Globals& globals()
    {
        static_cast<void>(harness().window());
        return harness().globals;
    }
    void decimalSeparator(const char* text) { globals().decimalSeparator = text; }
};

}  // namespace korvex
