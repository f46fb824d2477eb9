// Linked into a program, ends it as soon as its first window is painted: its run time is then its time to start.
#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <QWidget>

#include <unistd.h>

namespace {

/// Ends the program on the spot: what a program does on its way out is no part of its start.
void endHere()
{
    ::_exit(0);
}

class FirstPaint : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // The window comes first and its widgets follow in the same go: the timer fires when all are on the screen.
        const auto* const widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(watched) : nullptr;
        if (widget != nullptr && widget->isWindow() && !m_seen) {
            m_seen = true;
            QTimer::singleShot(0, this, endHere);
        }
        return false;
    }

private:
    bool m_seen = false;
};

void endAtFirstPaint()
{
    QCoreApplication* const application = QCoreApplication::instance();
    application->installEventFilter(new FirstPaint(application));
}

}  // namespace

// The toolkit calls it when the application object is made, whatever main looks like.
Q_COREAPP_STARTUP_FUNCTION(endAtFirstPaint)
