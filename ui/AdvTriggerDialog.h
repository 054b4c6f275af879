#pragma once

#include "trigger/AdvTriggerBase.h"
#include "ui_AdvTriggerDialog.h"

#include <array>

/// The content of the dialog "Advanced Trigger IO": every trigger setting of the camera on a form
/// of folding sections, and a calculator that drives a timer as a pulse-width-modulated output.
///
/// Bound to the camera from construction on, as an engine of its own beside the tab's. Lives as
/// long as the window around it. GUI thread only.
class AdvTriggerDialog : public AdvTriggerBase, private Ui::AdvTriggerDialog
{
    Q_OBJECT

public:
    /// Shares the feature list and shows the preset of that index as selected, without applying it.
    /// Throws TENotSupported for a camera of another vendor, or one that no longer answers.
    AdvTriggerDialog(const ZalCPP::FeatureList& features, int presetIndex, QWidget* parent);

    /// The preset shown as selected, -1 when there is none.
    int getCurrentPresetIndex() const;

public slots:
    /// Says that the settings are no preset's any more. Without a preset of that name nothing
    /// changes.
    void SetCustomPreset() override;

    /// Sets the selected timer to the typed frequency and duty cycle; does nothing unless both are
    /// positive numbers.
    void calculatePWM();
    /// Shows the timer's pulse as frequency and duty cycle while PWM is on.
    void reverseCalcPWM();
    /// Lets the selected timer retrigger itself (on), or forgets what was typed (off).
    void enablePWM(bool on);

    /// Follows the camera's acquisition: while it streams, no preset can be chosen.
    void disableContents(bool streamingIsOn);

protected:
    void updateInit() override;
    void updateColoredControls() override;

private:
    std::array<QLabel*, 4> hints() const;
    void hintAtMissingFeatures();
    void exemptFreeWidgets();
    void bind();
    void inheritPreset(int presetIndex);
    void limitPwmInput();
    void connectPwm();
    std::array<QGridLayout*, 6> grids() const;
    void layOutColumns();
    void foldSections();
    void limitWidthOfSections();
    int widthOfWidestValue() const;

    bool isAnyChanged(std::initializer_list<const char*> features) const;
    QString ownActiveSignal() const;
    void showPwmOfTimer();
    void detectPwm();
};
