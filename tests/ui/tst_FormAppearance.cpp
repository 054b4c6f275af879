// What both forms look like: that nothing moves under the mouse, that labels and fields belong
// together, and that what they show can be read.
#include "tests/ui/DialogUnderTest.h"
#include "tests/ui/TabUnderTest.h"
#include "widgets/CollapsingButton.h"

#include <QAbstractEventDispatcher>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>

#include <algorithm>

namespace {

QString lineOf(const QWidget& widget, const QWidget& form)
{
    const QPoint place = widget.mapTo(&form, QPoint());
    return QString("%1 at %2,%3 of %4x%5")
        .arg(widget.objectName())
        .arg(place.x())
        .arg(place.y())
        .arg(widget.width())
        .arg(widget.height());
}

/// Where each named part of the form is to be seen, one line for each.
QStringList placesOfParts(const QWidget& form)
{
    QStringList places;
    for (const QWidget* widget : form.findChildren<QWidget*>())
        if (widget->isVisible() && !widget->objectName().isEmpty() &&
            widget->objectName() != "lbl_notAcquireHint")
            places << lineOf(*widget, form);
    return places;
}

/// What has to move, moves with the next turn of the event loop.
void layOut()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QCoreApplication::processEvents();
}

/// Whether a combo box has yet to adjust to its entries, for which it takes its time.
bool isAdjusting(const QWidget& form)
{
    const auto* dispatcher = QAbstractEventDispatcher::instance();
    const auto hasTimer = [&](QObject* part) {
        return part->inherits("QComboBoxPrivateContainer") &&
               !dispatcher->registeredTimers(part).isEmpty();
    };
    const auto parts = form.findChildren<QObject*>();
    return std::any_of(parts.begin(), parts.end(), hasTimer);
}

/// The same once the form has come to rest.
QStringList placesAtRest(const QWidget& form)
{
    if (!QTest::qWaitFor([&] { return !isAdjusting(form); }))
        return {"never at rest"};
    layOut();
    return placesOfParts(form);
}

QRect placeOf(const QWidget& widget, const QWidget& form)
{
    return {widget.mapTo(&form, QPoint()), widget.size()};
}

/// Where the label's text stands, without the empty part of the label.
QRect placeOfText(const QLabel& label, const QWidget& form)
{
    QRect place = placeOf(label, form);
    const int empty =
        place.width() - label.fontMetrics().horizontalAdvance(label.text()) - label.margin();
    return (label.alignment() & Qt::AlignRight) != 0 ? place.adjusted(empty, 0, 0, 0)
                                                     : place.adjusted(0, 0, -empty, 0);
}

/// The fields that show one value each.
QList<QWidget*> fieldsOf(const QWidget& form)
{
    QList<QWidget*> fields;
    for (QWidget* widget : form.findChildren<QWidget*>())
        if (QStringList{"cmb", "spb", "txt"}.contains(widget->objectName().left(3)) &&
            !widget->objectName().contains('_'))
            fields << widget;
    return fields;
}

/// The widest value that the form's fields have to show: a 64-bit number in hexadecimal digits, or
/// the longest of the entries.
int widestValue(const QWidget& form)
{
    const QFontMetrics metrics = form.fontMetrics();
    int widest = metrics.horizontalAdvance("0xFFFFFFFFFFFFFFFF");
    for (const QComboBox* box : form.findChildren<QComboBox*>())
        for (int i = 0; i < box->count(); ++i)
            widest = std::max(widest, metrics.horizontalAdvance(box->itemText(i)));
    return widest;
}

} // namespace

class tst_FormAppearance : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void streamingMovesNothingOnTheTab_data();
    void streamingMovesNothingOnTheTab();
    void clickMeantForTheSoftwareTriggerHitsItWhenTheHintShows();
    void streamingMovesNothingInTheDialog();
    void hintKeepsItsRoom_data();
    void hintKeepsItsRoom();
    void labelStandsAtItsField_data();
    void labelStandsAtItsField();
    void fieldIsNoWiderThanItsValuesNeed_data();
    void fieldIsNoWiderThanItsValuesNeed();
    void pwmFieldStandsInTheColumn_data();
    void pwmFieldStandsInTheColumn();
    void tableUsesTheWidthOfTheTab_data();
    void tableUsesTheWidthOfTheTab();
    void tableUsesTheWidthOfTheDialog_data();
    void tableUsesTheWidthOfTheDialog();
    void formHasNoFrameOfItsOwn();
    void nothingIsClippedAtWidth_data();
    void nothingIsClippedAtWidth();

private:
    static void addWindowSizes();
    static void showUnfolded(DialogOnCamera& shown, QSize size);
};

void tst_FormAppearance::addWindowSizes()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("1024x768") << QSize(1008, 720);
    QTest::newRow("1920x1080") << QSize(1904, 1032);
}

void tst_FormAppearance::showUnfolded(DialogOnCamera& shown, QSize size)
{
    shown.window.resize(size);
    shown.showAndSettle();
    for (auto* section : shown.content->findChildren<CollapsingButton*>())
        section->click();
    // The movement of the sections ends with all of them at their heights.
    for (const char* content :
         {"frmConfigureTriggerSources", "frmActionCommand", "frmCounterTimer"}) {
        const QWidget* frame = shown.find(content);
        QTRY_VERIFY(frame->height() >= frame->sizeHint().height());
    }
}

void tst_FormAppearance::initTestCase()
{
    // A desktop's font, 9 points at 96 dpi; the screen of these tests comes with a larger one.
    QFont font = QApplication::font();
    font.setPixelSize(12);
    QApplication::setFont(font);
}

void tst_FormAppearance::streamingMovesNothingOnTheTab_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("hint in two lines") << 350;
    QTest::newRow("hint in one line") << 517;
}

void tst_FormAppearance::streamingMovesNothingOnTheTab()
{
    QFETCH(int, width);
    TabOnCamera shown;
    shown.tab.resize(width, 747);
    shown.showAndSettle();
    const QStringList before = placesAtRest(shown.tab);
    for (const bool on : {true, false}) {
        shown.tab.camIsStreaming(on);
        QCOMPARE(shown.find("lbl_notAcquireHint")->isHidden(), !on);
        QCOMPARE(placesAtRest(shown.tab), before);
    }
}

void tst_FormAppearance::clickMeantForTheSoftwareTriggerHitsItWhenTheHintShows()
{
    TabOnCamera shown;
    shown.showAndSettle();
    const auto* button = shown.find<QPushButton>("btnTriggerSoftware");
    const QPoint upperPart(button->width() / 2, 4);
    const QPoint aimedAt = button->mapTo(&shown.tab, upperPart);
    QSignalSpy clicked(button, SIGNAL(clicked()));
    shown.tab.camIsStreaming(true);
    layOut();
    QTest::mouseClick(shown.tab.windowHandle(), Qt::LeftButton, Qt::NoModifier, aimedAt);
    QCOMPARE(clicked.count(), 1);
}

void tst_FormAppearance::streamingMovesNothingInTheDialog()
{
    DialogOnCamera shown;
    shown.window.resize(1008, 720);
    shown.showAndSettle();
    const QStringList before = placesAtRest(*shown.content);
    for (const bool on : {true, false}) {
        shown.content->disableContents(on);
        QCOMPARE(shown.find("lbl_notAcquireHint")->isHidden(), !on);
        QCOMPARE(placesAtRest(*shown.content), before);
    }
}

void tst_FormAppearance::hintKeepsItsRoom_data()
{
    QTest::addColumn<bool>("unused");
    for (const char* hint : {"lbl_notAcquireHint", "lbl_noActionCommandsHint",
                             "lbl_noSoftwareSignalHint", "lbl_noCounterTimerHint"})
        QTest::newRow(hint) << true;
}

void tst_FormAppearance::hintKeepsItsRoom()
{
    const DialogOnCamera built;
    const QWidget* hint = built.find(QTest::currentDataTag());
    QVERIFY(hint->isHidden());
    QVERIFY(hint->sizePolicy().retainSizeWhenHidden());
}

void tst_FormAppearance::labelStandsAtItsField_data()
{
    addWindowSizes();
}

void tst_FormAppearance::labelStandsAtItsField()
{
    QFETCH(QSize, size);
    DialogOnCamera shown;
    showUnfolded(shown, size);
    constexpr int beside = 14;
    const QList<QWidget*> fields = fieldsOf(*shown.content);
    int labels = 0;
    for (const QLabel* label : shown.content->findChildren<QLabel*>()) {
        if (!fields.contains(label->buddy()))
            continue;
        const QRect text = placeOfText(*label, *shown.content);
        const int gap = placeOf(*label->buddy(), *shown.content).left() - text.right();
        QVERIFY2(gap > 0 && gap <= beside, qPrintable(label->objectName()));
        // Farther from the field of the other column than from its own.
        for (const QWidget* other : fields) {
            const QRect place = placeOf(*other, *shown.content);
            if (other->isVisible() && place.right() < text.left() && place.top() < text.bottom() &&
                place.bottom() > text.top())
                QVERIFY2(text.left() - place.right() > beside, qPrintable(label->objectName()));
        }
        ++labels;
    }
    QCOMPARE(labels, 43);
}

void tst_FormAppearance::fieldIsNoWiderThanItsValuesNeed_data()
{
    addWindowSizes();
}

void tst_FormAppearance::fieldIsNoWiderThanItsValuesNeed()
{
    QFETCH(QSize, size);
    DialogOnCamera shown;
    showUnfolded(shown, size);
    constexpr int frameAndArrow = 60;
    const int needed = widestValue(*shown.content) + frameAndArrow;
    const QList<QWidget*> fields = fieldsOf(*shown.content);
    QCOMPARE(fields.size(), 43);
    for (auto* box : shown.find("tableWidget")->findChildren<QDoubleSpinBox*>())
        QVERIFY2(box->width() <= needed, qPrintable(box->objectName()));
    for (const QWidget* field : fields)
        QVERIFY2(field->width() <= needed, qPrintable(QString("%1: %2 instead of %3")
                                                          .arg(field->objectName())
                                                          .arg(field->width())
                                                          .arg(needed)));
}

void tst_FormAppearance::pwmFieldStandsInTheColumn_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("above");
    for (const QSize size : {QSize(1008, 720), QSize(1904, 1032)}) {
        QTest::addRow("frequency at %d", size.width()) << size << "txtPWMFrequency"
                                                       << "cmbTimerSelector";
        QTest::addRow("duty cycle at %d", size.width()) << size << "txtPWMDutyCycle"
                                                        << "spbTimerDelay";
    }
}

void tst_FormAppearance::pwmFieldStandsInTheColumn()
{
    QFETCH(QSize, size);
    QFETCH(QString, field);
    QFETCH(QString, above);
    DialogOnCamera shown;
    showUnfolded(shown, size);
    // The group's frame may move its fields in by little more than the eye notices.
    constexpr int unnoticed = 6;
    const QRect place = placeOf(*shown.find(field), *shown.content);
    const QRect column = placeOf(*shown.find(above), *shown.content);
    QVERIFY(std::abs(place.left() - column.left()) <= unnoticed);
}

void tst_FormAppearance::tableUsesTheWidthOfTheTab_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("usual") << 517;
    QTest::newRow("wide") << 900;
}

void tst_FormAppearance::tableUsesTheWidthOfTheTab()
{
    QFETCH(int, width);
    TabOnCamera shown;
    shown.tab.resize(width, 747);
    shown.showAndSettle();
    const auto* table = shown.find<QTableWidget>("tableWidget");
    QTRY_COMPARE(table->horizontalHeader()->length(), table->viewport()->width());
}

void tst_FormAppearance::tableUsesTheWidthOfTheDialog_data()
{
    addWindowSizes();
}

void tst_FormAppearance::tableUsesTheWidthOfTheDialog()
{
    QFETCH(QSize, size);
    DialogOnCamera shown;
    showUnfolded(shown, size);
    const auto* table = shown.find<QTableWidget>("tableWidget");
    QTRY_COMPARE(table->horizontalHeader()->length(), table->viewport()->width());
    const QScrollBar* sideways = shown.find<QScrollArea>("scrollArea")->horizontalScrollBar();
    QVERIFY(!sideways->isVisible());
    const QWidget* section = shown.find("frmConfigureInputOutput");
    QVERIFY(section->width() - table->width() <= 2 * 11);
}

void tst_FormAppearance::formHasNoFrameOfItsOwn()
{
    TabOnCamera tab;
    tab.showAndSettle();
    const auto* area = tab.find<QScrollArea>("scrollArea");
    QCOMPARE(area->geometry(), tab.tab.rect());
    QCOMPARE(area->viewport()->size(), area->size());

    DialogOnCamera dialog;
    dialog.showAndSettle();
    for (const char* name : {"scrollArea", "scrollArea_2"})
        QCOMPARE(dialog.find<QScrollArea>(name)->frameWidth(), 0);
}

void tst_FormAppearance::nothingIsClippedAtWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("narrowest") << 350;
    QTest::newRow("initial") << 517;
    QTest::newRow("wide") << 900;
}

void tst_FormAppearance::nothingIsClippedAtWidth()
{
    QFETCH(int, width);
    TabOnCamera shown;
    shown.tab.resize(width, 400);
    shown.showAndSettle();
    for (const char* name :
         {"chkTooltips", "lblTriggerSource", "cmbTriggerSource", "lblTriggerActivation",
          "cmbTriggerActivation", "lblTriggerSelector", "cmbTriggerSelector", "lblTriggerMode",
          "cmbTriggerMode", "lblTriggerDelay", "spbTriggerDelay", "btnTriggerSoftware"})
        QVERIFY2(shown.find(name)->width() >= shown.find(name)->sizeHint().width(), name);
    const auto left = [&](const char* name) { return shown.find(name)->x(); };
    QCOMPARE(left("cmbTriggerSource"), left("cmbTriggerSelector"));
    QCOMPARE(left("cmbTriggerSource"), left("spbTriggerDelay"));
    QCOMPARE(left("cmbTriggerActivation"), left("cmbTriggerMode"));
    QCOMPARE(left("cmbTriggerActivation"), left("btnTriggerSoftware"));
}

QTEST_MAIN(tst_FormAppearance)
#include "tst_FormAppearance.moc"
