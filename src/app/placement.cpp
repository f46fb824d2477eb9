#include "placement.h"

#include "settings_store.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace korvex {

namespace {

constexpr int twipsPerPixel = 15;
constexpr double beyondAnyScreen = 100000.0;  // pixels

enum StoredState { StoredNormal = 0, StoredMinimised = 1, StoredMaximised = 2 };

bool positionsAreKnown()
{
    return !QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

/// The placement keys of one window.
class PlacementSection {
public:
    PlacementSection(SettingsStore& store, const QString& kind, const QWidget& window)
        : m_store(store), m_section(kind + window.objectName())
    {
    }

    [[nodiscard]] bool isStored() const { return !m_store.get(m_section, QStringLiteral("WindowState"), {}).isEmpty(); }

    [[nodiscard]] int pixels(const char* key, int defaultPixels) const
    {
        bool isNumber = false;
        const double pixels = m_store.get(m_section, QLatin1String(key), {}).toDouble(&isNumber) / twipsPerPixel;
        if (!isNumber || !(std::abs(pixels) < beyondAnyScreen))
            return defaultPixels;
        return static_cast<int>(std::lround(pixels));
    }
    void pixelsTo(const char* key, int pixels) const { text(key, pixels * twipsPerPixel); }

    [[nodiscard]] int state() const
    {
        bool isNumber = false;
        const int state = m_store.get(m_section, QStringLiteral("WindowState"), {}).toInt(&isNumber);
        return isNumber ? state : StoredNormal;
    }
    void stateTo(int state) const { text("WindowState", state); }

    [[nodiscard]] QSize size(const QSize& defaultSize) const
    {
        const QSize size(pixels("Width", defaultSize.width()), pixels("Height", defaultSize.height()));
        return size.width() > 0 && size.height() > 0 ? size : defaultSize;
    }
    void sizeTo(const QSize& size) const
    {
        pixelsTo("Width", size.width());
        pixelsTo("Height", size.height());
    }

private:
    void text(const char* key, int number) const
    {
        m_store.save(m_section, QLatin1String(key), QString::number(number));
    }

    SettingsStore& m_store;
    QString m_section;
};

PlacementSection freeSection(SettingsStore& store, const QWidget& window)
{
    return {store, QStringLiteral("Form:"), window};
}

PlacementSection subordinateSection(SettingsStore& store, const QWidget& dialog)
{
    return {store, QStringLiteral("SubForm:"), dialog};
}

/// What a window's frame adds to its size; a dialog not yet shown has none, but will get the owner's.
QSize frameOf(const QWidget& owner)
{
    return owner.frameGeometry().size() - owner.size();
}

}  // namespace

FreePlacement::FreePlacement(QWidget& window, SettingsStore& store, Resizable resizable)
    : QObject(&window), m_window(window), m_store(store), m_resizable(resizable)
{
    window.installEventFilter(this);
}

bool FreePlacement::isStored() const
{
    return freeSection(m_store, m_window).isStored();
}

void FreePlacement::restore()
{
    const PlacementSection section = freeSection(m_store, m_window);
    // The size first: a window moved before it has one climbs by its title bar at every opening.
    if (m_resizable == Resizable::Yes)
        m_window.resize(section.size(m_window.size()));
    else
        m_window.adjustSize();
    const QPoint position(section.pixels("Left", 0), section.pixels("Top", 0));
    if (positionsAreKnown())
        m_window.move(position);
    m_normal = QRect(position, m_window.size());
    if (section.state() == StoredMaximised)
        m_window.setWindowState(Qt::WindowMaximized);
    else if (section.state() == StoredMinimised)
        m_window.setWindowState(Qt::WindowMinimized);
}

void FreePlacement::store()
{
    const PlacementSection section = freeSection(m_store, m_window);
    noteNormalBounds();
    if (positionsAreKnown()) {
        section.pixelsTo("Top", m_normal.y());
        section.pixelsTo("Left", m_normal.x());
    }
    if (m_resizable == Resizable::Yes)
        section.sizeTo(m_normal.size());
    if (m_window.isMaximized())
        section.stateTo(StoredMaximised);
    else
        section.stateTo(m_window.isMinimized() ? StoredMinimised : StoredNormal);
}

bool FreePlacement::eventFilter(QObject* watched, QEvent* event)
{
    // The state changes after the bounds do: looked at only when both are there.
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        QTimer::singleShot(0, this, &FreePlacement::noteNormalBounds);
    return QObject::eventFilter(watched, event);
}

void FreePlacement::noteNormalBounds()
{
    constexpr Qt::WindowStates notNormal = Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen;
    if (m_window.isVisible() && !(m_window.windowState() & notNormal))
        m_normal = QRect(m_window.pos(), m_window.size());
}

void storeSubordinatePlacement(const QWidget& dialog, const QWidget& owner, SettingsStore& store, Resizable resizable)
{
    const PlacementSection section = subordinateSection(store, dialog);
    if (positionsAreKnown()) {
        section.pixelsTo("RelTop", dialog.pos().y() - owner.pos().y());
        section.pixelsTo("RelLeft", dialog.pos().x() - owner.pos().x());
    }
    if (resizable == Resizable::Yes)
        section.sizeTo(dialog.size());
}

void restoreSubordinatePlacement(QWidget& dialog, const QWidget& owner, SettingsStore& store, Resizable resizable)
{
    const PlacementSection section = subordinateSection(store, dialog);
    dialog.adjustSize();
    if (resizable == Resizable::Yes)
        dialog.resize(section.size(dialog.size()));
    if (!positionsAreKnown())
        return;
    QPoint position = owner.pos() + QPoint(section.pixels("RelLeft", 0), section.pixels("RelTop", 0));
    const QRect screen = owner.screen()->geometry();
    const QSize size = dialog.size() + frameOf(owner);
    position.setY(std::min(position.y(), screen.y() + screen.height() - size.height()));
    position.setX(std::min(position.x(), screen.x() + screen.width() - size.width()));
    dialog.move(position);
}

}  // namespace korvex
