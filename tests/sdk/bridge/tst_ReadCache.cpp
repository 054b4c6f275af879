// What the cache of reads gives back, and for how long.
#include "sdk/bridge/ReadCache.h"

#include <QtTest>

using ZalCPP::ReadCache;
using Clock = ReadCache::Clock;

namespace {

constexpr ReadCache::Key Four{0x100, 4, false};

/// -1 when the cache has no good answer.
int valueIn(const ReadCache& cache, Clock::time_point now, const ReadCache::Key& key = Four)
{
    std::vector<unsigned char> buffer(key.size);
    return cache.find(key, now, buffer.data()) ? buffer[0] : -1;
}

/// Of four bytes, wherever a test keeps them.
int answersIn(const ReadCache& cache, Clock::time_point now)
{
    int count = 0;
    for (unsigned address = 0; address < 100000; ++address) {
        for (const bool asNumber : {false, true})
            count += valueIn(cache, now, {address, 4, asNumber}) >= 0 ? 1 : 0;
    }
    return count;
}

void keep(ReadCache& cache, Clock::time_point asked, unsigned char value,
          const ReadCache::Key& key = Four)
{
    const std::vector<unsigned char> bytes(key.size, value);
    cache.keep(key, asked, bytes.data());
}

} // namespace

class tst_ReadCache : public QObject
{
    Q_OBJECT

private slots:
    void emptyCacheHasNoAnswer();
    void answerIsGoodForTheWindow_data();
    void answerIsGoodForTheWindow();
    void newerAnswerReplacesTheOlder();
    void anotherQuestionHasAnotherAnswer_data();
    void anotherQuestionHasAnotherAnswer();
    void nothingIsLeftAfterClearing();
    void whoWantsFreshAnswersGetsNoOlderOnes();
    void freshAnswersMayBeSharedAmongThoseWhoWantThem();
    void forgottenRegisterIsAskedAgain();
    void longBlocksAreNotKept();
    void memoryIsBounded();

private:
    const Clock::time_point m_now = Clock::now();
};

void tst_ReadCache::emptyCacheHasNoAnswer()
{
    QCOMPARE(valueIn(ReadCache(), m_now), -1);
}

void tst_ReadCache::answerIsGoodForTheWindow_data()
{
    QTest::addColumn<int>("age");
    QTest::addColumn<int>("value");
    QTest::newRow("at once") << 0 << 7;
    QTest::newRow("just before the end") << 49 << 7;
    QTest::newRow("at the end") << 50 << -1;
    QTest::newRow("much later") << 5000 << -1;
}

void tst_ReadCache::answerIsGoodForTheWindow()
{
    QFETCH(int, age);
    ReadCache cache;
    keep(cache, m_now, 7);
    QTEST(valueIn(cache, m_now + std::chrono::milliseconds(age)), "value");
}

void tst_ReadCache::newerAnswerReplacesTheOlder()
{
    ReadCache cache;
    keep(cache, m_now, 7);
    keep(cache, m_now + std::chrono::milliseconds(40), 8);
    QCOMPARE(valueIn(cache, m_now + std::chrono::milliseconds(60)), 8);
}

void tst_ReadCache::anotherQuestionHasAnotherAnswer_data()
{
    QTest::addColumn<unsigned>("address");
    QTest::addColumn<unsigned>("size");
    QTest::addColumn<bool>("asNumber");
    QTest::newRow("address") << 0x104U << 4U << false;
    QTest::newRow("size") << 0x100U << 8U << false;
    QTest::newRow("byte order") << 0x100U << 4U << true;
}

void tst_ReadCache::anotherQuestionHasAnotherAnswer()
{
    QFETCH(unsigned, address);
    QFETCH(unsigned, size);
    QFETCH(bool, asNumber);
    const ReadCache::Key other{address, size, asNumber};
    ReadCache cache;
    keep(cache, m_now, 7);
    QCOMPARE(valueIn(cache, m_now, other), -1);
    keep(cache, m_now, 8, other);
    QCOMPARE(valueIn(cache, m_now), 7);
    QCOMPARE(valueIn(cache, m_now, other), 8);
}

void tst_ReadCache::nothingIsLeftAfterClearing()
{
    ReadCache cache;
    keep(cache, m_now, 7);
    keep(cache, m_now, 8, {0x104, 4, true});
    cache.clear();
    QCOMPARE(answersIn(cache, m_now), 0);
}

void tst_ReadCache::whoWantsFreshAnswersGetsNoOlderOnes()
{
    ReadCache cache;
    keep(cache, m_now, 7);
    const auto later = m_now + std::chrono::milliseconds(10);
    {
        const ReadCache::Fresh fresh(cache, later);
        QCOMPARE(valueIn(cache, later), -1);
        keep(cache, later, 8);
        QCOMPARE(valueIn(cache, later), 8);
    }
    keep(cache, m_now, 9);
    QCOMPARE(valueIn(cache, later), 9);
}

void tst_ReadCache::freshAnswersMayBeSharedAmongThoseWhoWantThem()
{
    ReadCache cache;
    const auto later = m_now + std::chrono::milliseconds(10);
    for (const int expected : {-1, 8}) {
        const ReadCache::Fresh fresh(cache, m_now);
        QCOMPARE(valueIn(cache, later), expected);
        keep(cache, later, 8);
    }
}

void tst_ReadCache::forgottenRegisterIsAskedAgain()
{
    const ReadCache::Key kinds[] = {Four, {0x100, 8, false}, {0x100, 4, true}};
    const ReadCache::Key others[] = {{0xff, 4, false}, {0x101, 4, false}};
    ReadCache cache;
    for (const auto& key : kinds)
        keep(cache, m_now, 7, key);
    for (const auto& key : others)
        keep(cache, m_now, 8, key);
    cache.forget(0x100);
    for (const auto& key : kinds)
        QCOMPARE(valueIn(cache, m_now, key), -1);
    for (const auto& key : others)
        QCOMPARE(valueIn(cache, m_now, key), 8);
}

void tst_ReadCache::longBlocksAreNotKept()
{
    ReadCache cache;
    keep(cache, m_now, 7, {0, 512, false});
    keep(cache, m_now, 7, {0, 513, false});
    QCOMPARE(valueIn(cache, m_now, {0, 512, false}), 7);
    QCOMPARE(valueIn(cache, m_now, {0, 513, false}), -1);
}

void tst_ReadCache::memoryIsBounded()
{
    ReadCache cache;
    for (unsigned address = 0; address < 100000; ++address)
        keep(cache, m_now, 7, {address, 4, address % 2 == 0});
    QVERIFY(answersIn(cache, m_now) <= 1024);
    QCOMPARE(valueIn(cache, m_now, {99999, 4, false}), 7);
}

QTEST_GUILESS_MAIN(tst_ReadCache)
#include "tst_ReadCache.moc"
