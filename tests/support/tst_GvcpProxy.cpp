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
    Peer() : fd(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {}
    ~Peer() { ::close(fd); }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    bool listen(const char* host)
    {
        const sockaddr_in own = addressOf(host);
        return ::bind(fd, reinterpret_cast<const sockaddr*>(&own), sizeof own) == 0;
    }
    void ask(unsigned char number)
    {
        to = addressOf(GvcpProxy::Address);
        answer(number);
    }
    /// To whom the last number came from.
    void answer(unsigned char number)
    {
        ::sendto(fd, &number, 1, 0, reinterpret_cast<const sockaddr*>(&to), sizeof to);
    }
    std::optional<int> receive(int patienceMs = 5000)
    {
        timeval patience{patienceMs / 1000, patienceMs % 1000 * 1000};
        ::setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        unsigned char number = 0;
        socklen_t length = sizeof to;
        if (::recvfrom(fd, &number, 1, 0, reinterpret_cast<sockaddr*>(&to), &length) != 1)
            return std::nullopt;
        return number;
    }
    unsigned lastPort() const { return to.sin_port; }

private:
    int fd;
    sockaddr_in to{};
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

    std::unique_ptr<Peer> camera;
    std::unique_ptr<Peer> client;
    std::unique_ptr<GvcpProxy> proxy;
};

Q_DECLARE_METATYPE(GvcpProxy::Direction)

void tst_GvcpProxy::init()
{
    camera = std::make_unique<Peer>();
    client = std::make_unique<Peer>();
    QVERIFY(camera->listen(GvcpProxy::CameraAddress));
    proxy = std::make_unique<GvcpProxy>();
    QVERIFY(proxy->isRunning());
}

void tst_GvcpProxy::cleanup()
{
    proxy.reset();
    client.reset();
    camera.reset();
}

std::optional<int> tst_GvcpProxy::exchange(unsigned char number)
{
    client->ask(number);
    if (camera->receive() != number)
        return std::nullopt;
    camera->answer(number);
    return client->receive();
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
    QCOMPARE(proxy->counts().passed, std::uint64_t(4));
}

void tst_GvcpProxy::keepsClientsApart()
{
    Peer other;
    client->ask(1);
    QCOMPARE(camera->receive().value_or(-1), 1);
    const unsigned port = camera->lastPort();
    other.ask(2);
    QCOMPARE(camera->receive().value_or(-1), 2);
    QVERIFY(camera->lastPort() != port);
    camera->answer(2);
    QCOMPARE(other.receive().value_or(-1), 2);
    QCOMPARE(exchange(3).value_or(-1), 3);
    QCOMPARE(camera->lastPort(), port);
}

void tst_GvcpProxy::dropsWhatItIsTold()
{
    QFETCH(Direction, direction);
    proxy->setJudge(always(direction, Fate::Drop));
    client->ask(1);
    QTRY_COMPARE(proxy->counts().dropped + proxy->counts().passed, std::uint64_t(1));
    if (direction == Direction::ToClient) {
        QCOMPARE(camera->receive().value_or(-1), 1);
        camera->answer(1);
    }
    QTRY_COMPARE(proxy->counts().dropped, std::uint64_t(1));
    // What comes next comes first.
    proxy->setJudge(nullptr);
    QCOMPARE(exchange(2).value_or(-1), 2);
}

void tst_GvcpProxy::duplicatesWhatItIsTold()
{
    QFETCH(Direction, direction);
    proxy->setJudge(always(direction, Fate::Duplicate));
    QCOMPARE(exchange(1).value_or(-1), 1);
    Peer& twice = direction == Direction::ToCamera ? *camera : *client;
    QCOMPARE(twice.receive().value_or(-1), 1);
    QCOMPARE(proxy->counts().duplicated, std::uint64_t(1));
}

void tst_GvcpProxy::delayedDatagramIsOvertaken()
{
    proxy->setJudge(always(Direction::ToCamera, Fate::Delay));
    client->ask(1);
    QTRY_COMPARE(proxy->counts().delayed, std::uint64_t(1));
    proxy->setJudge(nullptr);
    client->ask(2);
    QCOMPARE(camera->receive().value_or(-1), 2);
    QCOMPARE(camera->receive().value_or(-1), 1);
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
