#include "features/PluginFeatureObserver.h"
#include "tests/support/FakeCamera.h"
#include "tests/support/VirtualSlot.h"

#include <QMetaMethod>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

#include <climits>

using Fake::FakeCamera;
using Fake::FakeFeature;

namespace {

constexpr ZalFeatureDataType UndocumentedType = 99;

/// What the observer reports for a change of that feature; empty when it reports nothing.
QVariantList report(const std::shared_ptr<ZalCPP::Feature>& feature)
{
    PluginFeatureObserver observer;
    QSignalSpy spy(&observer, SIGNAL(setChangedFeature(QString, QString)));
    observer.FeatureChanged(feature);
    return spy.isEmpty() ? QVariantList() : spy.takeFirst();
}

QStringList calls(const FakeCamera& camera)
{
    QStringList list;
    for (const std::string& call : camera.calls())
        list.append(QString::fromStdString(call));
    return list;
}

} // namespace

class tst_PluginFeatureObserver : public QObject
{
    Q_OBJECT

private slots:
    void isAParentlessQObjectFirstAndAnObserverSecond();
    void notificationStandsFirstInTheObserverInterface();
    void hasOneSignalAndNoSlots();
    void noFeatureIsPassedOverInSilence();
    void valueTextFollowsTheDataType_data();
    void valueTextFollowsTheDataType();
    void integerTextIsDecimal_data();
    void integerTextIsDecimal();
    void floatTextHasSixSignificantDigits_data();
    void floatTextHasSixSignificantDigits();
    void textsAreDecodedFromUtf8();
    void nameThatCannotBeReadProducesNoSignal_data();
    void nameThatCannotBeReadProducesNoSignal();
    void emptyNameIsReported();
    void dataTypeThatCannotBeReadProducesNoSignal();
    void valueThatCannotBeReadIsReportedAsEmpty_data();
    void valueThatCannotBeReadIsReportedAsEmpty();
    void typesWithoutAValueAreReportedWithoutReadingOne_data();
    void typesWithoutAValueAreReportedWithoutReadingOne();
    void callsOfOneChangeComeInOrder();
    void changeOnTheNotificationThreadArrivesQueuedOnTheReceiversThread();
    void featureKeepsTheObserverAlive();
};

void tst_PluginFeatureObserver::isAParentlessQObjectFirstAndAnObserverSecond()
{
    PluginFeatureObserver observer;
    QVERIFY(observer.parent() == nullptr);
    const auto* whole = static_cast<const void*>(&observer);
    QVERIFY(static_cast<const void*>(static_cast<QObject*>(&observer)) == whole);
    QVERIFY(static_cast<const void*>(static_cast<ZalCPP::IFeatureObserver*>(&observer)) ==
            static_cast<const char*>(whole) + sizeof(QObject));
    QCOMPARE(sizeof(PluginFeatureObserver), sizeof(QObject) + sizeof(void*));
}

void tst_PluginFeatureObserver::notificationStandsFirstInTheObserverInterface()
{
    QCOMPARE(virtualSlot(&ZalCPP::IFeatureObserver::FeatureChanged), std::size_t(0));
    QVERIFY(std::has_virtual_destructor_v<ZalCPP::IFeatureObserver>);
}

void tst_PluginFeatureObserver::hasOneSignalAndNoSlots()
{
    const QMetaObject& meta = PluginFeatureObserver::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod method = meta.method(meta.methodOffset());
    QCOMPARE(method.methodType(), QMetaMethod::Signal);
    QCOMPARE(method.methodSignature(), QByteArray("setChangedFeature(QString,QString)"));
    QCOMPARE(method.parameterNames(), (QList<QByteArray>{"featureName", "sValue"}));
}

void tst_PluginFeatureObserver::noFeatureIsPassedOverInSilence()
{
    QVERIFY(report(nullptr).isEmpty());
}

void tst_PluginFeatureObserver::valueTextFollowsTheDataType_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QString>("text");
    QTest::newRow("integer") << "Count"
                             << "-42";
    QTest::newRow("float") << "Delay"
                           << "2.5";
    QTest::newRow("enumeration") << "Mode"
                                 << "On";
    QTest::newRow("string") << "Family"
                            << "Two words";
    QTest::newRow("empty string") << "Nothing"
                                  << "";
    QTest::newRow("boolean true") << "Set"
                                  << "true";
    QTest::newRow("boolean false") << "Clear"
                                   << "false";
    QTest::newRow("command") << "Go"
                             << "[COMMAND]";
    QTest::newRow("raw") << "Data"
                         << "Click here to open";
    QTest::newRow("unknown") << "Unknown"
                             << "";
    QTest::newRow("none") << "None"
                          << "";
    QTest::newRow("undocumented") << "Undocumented"
                                  << "";
}

void tst_PluginFeatureObserver::valueTextFollowsTheDataType()
{
    QFETCH(QString, feature);
    QFETCH(QString, text);
    FakeCamera camera;
    camera.addInteger("Count", -42);
    camera.addFloat("Delay", 2.5);
    camera.addEnum("Mode", {"Off", "On"}, "On");
    camera.addString("Family", "Two words");
    camera.addString("Nothing", "");
    camera.addBool("Set", true);
    camera.addBool("Clear", false);
    camera.addCommand("Go");
    camera.addRaw("Data", {1, 2});
    camera.add("Unknown", ZalFeatureUnknown);
    camera.add("None", ZalFeatureNone);
    camera.add("Undocumented", UndocumentedType);
    QCOMPARE(report(camera.find(feature.toStdString())), (QVariantList{feature, text}));
}

void tst_PluginFeatureObserver::integerTextIsDecimal_data()
{
    QTest::addColumn<qlonglong>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0LL << "0";
    QTest::newRow("32 bits unsigned") << 4294967295LL << "4294967295";
    QTest::newRow("largest") << LLONG_MAX << "9223372036854775807";
    QTest::newRow("smallest") << LLONG_MIN << "-9223372036854775808";
}

void tst_PluginFeatureObserver::integerTextIsDecimal()
{
    QFETCH(qlonglong, value);
    QFETCH(QString, text);
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", value);
    feature->representation = "HexNumber";
    QCOMPARE(report(feature), (QVariantList{"Count", text}));
}

void tst_PluginFeatureObserver::floatTextHasSixSignificantDigits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("1234567.8") << 1234567.8 << "1.23457e+06";
    QTest::newRow("0.5") << 0.5 << "0.5";
    QTest::newRow("whole") << 100.0 << "100";
    QTest::newRow("six digits") << 123456.0 << "123456";
    QTest::newRow("small") << 0.00001234567 << "1.23457e-05";
    QTest::newRow("negative") << -3.25 << "-3.25";
}

void tst_PluginFeatureObserver::floatTextHasSixSignificantDigits()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    FakeCamera camera;
    QCOMPARE(report(camera.addFloat("Delay", value)), (QVariantList{"Delay", text}));
}

void tst_PluginFeatureObserver::textsAreDecodedFromUtf8()
{
    FakeCamera camera;
    QCOMPARE(report(camera.addString("\xC2\xB5Name", "M\xC3\xBCller")),
             (QVariantList{QStringLiteral(u"\u00B5Name"), QStringLiteral(u"M\u00FCller")}));
    QCOMPARE(report(camera.addEnum("Mode", {"\xC3\x84"}, "\xC3\x84")),
             (QVariantList{"Mode", QStringLiteral(u"\u00C4")}));
}

void tst_PluginFeatureObserver::nameThatCannotBeReadProducesNoSignal_data()
{
    QTest::addColumn<int>("failingCall");
    QTest::newRow("length") << 1;
    QTest::newRow("text") << 2;
}

void tst_PluginFeatureObserver::nameThatCannotBeReadProducesNoSignal()
{
    QFETCH(int, failingCall);
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    camera.failNthCall(failingCall);
    QVERIFY(report(feature).isEmpty());
    QCOMPARE(calls(camera).size(), failingCall);
}

void tst_PluginFeatureObserver::emptyNameIsReported()
{
    FakeCamera camera;
    QCOMPARE(report(camera.addInteger("", 3)), (QVariantList{QString(""), "3"}));
}

void tst_PluginFeatureObserver::dataTypeThatCannotBeReadProducesNoSignal()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    camera.failCall("GetDataType", "Count");
    QVERIFY(report(feature).isEmpty());
    QCOMPARE(camera.callCount("GetIntegerValue", "Count"), 0);
}

void tst_PluginFeatureObserver::valueThatCannotBeReadIsReportedAsEmpty_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<int>("failingCall"); // after two name reads and the data type
    QTest::newRow("integer") << "Count" << 4;
    QTest::newRow("float") << "Delay" << 4;
    QTest::newRow("boolean") << "Flag" << 4;
    QTest::newRow("enumeration, length") << "Mode" << 4;
    QTest::newRow("enumeration, text") << "Mode" << 5;
    QTest::newRow("string, length") << "Family" << 4;
    QTest::newRow("string, text") << "Family" << 5;
}

void tst_PluginFeatureObserver::valueThatCannotBeReadIsReportedAsEmpty()
{
    QFETCH(QString, feature);
    QFETCH(int, failingCall);
    FakeCamera camera;
    camera.addInteger("Count", 3);
    camera.addFloat("Delay", 2.5);
    camera.addBool("Flag", true);
    camera.addEnum("Mode", {"Off", "On"}, "On");
    camera.addString("Family", "Two words");
    camera.failNthCall(failingCall);
    QCOMPARE(report(camera.find(feature.toStdString())), (QVariantList{feature, QString("")}));
    QCOMPARE(calls(camera).size(), failingCall);
}

void tst_PluginFeatureObserver::typesWithoutAValueAreReportedWithoutReadingOne_data()
{
    QTest::addColumn<unsigned>("type");
    QTest::newRow("command") << ZalFeatureCommand;
    QTest::newRow("raw") << ZalFeatureRaw;
    QTest::newRow("unknown") << ZalFeatureUnknown;
    QTest::newRow("none") << ZalFeatureNone;
}

void tst_PluginFeatureObserver::typesWithoutAValueAreReportedWithoutReadingOne()
{
    QFETCH(unsigned, type);
    FakeCamera camera;
    QCOMPARE(report(camera.add("Thing", type)).size(), 2);
    QCOMPARE(calls(camera), (QStringList{"GetName Thing", "GetName Thing", "GetDataType Thing"}));
}

void tst_PluginFeatureObserver::callsOfOneChangeComeInOrder()
{
    FakeCamera camera;
    report(camera.addEnum("Mode", {"Off", "On"}, "On"));
    QCOMPARE(calls(camera), (QStringList{"GetName Mode", "GetName Mode", "GetDataType Mode",
                                         "GetStringValue Mode", "GetStringValue Mode"}));
}

void tst_PluginFeatureObserver::changeOnTheNotificationThreadArrivesQueuedOnTheReceiversThread()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    const auto observer = std::make_shared<PluginFeatureObserver>();
    QCOMPARE(feature->RegisterObserver(observer), ZalErrorSuccess);
    QThread* emitter = nullptr;
    QThread* receiver = nullptr;
    QString value;
    connect(
        observer.get(), &PluginFeatureObserver::setChangedFeature, this,
        [&](const QString&, const QString&) { emitter = QThread::currentThread(); },
        Qt::DirectConnection);
    connect(observer.get(), &PluginFeatureObserver::setChangedFeature, this,
            [&](const QString&, const QString& text) {
                receiver = QThread::currentThread();
                value = text;
            });

    camera.notify("Count");

    QVERIFY(emitter != nullptr && emitter != thread());
    QVERIFY2(receiver == nullptr, "delivered before the event loop ran");
    QTRY_COMPARE(value, QString("3"));
    QVERIFY(receiver == thread());
}

void tst_PluginFeatureObserver::featureKeepsTheObserverAlive()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    auto observer = std::make_shared<PluginFeatureObserver>();
    const std::weak_ptr<PluginFeatureObserver> watched = observer;
    feature->RegisterObserver(observer);
    observer.reset();
    QVERIFY(!watched.expired());
    camera.notify("Count");
    feature->UnregisterObserver(watched.lock());
    QVERIFY(watched.expired());
}

QTEST_GUILESS_MAIN(tst_PluginFeatureObserver)

#include "tst_PluginFeatureObserver.moc"
