// The dialog's form as built on a camera that has everything: sections, names, kinds and texts.
#include "tests/ui/DialogUnderTest.h"
#include "widgets/CollapsingButton.h"

#include <QHeaderView>
#include <QTranslator>

namespace {

const char* const Microseconds = "(\xC2\xB5s)";

/// Marks every text that it translates with the context in which the text was asked for.
class ContextMarker : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                      int /*n*/) const override
    {
        return QLatin1String(context) + QLatin1Char('|') + QString::fromUtf8(text);
    }
};

/// Text of what carries one, or the title of a group.
QString textOf(const QWidget* widget)
{
    const QVariant title = widget->property("title");
    return title.isValid() ? title.toString() : widget->property("text").toString();
}

/// Adds rows to the table of the form; `within` is the container of the rows to come.
class Rows
{
public:
    Rows()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("within");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("labelText");
    }

    const char* within = "scrollAreaWidgetContents";

    void plain(const char* name, const char* kind, const QString& text = QString()) const
    {
        add(name, kind, text, QString(), QString());
    }
    /// A field with its label, which is named after the feature.
    void field(const char* name, const QString& labelText, const char* kind = nullptr) const
    {
        const QString label = "lbl" + QString(name).mid(3);
        add(name, kind ? QString(kind) : kindOf(name), QString(), label, labelText);
    }
    void add(const char* name, const QString& kind, const QString& text, const QString& label,
             const QString& labelText) const
    {
        QTest::newRow(name) << kind << QString(within) << text << label << labelText;
    }

private:
    static QString kindOf(const QString& name)
    {
        const QMap<QString, QString> kinds = {
            {"cmb", "QComboBox"}, {"spb", "QDoubleSpinBox"}, {"txt", "QLineEdit"}};
        return kinds.value(name.left(3));
    }
};

void addHeader(Rows& rows)
{
    rows.within = "AdvTriggerDialog";
    rows.plain("scrollArea", "QScrollArea");
    rows.plain("scrollArea_2", "QScrollArea");
    rows.within = "scrollArea";
    rows.plain("scrollAreaWidgetContents", "QWidget");
    rows.within = "scrollArea_2";
    rows.plain("scrollAreaWidgetContents_2", "QWidget");
    rows.within = "scrollAreaWidgetContents_2";
    rows.plain("label_3", "QLabel", "Trigger Features Status:");
    rows.plain("treeView", "QTreeView");
    rows.within = "scrollAreaWidgetContents";
    rows.plain("lbl_notAcquireHint", "QLabel",
               "Full Trigger configuration only if camera is not acquiring!");
    rows.field("cmbSelectPreset", "1. Select Preset:");
    rows.plain("chkTooltips", "QCheckBox", "Tooltips on:");
}

void addSections(Rows& rows)
{
    const char* kind = "CollapsingButton";
    rows.plain("btnConfigureTriggerSources", kind, " 2. Configure trigger input sources:");
    rows.plain("btnConfigureInputOutput", kind, " 3. Configure inputs and outputs:");
    rows.plain("btnConfigureAcquisitionMode", kind,
               " 4. Configure acquisition mode and exposure mode:");
    rows.plain("btnConfigureActionCommand", kind, " Configure Action Command:");
    rows.plain("lbl_noActionCommandsHint", "QLabel",
               "Action Control features are not available in the camera.");
    rows.plain("btnConfigureSoftwareSignal", kind, " Configure Software Signal:");
    rows.plain("lbl_noSoftwareSignalHint", "QLabel",
               "Software Signal Control features are not available in the camera.");
    rows.plain("btnConfigureCounterTimer", kind, " Configure Counter and Timer:");
    rows.plain("lbl_noCounterTimerHint", "QLabel",
               "Counter and Timer features are not available in the camera.");
    for (const char* content :
         {"frmConfigureTriggerSources", "frmConfigureInputOutput", "frmConfigureAcquisitionMode",
          "frmActionCommand", "frmSoftwareSignal", "frmCounterTimer"})
        rows.plain(content, "QFrame");
}

void addTriggerLinesAndAcquisition(Rows& rows)
{
    rows.within = "frmConfigureTriggerSources";
    rows.field("cmbTriggerSelector", "Selector:");
    rows.field("cmbTriggerMode", "Mode:");
    rows.field("cmbTriggerSource", "Source:");
    rows.field("cmbTriggerActivation", "Activation:");
    rows.field("spbTriggerDelay", QString::fromUtf8("Delay %1:").arg(Microseconds));
    rows.plain("btnTriggerSoftware", "QPushButton", "Execute SW Trigger");
    rows.within = "frmConfigureInputOutput";
    rows.plain("tableWidget", "QTableWidget");
    rows.within = "frmConfigureAcquisitionMode";
    rows.field("cmbAcquisitionMode", "Acquisition Mode:");
    rows.field("cmbExposureMode", "Exposure Mode:");
    rows.field("spbAcquisitionFrameCount", "Frame Count:", "QSpinBox");
    rows.plain("line_6", "QFrame");
    rows.within = "frmSoftwareSignal";
    rows.field("cmbSoftwareSignalSelector", "Signal Selector:");
    rows.plain("btnSoftwareSignalPulse", "QPushButton", "Execute Signal Pulse");
}

void addActionCommand(Rows& rows)
{
    rows.within = "frmActionCommand";
    rows.field("spbActionSelector", "Action Selector:", "QSpinBox");
    rows.field("txtActionDeviceKey", "Device Key (write-only):");
    rows.field("txtActionGroupKey", "Group Key:");
    rows.field("txtActionGroupMask", "Group Mask:");
    rows.field("txtActionQueueSize", "Queue Size:");
    rows.plain("line_4", "QFrame");
    rows.plain("chkPtpEnable", "QCheckBox", "PTP Enable");
    rows.field("cmbPtpOperationMode", "PTP Operation Mode:");
    rows.field("txtPtpStatus", "PTP Status:");
    rows.field("txtPtpServoStatus", "PTP Servo Status:");
    rows.field("txtPtpClockID", "PTP Clock ID:");
    rows.field("txtPtpParentClockID", "PTP ParentClock ID:");
    rows.field("txtPtpGrandmasterClockID", "PTP Grandmaster Clock ID:");
    rows.field("txtPtpClockAccuracy", "PTP Clock Accuracy:");
    rows.field("txtPtpOffsetFromMaster", "PTP Offset from master: ");
    rows.plain("btnPtpDataSetLatch", "QPushButton", "PTP Data Set Latch");
    rows.plain("line_5", "QFrame");
    rows.plain("btnTimestampLatch", "QPushButton", "Timestamp Latch");
    rows.field("txtTimestampLatchValue", "Timestamp Latch Value:");
}

void addCounter(Rows& rows)
{
    rows.within = "frmCounterTimer";
    rows.plain("grpCounter", "QGroupBox", "Counter");
    rows.plain("groupBox", "QGroupBox", "Timer");
    rows.within = "grpCounter";
    rows.field("cmbCounterSelector", "Selector:");
    rows.field("cmbCounterEventSource", "Event Source:");
    rows.field("cmbCounterEventActivation", "Activation:");
    rows.field("spbCounterDuration", "Duration:");
    rows.field("spbCounterValue", "Value:");
    rows.plain("line_3", "QFrame");
    rows.plain("line", "QFrame");
    rows.plain("label_2", "QLabel", "Optional");
    rows.field("cmbCounterTriggerSource", "Trigger Source:");
    rows.field("cmbCounterTriggerActivation", "T. Activation:");
    rows.field("cmbCounterResetSource", "Reset Source:");
    rows.field("cmbCounterResetActivation", "R. Activation:");
    rows.plain("line_2", "QFrame");
    rows.field("txtCounterStatus", "Counter Status:");
    rows.field("txtCounterValueAtReset", "Counter Value at Reset:");
    rows.plain("btnCounterReset", "QPushButton", "Execute Reset");
}

void addTimer(Rows& rows)
{
    rows.within = "groupBox";
    rows.field("cmbTimerSelector", "Selector:");
    rows.field("spbTimerDuration", QString::fromUtf8("Duration %1:").arg(Microseconds));
    rows.field("spbTimerDelay", QString::fromUtf8("Delay %1:").arg(Microseconds));
    rows.field("cmbTimerTriggerSource", "Trigger Source:");
    rows.field("cmbTimerTriggerActivation", "T. Activation:");
    rows.field("txtTimerStatus", "Timer Status:");
    rows.plain("btnTimerReset", "QPushButton", "Execute Reset");
    rows.plain("grpPWM", "QGroupBox", "PWM:");
    rows.within = "grpPWM";
    rows.field("txtPWMFrequency", "Frequency (Hz):");
    rows.add("txtPWMDutyCycle", "QLineEdit", QString(), "label", "Duty Cycle (%):");
}

} // namespace

class tst_AdvTriggerDialogForm : public QObject
{
    Q_OBJECT

private slots:
    void hasTheWidget_data();
    void hasTheWidget();
    void widgetLiesInTheLayout_data();
    void widgetLiesInTheLayout();
    void widgetHasProperty_data();
    void widgetHasProperty();
    void hintsHaveTheFormsColour_data();
    void hintsHaveTheFormsColour();
    void tableHasHeader_data();
    void tableHasHeader();
    void sectionButtonsKeepTheStyleOfTheirClass_data();
    void sectionButtonsKeepTheStyleOfTheirClass();
    void numbersAreTypedWholeAndHaveTwoDecimals_data();
    void numbersAreTypedWholeAndHaveTwoDecimals();
    void noButtonTakesTheReturnKey_data();
    void noButtonTakesTheReturnKey();
    void pwmStartsOffAndEmpty();
    void rootIsNamedAndTitled();
    void textsAreTranslatedInTheDialogsContext();

private:
    PresetsFile presets{PresetsFile::fourPresets()};
    DialogOnCamera built;
};

void tst_AdvTriggerDialogForm::hasTheWidget_data()
{
    Rows rows;
    addHeader(rows);
    addSections(rows);
    addTriggerLinesAndAcquisition(rows);
    addActionCommand(rows);
    addCounter(rows);
    addTimer(rows);
}

void tst_AdvTriggerDialogForm::hasTheWidget()
{
    QFETCH(QString, kind);
    QFETCH(QString, within);
    QFETCH(QString, text);
    QFETCH(QString, label);
    QFETCH(QString, labelText);
    const QWidget* widget = built.find(QTest::currentDataTag());
    QCOMPARE(QString(widget->metaObject()->className()), kind);
    if (within != "AdvTriggerDialog")
        QVERIFY(built.find(within)->isAncestorOf(widget));
    if (!text.isEmpty())
        QCOMPARE(textOf(widget), text);
    if (label.isEmpty())
        return;
    const auto* labelWidget = built.find<QLabel>(label);
    QCOMPARE(labelWidget->text(), labelText);
    QCOMPARE(labelWidget->parentWidget(), widget->parentWidget());
    QCOMPARE(labelWidget->buddy(), widget);
}

void tst_AdvTriggerDialogForm::widgetLiesInTheLayout_data()
{
    QTest::addColumn<QString>("layout");
    const auto row = [](const char* layout, const QStringList& widgets) {
        for (const QString& widget : widgets)
            QTest::newRow(qPrintable(widget)) << QString(layout);
    };
    row("horizontalLayout_2", {"scrollArea", "scrollArea_2"});
    row("gridLayout_8",
        {"lbl_notAcquireHint", "btnConfigureTriggerSources", "frmConfigureTriggerSources",
         "btnConfigureInputOutput", "frmConfigureInputOutput", "btnConfigureAcquisitionMode",
         "frmConfigureAcquisitionMode", "frmActionCommand", "frmSoftwareSignal",
         "frmCounterTimer"});
    row("verticalLayout_4", {"label_3", "treeView"});
    row("horizontalLayout", {"lblSelectPreset", "cmbSelectPreset"});
    row("gridLayout", {"lblTriggerSelector", "cmbTriggerSelector", "btnTriggerSoftware"});
    row("horizontalLayout_3", {"tableWidget"});
    row("gridLayout_2", {"lblAcquisitionMode", "cmbAcquisitionMode", "line_6"});
    row("horizontalLayout_5", {"spbAcquisitionFrameCount"});
    row("gridLayout_7", {"btnConfigureActionCommand", "lbl_noActionCommandsHint"});
    row("gridLayout_5", {"lblPtpStatus", "txtPtpStatus", "line_4", "line_5"});
    row("horizontalLayout_9", {"btnConfigureSoftwareSignal", "lbl_noSoftwareSignalHint"});
    row("horizontalLayout_6", {"cmbSoftwareSignalSelector", "btnSoftwareSignalPulse"});
    row("horizontalLayout_8", {"btnConfigureCounterTimer", "lbl_noCounterTimerHint"});
    row("verticalLayout_2", {"grpCounter", "groupBox"});
    row("gridLayout_3", {"lblCounterSelector", "cmbCounterSelector", "line_2"});
    row("horizontalLayout_4", {"btnCounterReset"});
    row("gridLayout_6", {"lblTimerSelector", "cmbTimerSelector", "grpPWM"});
    row("horizontalLayout_7", {"btnTimerReset"});
    row("gridLayout_4", {"lblPWMFrequency", "txtPWMFrequency", "label", "txtPWMDutyCycle"});
}

void tst_AdvTriggerDialogForm::widgetLiesInTheLayout()
{
    QFETCH(QString, layout);
    const auto* found = built.content->findChild<QLayout*>(layout);
    QVERIFY(found != nullptr);
    QVERIFY(found->indexOf(built.find(QTest::currentDataTag())) >= 0);
}

void tst_AdvTriggerDialogForm::widgetHasProperty_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char* name, const char* property, const QVariant& value) {
        QTest::addRow("%s %s", name, property) << QString(name) << QString(property) << value;
    };
    row("scrollArea", "widgetResizable", true);
    row("scrollArea_2", "widgetResizable", true);
    row("chkTooltips", "checked", false);
    row("chkTooltips", "layoutDirection", int(Qt::RightToLeft));
    row("lbl_notAcquireHint", "wordWrap", true);
    row("tableWidget", "columnCount", 6);
    row("tableWidget", "cornerButtonEnabled", false);
    row("treeView", "headerHidden", true);
    row("treeView", "editTriggers", int(QAbstractItemView::NoEditTriggers));
    row("grpPWM", "checkable", true);
    for (const char* line : {"line", "line_2", "line_3", "line_4", "line_5", "line_6"})
        row(line, "frameShape", int(QFrame::HLine));
}

void tst_AdvTriggerDialogForm::widgetHasProperty()
{
    QFETCH(QString, name);
    QFETCH(QString, property);
    QFETCH(QVariant, value);
    QVariant actual = built.find(name)->property(property.toLatin1());
    QVERIFY(actual.isValid());
    if (value.type() == QVariant::Int)
        actual = actual.toInt();
    QCOMPARE(actual, value);
}

void tst_AdvTriggerDialogForm::hintsHaveTheFormsColour_data()
{
    QTest::addColumn<bool>("unused");
    for (const char* name : {"lbl_notAcquireHint", "lbl_noActionCommandsHint",
                             "lbl_noSoftwareSignalHint", "lbl_noCounterTimerHint"})
        QTest::newRow(name) << true;
}

void tst_AdvTriggerDialogForm::hintsHaveTheFormsColour()
{
    // The bare form: the dialog colours them for the palette at once.
    QWidget root;
    Ui::AdvTriggerDialog form;
    form.setupUi(&root);
    const auto* hint = root.findChild<QLabel*>(QTest::currentDataTag());
    QCOMPARE(hint->styleSheet(), QString("color : rgb(0, 85, 127);"));
}

void tst_AdvTriggerDialogForm::tableHasHeader_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("I/O Mode") << 0 << "LineMode";
    QTest::newRow("Invert") << 1 << "LineInverter";
    QTest::newRow("I/O Line Source") << 2 << "LineSource";
    QTest::newRow("Status") << 3 << "LineStatus";
    QTest::newRow("Debounce\nMode") << 4 << "LineDebounceMode";
    QTest::newRow("Debounce\nDuration (\xC2\xB5s)") << 5 << "LineDebounceDuration";
}

void tst_AdvTriggerDialogForm::tableHasHeader()
{
    QFETCH(int, column);
    QFETCH(QString, toolTip);
    const auto* header = built.find<QTableWidget>("tableWidget")->horizontalHeaderItem(column);
    QCOMPARE(header->text(), QString::fromUtf8(QTest::currentDataTag()));
    QCOMPARE(header->toolTip(), toolTip);
}

void tst_AdvTriggerDialogForm::sectionButtonsKeepTheStyleOfTheirClass_data()
{
    QTest::addColumn<QString>("content");
    QTest::newRow("btnConfigureTriggerSources") << "frmConfigureTriggerSources";
    QTest::newRow("btnConfigureInputOutput") << "frmConfigureInputOutput";
    QTest::newRow("btnConfigureAcquisitionMode") << "frmConfigureAcquisitionMode";
    QTest::newRow("btnConfigureActionCommand") << "frmActionCommand";
    QTest::newRow("btnConfigureSoftwareSignal") << "frmSoftwareSignal";
    QTest::newRow("btnConfigureCounterTimer") << "frmCounterTimer";
}

void tst_AdvTriggerDialogForm::sectionButtonsKeepTheStyleOfTheirClass()
{
    QFETCH(QString, content);
    const auto* button = built.find<CollapsingButton>(QTest::currentDataTag());
    QCOMPARE(button->styleSheet(), QString("background:none"));
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QVERIFY(button->isCheckable());
    QVERIFY(!button->isChecked());
    QCOMPARE(button->arrowType(), Qt::RightArrow);
    QCOMPARE(built.find(content)->maximumHeight(), 0);
}

void tst_AdvTriggerDialogForm::numbersAreTypedWholeAndHaveTwoDecimals_data()
{
    QTest::addColumn<bool>("isDouble");
    for (const char* name : {"spbTriggerDelay", "spbCounterDuration", "spbCounterValue",
                             "spbTimerDuration", "spbTimerDelay"})
        QTest::newRow(name) << true;
    QTest::newRow("spbAcquisitionFrameCount") << false;
    QTest::newRow("spbActionSelector") << false;
}

void tst_AdvTriggerDialogForm::numbersAreTypedWholeAndHaveTwoDecimals()
{
    QFETCH(bool, isDouble);
    const auto* box = built.find<QAbstractSpinBox>(QTest::currentDataTag());
    // A number half typed is no edit: written at once, it would come back as the whole text.
    QVERIFY(!box->keyboardTracking());
    QCOMPARE(box->property("decimals"), isDouble ? QVariant(2) : QVariant());
    QCOMPARE(box->locale(), QLocale(QLocale::English, QLocale::UnitedStates));
}

void tst_AdvTriggerDialogForm::noButtonTakesTheReturnKey_data()
{
    QTest::addColumn<bool>("unused");
    for (const char* name : {"btnTriggerSoftware", "btnPtpDataSetLatch", "btnTimestampLatch",
                             "btnSoftwareSignalPulse", "btnCounterReset", "btnTimerReset"})
        QTest::newRow(name) << true;
    QCOMPARE(built.content->findChildren<QPushButton*>().size(), 6);
}

void tst_AdvTriggerDialogForm::noButtonTakesTheReturnKey()
{
    const auto* button = built.find<QPushButton>(QTest::currentDataTag());
    QVERIFY(!button->autoDefault());
    QVERIFY(!button->isDefault());
}

void tst_AdvTriggerDialogForm::pwmStartsOffAndEmpty()
{
    QVERIFY(!built.find<QGroupBox>("grpPWM")->isChecked());
    for (const char* name : {"txtPWMFrequency", "txtPWMDutyCycle"}) {
        QCOMPARE(built.find<QLineEdit>(name)->text(), QString());
        QVERIFY(!built.find(name)->isEnabled());
    }
}

void tst_AdvTriggerDialogForm::rootIsNamedAndTitled()
{
    QCOMPARE(built.content->objectName(), QString("AdvTriggerDialog"));
    QCOMPARE(built.content->windowTitle(), QString("Advanced Trigger IO"));
}

void tst_AdvTriggerDialogForm::textsAreTranslatedInTheDialogsContext()
{
    QWidget root;
    Ui::AdvTriggerDialog form;
    form.setupUi(&root);
    QMap<const QWidget*, QString> texts;
    for (const QWidget* widget : root.findChildren<QWidget*>())
        if (!textOf(widget).isEmpty() && !qobject_cast<const QAbstractSpinBox*>(widget))
            texts.insert(widget, textOf(widget));
    ContextMarker marker;
    QCoreApplication::installTranslator(&marker);
    form.retranslateUi(&root);
    int checked = 0;
    for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
        if (text.key()->objectName() == "qt_spinbox_lineedit")
            continue;
        QCOMPARE(textOf(text.key()).trimmed(), "AdvTriggerDialog|" + text.value().trimmed());
        ++checked;
    }
    QVERIFY(checked > 60);
    QCOMPARE(form.tableWidget->horizontalHeaderItem(5)->toolTip(),
             QString("AdvTriggerDialog|LineDebounceDuration"));
}

QTEST_MAIN(tst_AdvTriggerDialogForm)
#include "tst_AdvTriggerDialogForm.moc"
