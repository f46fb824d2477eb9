// The base of the tests that draw every window: the example town in its windows, in a folder that any user could have.
#pragma once

#include "dialog_checks.h"
#include "source_editor_test.h"

#include <QAbstractItemView>

#include <string>

namespace korvex {

class ExampleTownTest : public SourceEditorTest {
protected:
    void openTown()
    {
        globals().noDust = 0;
        globals().decimalSeparator = ",";
        const QString examples = QStringLiteral(KORVEX_SOURCE_DIR "/examples/");
        harness().start(
            QStringLiteral("\"%1body.txt\" \"%1popis.txt\" \"%1prach.txt\" \"%1skupiny.spr\"").arg(examples));
        globals().files = {town("body.txt"), town("popis.txt"), town("prach.txt")};
    }
    static std::string town(const char* name) { return std::string("/home/jana/brlozdin/") + name; }
    /// The first group with particles, in the editor of groups.
    static void chooseGroup(const QDialog& editor)
    {
        auto& list = child<QAbstractItemView>(editor, "lstSkupiny");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(1, 0)).center());
        field(editor, "txtFile").setText(QString::fromStdString(town("skupiny.spr")));
    }
};

}  // namespace korvex
