#include "features/TwoCallRead.h"
#include "tests/support/AllocationLimit.h"

#include <QtTest>

namespace {

/// An SDK array form that announces `announced` elements and then fills in `elements`, reporting
/// `reported` of them.
template <typename T> struct ScriptedCall
{
    std::uint32_t announced = 0;
    std::vector<T> elements;
    std::uint32_t reported = 0;
    ZalErrorType firstStatus = ZalErrorSuccess;
    ZalErrorType secondStatus = ZalErrorSuccess;
    std::vector<std::uint32_t> bufferSizes = {}; ///< Of each call; 0 for none.
    bool zeroFilled = true;

    ZalErrorType operator()(T* buffer, std::uint32_t& count)
    {
        bufferSizes.push_back(buffer == nullptr ? 0 : count);
        if (buffer == nullptr) {
            count = announced;
            return firstStatus;
        }
        zeroFilled = std::all_of(buffer, buffer + count, [](T value) { return value == T(); });
        std::copy(elements.begin(), elements.end(), buffer);
        count = reported;
        return secondStatus;
    }
};

ScriptedCall<char> textCall(const std::string& bytes)
{
    const auto size = static_cast<std::uint32_t>(bytes.size());
    return {size, {bytes.begin(), bytes.end()}, size};
}

using Sizes = std::vector<std::uint32_t>;
using Numbers = std::vector<long long>;

} // namespace

class tst_TwoCallRead : public QObject
{
    Q_OBJECT

private slots:
    void asksForTheSizeFirstAndThenReadsIntoZeroFilledMemory();
    void countOfZeroEmptiesTheOutputWithoutASecondCall();
    void arrayHasAsManyElementsAsTheSecondCallReports_data();
    void arrayHasAsManyElementsAsTheSecondCallReports();
    void textEndsAtItsTerminator_data();
    void textEndsAtItsTerminator();
    void textIsWholeWhateverCountTheSecondCallReports();
    void failureOfEitherCallPassesOnAndLeavesTheOutput_data();
    void failureOfEitherCallPassesOnAndLeavesTheOutput();
    void failedAllocationIsOutOfResourcesAndLeavesTheOutput();
};

void tst_TwoCallRead::asksForTheSizeFirstAndThenReadsIntoZeroFilledMemory()
{
    ScriptedCall<long long> call{3, {7, 8, 9}, 3};
    Numbers output;
    QCOMPARE(TwoCallRead::readArray(call, output), ZalErrorSuccess);
    QCOMPARE(output, (Numbers{7, 8, 9}));
    QCOMPARE(call.bufferSizes, (Sizes{0, 3}));
    QVERIFY(call.zeroFilled);
}

void tst_TwoCallRead::countOfZeroEmptiesTheOutputWithoutASecondCall()
{
    ScriptedCall<long long> arrayCall;
    Numbers numbers{1, 2};
    QCOMPARE(TwoCallRead::readArray(arrayCall, numbers), ZalErrorSuccess);
    QVERIFY(numbers.empty());
    QCOMPARE(arrayCall.bufferSizes, Sizes{0});

    ScriptedCall<char> emptyTextCall;
    std::string text = "before";
    QCOMPARE(TwoCallRead::readText(emptyTextCall, text), ZalErrorSuccess);
    QVERIFY(text.empty());
    QCOMPARE(emptyTextCall.bufferSizes, Sizes{0});
}

void tst_TwoCallRead::arrayHasAsManyElementsAsTheSecondCallReports_data()
{
    QTest::addColumn<unsigned>("reported");
    QTest::addColumn<int>("size");
    QTest::newRow("all") << 3U << 3;
    QTest::newRow("fewer") << 2U << 2;
    QTest::newRow("none") << 0U << 0;
    QTest::newRow("more than there is room for") << 5U << 3;
}

void tst_TwoCallRead::arrayHasAsManyElementsAsTheSecondCallReports()
{
    QFETCH(unsigned, reported);
    QFETCH(int, size);
    ScriptedCall<long long> call{3, {7, 8, 9}, reported};
    Numbers output{1};
    QCOMPARE(TwoCallRead::readArray(call, output), ZalErrorSuccess);
    const Numbers all{7, 8, 9};
    QCOMPARE(output, Numbers(all.begin(), all.begin() + size));
}

void tst_TwoCallRead::textEndsAtItsTerminator_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("terminated") << QByteArray("abc\0", 4) << QByteArray("abc");
    QTest::newRow("only a terminator") << QByteArray("\0", 1) << QByteArray("");
    QTest::newRow("terminator in the middle") << QByteArray("ab\0cd\0", 6) << QByteArray("ab");
    QTest::newRow("no terminator") << QByteArray("abc", 3) << QByteArray("abc");
    QTest::newRow("UTF-8") << QByteArray("\xC2\xB5s\0", 4) << QByteArray("\xC2\xB5s");
}

void tst_TwoCallRead::textEndsAtItsTerminator()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, expected);
    auto call = textCall(bytes.toStdString());
    std::string output = "before";
    QCOMPARE(TwoCallRead::readText(call, output), ZalErrorSuccess);
    QCOMPARE(QByteArray::fromStdString(output), expected);
}

void tst_TwoCallRead::textIsWholeWhateverCountTheSecondCallReports()
{
    auto call = textCall(std::string("abc\0", 4));
    call.reported = 1;
    std::string output;
    QCOMPARE(TwoCallRead::readText(call, output), ZalErrorSuccess);
    QCOMPARE(output, std::string("abc"));
}

void tst_TwoCallRead::failureOfEitherCallPassesOnAndLeavesTheOutput_data()
{
    QTest::addColumn<int>("firstStatus");
    QTest::addColumn<int>("secondStatus");
    QTest::addColumn<int>("expected");
    QTest::newRow("size query") << ZalErrorTimeout << ZalErrorSuccess << ZalErrorTimeout;
    QTest::newRow("read") << ZalErrorSuccess << ZalErrorTransport << ZalErrorTransport;
    QTest::newRow("unlisted code") << -4711 << ZalErrorSuccess << -4711;
    QTest::newRow("positive code") << ZalErrorSuccess << 5 << 5;
}

void tst_TwoCallRead::failureOfEitherCallPassesOnAndLeavesTheOutput()
{
    QFETCH(int, firstStatus);
    QFETCH(int, secondStatus);
    QFETCH(int, expected);
    ScriptedCall<long long> arrayCall{2, {7, 8}, 2, firstStatus, secondStatus};
    Numbers numbers{1};
    QCOMPARE(TwoCallRead::readArray(arrayCall, numbers), expected);
    QCOMPARE(numbers, Numbers{1});
    QCOMPARE(arrayCall.bufferSizes.size(), std::size_t(firstStatus ? 1 : 2));

    ScriptedCall<char> text{2, {'x', '\0'}, 2, firstStatus, secondStatus};
    std::string output = "before";
    QCOMPARE(TwoCallRead::readText(text, output), expected);
    QCOMPARE(output, std::string("before"));
}

void tst_TwoCallRead::failedAllocationIsOutOfResourcesAndLeavesTheOutput()
{
    ScriptedCall<long long> arrayCall{0xFFFFFFFFU, {}, 0};
    ScriptedCall<char> text{0xFFFFFFFFU, {}, 0};
    Numbers numbers{1};
    std::string output = "before";
    {
        const AllocationLimit limit(1U << 20U);
        QCOMPARE(TwoCallRead::readArray(arrayCall, numbers), ZalErrorOutOfResources);
        QCOMPARE(TwoCallRead::readText(text, output), -14);
    }
    QCOMPARE(numbers, Numbers{1});
    QCOMPARE(output, std::string("before"));
    QCOMPARE(arrayCall.bufferSizes, Sizes{0});
}

QTEST_APPLESS_MAIN(tst_TwoCallRead)

#include "tst_TwoCallRead.moc"
