#include "ui/AdvTriggerDialog.h"

#include "features/FeatureManager.h"
#include "ui/Hints.h"

#include <QCoreApplication>

AdvTriggerDialog::AdvTriggerDialog(const ZalCPP::FeatureList& features, int presetIndex,
                                   QWidget* parent)
    : AdvTriggerBase(features, parent)
{
    setupUi(this);
    for (QLabel* hint : hints())
        Hints::keepRoomOf(*hint);
    lbl_notAcquireHint->hide();
    hintAtMissingFeatures();
    exemptFreeWidgets();
    bind();
    inheritPreset(presetIndex);
    limitPwmInput();
    connectPwm();
    layOutColumns();
    foldSections();
    connect(chkTooltips, SIGNAL(stateChanged(int)), SLOT(ActivateTooltips(int)));
    RegisterFeatureObserver(false);
}

std::array<QLabel*, 4> AdvTriggerDialog::hints() const
{
    return {lbl_notAcquireHint, lbl_noActionCommandsHint, lbl_noSoftwareSignalHint,
            lbl_noCounterTimerHint};
}

void AdvTriggerDialog::hintAtMissingFeatures()
{
    const auto available = [this](const char* feature) {
        return m_featureManager->GetIsFeatureAvailable(QLatin1String(feature));
    };
    lbl_noActionCommandsHint->setVisible(!available("ActionSelector"));
    lbl_noSoftwareSignalHint->setVisible(!available("SoftwareSignalSelector"));
    lbl_noCounterTimerHint->setVisible(!available("CounterSelector") ||
                                       !available("TimerSelector"));
}

void AdvTriggerDialog::exemptFreeWidgets()
{
    // The other two hints about missing features are left out: the engine touches no labels.
    m_exemptWidgets << QStringLiteral("cmbSelectPreset") << QStringLiteral("txtPWMFrequency")
                    << QStringLiteral("txtPWMDutyCycle") << QStringLiteral("lbl_notAcquireHint")
                    << QStringLiteral("chkTooltips") << QStringLiteral("lbl_noActionCommandsHint");
}

void AdvTriggerDialog::bind()
{
    InitBaseWidgets();
    CreateIOTable(tableWidget);
    SetupSettingsOverview(treeView);
    AdvTriggerDialog::updateColoredControls();
}

// Connected last: the preset that the tab has applied already is shown, not applied again.
void AdvTriggerDialog::inheritPreset(int presetIndex)
{
    LoadPresets(cmbSelectPreset, QCoreApplication::applicationDirPath());
    cmbSelectPreset->setCurrentIndex(presetIndex);
    connect(cmbSelectPreset, SIGNAL(currentIndexChanged(int)), SLOT(OnSelectPreset(int)));
}

int AdvTriggerDialog::getCurrentPresetIndex() const
{
    return cmbSelectPreset->currentIndex();
}

void AdvTriggerDialog::SetCustomPreset()
{
    cmbSelectPreset->setCurrentText(CUSTOM_PRESET);
}

void AdvTriggerDialog::updateInit()
{
    if (m_changedFeatures->isEmpty())
        return;
    UpdateInitBase();
    UpdateInitTable(tableWidget);
    if (isAnyChanged({"TimerDelay", "TimerDuration"}))
        showPwmOfTimer();
    if (isAnyChanged({"TimerSelector", "TimerTriggerSource", "TimerTriggerActivation"}))
        detectPwm();
}

bool AdvTriggerDialog::isAnyChanged(std::initializer_list<const char*> features) const
{
    return std::any_of(features.begin(), features.end(), [this](const char* feature) {
        return m_changedFeatures->contains(QLatin1String(feature));
    });
}

void AdvTriggerDialog::updateColoredControls()
{
    static const QString presetDark =
        QStringLiteral("background-color: rgba(58,147,218,255);border: 1px solid lightblue;");
    static const QString presetLight =
        QStringLiteral("background-color: rgba(192,220,243,255);border: 1px solid lightblue;");

    // As readable as a value has to be, yet not like a field to type into.
    static const QString reported = QStringLiteral(
        "*[reportedValue=\"true\"]:disabled, *[reportedValue=\"true\"] QLineEdit:disabled "
        "{ color: %1 }");
    static const QString reportedDark = reported.arg(QLatin1String("rgb(200,200,200)"));
    static const QString reportedLight = reported.arg(QLatin1String("rgb(85,85,85)"));

    const bool dark = isDarkMode();
    scrollAreaWidgetContents->setStyleSheet(dark ? reportedDark : reportedLight);
    lblSelectPreset->setStyleSheet(dark ? presetDark : presetLight);
    for (QLabel* hint : hints())
        Hints::colour(*hint, dark);
}

void AdvTriggerDialog::disableContents(bool streamingIsOn)
{
    lbl_notAcquireHint->setVisible(streamingIsOn);
    cmbSelectPreset->setEnabled(!streamingIsOn);
}
