#include "ui/AdvTriggerDialog.h"

#include "features/FeatureManager.h"

#include <QCoreApplication>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace {

/// Labels stand in the even columns, what they name beside them.
constexpr int Columns = 4;

/// What the widest item of that column wants, leaving out what spans several columns.
int widthOf(const QGridLayout& grid, int column)
{
    int width = 0;
    for (int i = 0; i < grid.count(); ++i) {
        int row = 0;
        int first = 0;
        int rowSpan = 0;
        int columnSpan = 0;
        grid.getItemPosition(i, &row, &first, &rowSpan, &columnSpan);
        if (first == column && columnSpan == 1)
            width = std::max(width, grid.itemAt(i)->sizeHint().width());
    }
    return width;
}

/// Does what the first show would do: each layout measures its widgets, the innermost first.
void activateLayouts(const QWidget& widget)
{
    const auto children = widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* child : children)
        activateLayouts(*child);
    if (widget.layout())
        widget.layout()->activate();
}

} // namespace

AdvTriggerDialog::AdvTriggerDialog(const ZalCPP::FeatureList& features, int presetIndex,
                                   QWidget* parent)
    : AdvTriggerBase(features, parent)
{
    setupUi(this);
    lbl_notAcquireHint->hide();
    hintAtMissingFeatures();
    exemptFreeWidgets();
    bind();
    inheritPreset(presetIndex);
    limitPwmInput();
    connectPwm();
    alignColumns();
    foldSections();
    connect(chkTooltips, SIGNAL(stateChanged(int)), SLOT(ActivateTooltips(int)));
    RegisterFeatureObserver(false);
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

// The columns of all sections have one width each, measured: it depends on language and font.
void AdvTriggerDialog::alignColumns()
{
    const auto grids = {gridLayout,   gridLayout_2, gridLayout_5,
                        gridLayout_3, gridLayout_6, gridLayout_4};
    int widths[Columns] = {};
    for (int column = 0; column < Columns; ++column) {
        for (const QGridLayout* grid : grids)
            widths[column] = std::max(widths[column], widthOf(*grid, column));
        for (QGridLayout* grid : grids)
            grid->setColumnMinimumWidth(column, widths[column]);
    }
    // One frame deeper than the others.
    gridLayout_4->setColumnMinimumWidth(0, widths[0] - gridLayout_4->contentsMargins().left());
    // This section is a single row; its gap stands where the others have their second labels.
    lblSoftwareSignalSelector->setMinimumWidth(widths[0]);
    horizontalSpacer_2->changeSize(widths[2], 0, QSizePolicy::Fixed);
}

void AdvTriggerDialog::foldSections()
{
    // A section unfolds to the height that it has now, and nothing has been laid out so far.
    scrollAreaWidgetContents->ensurePolished();
    tableWidget->doItemsLayout();
    activateLayouts(*scrollAreaWidgetContents);
    scrollAreaWidgetContents->adjustSize();
    gridLayout_8->setGeometry(scrollAreaWidgetContents->rect());

    widenSections();

    btnConfigureTriggerSources->setContent(frmConfigureTriggerSources);
    btnConfigureInputOutput->setContent(frmConfigureInputOutput);
    btnConfigureAcquisitionMode->setContent(frmConfigureAcquisitionMode);
    btnConfigureCounterTimer->setContent(frmCounterTimer);
    btnConfigureSoftwareSignal->setContent(frmSoftwareSignal);
    btnConfigureActionCommand->setContent(frmActionCommand);
}

// The sections get the width that they need and the overview the rest, as long as the screen has
// enough for both.
void AdvTriggerDialog::widenSections()
{
    const int around =
        scrollArea->verticalScrollBar()->sizeHint().width() + scrollArea->frameWidth() * 2;
    const int needed = scrollAreaWidgetContents->minimumSizeHint().width() + around;
    scrollArea->setMinimumWidth(std::min(needed, screen()->availableSize().width() * 4 / 5));
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
    static const QString lightBlue = QStringLiteral("color: rgba(56,111,251,255);");
    static const QString darkBlue = QStringLiteral("color: rgba(50,95,201,255);");

    const bool dark = isDarkMode();
    lblSelectPreset->setStyleSheet(dark ? presetDark : presetLight);
    for (QLabel* hint : {lbl_notAcquireHint, lbl_noActionCommandsHint, lbl_noSoftwareSignalHint,
                         lbl_noCounterTimerHint})
        hint->setStyleSheet(dark ? lightBlue : darkBlue);
}

void AdvTriggerDialog::disableContents(bool streamingIsOn)
{
    lbl_notAcquireHint->setVisible(streamingIsOn);
    cmbSelectPreset->setEnabled(!streamingIsOn);
}
