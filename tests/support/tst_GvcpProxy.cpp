// The bad network between a client and a camera. The camera here answers each datagram with the
// same one.
#include "tests/support/GvcpProxy.h"

#include <QtTest>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <optional>

using Direction = GvcpProxy::Direction;
using Fate = GvcpProxy::Fate;

namespace {

sockaddr_in addressOf(const char* host)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(GvcpProxy::Port);
    ::inet_pton(AF_INET, host, &address.sin_addr);
    return address;
}

/// One end of the connection.
class Peer
{
public:
    Peer() : m_fd(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {}
    ~Peer() { ::close(m_fd); }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    bool listen(const char* host)
    {
        const sockaddr_in own = addressOf(host);
        return ::bind(m_fd, reinterpret_cast<const sockaddr*>(&own), sizeof own) == 0;
    }
    void ask(unsigned char number)
    {
        m_to = addressOf(GvcpProxy::Address);
        answer(number);
    }
    /// To whom the last number came from.
    void answer(unsigned char number)
    {
        ::sendto(m_fd, &number, 1, 0, reinterpret_cast<const sockaddr*>(&m_to), sizeof m_to);
    }
    std::optional<int> receive(int patienceMs = 5000)
    {
        timeval patience{patienceMs / 1000, patienceMs % 1000 * 1000};
        ::setsockopt(m_fd, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        unsigned char number = 0;
        socklen_t length = sizeof m_to;
        if (::recvfrom(m_fd, &number, 1, 0, reinterpret_cast<sockaddr*>(&m_to), &length) != 1)
            return std::nullopt;
        return number;
    }
    unsigned lastPort() const { return m_to.sin_port; }

private:
    int m_fd;
    sockaddr_in m_to{};
};

GvcpProxy::Judge always(Direction direction, Fate fate)
{
    return [=](Direction asked, const GvcpProxy::Datagram&) {
        return asked == direction ? fate : Fate::Pass;
    };
}

QVector<int> fates(const GvcpProxy::Weather& weather)
{
    const auto judge = GvcpProxy::judgeOf(weather);
    QVector<int> result;
    for (int i = 0; i < 10000; ++i)
        result.append(static_cast<int>(judge(Direction::ToCamera, {})));
    return result;
}

} // namespace

class tst_GvcpProxy : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void passesBothWays();
    void keepsClientsApart();
    void dropsWhatItIsTold_data() { directions(); }
    void dropsWhatItIsTold();
    void duplicatesWhatItIsTold_data() { directions(); }
    void duplicatesWhatItIsTold();
    void delayedDatagramIsOvertaken();
    void isNotRunningWhereSomebodyElseListens();
    void sameSeedHasTheSameFates();
    void otherSeedHasOtherFates();
    void sharesAreThoseOfTheWeather();

private:
    static void directions();
    /// Receives at the camera and answers; at the client the number comes back.
    std::optional<int> exchange(unsigned char number);

    std::unique_ptr<Peer> m_camera;
    std::unique_ptr<Peer> m_client;
    std::unique_ptr<GvcpProxy> m_proxy;
};

Q_DECLARE_METATYPE(GvcpProxy::Direction)

void tst_GvcpProxy::init()
{
    m_camera = std::make_unique<Peer>();
    m_client = std::make_unique<Peer>();
    QVERIFY(m_camera->listen(GvcpProxy::CameraAddress));
    m_proxy = std::make_unique<GvcpProxy>();
    QVERIFY(m_proxy->isRunning());
}

void tst_GvcpProxy::cleanup()
{
    m_proxy.reset();
    m_client.reset();
    m_camera.reset();
}

std::optional<int> tst_GvcpProxy::exchange(unsigned char number)
{
    m_client->ask(number);
    if (m_camera->receive() != number)
        return std::nullopt;
    m_camera->answer(number);
    return m_client->receive();
}

void tst_GvcpProxy::directions()
{
    QTest::addColumn<Direction>("direction");
    QTest::newRow("requests") << Direction::ToCamera;
    QTest::newRow("answers") << Direction::ToClient;
}

void tst_GvcpProxy::passesBothWays()
{
    QCOMPARE(exchange(1).value_or(-1), 1);
    QCOMPARE(exchange(2).value_or(-1), 2);
    QCOMPARE(m_proxy->counts().passed, std::uint64_t(4));
}

void tst_GvcpProxy::keepsClientsApart()
{
    Peer other;
    m_client->ask(1);
    QCOMPARE(m_camera->receive().value_or(-1), 1);
    const unsigned port = m_camera->lastPort();
    other.ask(2);
    QCOMPARE(m_camera->receive().value_or(-1), 2);
    QVERIFY(m_camera->lastPort() != port);
    m_camera->answer(2);
    QCOMPARE(other.receive().value_or(-1), 2);
    QCOMPARE(exchange(3).value_or(-1), 3);
    QCOMPARE(m_camera->lastPort(), port);
}

void tst_GvcpProxy::dropsWhatItIsTold()
{
    QFETCH(Direction, direction);
    m_proxy->setJudge(always(direction, Fate::Drop));
    m_client->ask(1);
    QTRY_COMPARE(m_proxy->counts().dropped + m_proxy->counts().passed, std::uint64_t(1));
    if (direction == Direction::ToClient) {
        QCOMPARE(m_camera->receive().value_or(-1), 1);
        m_camera->answer(1);
    }
    QTRY_COMPARE(m_proxy->counts().dropped, std::uint64_t(1));
    // What comes next comes first.
    m_proxy->setJudge(nullptr);
    QCOMPARE(exchange(2).value_or(-1), 2);
}

void tst_GvcpProxy::duplicatesWhatItIsTold()
{
    QFETCH(Direction, direction);
    m_proxy->setJudge(always(direction, Fate::Duplicate));
    QCOMPARE(exchange(1).value_or(-1), 1);
    Peer& twice = direction == Direction::ToCamera ? *m_camera : *m_client;
    QCOMPARE(twice.receive().value_or(-1), 1);
    QCOMPARE(m_proxy->counts().duplicated, std::uint64_t(1));
}

void tst_GvcpProxy::delayedDatagramIsOvertaken()
{
    m_proxy->setJudge(always(Direction::ToCamera, Fate::Delay));
    m_client->ask(1);
    QTRY_COMPARE(m_proxy->counts().delayed, std::uint64_t(1));
    m_proxy->setJudge(nullptr);
    m_client->ask(2);
    QCOMPARE(m_camera->receive().value_or(-1), 2);
    QCOMPARE(m_camera->receive().value_or(-1), 1);
}

void tst_GvcpProxy::isNotRunningWhereSomebodyElseListens()
{
    const GvcpProxy second;
    QVERIFY(!second.isRunning());
}

void tst_GvcpProxy::sameSeedHasTheSameFates()
{
    const GvcpProxy::Weather weather{0.1, 0.1, 0.1, 7};
    QCOMPARE(fates(weather), fates(weather));
}

void tst_GvcpProxy::otherSeedHasOtherFates()
{
    QVERIFY(fates({0.1, 0.1, 0.1, 7}) != fates({0.1, 0.1, 0.1, 8}));
}

void tst_GvcpProxy::sharesAreThoseOfTheWeather()
{
    const auto all = fates({0.1, 0.2, 0.3, 1});
    const auto share = [&all](Fate fate) { return all.count(static_cast<int>(fate)) / 100; };
    QVERIFY(qAbs(share(Fate::Drop) - 10) <= 2);
    QVERIFY(qAbs(share(Fate::Duplicate) - 20) <= 2);
    QVERIFY(qAbs(share(Fate::Delay) - 30) <= 2);
    QVERIFY(!fates({}).contains(static_cast<int>(Fate::Drop)));
}

QTEST_GUILESS_MAIN(tst_GvcpProxy)
#include "tst_GvcpProxy.moc"
