// The tab's form as it comes out of the form compiler: names, kinds, texts, places, properties.
#include "ui_AdvTriggerWidget.h"

#include <QTest>
#include <QTranslator>

#include <memory>

namespace {

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

QString rich(const char* first, const char* second)
{
    return QStringLiteral("<html><head/><body><p align=\"right\">%1</p><p align=\"right\">%2</p>"
                          "</body></html>")
        .arg(QLatin1String(first), QLatin1String(second));
}

QString textOf(const QWidget* widget)
{
    const QVariant title = widget->property("title");
    return title.isValid() ? title.toString() : widget->property("text").toString();
}

/// Name of what a layout holds: a widget, a layout, or a spacer's direction.
QString nameOf(QLayoutItem* item)
{
    if (item == nullptr)
        return QStringLiteral("nothing");
    if (item->widget() != nullptr)
        return item->widget()->objectName();
    if (item->layout() != nullptr)
        return item->layout()->objectName();
    return item->expandingDirections() == Qt::Vertical ? QStringLiteral("vertical spacer")
                                                       : QStringLiteral("horizontal spacer");
}

} // namespace

class tst_AdvTriggerWidgetForm : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void hasTheWidget_data();
    void hasTheWidget();
    void hasNoOtherNamedWidget();
    void layoutHoldsInOrder_data();
    void layoutHoldsInOrder();
    void gridHoldsAt_data();
    void gridHoldsAt();
    void gridHoldsNothingElse();
    void widgetHasProperty_data();
    void widgetHasProperty();
    void rootHasInitialSizeAndEnglishLocale();
    void scrollAreaShowsTheContents();
    void hintIsBoldAndItalic();
    void tableHasHeader_data();
    void tableHasHeader();
    void statusButtonIsAFoldedSectionHeader();
    void statusTreeCascadesSectionResizes();
    void labelNamesItsWidget_data();
    void labelNamesItsWidget();
    void tabulatorWalksInReadingOrder();
    void textsAreTranslatedInTheTabsContext_data();
    void textsAreTranslatedInTheTabsContext();

private:
    QWidget* find(const QString& name) const;

    std::unique_ptr<QWidget> root;
    Ui::AdvTriggerWidget form = {};
};

void tst_AdvTriggerWidgetForm::init()
{
    root = std::make_unique<QWidget>();
    form.setupUi(root.get());
}

void tst_AdvTriggerWidgetForm::cleanup()
{
    root.reset();
}

QWidget* tst_AdvTriggerWidgetForm::find(const QString& name) const
{
    return root->objectName() == name ? root.get() : root->findChild<QWidget*>(name);
}

void tst_AdvTriggerWidgetForm::hasTheWidget_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* kind, const char* parent,
                        const QString& text = QString()) {
        QTest::newRow(name) << QString(kind) << QString(parent) << text;
    };
    const char* contents = "scrollAreaWidgetContents";
    row("AdvTriggerWidget", "QWidget", "");
    row("scrollArea", "QScrollArea", "AdvTriggerWidget");
    row(contents, "QWidget", "qt_scrollarea_viewport");
    row("lbl_notAcquireHint", "QLabel", contents,
        "Full Trigger configuration only if camera is not acquiring!");
    row("lblSelectPreset", "QLabel", contents, "Select Preset:");
    row("cmbSelectPreset", "QComboBox", contents);
    row("chkTooltips", "QCheckBox", contents, "Tooltips on:");
    row("grpTrigger", "QGroupBox", contents, "Configure Trigger:");
    row("lblTriggerSource", "QLabel", "grpTrigger", "Source:");
    row("cmbTriggerSource", "QComboBox", "grpTrigger");
    row("lblTriggerActivation", "QLabel", "grpTrigger", "Activation:");
    row("cmbTriggerActivation", "QComboBox", "grpTrigger");
    row("lblTriggerSelector", "QLabel", "grpTrigger", "Selector:");
    row("cmbTriggerSelector", "QComboBox", "grpTrigger");
    row("lblTriggerMode", "QLabel", "grpTrigger", "Mode:");
    row("cmbTriggerMode", "QComboBox", "grpTrigger");
    row("lblTriggerDelay", "QLabel", "grpTrigger", QString::fromUtf8("Delay (\xC2\xB5s):"));
    row("spbTriggerDelay", "QDoubleSpinBox", "grpTrigger", "0.00");
    row("btnTriggerSoftware", "QPushButton", "grpTrigger", "Execute SW Trigger");
    row("grpAdvancedDialog", "QGroupBox", contents, "Configure Advanced Trigger Features:");
    row("label", "QLabel", "grpAdvancedDialog",
        rich("Acquisition Mode, Action Command,", "Counters and Timers:"));
    row("btnAdvancedDialog", "QPushButton", "grpAdvancedDialog", "Open dialog");
    row("grpInputOutput", "QGroupBox", contents, "Configure inputs and outputs:");
    row("tableWidget", "QTableWidget", "grpInputOutput");
    row("btnTriggerFeaturesStatus", "CollapsingButton", contents, " Show Trigger Features Status:");
    row("frmTriggerFeaturesStatus", "QFrame", contents);
    row("treeView", "QTreeView", "frmTriggerFeaturesStatus");
}

void tst_AdvTriggerWidgetForm::hasTheWidget()
{
    QFETCH(QString, kind);
    QFETCH(QString, parent);
    QFETCH(QString, text);
    const QWidget* widget = find(QTest::currentDataTag());
    QVERIFY(widget != nullptr);
    QCOMPARE(QString(widget->metaObject()->className()), kind);
    QCOMPARE(widget->parentWidget() == nullptr ? QString() : widget->parentWidget()->objectName(),
             parent);
    QCOMPARE(textOf(widget), text);
}

void tst_AdvTriggerWidgetForm::hasNoOtherNamedWidget()
{
    int named = 0;
    const QList<QWidget*> widgets = root->findChildren<QWidget*>();
    for (const QWidget* widget : widgets)
        named += !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_") ? 1 : 0;
    QCOMPARE(named, 26);
}

void tst_AdvTriggerWidgetForm::layoutHoldsInOrder_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("items");
    const auto row = [](const char* name, const char* kind, const QStringList& items) {
        QTest::newRow(name) << QString(kind) << items;
    };
    row("verticalLayout_2", "QVBoxLayout", {"scrollArea"});
    row("verticalLayout", "QVBoxLayout",
        {"lbl_notAcquireHint", "horizontalLayout_2", "grpTrigger", "grpAdvancedDialog",
         "grpInputOutput", "btnTriggerFeaturesStatus", "frmTriggerFeaturesStatus",
         "vertical spacer"});
    row("horizontalLayout_2", "QHBoxLayout",
        {"lblSelectPreset", "cmbSelectPreset", "chkTooltips", "horizontal spacer"});
    row("horizontalLayout", "QHBoxLayout", {"label", "horizontal spacer", "btnAdvancedDialog"});
    row("horizontalLayout_5", "QHBoxLayout", {"tableWidget"});
    row("horizontalLayout_4", "QHBoxLayout", {"treeView"});
}

void tst_AdvTriggerWidgetForm::layoutHoldsInOrder()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, items);
    const auto* layout = root->findChild<QLayout*>(QTest::currentDataTag());
    QVERIFY(layout != nullptr);
    QCOMPARE(QString(layout->metaObject()->className()), kind);
    QStringList held;
    for (int i = 0; i < layout->count(); ++i)
        held << nameOf(layout->itemAt(i));
    QCOMPARE(held, items);
}

void tst_AdvTriggerWidgetForm::gridHoldsAt_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("lblTriggerSource") << 0 << 0;
    QTest::newRow("cmbTriggerSource") << 0 << 1;
    QTest::newRow("lblTriggerActivation") << 0 << 3;
    QTest::newRow("cmbTriggerActivation") << 0 << 4;
    QTest::newRow("lblTriggerSelector") << 1 << 0;
    QTest::newRow("cmbTriggerSelector") << 1 << 1;
    QTest::newRow("horizontal spacer") << 1 << 2;
    QTest::newRow("lblTriggerMode") << 1 << 3;
    QTest::newRow("cmbTriggerMode") << 1 << 4;
    QTest::newRow("lblTriggerDelay") << 2 << 0;
    QTest::newRow("spbTriggerDelay") << 2 << 1;
    QTest::newRow("btnTriggerSoftware") << 2 << 4;
}

void tst_AdvTriggerWidgetForm::gridHoldsAt()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QCOMPARE(nameOf(form.gridLayout->itemAtPosition(row, column)),
             QString(QTest::currentDataTag()));
    QCOMPARE(form.gridLayout->objectName(), QString("gridLayout"));
    QCOMPARE(form.grpTrigger->layout(), form.gridLayout);
}

void tst_AdvTriggerWidgetForm::gridHoldsNothingElse()
{
    QCOMPARE(form.gridLayout->count(), 12);
}

void tst_AdvTriggerWidgetForm::widgetHasProperty_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char* name, const char* property, const QVariant& value) {
        QTest::addRow("%s %s", name, property) << QString(name) << QString(property) << value;
    };
    row("AdvTriggerWidget", "windowTitle", "Form");
    row("AdvTriggerWidget", "minimumWidth", 350);
    row("scrollArea", "widgetResizable", true);
    row("lbl_notAcquireHint", "styleSheet", "color : rgb(0, 85, 127);");
    row("lbl_notAcquireHint", "alignment", int(Qt::AlignCenter));
    row("lbl_notAcquireHint", "wordWrap", true);
    row("cmbSelectPreset", "count", 0);
    row("chkTooltips", "layoutDirection", int(Qt::RightToLeft));
    row("chkTooltips", "checked", false);
    row("grpTrigger", "alignment", int(Qt::AlignLeft | Qt::AlignTop));
    // A number half typed is no edit: written at once, it would come back as the whole text.
    row("spbTriggerDelay", "keyboardTracking", false);
    row("tableWidget", "rowCount", 2);
    row("tableWidget", "columnCount", 4);
    row("tableWidget", "minimumSize", QSize(290, 128));
    row("tableWidget", "maximumSize", QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    row("tableWidget", "sizeAdjustPolicy", int(QAbstractScrollArea::AdjustToContents));
    row("tableWidget", "cornerButtonEnabled", false);
    row("btnTriggerFeaturesStatus", "styleSheet", QString());
    row("frmTriggerFeaturesStatus", "frameShape", int(QFrame::StyledPanel));
    row("frmTriggerFeaturesStatus", "frameShadow", int(QFrame::Raised));
    row("treeView", "minimumHeight", 64);
    row("treeView", "sizeAdjustPolicy", int(QAbstractScrollArea::AdjustToContents));
    row("treeView", "editTriggers", int(QAbstractItemView::NoEditTriggers));
    row("treeView", "headerHidden", true);
    for (const char* box : {"cmbSelectPreset", "cmbTriggerSource", "cmbTriggerActivation",
                            "cmbTriggerSelector", "cmbTriggerMode"})
        row(box, "sizeAdjustPolicy", int(QComboBox::AdjustToContents));
}

void tst_AdvTriggerWidgetForm::widgetHasProperty()
{
    QFETCH(QString, name);
    QFETCH(QString, property);
    QFETCH(QVariant, value);
    QVariant actual = find(name)->property(property.toLatin1());
    QVERIFY(actual.isValid());
    if (value.type() == QVariant::Int)
        actual = actual.toInt();
    QCOMPARE(actual, value);
}

void tst_AdvTriggerWidgetForm::rootHasInitialSizeAndEnglishLocale()
{
    QCOMPARE(root->size(), QSize(517, 747));
    QCOMPARE(root->locale(), QLocale(QLocale::English, QLocale::UnitedStates));
    QCOMPARE(form.spbTriggerDelay->locale(), QLocale(QLocale::English, QLocale::UnitedStates));
    QCOMPARE(form.verticalLayout_2->spacing(), 50);
}

void tst_AdvTriggerWidgetForm::scrollAreaShowsTheContents()
{
    QCOMPARE(form.scrollArea->widget(), form.scrollAreaWidgetContents);
    QCOMPARE(form.scrollAreaWidgetContents->layout(), form.verticalLayout);
}

void tst_AdvTriggerWidgetForm::hintIsBoldAndItalic()
{
    QVERIFY(form.lbl_notAcquireHint->font().bold());
    QVERIFY(form.lbl_notAcquireHint->font().italic());
}

void tst_AdvTriggerWidgetForm::tableHasHeader_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("I/O Mode") << 0 << "LineMode";
    QTest::newRow("Invert") << 1 << "LineInverter";
    QTest::newRow("I/O Line Source") << 2 << "LineSource";
    QTest::newRow("Status") << 3 << "LineStatus";
}

void tst_AdvTriggerWidgetForm::tableHasHeader()
{
    QFETCH(int, column);
    QFETCH(QString, toolTip);
    const QTableWidgetItem* header = form.tableWidget->horizontalHeaderItem(column);
    QCOMPARE(header->text(), QString(QTest::currentDataTag()));
    QCOMPARE(header->toolTip(), toolTip);
}

void tst_AdvTriggerWidgetForm::statusButtonIsAFoldedSectionHeader()
{
    const CollapsingButton* button = form.btnTriggerFeaturesStatus;
    QVERIFY(button->isCheckable());
    QVERIFY(!button->isChecked());
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QCOMPARE(button->arrowType(), Qt::RightArrow);
}

void tst_AdvTriggerWidgetForm::statusTreeCascadesSectionResizes()
{
    QVERIFY(form.treeView->header()->cascadingSectionResizes());
}

void tst_AdvTriggerWidgetForm::labelNamesItsWidget_data()
{
    QTest::addColumn<QString>("widget");
    QTest::newRow("lblSelectPreset") << "cmbSelectPreset";
    QTest::newRow("lblTriggerSource") << "cmbTriggerSource";
    QTest::newRow("lblTriggerActivation") << "cmbTriggerActivation";
    QTest::newRow("lblTriggerSelector") << "cmbTriggerSelector";
    QTest::newRow("lblTriggerMode") << "cmbTriggerMode";
    QTest::newRow("lblTriggerDelay") << "spbTriggerDelay";
}

void tst_AdvTriggerWidgetForm::labelNamesItsWidget()
{
    QFETCH(QString, widget);
    const auto* label = root->findChild<QLabel*>(QTest::currentDataTag());
    QVERIFY(label->buddy() != nullptr);
    QCOMPARE(label->buddy()->objectName(), widget);
}

void tst_AdvTriggerWidgetForm::tabulatorWalksInReadingOrder()
{
    const QStringList expected = {
        "cmbSelectPreset",    "chkTooltips",    "cmbTriggerSource",         "cmbTriggerActivation",
        "cmbTriggerSelector", "cmbTriggerMode", "spbTriggerDelay",          "btnTriggerSoftware",
        "btnAdvancedDialog",  "tableWidget",    "btnTriggerFeaturesStatus", "treeView"};
    QStringList walked;
    for (const QWidget* widget = root->nextInFocusChain(); widget != root.get();
         widget = widget->nextInFocusChain())
        if (expected.contains(widget->objectName()))
            walked << widget->objectName();
    QCOMPARE(walked, expected);
}

void tst_AdvTriggerWidgetForm::textsAreTranslatedInTheTabsContext_data()
{
    QTest::addColumn<bool>("unused");
    for (const char* name : {"lbl_notAcquireHint", "lblSelectPreset", "chkTooltips", "grpTrigger",
                             "lblTriggerSource", "lblTriggerActivation", "lblTriggerSelector",
                             "lblTriggerMode", "lblTriggerDelay", "btnTriggerSoftware",
                             "grpAdvancedDialog", "label", "btnAdvancedDialog", "grpInputOutput"})
        QTest::newRow(name) << true;
}

void tst_AdvTriggerWidgetForm::textsAreTranslatedInTheTabsContext()
{
    const QString text = textOf(find(QTest::currentDataTag()));
    QVERIFY(!text.isEmpty());
    ContextMarker marker;
    QCoreApplication::installTranslator(&marker);
    form.retranslateUi(root.get());
    const QTableWidgetItem* header = form.tableWidget->horizontalHeaderItem(1);
    QCOMPARE(textOf(find(QTest::currentDataTag())), "AdvTriggerWidget|" + text);
    QCOMPARE(header->text(), QString("AdvTriggerWidget|Invert"));
    QCOMPARE(header->toolTip(), QString("AdvTriggerWidget|LineInverter"));
    QCOMPARE(form.btnTriggerFeaturesStatus->text(),
             QString(" AdvTriggerWidget|Show Trigger Features Status:"));
    QCOMPARE(root->windowTitle(), QString("AdvTriggerWidget|Form"));
}

QTEST_MAIN(tst_AdvTriggerWidgetForm)
#include "tst_AdvTriggerWidgetForm.moc"
