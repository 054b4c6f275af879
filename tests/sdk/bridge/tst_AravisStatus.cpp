// From Aravis' errors to the SDK's status codes, and from these to sentences.
// GLib has members that are called like a keyword of Qt, and so comes first.
#include <arv.h>

#include "sdk/bridge/AravisStatus.h"

#include <QtTest>

#include <set>
#include <string>
#include <vector>

class tst_AravisStatus : public QObject
{
    Q_OBJECT

private slots:
    void noErrorIsSuccess();
    void errorsHaveTheirOwnStatus_data();
    void errorsHaveTheirOwnStatus();
    void undefinedPropertyIsRecognised();
    void everyStatusHasItsOwnSentence();
    void unknownStatusHasASentence();
};

void tst_AravisStatus::noErrorIsSuccess()
{
    ZalCPP::AravisError error;
    QCOMPARE(ZalCPP::statusOf(nullptr), ZalErrorSuccess);
    QCOMPARE(error.status(), ZalErrorSuccess);
    QVERIFY(!error.isUndefinedProperty());
    QVERIFY(error.message().empty());
}

void tst_AravisStatus::errorsHaveTheirOwnStatus_data()
{
    QTest::addColumn<quint32>("domain");
    QTest::addColumn<int>("code");
    QTest::addColumn<ZalErrorType>("status");
    const auto row = [](const char* name, quint32 domain, int code, ZalErrorType status) {
        QTest::newRow(name) << domain << code << status;
    };
    const quint32 gc = ARV_GC_ERROR;
    const quint32 device = ARV_DEVICE_ERROR;
    row("no such property", gc, ARV_GC_ERROR_PROPERTY_NOT_DEFINED, ZalErrorNotImplemented);
    row("no value node", gc, ARV_GC_ERROR_PVALUE_NOT_DEFINED, ZalErrorNotImplemented);
    row("no entries", gc, ARV_GC_ERROR_EMPTY_ENUMERATION, ZalErrorNotFound);
    row("out of range", gc, ARV_GC_ERROR_OUT_OF_RANGE, ZalErrorOutOfRange);
    row("no device", gc, ARV_GC_ERROR_NO_DEVICE_SET, ZalErrorNotOpen);
    row("no node", gc, ARV_GC_ERROR_NODE_NOT_FOUND, ZalErrorNotFound);
    row("no entry", gc, ARV_GC_ERROR_ENUM_ENTRY_NOT_FOUND, ZalErrorNotFound);
    row("too long", gc, ARV_GC_ERROR_INVALID_LENGTH, ZalErrorBadParameter);
    row("read only", gc, ARV_GC_ERROR_READ_ONLY, ZalErrorNotWritable);
    row("other of the description", gc, 999, ZalErrorUnknown);
    row("disconnected", device, ARV_DEVICE_ERROR_NOT_CONNECTED, ZalErrorNotOpen);
    row("no answer", device, ARV_DEVICE_ERROR_TIMEOUT, ZalErrorTimeout);
    row("bad answer", device, ARV_DEVICE_ERROR_PROTOCOL_ERROR, ZalErrorTransport);
    row("busy", device, ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY, ZalErrorTransport);
    row("protected", device, ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT, ZalErrorNotWritable);
    row("denied", device, ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED, ZalErrorNotWritable);
    row("other of the device", device, 999, ZalErrorUnknown);
    row("network", G_IO_ERROR, G_IO_ERROR_FAILED, ZalErrorTransport);
    row("something else", G_FILE_ERROR, 0, ZalErrorUnknown);
}

void tst_AravisStatus::errorsHaveTheirOwnStatus()
{
    QFETCH(quint32, domain);
    QFETCH(int, code);
    ZalCPP::AravisError error;
    g_set_error_literal(error.out(), domain, code, "text");
    QTEST(error.status(), "status");
    QCOMPARE(error.message(), std::string("text"));
}

void tst_AravisStatus::undefinedPropertyIsRecognised()
{
    ZalCPP::AravisError error;
    g_set_error_literal(error.out(), ARV_GC_ERROR, ARV_GC_ERROR_PROPERTY_NOT_DEFINED, "text");
    QVERIFY(error.isUndefinedProperty());
}

void tst_AravisStatus::everyStatusHasItsOwnSentence()
{
    std::set<std::string> sentences;
    for (ZalErrorType status = ZalErrorOutOfResources; status <= ZalErrorSuccess; ++status) {
        const std::string sentence = ZalCPP::ErrorText(status);
        QCOMPARE(sentence.back(), '.');
        sentences.insert(sentence);
    }
    QCOMPARE(sentences.size(), std::size_t(15));
}

void tst_AravisStatus::unknownStatusHasASentence()
{
    QCOMPARE(ZalCPP::ErrorText(-12345), ZalCPP::ErrorText(ZalErrorUnknown));
    QCOMPARE(ZalCPP::ErrorText(1), ZalCPP::ErrorText(ZalErrorUnknown));
}

QTEST_GUILESS_MAIN(tst_AravisStatus)
#include "tst_AravisStatus.moc"
