// Listens as a screen reader does, on the bus of assistive technology, and prints what it is told: a line for every
// control that gets the focus, and one for every change of what is selected. Ends when its input does.
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>
#include <QSocketNotifier>
#include <QTextStream>

#include <unistd.h>

namespace {

const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");

/// The accessible objects of a bus.
class ScreenReader : public QObject {
    Q_OBJECT

public:
    explicit ScreenReader(const QDBusConnection& bus) : m_bus(bus) { }

    /// Programs tell nothing before somebody has asked for it.
    [[nodiscard]] bool listen()
    {
        QDBusInterface registry(QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("/org/a11y/atspi/registry"),
            QStringLiteral("org.a11y.atspi.Registry"), m_bus);
        const QDBusReply<void> registered = registry.call(QStringLiteral("RegisterEvent"), QStringLiteral("object:"));
        return registered.isValid()
            && m_bus.connect({}, {}, QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("StateChanged"),
                this, SLOT(stateChanged(QDBusMessage)));
    }

private slots:
    void stateChanged(const QDBusMessage& event)
    {
        const QString state = event.arguments().value(0).toString();
        const bool on = event.arguments().value(1).toInt() != 0;
        if (state == QLatin1String("focused") && on)
            say(QStringLiteral("focus"), event);
        else if (state == QLatin1String("selected"))
            say(on ? QStringLiteral("selected") : QStringLiteral("unselected"), event);
    }

private:
    [[nodiscard]] QString property(const QDBusMessage& event, const QString& name)
    {
        QDBusInterface properties(
            event.service(), event.path(), QStringLiteral("org.freedesktop.DBus.Properties"), m_bus);
        const QDBusReply<QDBusVariant> reply = properties.call(QStringLiteral("Get"), accessible, name);
        return reply.isValid() ? reply.value().variant().toString() : reply.error().name();
    }
    void say(const QString& what, const QDBusMessage& event)
    {
        QTextStream out(stdout);
        out << what << ": " << property(event, QStringLiteral("Name")) << " | "
            << property(event, QStringLiteral("Description")) << Qt::endl;
    }

    QDBusConnection m_bus;
};

/// Empty: there is none.
QString busOfAssistiveTechnology()
{
    QDBusInterface bus(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"), QStringLiteral("org.a11y.Bus"));
    const QDBusReply<QString> address = bus.call(QStringLiteral("GetAddress"));
    return address.isValid() ? address.value() : QString();
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication program(argc, argv);
    const QString address = busOfAssistiveTechnology();
    if (address.isEmpty())
        return 2;
    ScreenReader reader(QDBusConnection::connectToBus(address, QStringLiteral("assistive technology")));
    if (!reader.listen())
        return 2;
    QTextStream(stdout) << "listening" << Qt::endl;
    QSocketNotifier inputEnd(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&inputEnd, &QSocketNotifier::activated, &program, &QCoreApplication::quit);
    return QCoreApplication::exec();
}

#include "screen_reader.moc"
