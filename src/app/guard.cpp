#include "guard.h"

#include "arithmetic_fault.h"

#include <new>
#include <stdexcept>

namespace korvex {

namespace {

bool showFault(MessageBoxes& boxes, QWidget* parent, const QString& text)
{
    boxes.show(parent, {QStringLiteral("Chyba při běhu programu"), text, BoxIcon::Critical, BoxButtons::Ok, {}});
    return false;
}

}  // namespace

bool runGuarded(MessageBoxes& boxes, QWidget* parent, const std::function<void()>& command)
{
    try {
        command();
        return true;
    } catch (const ArithmeticFault& fault) {
        return showFault(boxes, parent, QString::fromUtf8(fault.what()));
    } catch (const std::out_of_range& fault) {
        return showFault(boxes, parent, QString::fromUtf8(fault.what()));
    } catch (const std::bad_alloc&) {
        return showFault(boxes, parent, QStringLiteral("Nedostatek paměti."));
    } catch (const std::length_error&) {
        return showFault(boxes, parent, QStringLiteral("Text je příliš dlouhý."));
    }
}

}  // namespace korvex
