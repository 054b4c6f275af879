#include "tests/support/GvcpProxy.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <map>
#include <mutex>
#include <random>
#include <thread>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;
using Datagram = GvcpProxy::Datagram;

// The control protocol's longest datagram is far shorter.
constexpr std::size_t LongestDatagram = 2048;

/// Owns a file descriptor.
class Descriptor
{
public:
    explicit Descriptor(int opened) : m_fd(opened) {}
    Descriptor(Descriptor&& other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}
    ~Descriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;

    const int& get() const { return m_fd; }

private:
    int m_fd;
};

Descriptor udpSocket()
{
    return Descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
}

sockaddr_in addressOf(const char* host)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(GvcpProxy::Port);
    ::inet_pton(AF_INET, host, &address.sin_addr);
    return address;
}

const sockaddr* generic(const sockaddr_in& address)
{
    return reinterpret_cast<const sockaddr*>(&address);
}

/// A client, and the socket through which it reaches the camera.
struct Client
{
    explicit Client(const sockaddr_in& from) : address(from), upstream(udpSocket())
    {
        const sockaddr_in camera = addressOf(GvcpProxy::CameraAddress);
        ::connect(upstream.get(), generic(camera), sizeof camera);
    }

    sockaddr_in address;
    Descriptor upstream;
};

struct Parcel
{
    const Client* client;
    GvcpProxy::Direction direction;
    Datagram datagram;
};

std::pair<std::uint32_t, std::uint16_t> keyOf(const sockaddr_in& address)
{
    return {address.sin_addr.s_addr, address.sin_port};
}

} // namespace

class GvcpProxy::Private
{
public:
    Private();
    ~Private();
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    bool isRunning() const { return m_running; }

    mutable std::mutex mutex;
    Judge judge;
    Counts counts;
    std::atomic<std::chrono::milliseconds> delay{std::chrono::milliseconds(100)};

private:
    void run();
    std::vector<pollfd> descriptors() const;
    int patience() const;
    void receiveFromClient();
    void receiveFromCamera(const Client& client);
    void decide(Parcel parcel);
    Fate fateOf(const Parcel& parcel);
    void send(const Parcel& parcel) const;
    void sendWhatIsDue();

    const Descriptor m_listener = udpSocket();
    const Descriptor m_stop{::eventfd(0, EFD_CLOEXEC)};
    std::map<std::pair<std::uint32_t, std::uint16_t>, Client> m_clients;
    std::multimap<Clock::time_point, Parcel> m_late;
    bool m_running = false;
    std::thread m_thread;
};

GvcpProxy::Private::Private()
{
    const sockaddr_in own = addressOf(Address);
    m_running = ::bind(m_listener.get(), generic(own), sizeof own) == 0;
    if (m_running)
        m_thread = std::thread([this] { run(); });
}

GvcpProxy::Private::~Private()
{
    if (!m_thread.joinable())
        return;
    ::eventfd_write(m_stop.get(), 1);
    m_thread.join();
}

void GvcpProxy::Private::run()
{
    for (;;) {
        std::vector<pollfd> waiting = descriptors();
        ::poll(waiting.data(), waiting.size(), patience());
        if (waiting[0].revents != 0)
            return;
        sendWhatIsDue();
        auto socket = waiting.begin() + 2;
        for (const auto& entry : m_clients) {
            if ((socket++)->revents != 0)
                receiveFromCamera(entry.second);
        }
        // Last, because it may add a client.
        if (waiting[1].revents != 0)
            receiveFromClient();
    }
}

std::vector<pollfd> GvcpProxy::Private::descriptors() const
{
    std::vector<pollfd> result{{m_stop.get(), POLLIN, 0}, {m_listener.get(), POLLIN, 0}};
    for (const auto& entry : m_clients)
        result.push_back({entry.second.upstream.get(), POLLIN, 0});
    return result;
}

int GvcpProxy::Private::patience() const
{
    if (m_late.empty())
        return -1;
    const auto left = m_late.begin()->first - Clock::now();
    // A millisecond more, because a fraction of one counts as none.
    const auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(left).count() + 1;
    return static_cast<int>(std::max<std::int64_t>(whole, 0));
}

void GvcpProxy::Private::receiveFromClient()
{
    Datagram datagram(LongestDatagram);
    sockaddr_in from{};
    socklen_t length = sizeof from;
    const auto size = ::recvfrom(m_listener.get(), datagram.data(), datagram.size(), MSG_DONTWAIT,
                                 reinterpret_cast<sockaddr*>(&from), &length);
    if (size < 0)
        return;
    datagram.resize(static_cast<std::size_t>(size));
    const Client& client = m_clients.try_emplace(keyOf(from), from).first->second;
    decide({&client, Direction::ToCamera, std::move(datagram)});
}

void GvcpProxy::Private::receiveFromCamera(const Client& client)
{
    Datagram datagram(LongestDatagram);
    const auto size = ::recv(client.upstream.get(), datagram.data(), datagram.size(), MSG_DONTWAIT);
    // A port that nobody listens on is reported as an error of the socket: the camera is gone.
    if (size < 0)
        return;
    datagram.resize(static_cast<std::size_t>(size));
    decide({&client, Direction::ToClient, std::move(datagram)});
}

void GvcpProxy::Private::decide(Parcel parcel)
{
    switch (fateOf(parcel)) {
    case Fate::Drop:
        return;
    case Fate::Delay:
        m_late.emplace(Clock::now() + delay.load(), std::move(parcel));
        return;
    case Fate::Duplicate:
        send(parcel);
        [[fallthrough]];
    case Fate::Pass:
        send(parcel);
    }
}

GvcpProxy::Fate GvcpProxy::Private::fateOf(const Parcel& parcel)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const Fate fate = judge ? judge(parcel.direction, parcel.datagram) : Fate::Pass;
    counts.passed += fate == Fate::Pass;
    counts.dropped += fate == Fate::Drop;
    counts.duplicated += fate == Fate::Duplicate;
    counts.delayed += fate == Fate::Delay;
    return fate;
}

void GvcpProxy::Private::send(const Parcel& parcel) const
{
    const Client& client = *parcel.client;
    const Datagram& datagram = parcel.datagram;
    if (parcel.direction == Direction::ToCamera)
        ::send(client.upstream.get(), datagram.data(), datagram.size(), 0);
    else
        ::sendto(m_listener.get(), datagram.data(), datagram.size(), 0, generic(client.address),
                 sizeof client.address);
}

void GvcpProxy::Private::sendWhatIsDue()
{
    const auto end = m_late.upper_bound(Clock::now());
    for (auto parcel = m_late.begin(); parcel != end; parcel = m_late.erase(parcel))
        send(parcel->second);
}

GvcpProxy::GvcpProxy() : d(std::make_unique<Private>()) {}

GvcpProxy::~GvcpProxy() = default;

bool GvcpProxy::isRunning() const
{
    return d->isRunning();
}

void GvcpProxy::setDelay(int milliseconds)
{
    d->delay = std::chrono::milliseconds(milliseconds);
}

void GvcpProxy::setJudge(Judge judge)
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    d->judge = std::move(judge);
}

GvcpProxy::Counts GvcpProxy::counts() const
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    return d->counts;
}

// A generator for each direction: how the two interleave is up to the threads.
GvcpProxy::Judge GvcpProxy::judgeOf(const Weather& weather)
{
    std::array<std::mt19937, 2> generators{std::mt19937(2 * weather.seed),
                                           std::mt19937(2 * weather.seed + 1)};
    return [weather, generators](Direction direction, const Datagram&) mutable {
        auto& generator = generators[direction == Direction::ToClient];
        double chance = static_cast<double>(generator()) / 0x1p32;
        if ((chance -= weather.drop) < 0)
            return Fate::Drop;
        if ((chance -= weather.duplicate) < 0)
            return Fate::Duplicate;
        return chance < weather.delay ? Fate::Delay : Fate::Pass;
    };
}
