// The presets files that come with the plugin, on simulated cameras: what a preset's tooltip
// promises is what the camera then has.
#include "tests/e2e/PresetRig.h"
#include "trigger/PresetFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString Generic = QStringLiteral("AdvTrigger_Presets.json");
const QString Family = QStringLiteral("AdvTrigger_SimSeries_Presets.json");

/// The folder of a viewer that has only that one presets file, as the generic one.
class OnlyFile
{
public:
    explicit OnlyFile(const QString& file)
    {
        QDir(m_folder.path()).mkdir(QStringLiteral("plugins"));
        QFile::copy(QStringLiteral(PLUGIN_FOLDER "/") + file,
                    m_folder.path() + QStringLiteral("/plugins/") + Generic);
    }
    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

QStringList presetsIn(const QString& fileName)
{
    QFile file(QStringLiteral(PLUGIN_FOLDER "/") + fileName);
    QStringList names;
    if (!file.open(QIODevice::ReadOnly))
        return names;
    for (const PresetFile::Preset& preset : PresetFile::parse(file.readAll()).presets)
        names.append(preset.name);
    return names;
}

/// "path=value" for each value that the camera must have.
using State = QStringList;

struct Promise
{
    QString preset;
    State state;
};

State frameTriggerOn(const char* source)
{
    const QString selector = QStringLiteral("TriggerSelector=FrameStart ");
    return {selector + QStringLiteral("TriggerMode=On"),
            selector + QStringLiteral("TriggerDelay=0"),
            selector + QStringLiteral("TriggerSource=") + QLatin1String(source)};
}

State risingEdgeTrigger(const char* source)
{
    return frameTriggerOn(source) +
           State{QStringLiteral("TriggerSelector=FrameStart TriggerActivation=RisingEdge")};
}

State triggersOff()
{
    State state;
    for (const char* trigger : {"AcquisitionStart", "FrameStart", "FrameBurstStart"})
        state.append(QStringLiteral("TriggerSelector=%1 TriggerMode=Off").arg(trigger));
    return state;
}

State burst()
{
    const QString selector = QStringLiteral("TriggerSelector=FrameBurstStart ");
    return {selector + QStringLiteral("TriggerMode=On"),
            selector + QStringLiteral("TriggerSource=Line0"),
            selector + QStringLiteral("AcquisitionBurstFrameCount=5"),
            QStringLiteral("TriggerSelector=FrameStart TriggerMode=Off")};
}

State generatorsOff()
{
    return {QStringLiteral("CounterSelector=Counter0 CounterEventSource=Off"),
            QStringLiteral("CounterSelector=Counter1 CounterEventSource=Off"),
            QStringLiteral("TimerSelector=Timer0 TimerTriggerSource=Off"),
            QStringLiteral("TimerSelector=Timer1 TimerTriggerSource=Off")};
}

State outputs(const char* source)
{
    return {QStringLiteral("LineSelector=Line2 LineSource=") + QLatin1String(source),
            QStringLiteral("LineSelector=Line3 LineSource=") + QLatin1String(source)};
}

State delayTimer()
{
    const QString selector = QStringLiteral("TimerSelector=Timer0 ");
    return {selector + QStringLiteral("TimerTriggerSource=Line0"),
            selector + QStringLiteral("TimerTriggerActivation=RisingEdge"),
            selector + QStringLiteral("TimerDelay=5000")};
}

State divider()
{
    const QString selector = QStringLiteral("CounterSelector=Counter0 ");
    return {selector + QStringLiteral("CounterEventSource=Line0"),
            selector + QStringLiteral("CounterDuration=4"),
            selector + QStringLiteral("CounterTriggerSource=Off"),
            selector + QStringLiteral("CounterResetSource=Counter0End")};
}

State actionKeys()
{
    return {QStringLiteral("ActionSelector=0 ActionGroupKey=1"),
            QStringLiteral("ActionSelector=0 ActionGroupMask=1"),
            QStringLiteral("ActionUnconditionalMode=Off")};
}

State untouchedLines()
{
    State state;
    for (int line = 0; line < 4; ++line)
        state.append(QStringLiteral("LineSelector=Line%1 LineInverter=0").arg(line));
    for (int line = 0; line < 2; ++line)
        state.append(QStringLiteral("LineSelector=Line%1 LineDebounceMode=Off").arg(line));
    return state;
}

State resetTriggers()
{
    State state = triggersOff();
    for (const char* trigger : {"AcquisitionStart", "FrameStart", "FrameBurstStart"}) {
        const QString selector = QStringLiteral("TriggerSelector=%1 ").arg(trigger);
        state << selector + QStringLiteral("TriggerSource=Software")
              << selector + QStringLiteral("TriggerActivation=RisingEdge")
              << selector + QStringLiteral("TriggerDelay=0");
    }
    return state;
}

const QString Timed = QStringLiteral("ExposureMode=Timed");
const QString ByWidth = QStringLiteral("ExposureMode=TriggerWidth");
const QString Continuous = QStringLiteral("AcquisitionMode=Continuous");
/// What it was before: no tooltip speaks of it.
const QString SingleFrame = QStringLiteral("AcquisitionMode=SingleFrame");

/// What both models can do.
QVector<Promise> simplePromises()
{
    return {
        {QStringLiteral("Turn Off All"), triggersOff() + outputs("Off") + State{Timed}},
        {QStringLiteral("Reset All"),
         resetTriggers() + outputs("Off") + untouchedLines() + State{Timed, Continuous}},
        {QStringLiteral("Software Trigger"), frameTriggerOn("Software") + State{Timed}},
        {QStringLiteral("Hardware Trigger"), risingEdgeTrigger("Line0") + State{Timed}},
        {QStringLiteral("Exposure by Trigger Width"), risingEdgeTrigger("Line0") + State{ByWidth}},
        {QStringLiteral("Strobe on Exposure"), outputs("ExposureActive") + triggersOff()},
        {QStringLiteral("Burst of 5 Frames"), burst()}};
}

QVector<Promise> genericPromisesOfFull()
{
    QVector<Promise> promises = simplePromises();
    promises[0].state += generatorsOff();
    promises[1].state += generatorsOff();
    promises.append({QStringLiteral("Delayed Trigger (Timer)"),
                     risingEdgeTrigger("Timer0Active") + delayTimer() + State{SingleFrame}});
    promises.append({QStringLiteral("Every 4th Pulse (Counter)"),
                     risingEdgeTrigger("Counter0End") + divider() + State{SingleFrame}});
    promises.append({QStringLiteral("Action Command Trigger"),
                     risingEdgeTrigger("Action0") + actionKeys() + State{SingleFrame}});
    return promises;
}

QVector<Promise> genericPromisesOfBasic()
{
    QVector<Promise> promises = simplePromises();
    for (const char* preset :
         {"Delayed Trigger (Timer)", "Every 4th Pulse (Counter)", "Action Command Trigger"})
        promises.append({QString::fromLatin1(preset), triggersOff()});
    return promises;
}

State afterPowerOn()
{
    State state = resetTriggers() + generatorsOff() + untouchedLines();
    state << Timed << Continuous << QStringLiteral("LineSelector=Line2 LineMode=Output")
          << QStringLiteral("LineSelector=Line2 LineSource=ExposureActive")
          << QStringLiteral("LineSelector=Line3 LineSource=Off")
          << QStringLiteral("LineSelector=Line0 LineDebounceDuration=8")
          << QStringLiteral("LineSelector=Line1 LineDebounceDuration=8")
          << QStringLiteral("CounterSelector=Counter1 CounterDuration=1000")
          << QStringLiteral("CounterSelector=Counter0 CounterResetSource=Off")
          << QStringLiteral("TimerSelector=Timer0 TimerDuration=1000")
          << QStringLiteral("TimerSelector=Timer0 TimerDelay=0")
          << QStringLiteral("ActionSelector=1 ActionGroupMask=0")
          << QStringLiteral("ActionSelector=0 ActionGroupKey=0")
          << QStringLiteral("ActionUnconditionalMode=Off");
    return state;
}

QVector<Promise> familyPromises()
{
    const State strobe{QStringLiteral("LineSelector=Line3 LineSource=ExposureActive"),
                       QStringLiteral("LineSelector=Line3 LineInverter=0")};
    const State debounced{QStringLiteral("LineSelector=Line1 LineDebounceMode=Debounce"),
                          QStringLiteral("LineSelector=Line1 LineDebounceDuration=20000")};
    const State train{QStringLiteral("LineSelector=Line3 LineSource=Timer0Active"),
                      QStringLiteral("TimerSelector=Timer0 TimerTriggerSource=Timer0End"),
                      QStringLiteral("TimerSelector=Timer0 TimerDuration=500"),
                      QStringLiteral("TimerSelector=Timer0 TimerDelay=500")};
    return {{QStringLiteral("Turn Off All"),
             triggersOff() + outputs("Off") + generatorsOff() + State{Timed}},
            {QStringLiteral("Reset All"), afterPowerOn()},
            {QStringLiteral("Software Trigger"), frameTriggerOn("Software")},
            {QStringLiteral("Hardware Trigger on Line0"), risingEdgeTrigger("Line0")},
            {QStringLiteral("Debounced Trigger on Line1"), risingEdgeTrigger("Line1") + debounced},
            {QStringLiteral("Exposure by Pulse Width on Line0"),
             risingEdgeTrigger("Line0") + State{ByWidth}},
            {QStringLiteral("Strobe on Line3"), strobe + triggersOff()},
            {QStringLiteral("Hardware Trigger with Strobe"), strobe + risingEdgeTrigger("Line0")},
            {QStringLiteral("Burst of 5 Frames on Line0"), burst()},
            {QStringLiteral("Delayed Trigger (Timer0)"),
             risingEdgeTrigger("Timer0Active") + delayTimer()},
            {QStringLiteral("Every 4th Pulse (Counter0)"),
             risingEdgeTrigger("Counter0End") + divider()},
            {QStringLiteral("Action Command Trigger"), risingEdgeTrigger("Action0") + actionKeys()},
            {QStringLiteral("Pulse Train on Line3 (Timer0)"), train + triggersOff()}};
}

QStringList namesOf(const QVector<Promise>& promises)
{
    QStringList names{QStringLiteral("Custom")};
    for (const Promise& promise : promises)
        names.append(promise.preset);
    return names;
}

/// What of the state the camera does not have.
QString brokenPromises(const PresetRig& rig, const State& state)
{
    QStringList broken;
    for (const QString& line : state) {
        const int separator = line.lastIndexOf(QLatin1Char('='));
        const QString value = rig.read(line.left(separator));
        if (value != line.mid(separator + 1))
            broken.append(line + QStringLiteral(", but it is ") + value);
    }
    return broken.join(QLatin1Char('\n'));
}

/// Settings that no preset but the resetting ones may leave as they are.
const QString Untidy = QStringLiteral(
    "TriggerSelector=AcquisitionStart TriggerMode=On TriggerSelector=FrameStart TriggerMode=On "
    "TriggerActivation=FallingEdge TriggerDelay=250 ExposureMode=TriggerWidth "
    "LineSelector=Line3 LineInverter=1 LineSource=AcquisitionActive LineSelector=Line1 "
    "LineInverter=1 LineDebounceMode=Deglitch LineDebounceDuration=77 AcquisitionMode=SingleFrame");
const QString UntidyGenerators =
    QStringLiteral("CounterSelector=Counter1 CounterEventSource=FrameStart CounterDuration=7 "
                   "TimerSelector=Timer1 TimerTriggerSource=Line1 TimerDelay=3 TimerDuration=9 "
                   "ActionSelector=1 ActionGroupKey=5 ActionGroupMask=5");

} // namespace

class tst_ShippedPresets : public QObject
{
    Q_OBJECT

private slots:
    void theFilesLieBesideThePlugin_data();
    void theFilesLieBesideThePlugin();
    void everyPresetHasAToolTipAndAPromise_data();
    void everyPresetHasAToolTipAndAPromise();
    void theFamilysCameraGetsItsOwnFile();
    void keepsItsPromises_data();
    void keepsItsPromises();
    void customChangesNothing();
};

void tst_ShippedPresets::theFilesLieBesideThePlugin_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("generic") << Generic;
    QTest::newRow("family") << Family;
}

void tst_ShippedPresets::theFilesLieBesideThePlugin()
{
    QFETCH(QString, file);
    QFile installed(QStringLiteral(PLUGIN_FOLDER "/") + file);
    QVERIFY(installed.open(QIODevice::ReadOnly));
    const auto content = PresetFile::parse(installed.readAll());
    QCOMPARE(content.parseError, QString());
    QVERIFY(content.presets.size() >= 11);
}

void tst_ShippedPresets::everyPresetHasAToolTipAndAPromise_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("promised");
    QTest::newRow("generic, full") << Generic << namesOf(genericPromisesOfFull());
    QTest::newRow("generic, basic") << Generic << namesOf(genericPromisesOfBasic());
    QTest::newRow("family") << Family << namesOf(familyPromises());
}

void tst_ShippedPresets::everyPresetHasAToolTipAndAPromise()
{
    QFETCH(QString, file);
    QTEST(presetsIn(file), "promised");
    QFile installed(QStringLiteral(PLUGIN_FOLDER "/") + file);
    QVERIFY(installed.open(QIODevice::ReadOnly));
    for (const PresetFile::Preset& preset : PresetFile::parse(installed.readAll()).presets) {
        const QString title = QStringLiteral("<b>%1</b><br>").arg(preset.name);
        QVERIFY2(preset.toolTip().startsWith(title) &&
                     !preset.toolTip().startsWith(title + "<br>") &&
                     preset.toolTip().size() > title.size(),
                 qPrintable(preset.name));
    }
}

void tst_ShippedPresets::theFamilysCameraGetsItsOwnFile()
{
    const PresetRig rig(QStringLiteral("full"), QStringLiteral(PLUGIN_FOLDER "/.."));
    QVERIFY2(rig.engine, qPrintable(rig.problem));
    QStringList items;
    for (int i = 0; i < rig.engine->box.count(); ++i)
        items.append(rig.engine->box.itemText(i));
    QCOMPARE(items, presetsIn(Family));
}

void tst_ShippedPresets::keepsItsPromises_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QStringList>("state");
    const auto rows = [](const char* model, const QString& file, const QVector<Promise>& promises) {
        for (const Promise& promise : promises)
            QTest::addRow("%s, %s, %s", model, qPrintable(file), qPrintable(promise.preset))
                << QString::fromLatin1(model) << file << promise.preset << promise.state;
    };
    rows("full", Generic, genericPromisesOfFull());
    rows("full", Family, familyPromises());
    rows("basic", Generic, genericPromisesOfBasic());
}

void tst_ShippedPresets::keepsItsPromises()
{
    QFETCH(QString, model);
    QFETCH(QString, file);
    QFETCH(QString, preset);
    QFETCH(QStringList, state);
    const OnlyFile folder(file);
    const PresetRig rig(model, folder.path());
    QVERIFY2(rig.engine, qPrintable(rig.problem));
    rig.write(Untidy);
    if (model == QLatin1String("full"))
        rig.write(UntidyGenerators);
    bool found = false;
    QCOMPARE(rig.engine->apply(preset, found), QString());
    QVERIFY(found);
    QCOMPARE(brokenPromises(rig, state), QString());
}

void tst_ShippedPresets::customChangesNothing()
{
    const PresetRig rig(QStringLiteral("full"), QStringLiteral(PLUGIN_FOLDER "/.."));
    QVERIFY2(rig.engine, qPrintable(rig.problem));
    rig.write(Untidy);
    bool found = false;
    QCOMPARE(rig.engine->apply(QStringLiteral("Custom"), found), QString());
    QVERIFY(found);
    const State untidy{QStringLiteral("TriggerSelector=FrameStart TriggerMode=On"),
                       QStringLiteral("TriggerSelector=FrameStart TriggerDelay=250"),
                       QStringLiteral("LineSelector=Line3 LineSource=AcquisitionActive"),
                       QStringLiteral("LineSelector=Line3 LineInverter=1"), ByWidth};
    QCOMPARE(brokenPromises(rig, untidy), QString());
}

QTEST_MAIN(tst_ShippedPresets)
#include "tst_ShippedPresets.moc"
