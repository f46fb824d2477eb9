#include "calculations.h"

#include "batch_dialog.h"
#include "batch_runs.h"
#include "main_window.h"
#include "message_boxes.h"

#include <QCoreApplication>

namespace korvex {

void showStackGasBatch(frmKORVEXZDR& window)
{
    frmVypocetVsDw0(window.shell(), window.list(), window).exec();
}

void calculateMidpoints(frmKORVEXZDR& window)
{
    MessageBoxes& boxes = window.shell().boxes;
    const QString title = QStringLiteral("Výpočet středového bodu úseku liniových zdrojů");
    const QString question = QStringLiteral("Pro liniové zdroje z vybrané množiny zdrojů\n"
                                            "budou vypočítány souřadnice středového bodu úseku.\n"
                                            "\n"
                                            "Mám spustit výpočet ?");
    if (boxes.show(&window, {title, question, BoxIcon::Question, BoxButtons::YesNo, {}}) != BoxAnswer::Yes)
        return;
    // The window is painted where the question stood before it is busy.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    runMidpoints(window.list().set(), window.list().rows());
    boxes.show(&window, {title, QStringLiteral("Hotovo…"), BoxIcon::Information, BoxButtons::Ok, {}});
}

}  // namespace korvex
