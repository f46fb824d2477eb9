#include "source_windows.h"

#include "area_source_dialog.h"
#include "line_source_dialog.h"
#include "point_source_dialog.h"
#include "source_set.h"
#include "source_type.h"

namespace korvex {

SourceWindows::SourceWindows(const Shell& shell, SourceSet& set, QWidget& owner, Number number)
    : m_shell(shell), m_set(set), m_owner(owner), m_number(number)
{
}

template <class Dialog>
bool SourceWindows::editIn(SourceValues& values)
{
    Dialog dialog(m_shell, m_owner);
    if (m_number == Number::Typed)
        dialog.letNumberBeTyped();
    return dialog.edit(values);
}

bool SourceWindows::edit(const SourceType& type, SourceValues& values)
{
    bool isConfirmed = false;
    switch (type.TypZdrojeId) {
    case cPlosnyZdroj.TypZdrojeId:
        isConfirmed = editIn<frmPlosnyZdroj>(values);
        break;
    case cLiniovyZdroj.TypZdrojeId:
        isConfirmed = editIn<frmLiniovyZdroj>(values);
        break;
    default:
        isConfirmed = editIn<frmBodovyZdroj>(values);
    }
    if (isConfirmed) {
        m_set.modified(true);
        m_typedNumber = values.number;
    }
    return isConfirmed;
}

}  // namespace korvex
