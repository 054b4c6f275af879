// A camera that is there, but whose description cannot be read to its end.
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/DescribedCamera.h"

#include <QtEndian>

using namespace BridgeTest;
using ZalCPP::CameraSystem;

namespace {

QByteArray description()
{
    return DescribedCamera::describe({}, {});
}

template <typename Number> QByteArray littleEndian(Number number)
{
    const Number value = qToLittleEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
}

/// An archive with one file, which says that it has `size` bytes.
QByteArray zip(const QByteArray& text, quint32 size)
{
    const QByteArray name = "test.xml";
    // What is between the header and the checksum of the compressed text
    const QByteArray data = qCompress(text).mid(6).chopped(4);
    const QByteArray common =
        littleEndian<quint16>(20) + littleEndian<quint16>(0) + littleEndian<quint16>(8) +
        littleEndian<quint32>(0) + littleEndian<quint32>(0) +
        littleEndian<quint32>(static_cast<quint32>(data.size())) + littleEndian<quint32>(size) +
        littleEndian<quint16>(static_cast<quint16>(name.size())) + littleEndian<quint16>(0);
    const QByteArray file = "PK\3\4" + common + name + data;
    const QByteArray directory =
        "PK\1\2" + littleEndian<quint16>(20) + common + QByteArray(14, '\0') + name;
    return file + directory + "PK\5\6" + QByteArray(4, '\0') + littleEndian<quint16>(1) +
           littleEndian<quint16>(1) +
           littleEndian<quint32>(static_cast<quint32>(directory.size())) +
           littleEndian<quint32>(static_cast<quint32>(file.size())) + littleEndian<quint16>(0);
}

} // namespace

class tst_UnreadableDescription : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { m_server.reset(); }

    void isRefusedWithASentence_data();
    void isRefusedWithASentence();
    void paddingIsNoPartOfIt_data();
    void paddingIsNoPartOfIt();
    void zippedIsRead();

private:
    void serve(const QByteArray& data, const QByteArray& fileName);

    std::unique_ptr<NastyCamera> m_server;
};

// The first address register says where the description lies in the camera's memory.
void tst_UnreadableDescription::serve(const QByteArray& data, const QByteArray& fileName)
{
    m_server = DescribedCamera::serve(data);
    m_server->setText(
        0x200,
        ("Local:" + fileName + ";10000;" + QByteArray::number(data.size(), 16)).toStdString());
}

void tst_UnreadableDescription::isRefusedWithASentence_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("fileName");
    const QByteArray whole = description();
    const QByteArray packed = zip(whole, static_cast<quint32>(whole.size()));
    const QByteArray xml = "test.xml";
    const QByteArray archive = "test.zip";
    QTest::newRow("empty") << QByteArray() << xml;
    QTest::newRow("no XML") << QByteArray("Not found") << xml;
    QTest::newRow("padding only") << QByteArray(4096, '\0') << xml;
    QTest::newRow("cut off after a node") << whole.left(whole.indexOf("<Port")) << xml;
    QTest::newRow("cut off in a tag") << whole.chopped(5) << xml;
    QTest::newRow("cut off and padded")
        << whole.left(whole.indexOf("<Port")) + QByteArray(512, '\0') << xml;
    QTest::newRow("mistake in the middle")
        << QByteArray(whole).replace("<Port", "<Lost><Port") << xml;
    QTest::newRow("another document") << QByteArray("<?xml version=\"1.0\"?><html></html>") << xml;
    QTest::newRow("broken archive") << packed.left(packed.size() / 2) << archive;
    QTest::newRow("no archive") << QByteArray("Not found") << archive;
    QTest::newRow("archive that names too small a size") << zip(whole, 200) << archive;
}

void tst_UnreadableDescription::isRefusedWithASentence()
{
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, fileName);
    serve(data, fileName);
    std::string error;
    QVERIFY(!CameraSystem::Open(NastyCamera::Address, error));
    QCOMPARE(error, std::string("The camera \"127.0.0.1\" was found, but its description cannot "
                                "be read."));
}

void tst_UnreadableDescription::paddingIsNoPartOfIt_data()
{
    QTest::addColumn<QByteArray>("padding");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("zeros") << QByteArray(512, '\0');
    QTest::newRow("one zero") << QByteArray(1, '\0');
    QTest::newRow("white space") << QByteArray(" \r\n\t \n");
    QTest::newRow("erased memory") << QByteArray(512, '\xff');
}

void tst_UnreadableDescription::paddingIsNoPartOfIt()
{
    QFETCH(QByteArray, padding);
    serve(description() + padding, "test.xml");
    QCOMPARE(integer(openCamera()->FindFeature("Plain")), 0LL);
}

void tst_UnreadableDescription::zippedIsRead()
{
    const QByteArray whole = description();
    serve(zip(whole, static_cast<quint32>(whole.size())), "test.zip");
    QCOMPARE(integer(openCamera()->FindFeature("Plain")), 0LL);
}

QTEST_GUILESS_MAIN(tst_UnreadableDescription)
#include "tst_UnreadableDescription.moc"
