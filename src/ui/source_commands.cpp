#include "source_commands.h"

#include "main_window.h"
#include "message_boxes.h"
#include "source_windows.h"

#include <optional>
#include <utility>

namespace korvex {

namespace {

constexpr std::int32_t noNumber = -1;

}  // namespace

void newSource(frmKORVEXZDR& window, const SourceType& type)
{
    SourceNumberCounter& numbers = window.sourceNumbers();
    const std::optional<std::int32_t> number = numbers.next();
    if (!number) {
        window.shell().boxes.show(&window,
            {QStringLiteral("Nový zdroj"),
                QStringLiteral("Automaticky přidělované číslo zdroje nemůže být větší než 99999.\n"
                               "Zkuste upravit hodnotu v 'Možnosti/Obecné/Počáteční hodnota …"),
                BoxIcon::Exclamation, BoxButtons::Ok, {}});
    }
    cZdroje source(type);
    source.ICZ(number.value_or(noNumber));
    SourceListModel& list = window.list();
    SourceWindows editor(
        window.shell(), list.set(), window, number ? SourceWindows::Number::Fixed : SourceWindows::Number::Typed);
    source.Edit(editor);
    if (source.EditOk()) {
        if (!number)
            source.renumber(editor.typedNumber());
        list.set().append(std::move(source));
        list.addRow(true);
        window.listView().makeCurrent(list.rowCount() - 1);
    } else {
        // Also when there was none to give: the last number given is then given once more.
        numbers.giveBack();
    }
    window.updateMenuState();
}

void editCurrentRow(frmKORVEXZDR& window)
{
    SourceListModel& list = window.list();
    const int row = window.listView().currentRow();
    if (row < 0)
        return;
    if (!list.marked(row)) {
        window.refill();
        return;
    }
    cZdroje& source = list.sourceAt(row);
    SourceWindows editor(window.shell(), list.set(), window);
    source.Edit(editor);
    if (source.EditOk())
        list.nameChanged(row);
}

void editCurrentSource(frmKORVEXZDR& window)
{
    SourceListModel& list = window.list();
    const int row = window.listView().currentRow();
    if (row < 0)
        return;
    SourceWindows editor(window.shell(), list.set(), window);
    list.keepNameShown(row);
    list.sourceAt(row).Edit(editor);
}

}  // namespace korvex
