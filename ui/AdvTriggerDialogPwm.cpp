// The calculator that sets a timer's high and low time by frequency and duty cycle.
#include "features/FeatureManager.h"
#include "trigger/NumberInput.h"
#include "trigger/TypedText.h"
#include "ui/AdvTriggerDialog.h"

#include <QPointer>
#include <QSignalBlocker>

namespace {

constexpr double SecondsPerMicrosecond = 1e-06;
constexpr double WholePercent = 100.0;
/// What lets a timer trigger itself again when its signal ends.
constexpr char FallingEdge[] = "FallingEdge";

/// Six significant digits, the precision of everything that the calculator writes and shows.
QString rounded(double value)
{
    return QStringLiteral("%1").arg(value, 0, 'g', -1);
}

/// The number in the field; 0 for any other text, and for a number too large to hold.
double numberIn(const QLineEdit& edit)
{
    bool valid = false;
    const double number = edit.text().toDouble(&valid);
    return valid ? number : 0.0;
}

void limit(QLineEdit& edit, double top, QObject* owner)
{
    constexpr int decimals = 2;
    edit.setValidator(new NumberInput::Validator(0.0, top, decimals, owner));
}

} // namespace

void AdvTriggerDialog::limitPwmInput()
{
    constexpr double highestFrequency = 1000000.0;
    limit(*txtPWMDutyCycle, WholePercent, this);
    limit(*txtPWMFrequency, highestFrequency, this);
}

void AdvTriggerDialog::connectPwm()
{
    connect(txtPWMDutyCycle, SIGNAL(editingFinished()), SLOT(calculatePWM()));
    connect(txtPWMFrequency, SIGNAL(editingFinished()), SLOT(calculatePWM()));
    connect(spbTimerDelay, SIGNAL(valueChanged(double)), SLOT(reverseCalcPWM()));
    connect(spbTimerDuration, SIGNAL(valueChanged(double)), SLOT(reverseCalcPWM()));
    connect(grpPWM, SIGNAL(toggled(bool)), SLOT(enablePWM(bool)));
    TypedText::watch(*txtPWMDutyCycle);
    TypedText::watch(*txtPWMFrequency);
}

void AdvTriggerDialog::calculatePWM()
{
    // Finishing one field must not write what the other one refused.
    if (TypedText::isRefused(*txtPWMFrequency) || TypedText::isRefused(*txtPWMDutyCycle))
        return;
    const double frequency = numberIn(*txtPWMFrequency);
    if (!(frequency > 0.0))
        return;
    const double dutyCycle = numberIn(*txtPWMDutyCycle);
    if (!(dutyCycle > 0.0))
        return;
    const double duration = dutyCycle / (WholePercent * frequency * SecondsPerMicrosecond);
    m_featureManager->SetValue(QStringLiteral("TimerDuration"), rounded(duration).toDouble());
    // From the exact duration: its rounding error would add to the delay's own. A full duty cycle
    // leaves no delay; the subtraction would leave the error of the multiplication.
    const bool isFull = dutyCycle == WholePercent;
    const double delay = isFull ? 0.0 : duration * WholePercent / dutyCycle - duration;
    m_featureManager->SetValue(QStringLiteral("TimerDelay"), rounded(delay).toDouble());
}

void AdvTriggerDialog::reverseCalcPWM()
{
    if (!grpPWM->isChecked())
        return;
    const double delay = spbTimerDelay->value();
    const double duration = spbTimerDuration->value();
    double frequency = 0.0;
    double dutyCycle = 0.0;
    if (delay > 0.0 || duration > 0.0) {
        frequency = 1.0 / (duration * SecondsPerMicrosecond + delay * SecondsPerMicrosecond);
        dutyCycle = duration / (delay + duration) * WholePercent;
    }
    TypedText::show(*txtPWMFrequency, rounded(frequency));
    TypedText::show(*txtPWMDutyCycle, rounded(dutyCycle));
}

void AdvTriggerDialog::enablePWM(bool on)
{
    // While PWM is off, not even a last edit of these fields may reach the timer.
    txtPWMFrequency->blockSignals(!on);
    txtPWMDutyCycle->blockSignals(!on);
    if (!on) {
        // The timer keeps its trigger: it may be wanted as it is, without the calculator.
        txtPWMFrequency->clear();
        txtPWMDutyCycle->clear();
        return;
    }
    if (txtPWMFrequency->text().isEmpty())
        reverseCalcPWM();
    else
        calculatePWM();
    // Chosen as a user would, so that the camera gets them.
    const QPointer<AdvTriggerDialog> dialog(this);
    cmbTimerTriggerSource->setCurrentText(ownActiveSignal());
    // An error box may have been open meanwhile, and the dialog destroyed below it.
    if (dialog)
        cmbTimerTriggerActivation->setCurrentText(QLatin1String(FallingEdge));
}

/// The signal of the selected timer: triggered by its falling edge, the timer starts again and
/// again.
QString AdvTriggerDialog::ownActiveSignal() const
{
    return QStringLiteral("%1Active").arg(cmbTimerSelector->currentText());
}

void AdvTriggerDialog::showPwmOfTimer()
{
    const QSignalBlocker dutyCycleSilence(txtPWMDutyCycle);
    const QSignalBlocker frequencySilence(txtPWMFrequency);
    reverseCalcPWM();
}

// Never switches off: a timer with another trigger may be about to become a PWM.
void AdvTriggerDialog::detectPwm()
{
    if (cmbTimerTriggerSource->currentText() == ownActiveSignal() &&
        cmbTimerTriggerActivation->currentText() == QLatin1String(FallingEdge))
        grpPWM->setChecked(true);
}
