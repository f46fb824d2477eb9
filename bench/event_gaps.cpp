// Linked into a program, writes down how long its window answers nobody: every few milliseconds a second thread asks
// the first one for an answer and waits for it. The file is named by KORVEX_EVENT_GAPS; without it nothing happens.
#include <QCoreApplication>
#include <QObject>

#include <atomic>
#include <chrono>
#include <fstream>
#include <string>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

class EventGaps : public QObject {
public:
    EventGaps(const std::string& path, QObject* parent)
        : QObject(parent), m_file(path, std::ios::app), m_thread([this] { ask(); })
    {
    }
    ~EventGaps() override
    {
        m_isOver = true;
        m_thread.join();
    }

private:
    void ask()
    {
        constexpr std::chrono::milliseconds pause(2);
        for (; !m_isOver; std::this_thread::sleep_for(pause)) {
            if (m_isWaiting.exchange(true))
                continue;
            const Clock::time_point asked = Clock::now();
            QMetaObject::invokeMethod(
                this, [this, asked] { answer(asked); }, Qt::QueuedConnection);
        }
    }
    void answer(Clock::time_point asked)
    {
        m_file << std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - asked).count() << std::endl;
        m_isWaiting = false;
    }

    std::ofstream m_file;
    std::atomic<bool> m_isOver{false};
    std::atomic<bool> m_isWaiting{false};
    std::thread m_thread;
};

void watchEventGaps()
{
    const QByteArray path = qgetenv("KORVEX_EVENT_GAPS");
    if (!path.isEmpty())
        new EventGaps(path.toStdString(), QCoreApplication::instance());
}

}  // namespace

// The toolkit calls it when the application object is made, whatever main looks like.
Q_COREAPP_STARTUP_FUNCTION(watchEventGaps)
