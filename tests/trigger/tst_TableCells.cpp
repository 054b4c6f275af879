// The cells of the line table one by one: lamp, check box and duration.
#include "tests/trigger/TableForm.h"

#include <QLayout>
#include <QTest>

namespace {

/// A form on a screen with four pixels in the place of one.
class DenseForm : public TableForm
{
public:
    using TableForm::TableForm;

protected:
    int metric(PaintDeviceMetric property) const override
    {
        constexpr qreal ratio = 2.0;
        if (property == PdmDevicePixelRatio)
            return int(ratio);
        return property == PdmDevicePixelRatioScaled ? int(ratio * devicePixelRatioFScale())
                                                     : TableForm::metric(property);
    }
};

} // namespace

class tst_TableCells : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void checkBoxIsCentredWithoutMargins();
    void lampShowsItsImageInTheMiddle();
    void lampIsCrispOnADenseScreen();
    void lampIsLitWhileTheLineIsHigh();
    void disabledLampIsDrawnGrey();
    void durationKeepsSixDecimalsAndTheStepOfTheCamera();
    void durationWithoutIncrementStepsByAHundredth();
    void typedDurationCountsOnceComplete();

private:
    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TableForm> m_form;
};

void tst_TableCells::init()
{
    m_camera = tableCamera();
    m_form = std::make_unique<TableForm>(*m_camera);
}

void tst_TableCells::cleanup()
{
    m_form.reset();
    m_camera.reset();
}

void tst_TableCells::checkBoxIsCentredWithoutMargins()
{
    m_form->build();
    const auto& box = m_form->cell<QCheckBox>("chkLine0_LineInverter");
    const QWidget* container = m_form->table.cellWidget(0, 1);
    QCOMPARE(box.parentWidget(), container);
    QCOMPARE(container->metaObject()->className(), "QWidget");
    QCOMPARE(container->contentsMargins(), QMargins());
    QCOMPARE(container->layout()->metaObject()->className(), "QHBoxLayout");
    QCOMPARE(container->layout()->contentsMargins(), QMargins());
    QCOMPARE(container->layout()->itemAt(0)->alignment(), Qt::AlignCenter);
}

void tst_TableCells::lampShowsItsImageInTheMiddle()
{
    m_form->build();
    const auto& lamp = m_form->cell<QLabel>("lblLine0_LineStatus");
    QCOMPARE(lamp.alignment(), Qt::AlignCenter);
    const QPixmap image(":/AdvTriggerWidget/ledon.png");
    QVERIFY(!image.isNull());
    QCOMPARE(image.size(), QSize(16, 16));
    QCOMPARE(lamp.pixmap(Qt::ReturnByValue).toImage(), image.toImage());
}

void tst_TableCells::lampIsCrispOnADenseScreen()
{
    DenseForm dense(*m_camera);
    dense.build();
    const QPixmap image = dense.cell<QLabel>("lblLine0_LineStatus").pixmap(Qt::ReturnByValue);
    // The same size to the eye.
    QCOMPARE(image.size(), QSize(32, 32));
    QCOMPARE(image.devicePixelRatio(), 2.0);
    QCOMPARE(image.toImage(), QPixmap(":/AdvTriggerWidget/ledon@2x.png").toImage());
}

void tst_TableCells::lampIsLitWhileTheLineIsHigh()
{
    (*m_camera)["LineStatus"].stateFor("Line1").boolean = true;
    m_form->build();
    QVERIFY(!m_form->cell<QLabel>("lblLine0_LineStatus").isEnabled());
    QVERIFY(m_form->cell<QLabel>("lblLine1_LineStatus").isEnabled());
}

void tst_TableCells::disabledLampIsDrawnGrey()
{
    (*m_camera)["LineStatus"].stateFor("Line1").boolean = true;
    m_form->build();
    const auto saturation = [&](const char* name) {
        auto& lamp = m_form->cell<QLabel>(name);
        lamp.resize(16, 16);
        return lamp.grab().toImage().pixelColor(lamp.width() / 2, lamp.height() / 2).saturation();
    };
    QVERIFY(saturation("lblLine1_LineStatus") > 150);
    QVERIFY(saturation("lblLine0_LineStatus") < 30);
}

void tst_TableCells::durationKeepsSixDecimalsAndTheStepOfTheCamera()
{
    Fake::State& state = (*m_camera)["LineDebounceDuration"].stateFor("Line0");
    state.real = 0.000125;
    state.minReal = 0.000001;
    state.maxReal = 0.5;
    state.incrementReal = 0.000125;
    m_form->build();
    const auto& box = m_form->cell<QDoubleSpinBox>("spbLine0_LineDebounceDuration");
    QCOMPARE(box.decimals(), 6);
    QCOMPARE(box.minimum(), 0.000001);
    QCOMPARE(box.maximum(), 0.5);
    QCOMPARE(box.singleStep(), 0.000125);
    QCOMPARE(box.value(), 0.000125);
}

void tst_TableCells::durationWithoutIncrementStepsByAHundredth()
{
    m_form->build();
    QCOMPARE(m_form->cell<QDoubleSpinBox>("spbLine0_LineDebounceDuration").singleStep(), 0.01);
}

void tst_TableCells::typedDurationCountsOnceComplete()
{
    m_form->build();
    QVERIFY(!m_form->cell<QDoubleSpinBox>("spbLine0_LineDebounceDuration").keyboardTracking());
}

QTEST_MAIN(tst_TableCells)
#include "tst_TableCells.moc"
