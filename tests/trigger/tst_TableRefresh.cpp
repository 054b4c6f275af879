// Refreshing the line table after the camera reported changes.
#include "tests/trigger/TableForm.h"

#include <QSignalSpy>
#include <QTest>

#include <map>

namespace {

const QStringList AllFeatures = {"LineMode",   "LineInverter",     "LineSource",
                                 "LineStatus", "LineDebounceMode", "LineDebounceDuration"};

QString nameOf(const QString& line, const QString& feature)
{
    static const std::map<QString, QString> prefixes = {
        {"LineMode", "cmb"},   {"LineInverter", "chk"},     {"LineSource", "cmb"},
        {"LineStatus", "lbl"}, {"LineDebounceMode", "cmb"}, {"LineDebounceDuration", "spb"}};
    return prefixes.at(feature) + line + "_" + feature;
}

/// What a cell shows, and whether it is enabled.
QString shownBy(const QWidget& widget)
{
    QString text = "lamp";
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        text = box->currentText();
    else if (const auto* check = qobject_cast<const QCheckBox*>(&widget))
        text = check->isChecked() ? "checked" : "clear";
    else if (const auto* spin = qobject_cast<const QDoubleSpinBox*>(&widget))
        text = QString::number(spin->value());
    return text + (widget.isEnabled() ? " enabled" : " disabled");
}

void changeEverything(Fake::FakeCamera& camera, const std::string& line)
{
    camera["LineMode"].stateFor(line).text = "Output";
    camera["LineInverter"].stateFor(line).boolean = true;
    camera["LineSource"].stateFor(line).text = "ExposureActive";
    camera["LineStatus"].stateFor(line).boolean = true;
    camera["LineDebounceMode"].stateFor(line).text = "Debounce";
    camera["LineDebounceDuration"].stateFor(line).real = 64.0;
}

} // namespace

class tst_TableRefresh : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void changedFeatureShowsOnItsLine_data();
    void changedFeatureShowsOnItsLine();
    void enabledStatesAreFollowed_data();
    void enabledStatesAreFollowed();
    void newEntriesAreOffered();
    void rangeOfTheDurationStaysAsBuilt();
    void unchangedFeaturesAreNotRead();
    void fourColumnTableReadsNoDebounceFeatures();
    void selectorIsSteppedAndPutBack();
    void selectorHoldsTheSameValueAsBefore();
    void selectorThatCannotBeWrittenIsNotRemembered();
    void refreshWritesNothingElse();
    void refreshNeverTriggersTheCellSlots();
    void blockedSignalsStayBlocked();
    void linesOfOtherNamesAreNotRefreshed();
    void refreshFollowsTheOrderOfTheColumns();
    void lostCameraLeavesTheTable();

private:
    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TableForm> m_form;
};

void tst_TableRefresh::init()
{
    m_camera = tableCamera();
    m_form = std::make_unique<TableForm>(*m_camera);
    m_form->build();
}

void tst_TableRefresh::cleanup()
{
    m_form.reset();
    m_camera.reset();
}

void tst_TableRefresh::changedFeatureShowsOnItsLine_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("LineMode") << "Input enabled"
                              << "Output enabled";
    QTest::newRow("LineInverter") << "clear enabled"
                                  << "checked enabled";
    QTest::newRow("LineSource") << "Off enabled"
                                << "ExposureActive enabled";
    QTest::newRow("LineStatus") << "lamp disabled"
                                << "lamp enabled";
    QTest::newRow("LineDebounceMode") << "Off enabled"
                                      << "Debounce enabled";
    QTest::newRow("LineDebounceDuration") << "8 enabled"
                                          << "64 enabled";
}

void tst_TableRefresh::changedFeatureShowsOnItsLine()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    const QString feature = QTest::currentDataTag();
    changeEverything(*m_camera, "Line1");
    m_form->refreshTable({feature});
    for (const QString& other : AllFeatures) {
        const QString onFirst = nameOf("Line0", other);
        const QString onSecond = nameOf("Line1", other);
        if (other == feature) {
            QCOMPARE(shownBy(m_form->cell<QWidget>(qPrintable(onFirst))), before);
            QCOMPARE(shownBy(m_form->cell<QWidget>(qPrintable(onSecond))), after);
        } else {
            QCOMPARE(shownBy(m_form->cell<QWidget>(qPrintable(onSecond))),
                     shownBy(m_form->cell<QWidget>(qPrintable(onFirst))));
        }
    }
}

void tst_TableRefresh::enabledStatesAreFollowed_data()
{
    QTest::addColumn<bool>("unused");
    for (const QString& feature : AllFeatures)
        if (feature != "LineStatus")
            QTest::newRow(qPrintable(feature)) << true;
}

void tst_TableRefresh::enabledStatesAreFollowed()
{
    const QString feature = QTest::currentDataTag();
    Fake::State& state = (*m_camera)[feature.toStdString()].stateFor("Line0");
    auto& widget = m_form->cell<QWidget>(qPrintable(nameOf("Line0", feature)));
    state.writable = false;
    m_form->refreshTable({feature});
    QVERIFY(!widget.isEnabled());
    QVERIFY(m_form->cell<QWidget>(qPrintable(nameOf("Line1", feature))).isEnabled());
    state.writable = true;
    m_form->refreshTable({feature});
    QVERIFY(widget.isEnabled());
}

void tst_TableRefresh::newEntriesAreOffered()
{
    (*m_camera)["LineSource"].stateFor("Line1").entries.push_back({"Timer0Active", 2, true});
    m_form->refreshTable({"LineSource"});
    QCOMPARE(m_form->cell<QComboBox>("cmbLine0_LineSource").count(), 2);
    QCOMPARE(m_form->cell<QComboBox>("cmbLine1_LineSource").count(), 3);
}

void tst_TableRefresh::rangeOfTheDurationStaysAsBuilt()
{
    (*m_camera)["LineDebounceDuration"].stateFor("Line0").maxReal = 10.0;
    m_form->refreshTable({"LineDebounceDuration"});
    QCOMPARE(m_form->cell<QDoubleSpinBox>("spbLine0_LineDebounceDuration").maximum(), 1000.0);
    QCOMPARE(m_camera->callCount("GetFloatRange", "LineDebounceDuration"), 0);
}

void tst_TableRefresh::unchangedFeaturesAreNotRead()
{
    m_form->refreshTable({"LineStatus", "TriggerMode"});
    QCOMPARE(m_camera->callCount("GetBoolValue", "LineStatus"), 2);
    QCOMPARE(m_camera->callCount("GetBoolValue", "LineInverter"), 0);
    QCOMPARE(m_camera->callCount("GetStringValue", "LineMode"), 0);
}

void tst_TableRefresh::fourColumnTableReadsNoDebounceFeatures()
{
    m_form = std::make_unique<TableForm>(*m_camera, 4);
    m_form->build();
    m_form->refreshTable(AllFeatures);
    QCOMPARE(m_camera->callCount("GetBoolValue", "LineStatus"), 2);
    QCOMPARE(m_camera->callCount("GetStringValue", "LineDebounceMode"), 0);
    QCOMPARE(m_camera->callCount("GetFloatValue", "LineDebounceDuration"), 0);
}

void tst_TableRefresh::selectorIsSteppedAndPutBack()
{
    (*m_camera)["LineSelector"].state().text = "Line0";
    m_form->refreshTable({"TriggerMode"});
    QCOMPARE(tableWrites(*m_camera),
             (QStringList{"LineSelector=Line0", "LineSelector=Line1", "LineSelector=Line0"}));
}

void tst_TableRefresh::selectorHoldsTheSameValueAsBefore()
{
    (*m_camera)["LineSelector"].state().text = "Line0";
    m_form->refreshTable(AllFeatures);
    QCOMPARE((*m_camera)["LineSelector"].state().text, std::string("Line0"));
}

void tst_TableRefresh::selectorThatCannotBeWrittenIsNotRemembered()
{
    (*m_camera)["LineSelector"].state().writable = false;
    m_form->refreshTable(AllFeatures);
    // Nothing is refused that could have worked: the camera takes none of these.
    QCOMPARE(tableWrites(*m_camera),
             (QStringList{"LineSelector=Line0", "LineSelector=Line1", "LineSelector="}));
    QCOMPARE((*m_camera)["LineSelector"].state().text, std::string("Line1"));
}

void tst_TableRefresh::refreshWritesNothingElse()
{
    changeEverything(*m_camera, "Line0");
    changeEverything(*m_camera, "Line1");
    m_form->refreshTable(AllFeatures);
    QCOMPARE(tableWrites(*m_camera).filter(QRegularExpression("^(?!LineSelector=)")),
             QStringList());
}

void tst_TableRefresh::refreshNeverTriggersTheCellSlots()
{
    QSignalSpy mode(&m_form->cell<QComboBox>("cmbLine1_LineMode"),
                    SIGNAL(currentTextChanged(const QString&)));
    QSignalSpy inverter(&m_form->cell<QCheckBox>("chkLine1_LineInverter"),
                        SIGNAL(stateChanged(int)));
    QSignalSpy duration(&m_form->cell<QDoubleSpinBox>("spbLine1_LineDebounceDuration"),
                        SIGNAL(valueChanged(double)));
    changeEverything(*m_camera, "Line1");
    m_form->refreshTable(AllFeatures);
    QCOMPARE(m_form->customPresets, 0);
    QCOMPARE(mode.count() + inverter.count() + duration.count(), 0);
    m_form->cell<QComboBox>("cmbLine1_LineMode").setCurrentText("Input");
    QCOMPARE(mode.count(), 1);
    QCOMPARE(m_form->customPresets, 1);
}

void tst_TableRefresh::blockedSignalsStayBlocked()
{
    auto& mode = m_form->cell<QComboBox>("cmbLine0_LineMode");
    mode.blockSignals(true);
    m_form->refreshTable(AllFeatures);
    QVERIFY(mode.signalsBlocked());
    QVERIFY(!m_form->cell<QComboBox>("cmbLine1_LineMode").signalsBlocked());
}

void tst_TableRefresh::linesOfOtherNamesAreNotRefreshed()
{
    m_camera = tableCamera({"In", "Out"});
    m_form = std::make_unique<TableForm>(*m_camera);
    m_form->build();
    (*m_camera)["LineMode"].stateFor("In").text = "Output";
    m_form->refreshTable({"LineMode"});
    QCOMPARE(m_form->cell<QComboBox>("cmbIn_LineMode").currentText(), QString("Input"));
    QCOMPARE(tableWrites(*m_camera),
             (QStringList{"LineSelector=Line0", "LineSelector=Line1", "LineSelector=Out"}));
    QCOMPARE((*m_camera)["LineSelector"].state().text, std::string("Out"));
}

void tst_TableRefresh::refreshFollowsTheOrderOfTheColumns()
{
    m_camera = tableCamera({"Line0"});
    m_form = std::make_unique<TableForm>(*m_camera);
    m_form->build();
    m_form->refreshTable(AllFeatures);
    QStringList reads;
    for (const std::string& call : m_camera->calls()) {
        const QString text = QString::fromStdString(call);
        if (text.startsWith("IsWritable ") || text == "GetBoolValue LineStatus")
            reads.append(text.section(' ', 1));
    }
    reads.removeAll("LineSelector");
    QCOMPARE(reads, (QStringList{"LineMode", "LineSource", "LineInverter", "LineStatus",
                                 "LineDebounceDuration", "LineDebounceMode"}));
}

void tst_TableRefresh::lostCameraLeavesTheTable()
{
    m_camera->failEverything();
    m_form->refreshTable(AllFeatures);
    QCOMPARE(m_form->table.rowCount(), 2);
    // A name that cannot be read finds no feature: nothing of the camera is shown as its state.
    QVERIFY(!m_form->cell<QComboBox>("cmbLine0_LineMode").isEnabled());
    m_camera->clearFailures();
    m_form->refreshTable(AllFeatures);
    QVERIFY(m_form->cell<QComboBox>("cmbLine0_LineMode").isEnabled());
    QCOMPARE(m_form->cell<QComboBox>("cmbLine0_LineMode").currentText(), QString("Input"));
}

QTEST_MAIN(tst_TableRefresh)
#include "tst_TableRefresh.moc"
