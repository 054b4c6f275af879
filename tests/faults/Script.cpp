// The steps of a session, and what each of them asks of the camera.
#include "tests/faults/Session.h"
#include "tests/faults/User.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>

namespace Faults {
namespace {

const QStringList Triggers = {"AcquisitionStart", "FrameStart", "LineStart"};
const QStringList Counters = {"Counter0", "Counter1"};
const QStringList Timers = {"Timer0", "Timer1"};
const QStringList Lines = {"Line0", "Line1", "Line2", "Line3"};

void askEverywhere(std::vector<Ask>& asks, const QStringList& entries, const QString& feature,
                   const QString& value)
{
    for (const QString& entry : entries)
        asks.push_back({feature, value, entry});
}

/// Whose row a table makes last; it leaves that line selected.
void askLastLine(std::vector<Ask>& asks)
{
    asks.push_back({"LineSelector", Lines.last(), QString()});
}

/// What presets.json says, setting by setting.
void askTurnOff(std::vector<Ask>& asks)
{
    askEverywhere(asks, Counters, "CounterEventSource", "Off");
    askEverywhere(asks, Triggers, "TriggerMode", "Off");
}

void askPulse(std::vector<Ask>& asks)
{
    asks.push_back({"AcquisitionFrameCount", "3", QString()});
    asks.push_back({"LineSelector", "Line1", QString()});
    asks.push_back({"LineInverter", "true", "Line1"});
    asks.push_back({"LineSelector", "Line2", QString()});
    asks.push_back({"LineMode", "Output", "Line2"});
    asks.push_back({"LineSource", "Timer0Active", "Line2"});
    asks.push_back({"CounterDuration", "65535", "Counter0"});
    asks.push_back({"CounterSelector", "Counter0", QString()});
    askEverywhere(asks, Timers, "TimerDelay", "60");
    askEverywhere(asks, Timers, "TimerDuration", "40");
    asks.push_back({"TimerSelector", "Timer0", QString()});
    asks.push_back({"TriggerSelector", "FrameStart", QString()});
    asks.push_back({"TriggerDelay", "5", "FrameStart"});
    asks.push_back({"TriggerMode", "On", "FrameStart"});
    asks.push_back({"TriggerSource", "Software", "FrameStart"});
    asks.push_back({"TriggerSoftware", QString(), "FrameStart"});
}

void askReset(std::vector<Ask>& asks)
{
    asks.push_back({"AcquisitionMode", "Continuous", QString()});
    askEverywhere(asks, Counters, "CounterEventSource", "Off");
    askEverywhere(asks, Counters, "CounterDuration", "1");
    asks.push_back({"CounterSelector", "Counter0", QString()});
    askEverywhere(asks, Lines, "LineInverter", "false");
    askEverywhere(asks, Triggers, "TriggerDelay", "0");
    askEverywhere(asks, Triggers, "TriggerMode", "Off");
    asks.push_back({"TriggerSelector", "FrameStart", QString()});
}

} // namespace

void Session::askForPreset(const QString& name)
{
    m_circumstances.appliesPreset = true;
    if (name == "Reset All") {
        askReset(m_circumstances.asks);
        return;
    }
    askTurnOff(m_circumstances.asks);
    if (name == "Pulse")
        askPulse(m_circumstances.asks);
}

void Session::applyPreset(QWidget& form, const QString& name)
{
    auto* box = form.findChild<QComboBox*>("cmbSelectPreset");
    const int index = box->findText(name);
    if (index < 0 || !box->isEnabled())
        return;
    askForPreset(name);
    box->setCurrentIndex(index);
}

/// Another program, or the camera itself.
void Session::changeFromOutside()
{
    Fake::FakeCamera& fake = m_camera.fake();
    const auto bump = [&](const char* feature) { fake[feature].state().real += 3.0; };
    bump("TriggerDelay");
    bump("TimerDuration");
    fake["CounterValue"].state().integer += 1;
    fake["TriggerActivation"].state().text = "AnyEdge";
    fake["LineStatus"].stateFor("Line0").boolean = true;
    fake["LineStatus"].stateFor("Line3").boolean = true;
}

void Session::useTab()
{
    User hand = user(*tab());
    step("unfold and ask for tooltips", [&] {
        hand.unfoldSections();
        tab()->findChild<QCheckBox*>("chkTooltips")->setChecked(true);
        hand.hoverOver("spbTriggerDelay");
        hand.hoverOver("cmbLine1_LineSource");
    });
    step("choose trigger", [&] { hand.choose("cmbTriggerSelector", "LineStart"); });
    step("choose mode", [&] { hand.choose("cmbTriggerMode", "On"); });
    step("type delay", [&] { hand.typeNumber("spbTriggerDelay", "12.5"); });
    step("choose source", [&] { hand.choose("cmbTriggerSource", "Software"); });
    step("software trigger", [&] { hand.press("btnTriggerSoftware"); });
    step("choose line mode", [&] { hand.choose("cmbLine1_LineMode", "Output"); });
    step("choose line source", [&] { hand.choose("cmbLine1_LineSource", "ExposureActive"); });
    step("invert line", [&] { hand.check("chkLine2_LineInverter", true); });
    step("change from outside", [&] { changeFromOutside(); });
    step("preset in tab", [&] { applyPreset(*tab(), "Pulse"); });
    step("choose activation", [&] { hand.choose("cmbTriggerActivation", "LevelHigh"); });
    step("streaming on", [&] { emit m_host->streaming(true); });
    step("streaming off", [&] { emit m_host->streaming(false); });
    step("hide and show", [&] { hideAndShow(*m_host); });
}

void Session::useDialog()
{
    step("open dialog", [&] {
        askLastLine(m_circumstances.asks);
        openDialog(*tab());
    });
    if (!dialog())
        return;
    step("unfold sections", [&] { user(*dialog()).unfoldSections(); });
    editInDialog();
    usePwm();
    step("preset in dialog", [&] { applyPreset(*dialog(), "Reset All"); });
    step("streaming on beside dialog", [&] { emit m_host->streaming(true); });
    step("streaming off beside dialog", [&] { emit m_host->streaming(false); });
    step("change beside dialog", [&] { changeFromOutside(); });
    recoverAndCompare(true);
    step("close dialog", [&] { dialog()->window()->close(); });
}

void Session::editInDialog()
{
    User hand = user(*dialog());
    step("choose acquisition mode", [&] { hand.choose("cmbAcquisitionMode", "MultiFrame"); });
    step("type frame count", [&] { hand.typeNumber("spbAcquisitionFrameCount", "7"); });
    step("type action selector", [&] { hand.typeNumber("spbActionSelector", "2"); });
    step("leave hexadecimal field", [&] { hand.leave("txtActionGroupKey", "0x11223344"); });
    step("type hexadecimal number", [&] { hand.typeText("txtActionGroupMask", "0x1F"); });
    step("type decimal number and leave", [&] {
        hand.typeText("txtActionQueueSize", "5");
        hand.leave("txtActionQueueSize", "5");
    });
    step("type text", [&] { hand.typeText("txtPtpClockAccuracy", "fine"); });
    step("check", [&] { hand.check("chkPtpEnable", true); });
    step("command", [&] { hand.press("btnTimestampLatch"); });
    step("choose counter", [&] { hand.choose("cmbCounterSelector", "Counter1"); });
    step("choose event", [&] { hand.choose("cmbCounterEventSource", "Line1"); });
    step("type counter duration", [&] { hand.typeNumber("spbCounterDuration", "9"); });
    step("choose debounce", [&] { hand.choose("cmbLine1_LineDebounceMode", "Debounce"); });
    step("longer debounce", [&] { hand.stepDuration("Line1", true); });
    step("shorter debounce", [&] { hand.stepDuration("Line2", false); });
    step("invert line in dialog", [&] { hand.check("chkLine0_LineInverter", true); });
}

void Session::usePwm()
{
    User hand = user(*dialog());
    step("choose timer", [&] { hand.choose("cmbTimerSelector", "Timer1"); });
    step("switch PWM on", [&] { hand.switchPwm(true); });
    step("type frequency", [&] { hand.typePwm("txtPWMFrequency", "1000"); });
    step("type duty cycle", [&] { hand.typePwm("txtPWMDutyCycle", "25"); });
    step("switch PWM off", [&] { hand.switchPwm(false); });
    step("type timer delay", [&] { hand.typeNumber("spbTimerDelay", "80"); });
}

/// A camera that cannot say its vendor's name, or whether it has a trigger, gets no tab. The host
/// may ask again.
void Session::start()
{
    step("get", [&] { openTab(m_plugin, *m_host, m_camera); });
    if (!tab()) {
        m_camera.recover();
        step("get again", [&] { openTab(m_plugin, *m_host, m_camera); });
    }
    step("show", [&] {
        askLastLine(m_circumstances.asks);
        showWindow(*m_host);
    });
}

void Session::end()
{
    step("delete", [&] { delete std::exchange(m_host->container, nullptr); });
    m_host.reset();
}

} // namespace Faults
