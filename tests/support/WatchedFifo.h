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
    explicit WatchedFifo(const QString& fifoPath) : path(QFile::encodeName(fifoPath))
    {
        const bool made = ::mkfifo(path.constData(), 0600) == 0;
        // With a writer at the other end, opening for reading does not wait.
        writer = ::open(path.constData(), O_RDWR | O_CLOEXEC);
        events = ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
        const bool watching = ::inotify_add_watch(events, path.constData(), IN_OPEN) >= 0;
        if (!made || writer < 0 || !watching || ::pipe(stop.data()) != 0)
            qFatal("cannot watch a pipe");
        watch = std::thread([this] { run(); });
    }
    ~WatchedFifo() { wasOpened(); }
    Q_DISABLE_COPY(WatchedFifo)

    /// Whether it was opened up to now; nobody watches afterwards.
    bool wasOpened()
    {
        if (watch.joinable()) {
            ::close(stop[1]);
            watch.join();
            for (const int descriptor : {stop[0], events, writer})
                ::close(descriptor);
        }
        return opened;
    }

private:
    void run()
    {
        std::array<pollfd, 2> waiting = {{{events, POLLIN, 0}, {stop[0], POLLIN, 0}}};
        ::poll(waiting.data(), waiting.size(), -1);
        opened = (waiting[0].revents & POLLIN) != 0;
        if (!opened)
            return;
        // Gone before it has no writer any more: a second attempt to open it fails.
        ::unlink(path.constData());
        ::close(writer);
        writer = -1;
    }

    QByteArray path;
    int writer = -1;
    int events = -1;
    std::array<int, 2> stop = {-1, -1};
    std::atomic<bool> opened{false};
    std::thread watch;
};
