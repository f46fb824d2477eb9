#include "field_behaviour.h"

#include <QEvent>
#include <QLineEdit>
#include <QTimer>

namespace korvex {

namespace {

class SelectAllText : public QObject {
public:
    explicit SelectAllText(QLineEdit& field) : QObject(&field), m_field(field) { field.installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // At once would be too early: the click that brings the focus would undo it.
        if (event->type() == QEvent::FocusIn)
            QTimer::singleShot(0, &m_field, &QLineEdit::selectAll);
        return QObject::eventFilter(watched, event);
    }

private:
    QLineEdit& m_field;
};

}  // namespace

void selectAllTextOnFocus(QLineEdit& field)
{
    new SelectAllText(field);
}

}  // namespace korvex
