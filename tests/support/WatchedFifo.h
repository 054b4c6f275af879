#pragma once

#include <QFile>
#include <QString>

#include <array>
#include <atomic>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

/// A named pipe that tells whether somebody opened it. Whoever does finds it empty and gone instead
/// of waiting for a writer for good.
class WatchedFifo
{
public:
    explicit WatchedFifo(const QString& fifoPath) : m_path(QFile::encodeName(fifoPath))
    {
        const bool made = ::mkfifo(m_path.constData(), 0600) == 0;
        // With a writer at the other end, opening for reading does not wait.
        m_writer = ::open(m_path.constData(), O_RDWR | O_CLOEXEC);
        m_events = ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
        const bool watching = ::inotify_add_watch(m_events, m_path.constData(), IN_OPEN) >= 0;
        if (!made || m_writer < 0 || !watching || ::pipe(m_stop.data()) != 0)
            qFatal("cannot watch a pipe");
        m_watch = std::thread([this] { run(); });
    }
    ~WatchedFifo() { wasOpened(); }
    Q_DISABLE_COPY(WatchedFifo)

    /// Whether it was opened up to now; nobody watches afterwards.
    bool wasOpened()
    {
        if (m_watch.joinable()) {
            ::close(m_stop[1]);
            m_watch.join();
            for (const int descriptor : {m_stop[0], m_events, m_writer})
                ::close(descriptor);
        }
        return m_opened;
    }

private:
    void run()
    {
        std::array<pollfd, 2> waiting = {{{m_events, POLLIN, 0}, {m_stop[0], POLLIN, 0}}};
        ::poll(waiting.data(), waiting.size(), -1);
        m_opened = (waiting[0].revents & POLLIN) != 0;
        if (!m_opened)
            return;
        // Gone before it has no writer any more: a second attempt to open it fails.
        ::unlink(m_path.constData());
        ::close(m_writer);
        m_writer = -1;
    }

    QByteArray m_path;
    int m_writer = -1;
    int m_events = -1;
    std::array<int, 2> m_stop = {-1, -1};
    std::atomic<bool> m_opened{false};
    std::thread m_watch;
};
