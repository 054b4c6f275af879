// The form as a user has it on the screen: sections that fold, columns, room for every text, and
// the keyboard's way through it.
#include "tests/ui/DialogUnderTest.h"
#include "tests/ui/PaintedValue.h"
#include "widgets/CollapsingButton.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTranslator>

namespace {

const QMap<QString, QString>& contents()
{
    static const QMap<QString, QString> sections = {
        {"btnConfigureTriggerSources", "frmConfigureTriggerSources"},
        {"btnConfigureInputOutput", "frmConfigureInputOutput"},
        {"btnConfigureAcquisitionMode", "frmConfigureAcquisitionMode"},
        {"btnConfigureActionCommand", "frmActionCommand"},
        {"btnConfigureSoftwareSignal", "frmSoftwareSignal"},
        {"btnConfigureCounterTimer", "frmCounterTimer"}};
    return sections;
}

/// Fields and labels, which must be seen whole; hints may wrap, the table and the tree scroll.
QList<QWidget*> rigidWidgets(const QWidget& form)
{
    QList<QWidget*> rigid;
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        const QString prefix = widget->objectName().left(3);
        const bool named = QStringList{"lbl", "cmb", "spb", "btn", "chk"}.contains(prefix);
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (named && !(label != nullptr && label->wordWrap()))
            rigid << widget;
    }
    return rigid;
}

/// A language in which every text is half as long again.
class LongTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* /*context*/, const char* text, const char* /*disambiguation*/,
                      int /*n*/) const override
    {
        const QString original = QString::fromUtf8(text);
        return original + original.left(original.size() / 2);
    }
};

} // namespace

class tst_AdvTriggerDialogSections : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void startsFolded_data();
    void startsFolded();
    void unfoldsToItsFullHeight_data();
    void unfoldsToItsFullHeight();
    void foldsAway_data();
    void foldsAway();
    void unfoldedSectionsAreAllWholeAtOnce();
    void nothingIsClippedAtSize_data();
    void nothingIsClippedAtSize();
    void theOverviewShowsItsValuesWholeAtSize_data();
    void theOverviewShowsItsValuesWholeAtSize();
    void theOverviewFitsItsColumnsAndShowsSixDigits();
    void longerTextsStayWhole();
    void columnsLineUpAcrossSections_data();
    void columnsLineUpAcrossSections();
    void labelsSitBesideTheirFields();
    void theOverviewStandsBesideTheSections();
    void aSmallWindowScrollsBothAreas();
    void hintStandsBesideItsSection_data();
    void hintStandsBesideItsSection();
    void foldedFieldsLeaveTheTabOrder();
    void returnInAFieldPressesNoButton_data();
    void returnInAFieldPressesNoButton();

private:
    CollapsingButton& button(const QString& name) const
    {
        return *m_built->find<CollapsingButton>(name);
    }
    void addSections() const;
    void unfold(const QString& name) const;
    void unfoldAll() const;
    int leftOf(const char* name) const
    {
        return m_built->find(name)->mapTo(m_built->content, QPoint()).x();
    }

    PresetsFile m_presets{PresetsFile::fourPresets()};
    std::unique_ptr<DialogOnCamera> m_built;
};

void tst_AdvTriggerDialogSections::initTestCase()
{
    // A desktop's font, 9 points at 96 dpi; the screen of these tests comes with a larger one.
    QFont font = QApplication::font();
    font.setPixelSize(12);
    QApplication::setFont(font);
}

void tst_AdvTriggerDialogSections::init()
{
    m_built = std::make_unique<DialogOnCamera>();
    m_built->window.resize(1008, 720);
    m_built->showAndSettle();
}

void tst_AdvTriggerDialogSections::cleanup()
{
    m_built.reset();
}

void tst_AdvTriggerDialogSections::addSections() const
{
    QTest::addColumn<QString>("content");
    for (auto section = contents().cbegin(); section != contents().cend(); ++section)
        QTest::newRow(qPrintable(section.key())) << section.value();
}

/// Clicks the section's header and awaits the end of the movement, which leaves a little to spare.
void tst_AdvTriggerDialogSections::unfold(const QString& name) const
{
    constexpr int spareHeight = 10;
    const QWidget* content = m_built->find(contents().value(name));
    QTest::mouseClick(&button(name), Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTRY_COMPARE(content->maximumHeight(), content->sizeHint().height() + spareHeight);
}

void tst_AdvTriggerDialogSections::unfoldAll() const
{
    for (const QString& name : contents().keys())
        unfold(name);
}

void tst_AdvTriggerDialogSections::startsFolded_data()
{
    addSections();
}

void tst_AdvTriggerDialogSections::startsFolded()
{
    QFETCH(QString, content);
    QVERIFY(!button(QTest::currentDataTag()).isChecked());
    QVERIFY(!m_built->find(content)->isVisible());
}

void tst_AdvTriggerDialogSections::unfoldsToItsFullHeight_data()
{
    addSections();
}

void tst_AdvTriggerDialogSections::unfoldsToItsFullHeight()
{
    QFETCH(QString, content);
    unfold(QTest::currentDataTag());
    const QWidget* frame = m_built->find(content);
    QVERIFY(frame->isVisible());
    QVERIFY(frame->maximumHeight() >= frame->sizeHint().height());
    for (QWidget* widget : rigidWidgets(*frame))
        QVERIFY2(widget->height() >= widget->minimumSizeHint().height(),
                 qPrintable(widget->objectName()));
}

void tst_AdvTriggerDialogSections::foldsAway_data()
{
    addSections();
}

void tst_AdvTriggerDialogSections::foldsAway()
{
    QFETCH(QString, content);
    unfold(QTest::currentDataTag());
    QTest::keyClick(&button(QTest::currentDataTag()), Qt::Key_Return);
    QTRY_VERIFY(!m_built->find(content)->isVisible());
    QCOMPARE(m_built->find(content)->maximumHeight(), 0);
}

void tst_AdvTriggerDialogSections::unfoldedSectionsAreAllWholeAtOnce()
{
    unfoldAll();
    for (const QString& content : contents()) {
        const QWidget* frame = m_built->find(content);
        QVERIFY2(frame->height() >= frame->sizeHint().height(), qPrintable(content));
    }
    const auto* table = m_built->find<QTableWidget>("tableWidget");
    QVERIFY(!table->verticalScrollBar()->isVisible());
}

void tst_AdvTriggerDialogSections::nothingIsClippedAtSize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("1024x768") << QSize(1008, 720);
    QTest::newRow("1920x1080") << QSize(1904, 1032);
}

void tst_AdvTriggerDialogSections::nothingIsClippedAtSize()
{
    QFETCH(QSize, size);
    m_built->window.resize(size);
    unfoldAll();
    for (QWidget* widget : rigidWidgets(*m_built->content))
        QVERIFY2(widget->isHidden() || widget->width() >= widget->minimumSizeHint().width(),
                 qPrintable(widget->objectName()));
    for (const char* name : {"scrollArea", "scrollArea_2", "tableWidget"}) {
        const auto* area = m_built->find<QAbstractScrollArea>(name);
        QTRY_VERIFY2(!area->horizontalScrollBar()->isVisible(), name);
    }
}

void tst_AdvTriggerDialogSections::theOverviewShowsItsValuesWholeAtSize_data()
{
    nothingIsClippedAtSize_data();
}

void tst_AdvTriggerDialogSections::theOverviewShowsItsValuesWholeAtSize()
{
    QFETCH(QSize, size);
    m_built.reset();
    auto camera = cameraOfPresetFamily();
    (*camera)["TriggerMode"].state().text = "On";
    (*camera)["CounterEventSource"].stateFor("Counter0").text = "ExposureActive";
    DialogOnCamera busy(std::move(camera));
    busy.window.resize(size);
    busy.showAndSettle();
    const auto* tree = busy.find<QTreeView>("treeView");
    QTRY_COMPARE(tree->header()->length(), tree->viewport()->width());
    QVERIFY(!tree->horizontalScrollBar()->isVisible());
    // The longest of what stands in either column, with the room that the style leaves around it.
    const QFontMetrics metrics = tree->fontMetrics();
    QVERIFY(tree->columnWidth(0) > metrics.horizontalAdvance("CounterTriggerActivation"));
    QVERIFY(tree->columnWidth(1) >= metrics.horizontalAdvance("AcquisitionActive") + 7);
}

void tst_AdvTriggerDialogSections::theOverviewFitsItsColumnsAndShowsSixDigits()
{
    m_built.reset();
    auto camera = cameraOfPresetFamily();
    (*camera)["TriggerMode"].state().text = "On";
    const DialogOnCamera busy(std::move(camera));
    const auto* tree = busy.find<QTreeView>("treeView");
    QCOMPARE(tree->header()->sectionResizeMode(0), QHeaderView::ResizeToContents);
    QVERIFY(tree->header()->stretchLastSection());
    busy.feature("TriggerDelay").state().real = 1234.56789;
    busy.content->report({"TriggerDelay"});
    QCOMPARE(paintedValue(*tree, "TriggerDelay"), QString("1234.57"));
}

void tst_AdvTriggerDialogSections::longerTextsStayWhole()
{
    m_built.reset();
    LongTexts translator;
    QCoreApplication::installTranslator(&translator);
    init();
    unfoldAll();
    QVERIFY(m_built->find<QLabel>("lblTriggerMode")->text().startsWith("Mode:"));
    QVERIFY(m_built->find<QLabel>("lblTriggerMode")->text() != "Mode:");
    for (QWidget* widget : rigidWidgets(*m_built->content))
        QVERIFY2(widget->isHidden() || widget->width() >= widget->minimumSizeHint().width(),
                 qPrintable(widget->objectName()));
}

void tst_AdvTriggerDialogSections::columnsLineUpAcrossSections_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("1024x768") << QSize(1008, 720);
    QTest::newRow("1920x1080") << QSize(1904, 1032);
}

void tst_AdvTriggerDialogSections::columnsLineUpAcrossSections()
{
    QFETCH(QSize, size);
    m_built->window.resize(size);
    unfoldAll();
    // A group's frame may move its fields in by little more than the eye notices.
    constexpr int unnoticed = 6;
    const int first = leftOf("cmbTriggerSelector");
    for (const char* name : {"cmbAcquisitionMode", "spbActionSelector", "txtPtpStatus",
                             "cmbSoftwareSignalSelector", "cmbCounterSelector", "spbTimerDuration"})
        QVERIFY2(std::abs(leftOf(name) - first) <= unnoticed, name);
    const int second = leftOf("cmbTriggerMode");
    for (const char* name : {"spbAcquisitionFrameCount", "txtActionDeviceKey",
                             "btnSoftwareSignalPulse", "spbCounterValue", "spbTimerDelay"})
        QVERIFY2(std::abs(leftOf(name) - second) <= unnoticed, name);
}

void tst_AdvTriggerDialogSections::labelsSitBesideTheirFields()
{
    unfoldAll();
    int labels = 0;
    for (const QLabel* label : m_built->content->findChildren<QLabel*>()) {
        const QWidget* field = label->buddy();
        if (field == nullptr || field->objectName() == "treeView")
            continue;
        const QRect text(label->mapTo(m_built->content, QPoint()), label->size());
        const QRect box(field->mapTo(m_built->content, QPoint()), field->size());
        QVERIFY2(text.right() < box.left(), qPrintable(label->objectName()));
        QVERIFY2(std::abs(text.center().y() - box.center().y()) <= 2,
                 qPrintable(label->objectName()));
        ++labels;
    }
    QCOMPARE(labels, 43);
}

void tst_AdvTriggerDialogSections::theOverviewStandsBesideTheSections()
{
    const QWidget* sections = m_built->find("scrollArea");
    const QWidget* overview = m_built->find("scrollArea_2");
    QVERIFY(overview->x() > sections->geometry().right());
    QCOMPARE(overview->height(), sections->height());
    QVERIFY(sections->width() > overview->width());
    QVERIFY(overview->width() >= 200);
}

void tst_AdvTriggerDialogSections::aSmallWindowScrollsBothAreas()
{
    m_built->window.resize(400, 150);
    const QScrollBar* sections = m_built->find<QScrollArea>("scrollArea")->verticalScrollBar();
    QTRY_VERIFY(sections->isVisible());
    unfold("btnConfigureCounterTimer");
    m_built->find("cmbTimerSelector")->setFocus();
    QTest::keyClick(m_built->find("cmbTimerSelector"), Qt::Key_Tab);
    // What gets the focus scrolls into view.
    QTRY_VERIFY(sections->value() > 0);
    QVERIFY(m_built->find("treeView")->height() >= 64);
}

void tst_AdvTriggerDialogSections::hintStandsBesideItsSection_data()
{
    QTest::addColumn<QString>("hint");
    QTest::newRow("btnConfigureActionCommand") << "lbl_noActionCommandsHint";
    QTest::newRow("btnConfigureSoftwareSignal") << "lbl_noSoftwareSignalHint";
    QTest::newRow("btnConfigureCounterTimer") << "lbl_noCounterTimerHint";
}

void tst_AdvTriggerDialogSections::hintStandsBesideItsSection()
{
    QFETCH(QString, hint);
    m_built.reset();
    auto camera = cameraOfPresetFamily();
    for (const char* feature : {"ActionSelector", "SoftwareSignalSelector", "TimerSelector"})
        camera->remove(feature);
    DialogOnCamera poor(std::move(camera));
    poor.window.resize(1008, 720);
    poor.showAndSettle();
    const QWidget* section = poor.find(QTest::currentDataTag());
    const auto* label = poor.find<QLabel>(hint);
    QVERIFY(label->geometry().left() > section->geometry().right());
    QVERIFY(label->height() >= label->heightForWidth(label->width()));
    QVERIFY(std::abs(label->geometry().center().y() - section->geometry().center().y()) <= 2);
}

void tst_AdvTriggerDialogSections::foldedFieldsLeaveTheTabOrder()
{
    m_built->find("cmbSelectPreset")->setFocus();
    QStringList walked;
    for (int i = 0; i < 8; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        walked << QApplication::focusWidget()->objectName();
    }
    QCOMPARE(walked,
             (QStringList{"chkTooltips", "btnConfigureTriggerSources", "btnConfigureInputOutput",
                          "btnConfigureAcquisitionMode", "btnConfigureActionCommand",
                          "btnConfigureSoftwareSignal", "btnConfigureCounterTimer", "treeView"}));
}

void tst_AdvTriggerDialogSections::returnInAFieldPressesNoButton_data()
{
    QTest::addColumn<QString>("section");
    QTest::newRow("cmbTriggerMode") << "btnConfigureTriggerSources";
    QTest::newRow("spbTriggerDelay") << "btnConfigureTriggerSources";
    QTest::newRow("spbAcquisitionFrameCount") << "btnConfigureAcquisitionMode";
    QTest::newRow("txtActionGroupKey") << "btnConfigureActionCommand";
    QTest::newRow("chkPtpEnable") << "btnConfigureActionCommand";
    QTest::newRow("spbTimerDelay") << "btnConfigureCounterTimer";
}

void tst_AdvTriggerDialogSections::returnInAFieldPressesNoButton()
{
    QFETCH(QString, section);
    unfold(section);
    QWidget* field = m_built->find(QTest::currentDataTag());
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY(m_built->writes().filter("RunCommand").isEmpty());
    QVERIFY(m_built->window.isVisible());
}

QTEST_MAIN(tst_AdvTriggerDialogSections)
#include "tst_AdvTriggerDialogSections.moc"
