// What the two forms hold: names, classes, texts, places and properties of their widgets.
#pragma once

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QFrame>
#include <QLocale>
#include <QSize>
#include <QTreeView>
#include <QVariant>

namespace FormTables {

struct WidgetRow
{
    const char* name;
    const char* kind;
    const char* parent;
    const char* text;          ///< Or the title of a group; empty for none of its own.
    const char* label = "";    ///< Text of the label beside it, which is its buddy.
    const char* labelled = ""; ///< Name of that label, where it is not "lbl" and the feature.
};

struct LayoutRow
{
    const char* name;
    const char* kind;
    const char* items; ///< In order; an ellipsis at the end stands for others, wherever they lie.
};

struct CellRow
{
    const char* item;
    int row;
    int column;
};

struct PropertyRow
{
    const char* name; ///< Of one or more widgets, or of a layout.
    const char* property;
    QVariant value;
};

struct HeaderRow
{
    const char* text;
    const char* toolTip;
};

const char* const Contents = "scrollAreaWidgetContents";
const char* const Viewport = "qt_scrollarea_viewport";
const char* const HintColour = "color : rgb(0, 85, 127);";
const QLocale English(QLocale::English, QLocale::UnitedStates);

const WidgetRow TabWidgets[] = {
    {"scrollArea", "QScrollArea", "AdvTriggerWidget", ""},
    {Contents, "QWidget", Viewport, ""},
    {"lbl_notAcquireHint", "QLabel", Contents,
     "Full Trigger configuration only if camera is not acquiring!"},
    {"cmbSelectPreset", "QComboBox", Contents, "", "Select Preset:"},
    {"chkTooltips", "QCheckBox", Contents, "Tooltips on:"},
    {"grpTrigger", "QGroupBox", Contents, "Configure Trigger:"},
    {"cmbTriggerSource", "QComboBox", "grpTrigger", "", "Source:"},
    {"cmbTriggerActivation", "QComboBox", "grpTrigger", "", "Activation:"},
    {"cmbTriggerSelector", "QComboBox", "grpTrigger", "", "Selector:"},
    {"cmbTriggerMode", "QComboBox", "grpTrigger", "", "Mode:"},
    {"spbTriggerDelay", "QDoubleSpinBox", "grpTrigger", "0.00", "Delay (\u00B5s):"},
    {"btnTriggerSoftware", "QPushButton", "grpTrigger", "Execute SW Trigger"},
    {"grpAdvancedDialog", "QGroupBox", Contents, "Configure Advanced Trigger Features:"},
    {"label", "QLabel", "grpAdvancedDialog",
     "<html><head/><body><p align=\"right\">Acquisition Mode, Action Command,</p>"
     "<p align=\"right\">Counters and Timers:</p></body></html>"},
    {"btnAdvancedDialog", "QPushButton", "grpAdvancedDialog", "Open dialog"},
    {"grpInputOutput", "QGroupBox", Contents, "Configure inputs and outputs:"},
    {"tableWidget", "QTableWidget", "grpInputOutput", ""},
    {"btnTriggerFeaturesStatus", "CollapsingButton", Contents, " Show Trigger Features Status:"},
    {"frmTriggerFeaturesStatus", "QFrame", Contents, ""},
    {"treeView", "QTreeView", "frmTriggerFeaturesStatus", ""},
};

const LayoutRow TabLayouts[] = {
    {"verticalLayout_2", "QVBoxLayout", "scrollArea"},
    {"verticalLayout", "QVBoxLayout",
     "lbl_notAcquireHint horizontalLayout_2 grpTrigger grpAdvancedDialog grpInputOutput "
     "btnTriggerFeaturesStatus frmTriggerFeaturesStatus vertical-spacer"},
    {"horizontalLayout_2", "QHBoxLayout",
     "lblSelectPreset cmbSelectPreset chkTooltips horizontal-spacer"},
    {"horizontalLayout", "QHBoxLayout", "label horizontal-spacer btnAdvancedDialog"},
    {"horizontalLayout_5", "QHBoxLayout", "tableWidget"},
    {"horizontalLayout_4", "QHBoxLayout", "treeView"},
};

/// The whole of the group's grid.
const CellRow TabGrid[] = {
    {"lblTriggerSource", 0, 0},     {"cmbTriggerSource", 0, 1},   {"lblTriggerActivation", 0, 3},
    {"cmbTriggerActivation", 0, 4}, {"lblTriggerSelector", 1, 0}, {"cmbTriggerSelector", 1, 1},
    {"horizontal-spacer", 1, 2},    {"lblTriggerMode", 1, 3},     {"cmbTriggerMode", 1, 4},
    {"lblTriggerDelay", 2, 0},      {"spbTriggerDelay", 2, 1},    {"btnTriggerSoftware", 2, 4},
};

const PropertyRow TabProperties[] = {
    {"AdvTriggerWidget", "windowTitle", "Form"},
    {"AdvTriggerWidget", "minimumWidth", 350},
    {"AdvTriggerWidget", "size", QSize(517, 747)},
    {"AdvTriggerWidget spbTriggerDelay", "locale", English},
    {"verticalLayout_2", "spacing", 50},
    {"scrollArea", "widgetResizable", true},
    {"lbl_notAcquireHint", "styleSheet", HintColour},
    {"lbl_notAcquireHint", "alignment", int(Qt::AlignCenter)},
    {"lbl_notAcquireHint", "wordWrap", true},
    {"cmbSelectPreset", "count", 0},
    {"chkTooltips", "layoutDirection", int(Qt::RightToLeft)},
    {"chkTooltips", "checked", false},
    {"grpTrigger", "alignment", int(Qt::AlignLeft | Qt::AlignTop)},
    // A number half typed is no edit: written at once, it would come back as the whole text.
    {"spbTriggerDelay", "keyboardTracking", false},
    {"tableWidget", "rowCount", 2},
    {"tableWidget", "columnCount", 4},
    {"tableWidget", "minimumSize", QSize(290, 128)},
    {"tableWidget", "maximumSize", QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX)},
    {"tableWidget treeView", "sizeAdjustPolicy", int(QAbstractScrollArea::AdjustToContents)},
    {"tableWidget", "cornerButtonEnabled", false},
    {"btnTriggerFeaturesStatus", "styleSheet", ""},
    {"btnTriggerFeaturesStatus", "checkable", true},
    {"btnTriggerFeaturesStatus", "checked", false},
    {"btnTriggerFeaturesStatus", "toolButtonStyle", int(Qt::ToolButtonTextBesideIcon)},
    {"btnTriggerFeaturesStatus", "arrowType", int(Qt::RightArrow)},
    {"frmTriggerFeaturesStatus", "frameShape", int(QFrame::StyledPanel)},
    {"frmTriggerFeaturesStatus", "frameShadow", int(QFrame::Raised)},
    {"treeView", "minimumHeight", 64},
    {"treeView", "editTriggers", int(QAbstractItemView::NoEditTriggers)},
    {"treeView", "headerHidden", true},
    {"cmbSelectPreset cmbTriggerSource cmbTriggerActivation cmbTriggerSelector cmbTriggerMode",
     "sizeAdjustPolicy", int(QComboBox::AdjustToContents)},
};

const HeaderRow TabHeaders[] = {
    {"I/O Mode", "LineMode"},
    {"Invert", "LineInverter"},
    {"I/O Line Source", "LineSource"},
    {"Status", "LineStatus"},
};

const char* const TabReadingOrder =
    "cmbSelectPreset chkTooltips cmbTriggerSource cmbTriggerActivation cmbTriggerSelector "
    "cmbTriggerMode spbTriggerDelay btnTriggerSoftware btnAdvancedDialog tableWidget "
    "btnTriggerFeaturesStatus treeView";

const WidgetRow DialogWidgets[] = {
    {"scrollArea", "QScrollArea", "AdvTriggerDialog", ""},
    {"scrollArea_2", "QScrollArea", "AdvTriggerDialog", ""},
    {Contents, "QWidget", Viewport, ""},
    {"scrollAreaWidgetContents_2", "QWidget", Viewport, ""},
    {"treeView", "QTreeView", "scrollAreaWidgetContents_2", "",
     "Trigger Features Status:", "label_3"},
    {"lbl_notAcquireHint", "QLabel", Contents,
     "Full Trigger configuration only if camera is not acquiring!"},
    {"cmbSelectPreset", "QComboBox", Contents, "", "1. Select Preset:"},
    {"chkTooltips", "QCheckBox", Contents, "Tooltips on:"},

    {"btnConfigureTriggerSources", "CollapsingButton", Contents,
     " 2. Configure trigger input sources:"},
    {"frmConfigureTriggerSources", "QFrame", Contents, ""},
    {"cmbTriggerSelector", "QComboBox", "frmConfigureTriggerSources", "", "Selector:"},
    {"cmbTriggerMode", "QComboBox", "frmConfigureTriggerSources", "", "Mode:"},
    {"cmbTriggerSource", "QComboBox", "frmConfigureTriggerSources", "", "Source:"},
    {"cmbTriggerActivation", "QComboBox", "frmConfigureTriggerSources", "", "Activation:"},
    {"spbTriggerDelay", "QDoubleSpinBox", "frmConfigureTriggerSources", "", "Delay (\u00B5s):"},
    {"btnTriggerSoftware", "QPushButton", "frmConfigureTriggerSources", "Execute SW Trigger"},

    {"btnConfigureInputOutput", "CollapsingButton", Contents, " 3. Configure inputs and outputs:"},
    {"frmConfigureInputOutput", "QFrame", Contents, ""},
    {"tableWidget", "QTableWidget", "frmConfigureInputOutput", ""},

    {"btnConfigureAcquisitionMode", "CollapsingButton", Contents,
     " 4. Configure acquisition mode and exposure mode:"},
    {"frmConfigureAcquisitionMode", "QFrame", Contents, ""},
    {"cmbAcquisitionMode", "QComboBox", "frmConfigureAcquisitionMode", "", "Acquisition Mode:"},
    {"cmbExposureMode", "QComboBox", "frmConfigureAcquisitionMode", "", "Exposure Mode:"},
    {"spbAcquisitionFrameCount", "QSpinBox", "frmConfigureAcquisitionMode", "", "Frame Count:"},
    {"line_6", "QFrame", "frmConfigureAcquisitionMode", ""},

    {"btnConfigureActionCommand", "CollapsingButton", Contents, " Configure Action Command:"},
    {"lbl_noActionCommandsHint", "QLabel", Contents,
     "Action Control features are not available in the camera."},
    {"frmActionCommand", "QFrame", Contents, ""},
    {"spbActionSelector", "QSpinBox", "frmActionCommand", "", "Action Selector:"},
    {"txtActionDeviceKey", "QLineEdit", "frmActionCommand", "", "Device Key (write-only):"},
    {"txtActionGroupKey", "QLineEdit", "frmActionCommand", "", "Group Key:"},
    {"txtActionGroupMask", "QLineEdit", "frmActionCommand", "", "Group Mask:"},
    {"txtActionQueueSize", "QLineEdit", "frmActionCommand", "", "Queue Size:"},
    {"line_4", "QFrame", "frmActionCommand", ""},
    {"chkPtpEnable", "QCheckBox", "frmActionCommand", "PTP Enable"},
    {"cmbPtpOperationMode", "QComboBox", "frmActionCommand", "", "PTP Operation Mode:"},
    {"txtPtpStatus", "QLineEdit", "frmActionCommand", "", "PTP Status:"},
    {"txtPtpServoStatus", "QLineEdit", "frmActionCommand", "", "PTP Servo Status:"},
    {"txtPtpClockID", "QLineEdit", "frmActionCommand", "", "PTP Clock ID:"},
    {"txtPtpParentClockID", "QLineEdit", "frmActionCommand", "", "PTP ParentClock ID:"},
    {"txtPtpGrandmasterClockID", "QLineEdit", "frmActionCommand", "", "PTP Grandmaster Clock ID:"},
    {"txtPtpClockAccuracy", "QLineEdit", "frmActionCommand", "", "PTP Clock Accuracy:"},
    {"txtPtpOffsetFromMaster", "QLineEdit", "frmActionCommand", "", "PTP Offset from master: "},
    {"btnPtpDataSetLatch", "QPushButton", "frmActionCommand", "PTP Data Set Latch"},
    {"line_5", "QFrame", "frmActionCommand", ""},
    {"btnTimestampLatch", "QPushButton", "frmActionCommand", "Timestamp Latch"},
    {"txtTimestampLatchValue", "QLineEdit", "frmActionCommand", "", "Timestamp Latch Value:"},

    {"btnConfigureSoftwareSignal", "CollapsingButton", Contents, " Configure Software Signal:"},
    {"lbl_noSoftwareSignalHint", "QLabel", Contents,
     "Software Signal Control features are not available in the camera."},
    {"frmSoftwareSignal", "QFrame", Contents, ""},
    {"cmbSoftwareSignalSelector", "QComboBox", "frmSoftwareSignal", "", "Signal Selector:"},
    {"btnSoftwareSignalPulse", "QPushButton", "frmSoftwareSignal", "Execute Signal Pulse"},

    {"btnConfigureCounterTimer", "CollapsingButton", Contents, " Configure Counter and Timer:"},
    {"lbl_noCounterTimerHint", "QLabel", Contents,
     "Counter and Timer features are not available in the camera."},
    {"frmCounterTimer", "QFrame", Contents, ""},
    {"grpCounter", "QGroupBox", "frmCounterTimer", "Counter"},
    {"cmbCounterSelector", "QComboBox", "grpCounter", "", "Selector:"},
    {"cmbCounterEventSource", "QComboBox", "grpCounter", "", "Event Source:"},
    {"cmbCounterEventActivation", "QComboBox", "grpCounter", "", "Activation:"},
    {"spbCounterDuration", "QDoubleSpinBox", "grpCounter", "", "Duration:"},
    {"spbCounterValue", "QDoubleSpinBox", "grpCounter", "", "Value:"},
    {"line_3", "QFrame", "grpCounter", ""},
    {"label_2", "QLabel", "grpCounter", "Optional"},
    {"line", "QFrame", "grpCounter", ""},
    {"cmbCounterTriggerSource", "QComboBox", "grpCounter", "", "Trigger Source:"},
    {"cmbCounterTriggerActivation", "QComboBox", "grpCounter", "", "T. Activation:"},
    {"cmbCounterResetSource", "QComboBox", "grpCounter", "", "Reset Source:"},
    {"cmbCounterResetActivation", "QComboBox", "grpCounter", "", "R. Activation:"},
    {"line_2", "QFrame", "grpCounter", ""},
    {"txtCounterStatus", "QLineEdit", "grpCounter", "", "Counter Status:"},
    {"txtCounterValueAtReset", "QLineEdit", "grpCounter", "", "Counter Value at Reset:"},
    {"btnCounterReset", "QPushButton", "grpCounter", "Execute Reset"},
    {"groupBox", "QGroupBox", "frmCounterTimer", "Timer"},
    {"cmbTimerSelector", "QComboBox", "groupBox", "", "Selector:"},
    {"spbTimerDuration", "QDoubleSpinBox", "groupBox", "", "Duration (\u00B5s):"},
    {"spbTimerDelay", "QDoubleSpinBox", "groupBox", "", "Delay (\u00B5s):"},
    {"cmbTimerTriggerSource", "QComboBox", "groupBox", "", "Trigger Source:"},
    {"cmbTimerTriggerActivation", "QComboBox", "groupBox", "", "T. Activation:"},
    {"txtTimerStatus", "QLineEdit", "groupBox", "", "Timer Status:"},
    {"btnTimerReset", "QPushButton", "groupBox", "Execute Reset"},
    {"grpPWM", "QGroupBox", "groupBox", "PWM:"},
    {"txtPWMFrequency", "QLineEdit", "grpPWM", "", "Frequency (Hz):"},
    {"txtPWMDutyCycle", "QLineEdit", "grpPWM", "", "Duty Cycle (%):", "label"},
};

const LayoutRow DialogLayouts[] = {
    {"horizontalLayout_2", "QHBoxLayout", "scrollArea scrollArea_2"},
    {"gridLayout_8", "QGridLayout",
     "lbl_notAcquireHint btnConfigureTriggerSources frmConfigureTriggerSources "
     "btnConfigureInputOutput frmConfigureInputOutput btnConfigureAcquisitionMode "
     "frmConfigureAcquisitionMode frmActionCommand frmSoftwareSignal frmCounterTimer ..."},
    {"verticalLayout_4", "QVBoxLayout", "label_3 treeView"},
    {"horizontalLayout", "QHBoxLayout",
     "lblSelectPreset cmbSelectPreset chkTooltips horizontal-spacer"},
    {"gridLayout", "QGridLayout",
     "lblTriggerSelector cmbTriggerSelector cmbTriggerMode cmbTriggerSource cmbTriggerActivation "
     "spbTriggerDelay btnTriggerSoftware ..."},
    {"horizontalLayout_3", "QHBoxLayout", "tableWidget"},
    {"gridLayout_2", "QGridLayout", "lblAcquisitionMode cmbAcquisitionMode line_6 ..."},
    {"horizontalLayout_5", "QHBoxLayout", "spbAcquisitionFrameCount"},
    {"gridLayout_7", "QGridLayout", "btnConfigureActionCommand lbl_noActionCommandsHint"},
    {"gridLayout_5", "QGridLayout", "lblPtpStatus txtPtpStatus line_4 line_5 ..."},
    {"horizontalLayout_9", "QHBoxLayout",
     "btnConfigureSoftwareSignal lbl_noSoftwareSignalHint horizontal-spacer"},
    {"horizontalLayout_6", "QHBoxLayout", "cmbSoftwareSignalSelector btnSoftwareSignalPulse ..."},
    {"horizontalLayout_8", "QHBoxLayout",
     "btnConfigureCounterTimer lbl_noCounterTimerHint horizontal-spacer"},
    {"verticalLayout_2", "QVBoxLayout", "grpCounter groupBox"},
    {"gridLayout_3", "QGridLayout", "lblCounterSelector cmbCounterSelector line_2 ..."},
    {"horizontalLayout_4", "QHBoxLayout", "btnCounterReset"},
    {"gridLayout_6", "QGridLayout", "lblTimerSelector cmbTimerSelector grpPWM ..."},
    {"horizontalLayout_7", "QHBoxLayout", "btnTimerReset"},
    {"gridLayout_4", "QGridLayout", "lblPWMFrequency txtPWMFrequency label txtPWMDutyCycle ..."},
};

const char* const Sections = "btnConfigureTriggerSources btnConfigureInputOutput "
                             "btnConfigureAcquisitionMode btnConfigureActionCommand "
                             "btnConfigureSoftwareSignal btnConfigureCounterTimer";
const char* const SectionContents =
    "frmConfigureTriggerSources frmConfigureInputOutput frmConfigureAcquisitionMode "
    "frmActionCommand frmSoftwareSignal frmCounterTimer";
const char* const Numbers = "spbTriggerDelay spbCounterDuration spbCounterValue spbTimerDuration "
                            "spbTimerDelay spbAcquisitionFrameCount spbActionSelector";
const char* const Buttons = "btnTriggerSoftware btnPtpDataSetLatch btnTimestampLatch "
                            "btnSoftwareSignalPulse btnCounterReset btnTimerReset";

const PropertyRow DialogProperties[] = {
    {"AdvTriggerDialog", "windowTitle", "Advanced Trigger IO"},
    {"scrollArea scrollArea_2", "widgetResizable", true},
    {"chkTooltips", "checked", false},
    {"chkTooltips", "layoutDirection", int(Qt::RightToLeft)},
    {"lbl_notAcquireHint", "wordWrap", true},
    {"tableWidget", "columnCount", 6},
    {"tableWidget", "cornerButtonEnabled", false},
    {"treeView", "headerHidden", true},
    {"treeView", "editTriggers", int(QAbstractItemView::NoEditTriggers)},
    {"line line_2 line_3 line_4 line_5 line_6", "frameShape", int(QFrame::HLine)},
    {Sections, "styleSheet", "background:none"},
    {Sections, "toolButtonStyle", int(Qt::ToolButtonTextBesideIcon)},
    {Sections, "checkable", true},
    {Sections, "checked", false},
    {Sections, "arrowType", int(Qt::RightArrow)},
    {SectionContents, "maximumHeight", 0},
    // A number half typed is no edit: written at once, it would come back as the whole text.
    {Numbers, "keyboardTracking", false},
    {Numbers, "locale", English},
    {"spbTriggerDelay spbCounterDuration spbCounterValue spbTimerDuration spbTimerDelay",
     "decimals", 2},
    // In a dialog the return key would press one of them.
    {Buttons, "autoDefault", false},
    {Buttons, "default", false},
    {"grpPWM", "checkable", true},
    {"grpPWM", "checked", false},
    {"txtPWMFrequency txtPWMDutyCycle", "text", ""},
    {"txtPWMFrequency txtPWMDutyCycle", "enabled", false},
};

/// Of the bare form: the dialog colours its hints for the palette at once.
const PropertyRow BareDialogProperties[] = {
    {"lbl_notAcquireHint lbl_noActionCommandsHint lbl_noSoftwareSignalHint lbl_noCounterTimerHint",
     "styleSheet", HintColour},
};

const HeaderRow DialogHeaders[] = {
    {"I/O Mode", "LineMode"},
    {"Invert", "LineInverter"},
    {"I/O Line Source", "LineSource"},
    {"Status", "LineStatus"},
    {"Debounce\nMode", "LineDebounceMode"},
    {"Debounce\nDuration (\u00B5s)", "LineDebounceDuration"},
};

const char* const DialogReadingOrder =
    "cmbSelectPreset chkTooltips "
    "btnConfigureTriggerSources cmbTriggerSelector cmbTriggerMode cmbTriggerSource "
    "cmbTriggerActivation spbTriggerDelay btnTriggerSoftware "
    "btnConfigureInputOutput tableWidget "
    "btnConfigureAcquisitionMode cmbAcquisitionMode spbAcquisitionFrameCount cmbExposureMode "
    "btnConfigureActionCommand spbActionSelector txtActionDeviceKey txtActionGroupKey "
    "txtActionGroupMask txtActionQueueSize chkPtpEnable cmbPtpOperationMode txtPtpStatus "
    "txtPtpServoStatus txtPtpClockID txtPtpParentClockID txtPtpGrandmasterClockID "
    "txtPtpClockAccuracy txtPtpOffsetFromMaster btnPtpDataSetLatch btnTimestampLatch "
    "txtTimestampLatchValue "
    "btnConfigureSoftwareSignal cmbSoftwareSignalSelector btnSoftwareSignalPulse "
    "btnConfigureCounterTimer cmbCounterSelector cmbCounterEventSource cmbCounterEventActivation "
    "spbCounterDuration spbCounterValue cmbCounterTriggerSource cmbCounterTriggerActivation "
    "cmbCounterResetSource cmbCounterResetActivation txtCounterStatus txtCounterValueAtReset "
    "btnCounterReset cmbTimerSelector spbTimerDuration spbTimerDelay cmbTimerTriggerSource "
    "cmbTimerTriggerActivation txtTimerStatus btnTimerReset grpPWM txtPWMFrequency "
    "txtPWMDutyCycle treeView";

} // namespace FormTables
