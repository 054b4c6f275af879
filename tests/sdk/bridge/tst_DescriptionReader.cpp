// What is taken from a description before anything is asked of the camera.
#include "sdk/bridge/DescriptionReader.h"
#include "sdk/bridge/DescriptionText.h"
#include "tests/sdk/bridge/DescribedCamera.h"

#include <QtTest>

#include <set>

using DescribedCamera::describe;
using DescribedCamera::reg;
using Names = std::set<std::string>;
Q_DECLARE_METATYPE(Names)

class tst_DescriptionReader : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { g_clear_object(&m_genicam); }

    void shortestPollingTimeOfAChainCounts_data();
    void shortestPollingTimeOfAChainCounts();
    void pollingTimeIsLimited_data();
    void pollingTimeIsLimited();
    void lengthIsLimited_data();
    void lengthIsLimited();
    void depthIsLimited();
    void onlyAWholeDescriptionIsOne_data();
    void onlyAWholeDescriptionIsOne();
    void writeAffects_data();
    void writeAffects();
    void volatileRegisters_data();
    void volatileRegisters();

private:
    void read(const QList<QByteArray>& features, const QByteArray& nodes);
    const ZalCPP::FeatureDescription& feature(const std::string& name) const
    {
        return m_description.features.at(m_description.positions.at(name));
    }
    Names names(const std::vector<std::size_t>& positions) const;

    ArvGc* m_genicam = nullptr;
    ZalCPP::CameraDescription m_description;
};

namespace {

QByteArray polled(int ms)
{
    return "<PollingTime>" + QByteArray::number(ms) + "</PollingTime>";
}

QByteArray integer(const QByteArray& name, const QByteArray& properties)
{
    return "<Integer Name=\"" + name + "\">" + properties + "</Integer>\n";
}

QByteArray integerOf(const QByteArray& name, const QByteArray& source, const QByteArray& more = {})
{
    return integer(name, "<pValue>" + source + "</pValue>" + more);
}

QByteArray formula(const QByteArray& name, const QByteArray& variable, const QByteArray& more = {})
{
    return "<IntSwissKnife Name=\"" + name + "\"><pVariable Name=\"X\">" + variable +
           "</pVariable><Formula>X</Formula>" + more + "</IntSwissKnife>\n";
}

const QByteArray NoCache = "<Cachable>NoCache</Cachable>";

} // namespace

void tst_DescriptionReader::read(const QList<QByteArray>& features, const QByteArray& nodes)
{
    const QByteArray text = describe(features, nodes);
    m_genicam = arv_gc_new(nullptr, text.constData(), static_cast<size_t>(text.size()));
    QVERIFY(m_genicam);
    QCOMPARE(ZalCPP::readDescription(m_genicam, m_description), ZalErrorSuccess);
}

Names tst_DescriptionReader::names(const std::vector<std::size_t>& positions) const
{
    Names found;
    for (const std::size_t position : positions)
        found.insert(m_description.features.at(position).name);
    return found;
}

void tst_DescriptionReader::shortestPollingTimeOfAChainCounts_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::addColumn<int>("time");
    const auto place = [](const QByteArray& more) {
        return reg("IntReg", "R", "0x4010", "4", more);
    };
    QTest::newRow("none") << integerOf("A", "R") + place({}) << 0;
    QTest::newRow("only on the feature") << integerOf("A", "R", polled(300)) + place({}) << 300;
    QTest::newRow("only on the register") << integerOf("A", "R") + place(polled(300)) << 300;
    QTest::newRow("shorter on the feature")
        << integerOf("A", "R", polled(200)) + place(polled(300)) << 200;
    QTest::newRow("shorter on the register")
        << integerOf("A", "R", polled(300)) + place(polled(200)) << 200;
    QTest::newRow("shortest in the middle")
        << integerOf("A", "B", polled(300)) + integerOf("B", "R", polled(100)) + place(polled(200))
        << 100;
    QTest::newRow("zero says nothing")
        << integerOf("A", "R", polled(300)) + place(polled(0)) << 300;
    QTest::newRow("less than zero says nothing")
        << integerOf("A", "R", polled(-5)) + place(polled(300)) << 300;
    QTest::newRow("variable of a formula") << formula("A", "R") + place(polled(300)) << 300;
    QTest::newRow("indexed value")
        << integer("A", "<pIndex>Plain</pIndex><pValueIndexed Index=\"0\">R</pValueIndexed>"
                        "<pValueDefault>Plain</pValueDefault>") +
               place(polled(300))
        << 300;
    QTest::newRow("of a limit") << integer("A", "<Value>0</Value><pMax>R</pMax>") +
                                       place(polled(300))
                                << 0;
}

void tst_DescriptionReader::shortestPollingTimeOfAChainCounts()
{
    QFETCH(QByteArray, nodes);
    QFETCH(int, time);
    read({"A"}, nodes);
    QCOMPARE(static_cast<int>(feature("A").pollingTime.count()), time);
    QCOMPARE((feature("A").flags & ZalFeatureFlagsVolatile) != 0, time > 0);
}

void tst_DescriptionReader::pollingTimeIsLimited_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<long long>("limited");
    QTest::newRow("shorter than any display") << QByteArray("1") << 20LL;
    QTest::newRow("shortest") << QByteArray("20") << 20LL;
    QTest::newRow("a day") << QByteArray("86400000") << 86400000LL;
    QTest::newRow("longer than a day") << QByteArray("86400001") << 86400000LL;
    QTest::newRow("all bits") << QByteArray("9223372036854775807") << 86400000LL;
}

void tst_DescriptionReader::pollingTimeIsLimited()
{
    QFETCH(QByteArray, time);
    read({"A"}, reg("IntReg", "A", "0x4010", "4", "<PollingTime>" + time + "</PollingTime>"));
    QTEST(static_cast<long long>(feature("A").pollingTime.count()), "limited");
}

void tst_DescriptionReader::lengthIsLimited_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("answerable");
    const auto row = [](const char* kind, int length, bool answerable) {
        QTest::addRow("%s of %d", kind, length) << QByteArray(kind) << length << answerable;
    };
    for (const char* kind : {"IntReg", "FloatReg"}) {
        row(kind, 8, true);
        row(kind, 9, false);
    }
    row("StringReg", 64 * 1024, true);
    row("StringReg", 64 * 1024 + 1, false);
    row("Register", 1024 * 1024, true);
    row("Register", 1024 * 1024 + 1, false);
}

void tst_DescriptionReader::lengthIsLimited()
{
    QFETCH(QByteArray, kind);
    QFETCH(int, length);
    read({"A"}, reg(kind, "A", "0x4010", QByteArray::number(length)));
    QTEST(feature("A").isAnswerable, "answerable");
}

// The register is the first of the nodes that a question passes through.
void tst_DescriptionReader::depthIsLimited()
{
    QByteArray nodes = reg("IntReg", "N1", "0x4010", "4");
    for (int i = 2; i <= 257; ++i)
        nodes += integerOf("N" + QByteArray::number(i), "N" + QByteArray::number(i - 1));
    read({"N255", "N256", "N257"}, nodes);
    QVERIFY(feature("N255").isAnswerable);
    QVERIFY(!feature("N257").isAnswerable);
}

void tst_DescriptionReader::onlyAWholeDescriptionIsOne_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("whole");
    QTest::newRow("whole") << describe({}, {}) << true;
    QTest::newRow("padded") << describe({}, {}) + QByteArray(100, '\0') << true;
    QTest::newRow("cut off") << describe({}, {}).chopped(5) << false;
    QTest::newRow("another document") << QByteArray("<Description/>") << false;
    QTest::newRow("in another document")
        << QByteArray("<Other><RegisterDescription></RegisterDescription></Other>") << false;
    QTest::newRow("nothing") << QByteArray("") << false;
}

void tst_DescriptionReader::onlyAWholeDescriptionIsOne()
{
    QFETCH(QByteArray, text);
    const auto size = static_cast<std::size_t>(text.size());
    QTEST(ZalCPP::isWholeDescription(text.constData(), size), "whole");
    QVERIFY(!ZalCPP::isWholeDescription(nullptr, size));
}

void tst_DescriptionReader::writeAffects_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::addColumn<Names>("affected");
    const QByteArray place = reg("IntReg", "R", "0x4010", "4");
    QTest::newRow("itself alone") << integerOf("A", "R") + place + integer("B", "<Value>1</Value>")
                                  << Names{"A"};
    QTest::newRow("what shares its register")
        << integerOf("A", "R") + integerOf("B", "R") + place << Names{"A", "B"};
    QTest::newRow("what shares one of its indexed registers")
        << integer("A", "<pIndex>Plain</pIndex><pValueIndexed Index=\"0\">R</pValueIndexed>"
                        "<pValueDefault>Plain</pValueDefault>") +
               integerOf("B", "R") + place
        << Names{"A", "B", "Plain"};
    QTest::newRow("what its variable shares is not written")
        << formula("A", "R") + integerOf("B", "R") + place << Names{"A"};
    for (const char* property :
         {"pMin", "pMax", "pInc", "pIsAvailable", "pIsLocked", "pInvalidator"}) {
        const QByteArray name(property);
        QTest::newRow(property) << integerOf("A", "R") + place +
                                       integer("B",
                                               "<Value>1</Value><" + name + ">A</" + name + ">")
                                << Names{"A", "B"};
    }
    QTest::newRow("its selected feature") << integerOf("A", "R", "<pSelected>B</pSelected>") +
                                                 place + integer("B", "<Value>1</Value>")
                                          << Names{"A", "B"};
    QTest::newRow("not its selector")
        << integerOf("A", "R") + place + integer("B", "<Value>1</Value><pSelected>A</pSelected>")
        << Names{"A"};
    QTest::newRow("enumeration by one of its entries")
        << integerOf("A", "R") + place +
               "<Enumeration Name=\"B\"><EnumEntry Name=\"E\"><pIsAvailable>A</pIsAvailable>"
               "<Value>0</Value></EnumEntry><Value>0</Value></Enumeration>"
        << Names{"A", "B"};
    QTest::newRow("in a group") << "<Group Comment=\"All\">" + integerOf("A", "R") + place +
                                       integerOf("B", "A") + "</Group>"
                                << Names{"A", "B"};
}

void tst_DescriptionReader::writeAffects()
{
    QFETCH(QByteArray, nodes);
    read({"A", "B"}, nodes);
    QTEST(names(feature("A").affected), "affected");
}

void tst_DescriptionReader::volatileRegisters_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::addColumn<int>("registers");
    const auto place = [](const QByteArray& name, const QByteArray& more = {}) {
        return reg("IntReg", name, name == "R" ? "0x4010" : "0x4014", "4", more);
    };
    QTest::newRow("none") << integerOf("A", "R") + place("R") << 0;
    QTest::newRow("cached") << integerOf("A", "R") + place("R", "<Cachable>WriteThrough</Cachable>")
                            << 0;
    QTest::newRow("cached where it is read")
        << integerOf("A", "R") + place("R", "<Cachable>WriteAround</Cachable>") << 0;
    QTest::newRow("its own") << integerOf("A", "R") + place("R", NoCache) << 1;
    QTest::newRow("said twice") << integerOf("A", "R", NoCache) + place("R", NoCache) << 1;
    QTest::newRow("of its limit, too")
        << integerOf("A", "R", "<pMax>S</pMax>") + place("R", NoCache) + place("S", polled(100))
        << 2;
    QTest::newRow("without an end") << integerOf("A", "R", "<pMax>S</pMax>") + place("R", NoCache) +
                                           place("S", NoCache + "<pAddress>S</pAddress>")
                                    << 1;
}

void tst_DescriptionReader::volatileRegisters()
{
    QFETCH(QByteArray, nodes);
    QFETCH(int, registers);
    read({"A"}, nodes);
    QCOMPARE(static_cast<int>(feature("A").volatileRegisters.size()), registers);
}

QTEST_APPLESS_MAIN(tst_DescriptionReader)
#include "tst_DescriptionReader.moc"
