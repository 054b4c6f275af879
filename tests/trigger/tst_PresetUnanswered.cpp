// Presets on a camera that leaves questions unanswered.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "trigger/PresetFile.h"
#include "trigger/PresetRunner.h"

#include <QJsonDocument>
#include <QTest>

#include <functional>
#include <set>

namespace {

using Fake::FakeCamera;
using Fake::FakeFeature;

const std::map<QByteArray, ZalErrorType> Silences = {
    {"time-out", ZalErrorTimeout}, {"transport", ZalErrorTransport}, {"not open", ZalErrorNotOpen}};

/// Which feature has to hold its value while another is written.
const std::map<std::string, std::string> Governing = {{"LineMode", "LineSelector"},
                                                      {"LineInverter", "LineSelector"},
                                                      {"LineDebounceDuration", "LineSelector"},
                                                      {"BurstCount", "TriggerSource"}};

/// Few features, the most asked ones first, since each lookup asks for names.
std::unique_ptr<FakeCamera> cameraForPresets()
{
    auto camera = std::make_unique<FakeCamera>();
    camera->addEnum("LineSelector", {"Line0", "Line1", "Line2"}, "Line1");
    camera->addEnum("LineMode", {"Input", "Output"}, "Input");
    camera->addBool("LineInverter", true);
    // Beside every multiple of the step, so that a value reduced to multiples is another one.
    camera->addFloat("LineDebounceDuration", 5.3, 2.0, 90.0);
    camera->select("LineSelector", {"LineMode", "LineInverter", "LineDebounceDuration"});
    camera->addEnum("TriggerSource", {"Software", "Line0"}, "Software");
    camera->addInteger("BurstCount", 6, 2, 255, 2);
    camera->addFloat("ExposureTime", 5000.0, 10.0, 1000000.0)->state().incrementReal = 10.0;
    camera->addString("DeviceUserID", "left");
    camera->addCommand("TriggerSoftware");
    return camera;
}

std::string valueText(const Fake::State& state)
{
    return std::to_string(state.integer) + '/' + std::to_string(state.real) + '/' +
           std::to_string(state.boolean) + '/' + state.text;
}

/// All that the camera holds, for every entry of every selector.
std::vector<std::string> stateOf(const FakeCamera& camera)
{
    std::vector<std::string> texts;
    for (const auto& listed : *camera.features()) {
        auto& feature = static_cast<FakeFeature&>(*listed);
        if (!feature.selector)
            texts.push_back(feature.name + '=' + valueText(feature.state()));
        else
            for (const Fake::Entry& entry : feature.selector->state().entries)
                texts.push_back(feature.name + '@' + entry.name + '=' +
                                valueText(feature.stateFor(entry.name)));
    }
    return texts;
}

/// What a preset did to a camera.
struct Application
{
    QString errors;
    std::vector<std::string> calls;
    std::vector<std::string> state;
    /// Every attempt to write, wherever it went.
    std::set<std::string> writes;
    /// What was written while the governing feature held which value.
    std::set<std::string> governedWrites;
};

using Prepare = std::function<void(FakeCamera&)>;

void watchGovernedWrites(const FakeCamera& camera, std::set<std::string>& writes)
{
    for (const auto& [dependent, governing] : Governing) {
        camera[dependent].onWrite = [&camera, &writes, key = governing](FakeFeature& written) {
            writes.insert(camera[key].state().text + ": " + written.name + '=' +
                          valueText(written.state()));
        };
    }
}

Application runPreset(
    const QByteArray& members, const Prepare& prepare = [](FakeCamera&) {})
{
    const auto camera = cameraForPresets();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    Application result;
    watchGovernedWrites(*camera, result.governedWrites);
    prepare(*camera);
    const auto plan = PresetFile::planOf(QJsonDocument::fromJson(members).object());
    result.errors = PresetRunner(manager).run(plan);
    result.calls = camera->calls();
    for (const std::string& write : camera->writes())
        result.writes.insert(write);
    result.state = stateOf(*camera);
    return result;
}

bool isPartOf(const std::set<std::string>& part, const std::set<std::string>& whole)
{
    return std::includes(whole.begin(), whole.end(), part.begin(), part.end());
}

QString notSet(const QString& feature, const QString& value, const QString& current = QString())
{
    return QStringLiteral("  Failed to set %1 = %2, Current value: '%3'\n")
        .arg(feature, value, current);
}

/// After that many writes of the feature its next one meets the status.
Prepare failWriteAfter(const char* feature, int writes, ZalErrorType status)
{
    return [=](FakeCamera& camera) {
        camera[feature].onWrite = [=, &camera, left = writes](FakeFeature&) mutable {
            if (--left == 0)
                camera.failCall("SetStringValue", feature, status);
        };
    };
}

const QByteArray EveryLine =
    R"({"LineSelector": {"#value": "<all>", "LineMode": "Output", "LineInverter": false}})";

} // namespace

class tst_PresetUnanswered : public QObject
{
    Q_OBJECT

private slots:
    void nothingEndsWrongInSilence_data();
    void nothingEndsWrongInSilence();
    void aQuestionWithoutAnswerIsALineWithoutAValue_data();
    void aQuestionWithoutAnswerIsALineWithoutAValue();
    void dependentsOfAnUnansweredSelectorAreSkipped_data();
    void dependentsOfAnUnansweredSelectorAreSkipped();
    void anEntryOfWhichNothingIsKnownIsNamed();
    void withoutTheEntryToReturnToNothingIsSelected();
    void aSelectorThatCouldNotBePutBackIsReported();
    void aRefusalToPutTheSelectorBackStaysUnsaid();
    void aWriteWithoutAnswerThatArrivedIsNoError();
    void aLostFloatIsRepeatedWithTheNumberAsked();
    void anAnsweredNoStaysSilent_data();
    void anAnsweredNoStaysSilent();
};

void tst_PresetUnanswered::nothingEndsWrongInSilence_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<ZalErrorType>("status");
    QTest::addColumn<bool>("forGood");
    const auto rows = [](const QByteArray& kind, const QByteArray& members) {
        for (const auto& [name, status] : Silences) {
            QTest::newRow(kind + ", one " + name) << members << status << false;
            QTest::newRow(kind + ", " + name + " for good") << members << status << true;
        }
    };
    rows("one entry", R"({"LineSelector": {"#value": "Line2", "LineMode": "Output",
        "LineInverter": false, "LineDebounceDuration": "<min>"}})");
    rows("several entries", R"({"LineSelector": [{"#value": "Line0", "LineInverter": false},
        {"#value": "Line2", "LineDebounceDuration": 7.5}]})");
    rows("every entry and back", EveryLine);
    rows("every entry and on", R"({"LineSelector": {"#value": "<all>_Line0",
        "LineMode": "Output", "LineDebounceDuration": 7}})");
    rows("plain feature", R"({"TriggerSource": {"#value": "Line0"}})");
    rows("dependent of a plain feature", R"({"TriggerSource": {"#value": "Line0",
        "BurstCount": 9999}})");
    rows("numbers", R"({"BurstCount": {"#value": "<max>"}, "ExposureTime": {"#value": 2000}})");
    rows("limits", R"({"BurstCount": {"#value": "<min>"}, "ExposureTime": {"#value": "<max>"}})");
    rows("text and command", R"({"DeviceUserID": {"#value": "right"},
        "#execute": "TriggerSoftware"})");
}

void tst_PresetUnanswered::nothingEndsWrongInSilence()
{
    QFETCH(QByteArray, members);
    QFETCH(ZalErrorType, status);
    QFETCH(bool, forGood);
    const Application undisturbed = runPreset(members);
    QCOMPARE(undisturbed.errors, QString());
    for (std::size_t n = 1; n <= undisturbed.calls.size(); ++n) {
        const Application disturbed = runPreset(members, [&](FakeCamera& camera) {
            const int call = static_cast<int>(n);
            forGood ? camera.failFromNthCall(call, status) : camera.failNthCall(call, status);
        });
        const QByteArray where =
            "unanswered: " + QByteArray::fromStdString(disturbed.calls.at(n - 1)) + ", call " +
            QByteArray::number(int(n));
        QVERIFY2(!disturbed.errors.isEmpty() || disturbed.state == undisturbed.state,
                 where + " ended wrong without a line");
        QVERIFY2(isPartOf(disturbed.governedWrites, undisturbed.governedWrites),
                 where + ": something was written under another entry");
        QVERIFY2(isPartOf(disturbed.writes, undisturbed.writes),
                 where + ": something was written that nobody chose");
    }
}

void tst_PresetUnanswered::aQuestionWithoutAnswerIsALineWithoutAValue_data()
{
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QString>("value");
    const auto row = [](const char* name, const char* operation, const char* feature,
                        const char* value) {
        QTest::newRow(name) << QByteArray(operation) << QString(feature) << QString(value);
    };
    row("name", "GetName", "DeviceUserID", "right");
    row("writable", "IsWritable", "TriggerSource", "Line0");
    row("data type", "GetDataType", "TriggerSource", "Line0");
    row("entry read back", "GetStringValue", "TriggerSource", "Line0");
    row("false read back", "GetBoolValue", "LineInverter", "false");
    row("limits of an integer", "GetIntegerRange", "BurstCount", "8");
    row("minimum of an integer", "GetIntegerRange", "BurstCount", "<min>");
    row("step of an integer", "GetIntegerIncrement", "BurstCount", "<max>");
    row("integer read back", "GetIntegerValue", "BurstCount", "8");
    row("limits of a float", "GetFloatRange", "ExposureTime", "2000");
    row("maximum of a float", "GetFloatRange", "ExposureTime", "<max>");
    row("step of a float", "GetFloatIncrement", "ExposureTime", "<max>");
    row("float read back", "GetFloatValue", "ExposureTime", "2000");
    row("entries", "GetEnumNames", "LineSelector", "<all>");
}

void tst_PresetUnanswered::aQuestionWithoutAnswerIsALineWithoutAValue()
{
    QFETCH(QByteArray, operation);
    QFETCH(QString, feature);
    QFETCH(QString, value);
    const QByteArray members =
        "{\"" + feature.toUtf8() + R"(": {"#value": ")" + value.toUtf8() + "\"}}";
    for (const auto& silence : Silences) {
        const Application disturbed = runPreset(members, [&](FakeCamera& camera) {
            camera.failCall(operation.toStdString(), feature.toStdString(), silence.second);
        });
        QCOMPARE(disturbed.errors, notSet(feature, value));
    }
}

void tst_PresetUnanswered::dependentsOfAnUnansweredSelectorAreSkipped_data()
{
    QTest::addColumn<QByteArray>("operation");
    for (const char* operation : {"GetName", "IsWritable", "GetDataType", "GetStringValue"})
        QTest::newRow(operation) << QByteArray(operation);
}

void tst_PresetUnanswered::dependentsOfAnUnansweredSelectorAreSkipped()
{
    QFETCH(QByteArray, operation);
    const Application disturbed = runPreset(
        R"({"LineSelector": {"#value": "Line2", "LineMode": "Output"}})", [&](FakeCamera& camera) {
            camera.failCall(operation.toStdString(), "LineSelector", ZalErrorTimeout);
        });
    QCOMPARE(disturbed.errors, notSet("LineSelector", "Line2"));
    QVERIFY(disturbed.governedWrites.empty());
}

void tst_PresetUnanswered::anEntryOfWhichNothingIsKnownIsNamed()
{
    const Application undisturbed = runPreset(EveryLine);
    const auto asked = std::find(undisturbed.calls.begin(), undisturbed.calls.end(),
                                 "IsValueAvailable LineSelector");
    const auto second = static_cast<int>(asked - undisturbed.calls.begin()) + 2;
    const Application disturbed = runPreset(
        EveryLine, [=](FakeCamera& camera) { camera.failNthCall(second, ZalErrorTimeout); });
    QCOMPARE(disturbed.errors, notSet("LineSelector", "Line1"));
    // The other entries get what is theirs.
    QCOMPARE(disturbed.writes.count("SetStringValue LineSelector=Line0"), std::size_t(1));
    QCOMPARE(disturbed.writes.count("SetStringValue LineSelector=Line2"), std::size_t(1));
    QCOMPARE(disturbed.governedWrites.size(), undisturbed.governedWrites.size() * 2 / 3);
}

void tst_PresetUnanswered::withoutTheEntryToReturnToNothingIsSelected()
{
    const Application disturbed = runPreset(EveryLine, [](FakeCamera& camera) {
        camera.failCall("GetStringValue", "LineSelector", ZalErrorTimeout);
    });
    QCOMPARE(disturbed.errors, notSet("LineSelector", "<all>"));
    QVERIFY(disturbed.writes.empty());
}

void tst_PresetUnanswered::aSelectorThatCouldNotBePutBackIsReported()
{
    const Application disturbed =
        runPreset(EveryLine, failWriteAfter("LineSelector", 3, ZalErrorTimeout));
    QCOMPARE(disturbed.errors, notSet("LineSelector", "Line1", "Line2"));
}

void tst_PresetUnanswered::aRefusalToPutTheSelectorBackStaysUnsaid()
{
    const Application refused =
        runPreset(EveryLine, failWriteAfter("LineSelector", 3, ZalErrorBadParameter));
    QCOMPARE(refused.errors, QString());
}

void tst_PresetUnanswered::aWriteWithoutAnswerThatArrivedIsNoError()
{
    // The acknowledge was lost, not the write: the camera has the value already.
    const Application lost = runPreset(
        R"({"LineSelector": {"#value": "Line1", "LineMode": "Output"}})", [](FakeCamera& camera) {
            camera.failCall("SetStringValue", "LineSelector", ZalErrorTimeout);
        });
    QCOMPARE(lost.errors, QString());
    QCOMPARE(lost.governedWrites.size(), std::size_t(1));
}

void tst_PresetUnanswered::aLostFloatIsRepeatedWithTheNumberAsked()
{
    const auto camera = cameraForPresets();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    FakeFeature& exposure = (*camera)["ExposureTime"];
    exposure.state().real = 5003.0; // Not a multiple of the step: other than it would come out.
    camera->failCall("SetFloatValue", "ExposureTime", ZalErrorTimeout);
    QCOMPARE(PresetRunner(manager).SetFeatureValue("ExposureTime", 2000),
             notSet("ExposureTime", "2000", "5003"));
    QCOMPARE(FeatureTest::toList(camera->writes()),
             QStringList({"SetFloatValue ExposureTime=2000", "SetFloatValue ExposureTime=2000"}));
}

void tst_PresetUnanswered::anAnsweredNoStaysSilent_data()
{
    QTest::addColumn<ZalErrorType>("status");
    for (const ZalErrorType status :
         {ZalErrorUnknown, ZalErrorNotImplemented, ZalErrorNotFound, ZalErrorNotAvailable,
          ZalErrorWrongType, ZalErrorBadParameter, ZalErrorNotReadable, ZalErrorNotWritable,
          ZalErrorOutOfRange, ZalErrorBufferTooSmall, ZalErrorOutOfResources})
        QTest::newRow(QByteArray::number(status)) << status;
}

void tst_PresetUnanswered::anAnsweredNoStaysSilent()
{
    QFETCH(ZalErrorType, status);
    for (const char* operation : {"GetName", "IsWritable"}) {
        const Application answered = runPreset(
            R"({"LineSelector": {"#value": "Line2", "LineMode": "Output"}})",
            [&](FakeCamera& camera) { camera.failCall(operation, "LineSelector", status); });
        QCOMPARE(answered.errors, QString());
        // What depends on a selector that cannot be set is written all the same.
        QCOMPARE(answered.writes, std::set<std::string>{"SetStringValue LineMode=Output"});
    }
}

QTEST_GUILESS_MAIN(tst_PresetUnanswered)
#include "tst_PresetUnanswered.moc"
