#include "duplicate_report.h"

#include "main_window.h"
#include "message_boxes.h"

namespace korvex {

void runDuplicateCheck(frmKORVEXZDR& window, DuplicateReport report)
{
    window.showStatus(QStringLiteral("Kontroluji duplicity…"));
    const std::size_t count = window.list().checkDuplicates();
    window.showStatus({});
    if (count == 0 && report == DuplicateReport::OnlyFound)
        return;
    const QString text = count > 0 ? QStringLiteral("Bylo nalezeno %1 duplicit.").arg(count)
                                   : QStringLiteral("Nebyly nalezeny žádné duplicity.");
    window.shell().boxes.show(
        &window, {QStringLiteral("Kontrola duplicit"), text, BoxIcon::Information, BoxButtons::Ok, {}});
}

}  // namespace korvex
