// The base of the tests of the point source editor: a stack, its editor opened the way the program opens it.
#pragma once

#include "dialog_checks.h"
#include "source.h"
#include "source_set.h"
#include "source_windows.h"
#include "window_harness.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <functional>
#include <string>

namespace korvex {

enum EditorTab { DescriptionTab, ParametersTab, DustTab };

enum class Leaving { Ok, Storno, Escape, CloseBox };

inline void press(const QWidget& editor, const char* button)
{
    child<QPushButton>(editor, button).click();
}

inline void leave(QDialog& editor, Leaving leaving)
{
    switch (leaving) {
    case Leaving::Ok:
        press(editor, "cbOK");
        break;
    case Leaving::Storno:
        press(editor, "cbStorno");
        break;
    case Leaving::Escape:
        QTest::keyClick(&editor, Qt::Key_Escape);
        break;
    case Leaving::CloseBox:
        editor.close();
        break;
    }
}

/// The same where something was changed: Escape asks then, and the answer is to drop it.
inline void leaveChanged(AnsweringBoxes& boxes, QDialog& editor, Leaving leaving)
{
    if (leaving == Leaving::Escape)
        boxes.answerNext(BoxAnswer::No);
    leave(editor, leaving);
}

/// Rows of all ways to leave an editor, or of those that take nothing over.
inline void addWaysToLeave(bool withOk)
{
    QTest::addColumn<Leaving>("leaving");
    if (withOk)
        QTest::newRow("Ok") << Leaving::Ok;
    QTest::newRow("Storno") << Leaving::Storno;
    QTest::newRow("Escape") << Leaving::Escape;
    QTest::newRow("close box") << Leaving::CloseBox;
}

[[nodiscard]] inline QTabWidget& tabs(const QWidget& editor)
{
    return child<QTabWidget>(editor, "SSTab1");
}

[[nodiscard]] inline QLineEdit& field(const QWidget& editor, const char* name)
{
    return child<QLineEdit>(editor, name);
}

inline void setText(const QWidget& editor, const char* name, const QString& text)
{
    field(editor, name).setText(text);
}

[[nodiscard]] inline QString focusName()
{
    return QApplication::focusWidget() == nullptr ? QString() : QApplication::focusWidget()->objectName();
}

[[nodiscard]] inline QStringList recordsOf(const cZdroje& source)
{
    return {QString::fromStdString(source.LineSource()), QString::fromStdString(source.LineParameters()),
        QString::fromStdString(source.LineDust())};
}

class PointSourceTest : public ShellTest {
protected:
    [[nodiscard]] static cZdroje stack()
    {
        cZdroje source(cBodovyZdroj);
        source.LineSource("42, 1234, -567, 250, 1, 3, 4 ;Kotelna Říčany");
        source.LineParameters("42, 1.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0");
        source.LineDust("2500,0,2,10,0.6,50,0.4");
        return source;
    }
    /// Works in the editor of a source and says whether the edit was confirmed.
    bool edit(cZdroje& source, std::function<void(QDialog&)> use)
    {
        SourceWindows windows(harness().window().shell(), harness().set(), harness().window());
        harness().dialogs.useNext(QStringLiteral("frmBodovyZdroj"), std::move(use));
        source.Edit(windows);
        return source.EditOk();
    }
    /// Looks at the editor of a stack and leaves it by Storno.
    void look(std::function<void(QDialog&)> at)
    {
        cZdroje source = stack();
        edit(source, [&at](QDialog& editor) {
            at(editor);
            press(editor, "cbStorno");
        });
    }
    /// The same in a window that has the focus, opened on a tab.
    void lookActive(EditorTab tab, std::function<void(QDialog&)> at)
    {
        harness().show();
        harness().globals.lastEditorTab = tab;
        look([&at](QDialog& editor) {
            QVERIFY(waitUntilActive(editor));
            at(editor);
        });
    }
    void decimalSeparator(const char* text) { globals().decimalSeparator = text; }
    /// As the window that is made first leaves them.
    [[nodiscard]] Globals& globals()
    {
        static_cast<void>(harness().window());
        return harness().globals;
    }
};

}  // namespace korvex
