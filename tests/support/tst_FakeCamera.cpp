#include "tests/support/FakeCamera.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <thread>

using Fake::FakeCamera;
using Fake::FakeFeature;

namespace {

class RecordingObserver : public ZalCPP::IFeatureObserver
{
public:
    void FeatureChanged(const std::shared_ptr<ZalCPP::Feature>& feature) override
    {
        changed.push_back(feature.get());
        thread = std::this_thread::get_id();
        if (onChange)
            onChange();
    }
    std::vector<const ZalCPP::Feature*> changed; // not shared: the feature shares the observer
    std::thread::id thread;
    std::function<void()> onChange;
};

std::string textOf(const FakeFeature& feature)
{
    char buffer[64] = {};
    std::uint32_t count = sizeof buffer;
    return feature.GetStringValue(buffer, count) == ZalErrorSuccess ? buffer : "unreadable";
}

QStringList toList(const std::vector<std::string>& texts)
{
    QStringList list;
    for (const std::string& text : texts)
        list.append(QString::fromStdString(text));
    return list;
}

} // namespace

class tst_FakeCamera : public QObject
{
    Q_OBJECT

private slots:
    void standardCameraHasEveryFeatureOfTheForms_data();
    void standardCameraHasEveryFeatureOfTheForms();
    void standardSelectorsStandBeforeWhatTheySelect();
    void standardLineModesDifferByLine();
    void acceptedWritesChangeTheState();
    void removedFeatureLeavesNoTrace();
    void failCallHitsOneOperationOnly();
    void failNthCallHitsExactlyOneCall();
    void failFromNthCallHitsThatCallAndAllAfterIt();
    void failEverythingLastsUntilCleared();
    void anyCallCanBeFailedByWhoeverIsAsked();
    void acceptedWritesAreToldWithTheEntryThatTheyWentTo();
    void logHoldsCallsAndWritesInOrder();
    void notifyCallsObserversOnAThreadOfItsOwn();
    void secondRegistrationSucceedsWithoutASecondEntry();
    void observerMayUnregisterFromWithinItsCallback();
};

void tst_FakeCamera::standardCameraHasEveryFeatureOfTheForms_data()
{
    columns<QStringList, unsigned>("names", "type");
    row("integer",
        QString("AcquisitionFrameCount ActionSelector ActionDeviceKey "
                "ActionGroupKey ActionGroupMask ActionQueueSize PtpClockID "
                "PtpParentClockID PtpGrandmasterClockID "
                "PtpOffsetFromMaster TimestampLatchValue CounterDuration "
                "CounterValue CounterValueAtReset")
            .split(' '),
        ZalFeatureInteger);
    row("float", QString("TriggerDelay LineDebounceDuration TimerDuration TimerDelay").split(' '),
        ZalFeatureFloat);
    row("enumeration",
        QString("TriggerSelector TriggerMode TriggerSource TriggerActivation LineSelector "
                "LineMode LineSource LineDebounceMode AcquisitionMode ExposureMode "
                "PtpOperationMode PtpStatus PtpServoStatus PtpClockAccuracy "
                "SoftwareSignalSelector CounterSelector CounterEventSource "
                "CounterEventActivation CounterTriggerSource CounterTriggerActivation "
                "CounterResetSource CounterResetActivation CounterStatus TimerSelector "
                "TimerTriggerSource TimerTriggerActivation TimerStatus")
            .split(' '),
        ZalFeatureEnum);
    row("boolean", QString("LineInverter LineStatus PtpEnable").split(' '), ZalFeatureBool);
    row("string",
        QString("DeviceVendorName DeviceModelName DeviceSerialNumber DeviceFamilyName").split(' '),
        ZalFeatureString);
    row("command",
        QString("TriggerSoftware PtpDataSetLatch TimestampLatch "
                "SoftwareSignalPulse CounterReset TimerReset")
            .split(' '),
        ZalFeatureCommand);
}

void tst_FakeCamera::standardCameraHasEveryFeatureOfTheForms()
{
    QFETCH(QStringList, names);
    QFETCH(unsigned, type);
    const auto camera = FakeCamera::standard();
    for (const QString& name : names) {
        const auto feature = camera->find(name.toStdString());
        QVERIFY2(feature != nullptr, qPrintable(name));
        QVERIFY2(feature->type == type, qPrintable(name));
    }
}

void tst_FakeCamera::standardSelectorsStandBeforeWhatTheySelect()
{
    const auto camera = FakeCamera::standard();
    std::vector<const ZalCPP::Feature*> seen;
    int selected = 0;
    for (const auto& handle : *camera->features()) {
        const auto* feature = dynamic_cast<const FakeFeature*>(handle.get());
        if (feature->selector != nullptr) {
            ++selected;
            QVERIFY2(std::find(seen.begin(), seen.end(), feature->selector) != seen.end(),
                     feature->name.c_str());
        }
        seen.push_back(feature);
    }
    QCOMPARE(selected, 31);
}

void tst_FakeCamera::standardLineModesDifferByLine()
{
    const auto camera = FakeCamera::standard();
    QCOMPARE((*camera)["LineSelector"].SetStringValue("Line0"), ZalErrorSuccess);
    QCOMPARE(textOf((*camera)["LineMode"]), std::string("Input"));
    QCOMPARE((*camera)["LineSelector"].SetStringValue("Line3"), ZalErrorSuccess);
    QCOMPARE(textOf((*camera)["LineMode"]), std::string("Output"));
}

void tst_FakeCamera::acceptedWritesChangeTheState()
{
    FakeCamera camera;
    const unsigned char bytes[] = {1, 255};
    QCOMPARE(camera.addInteger("Count", 10, 10, 110, 4)->SetIntegerValue(22), ZalErrorSuccess);
    QCOMPARE(camera.addFloat("Delay", 1.0)->SetFloatValue(2.5), ZalErrorSuccess);
    QCOMPARE(camera.addBool("Flag", false)->SetBoolValue(true), ZalErrorSuccess);
    QCOMPARE(camera.addEnum("Mode", {"Off", "On"}, "Off")->SetStringValue("On"), ZalErrorSuccess);
    QCOMPARE(camera.addRaw("Data", {})->SetRawValue(bytes, 2), ZalErrorSuccess);
    QCOMPARE(camera["Count"].state().integer, 22LL);
    QCOMPARE(camera["Delay"].state().real, 2.5);
    QCOMPARE(camera["Flag"].state().boolean, true);
    QCOMPARE(camera["Mode"].state().text, std::string("On"));
    QCOMPARE(camera["Data"].state().raw, (std::vector<unsigned char>{1, 255}));
    QCOMPARE(
        toList(camera.writes()),
        (QStringList{"SetIntegerValue Count=22", "SetFloatValue Delay=2.5",
                     "SetBoolValue Flag=true", "SetStringValue Mode=On", "SetRawValue Data=01ff"}));
}

void tst_FakeCamera::removedFeatureLeavesNoTrace()
{
    const auto camera = FakeCamera::standard();
    const auto before = camera->features()->size();
    camera->remove("TriggerSelector");
    camera->remove("NoSuchFeature");
    QVERIFY(!camera->find("TriggerSelector"));
    QCOMPARE(camera->features()->size(), before - 1);
    QVERIFY((*camera)["TriggerMode"].selector == nullptr);
    camera->remove("LineMode");
    QCOMPARE((*camera)["LineSelector"].selectedFeatures.size(), std::size_t(5));
}

void tst_FakeCamera::failCallHitsOneOperationOnly()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    camera.failCall("GetIntegerValue", "Count", ZalErrorTimeout);
    long long value = 0;
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorTimeout);
    QCOMPARE(feature->GetIntegerIncrement(value), ZalErrorSuccess);
    camera.clearFailures();
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorSuccess);
}

void tst_FakeCamera::failNthCallHitsExactlyOneCall()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    camera.failNthCall(2);
    long long value = 0;
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorSuccess);
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorTransport);
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorSuccess);
}

void tst_FakeCamera::failFromNthCallHitsThatCallAndAllAfterIt()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    camera.failFromNthCall(2, ZalErrorTimeout);
    long long value = 0;
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorSuccess);
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorTimeout);
    QCOMPARE(feature->SetIntegerValue(4), ZalErrorTimeout);
    camera.clearFailures();
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorSuccess);
}

void tst_FakeCamera::failEverythingLastsUntilCleared()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    camera.failEverything();
    long long value = 0;
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorNotOpen);
    QCOMPARE(feature->SetIntegerValue(4), ZalErrorNotOpen);
    camera.clearFailures();
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorSuccess);
    QCOMPARE(value, 3LL);
}

void tst_FakeCamera::anyCallCanBeFailedByWhoeverIsAsked()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    QStringList asked;
    camera.onCall = [&](const std::string& operation, const std::string& name) {
        asked.append(QString::fromStdString(operation + ' ' + name));
        return operation == "SetIntegerValue" ? ZalErrorTimeout : ZalErrorSuccess;
    };
    long long value = 0;
    QCOMPARE(feature->SetIntegerValue(4), ZalErrorTimeout);
    QCOMPARE(feature->GetIntegerValue(value), ZalErrorSuccess);
    QCOMPARE(value, 3LL);
    QCOMPARE(asked, (QStringList{"SetIntegerValue Count", "GetIntegerValue Count"}));
}

void tst_FakeCamera::acceptedWritesAreToldWithTheEntryThatTheyWentTo()
{
    const auto camera = FakeCamera::standard();
    QStringList told;
    camera->onAccepted = [&](const Fake::Accepted& write) {
        told.append(QString::fromStdString(write.feature + '=' + write.value + '@' + write.entry));
    };
    (*camera)["TriggerSelector"].SetStringValue("LineStart");
    (*camera)["TriggerDelay"].SetFloatValue(2.5);
    (*camera)["TriggerDelay"].SetFloatValue(-1.0); // out of range
    camera->failCall("SetBoolValue", "PtpEnable");
    (*camera)["PtpEnable"].SetBoolValue(true);
    (*camera)["TriggerSoftware"].RunCommand();
    QCOMPARE(told, (QStringList{"TriggerSelector=LineStart@", "TriggerDelay=2.5@LineStart",
                                "TriggerSoftware=@LineStart"}));
}

void tst_FakeCamera::logHoldsCallsAndWritesInOrder()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    const auto command = camera.addCommand("Go");
    long long value = 0;
    feature->GetIntegerValue(value);
    feature->SetIntegerValue(4);
    command->RunCommand();
    QCOMPARE(toList(camera.calls()),
             (QStringList{"GetIntegerValue Count", "SetIntegerValue Count=4", "RunCommand Go"}));
    QCOMPARE(toList(camera.writes()), (QStringList{"SetIntegerValue Count=4", "RunCommand Go"}));
    QCOMPARE(camera.callCount("SetIntegerValue", "Count"), 1);
    QCOMPARE(camera.callCount("SetIntegerValue", "Cou"), 0);
    camera.clearLog();
    QVERIFY(camera.calls().empty());
}

void tst_FakeCamera::notifyCallsObserversOnAThreadOfItsOwn()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    const auto observer = std::make_shared<RecordingObserver>();
    QCOMPARE(feature->RegisterObserver(observer), ZalErrorSuccess);
    camera.notify("Count");
    QCOMPARE(observer->changed.size(), std::size_t(1));
    QVERIFY(observer->changed.front() == feature.get());
    QVERIFY(observer->thread != std::this_thread::get_id());
}

void tst_FakeCamera::secondRegistrationSucceedsWithoutASecondEntry()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    const auto observer = std::make_shared<RecordingObserver>();
    QCOMPARE(feature->RegisterObserver(observer), ZalErrorSuccess);
    QCOMPARE(feature->RegisterObserver(observer), ZalErrorSuccess);
    QCOMPARE(feature->observerCount(), std::size_t(1));
    QCOMPARE(feature->UnregisterObserver(observer), ZalErrorSuccess);
    QCOMPARE(feature->UnregisterObserver(observer), ZalErrorNotFound);
    QCOMPARE(feature->RegisterObserver(nullptr), ZalErrorBadParameter);
    QCOMPARE(feature->observerCount(), std::size_t(0));
}

void tst_FakeCamera::observerMayUnregisterFromWithinItsCallback()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("Count", 3);
    const auto observer = std::make_shared<RecordingObserver>();
    observer->onChange = [&] { feature->UnregisterObserver(observer); };
    feature->RegisterObserver(observer);
    camera.notify("Count");
    camera.notify("Count");
    QCOMPARE(observer->changed.size(), std::size_t(1));
    observer->onChange = nullptr;
}

QTEST_APPLESS_MAIN(tst_FakeCamera)

#include "tst_FakeCamera.moc"
