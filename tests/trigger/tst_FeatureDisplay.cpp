// Values and limits of features as a form shows them.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/Rows.h"
#include "trigger/FeatureDisplay.h"

#include <QDoubleValidator>
#include <QTest>

#include <limits>

class tst_FeatureDisplay : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void integerIsShown_data();
    void integerIsShown();
    void floatIsShown_data();
    void floatIsShown();
    void floatInHexadecimalSaturates_data();
    void floatInHexadecimalSaturates();
    void textIsShownAsItIs();
    void unreadableFeatureHasNoTextAndIsNotRead();
    void valueIsATextOrANumber_data();
    void valueIsATextOrANumber();
    void anythingButZeroIsOn_data();
    void anythingButZeroIsOn();

    void rangeIsTheCamerasInWholeIncrements();
    void stepIsTheCamerasIncrement_data();
    void stepIsTheCamerasIncrement();
    void unknownRangeIsMinusOne();
    void limitsAreKnownOfARangeAndOfHexadecimals_data();
    void limitsAreKnownOfARangeAndOfHexadecimals();
    void decimalValidatorHasTheFeaturesLimits();
    void decimalInput_data();
    void decimalInput();
    void hexInput_data();
    void hexInput();
    void openInput_data();
    void openInput();

    void readsOnly();

private:
    /// A display of the features that the camera has by now.
    FeatureDisplay& shown();
    QValidator::State judge(const QString& feature, QString text);

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<FeatureManager> m_features;
    std::unique_ptr<FeatureDisplay> m_display;
    QObject m_field;
};

void tst_FeatureDisplay::init()
{
    m_camera = std::make_unique<Fake::FakeCamera>();
}

void tst_FeatureDisplay::cleanup()
{
    m_display.reset();
    m_features.reset();
    m_camera.reset();
}

FeatureDisplay& tst_FeatureDisplay::shown()
{
    m_features = std::make_unique<FeatureManager>(FeatureTest::wrap(*m_camera));
    m_display = std::make_unique<FeatureDisplay>(*m_features);
    return *m_display;
}

QValidator::State tst_FeatureDisplay::judge(const QString& feature, QString text)
{
    int position = 0;
    return shown().newValidator(feature, &m_field)->validate(text, position);
}

void tst_FeatureDisplay::integerIsShown_data()
{
    columns<qlonglong, QString, QString>("value", "representation", "text");
    const qlonglong lowest = std::numeric_limits<qlonglong>::min();
    row("small", 42LL, "", "42");
    row("negative", -42LL, "Linear", "-42");
    row("more than six digits", 4294967295LL, "PureNumber", "4294967295");
    row("long zeros go into the exponent", 1000000000LL, "", "1e+09");
    row("hexadecimal", 0xabcdefLL, "HexNumber", "0xABCDEF");
    row("hexadecimal zero", 0LL, "HexNumber", "0x0");
    row("hexadecimal 32 bits", 4294967295LL, "HexNumber", "0xFFFFFFFF");
    row("negative is its 64-bit pattern", -1LL, "HexNumber", "0xFFFFFFFFFFFFFFFF");
    row("lowest", lowest, "HexNumber", "0x8000000000000000");
    row("other spelling", 255LL, "hexnumber", "255");
}

void tst_FeatureDisplay::integerIsShown()
{
    QFETCH(qlonglong, value);
    QFETCH(QString, representation);
    m_camera->addInteger("Number", value)->representation = representation.toStdString();
    QTEST(shown().text("Number").value(), "text");
}

void tst_FeatureDisplay::floatIsShown_data()
{
    columns<double, QString>("value", "text");
    row("tenth", 0.1, "0.1");
    row("third", 1.0 / 3.0, "0.3333333333333333");
    row("whole", 1000.0, "1000");
    row("tiny", 1e-7, "1e-07");
    row("all digits", 123456789.123, "123456789.123");
    row("not a number", std::numeric_limits<double>::quiet_NaN(), "nan");
    row("infinite", std::numeric_limits<double>::infinity(), "inf");
}

void tst_FeatureDisplay::floatIsShown()
{
    QFETCH(double, value);
    m_camera->addFloat("Number", value);
    QTEST(shown().text("Number").value(), "text");
}

void tst_FeatureDisplay::floatInHexadecimalSaturates_data()
{
    columns<double, QString>("value", "text");
    row("fraction goes", 255.9, "0xFF");
    row("above", 1e30, "0x7FFFFFFFFFFFFFFF");
    row("below", -1e30, "0x8000000000000000");
    row("not a number", std::numeric_limits<double>::quiet_NaN(), "0x0");
}

void tst_FeatureDisplay::floatInHexadecimalSaturates()
{
    QFETCH(double, value);
    m_camera->addFloat("Number", value)->representation = "HexNumber";
    QTEST(shown().text("Number").value(), "text");
}

void tst_FeatureDisplay::textIsShownAsItIs()
{
    m_camera->addString("Name", "0x10 \xC3\xA4")->representation = "HexNumber";
    QCOMPARE(shown().text("Name").value(), QString::fromUtf8("0x10 \xC3\xA4"));
    m_camera->addEnum("Mode", {"Off", "On"}, "On");
    QCOMPARE(shown().text("Mode").value(), QString("On"));
}

void tst_FeatureDisplay::unreadableFeatureHasNoTextAndIsNotRead()
{
    m_camera->addInteger("Number", 7)->state().readable = false;
    QVERIFY(!shown().text("Number"));
    QCOMPARE(m_camera->callCount("GetIntegerValue", "Number"), 0);
}

void tst_FeatureDisplay::valueIsATextOrANumber_data()
{
    columns<QString, QVariant>("feature", "value");
    row("integer", "Count", QVariant(42.0));
    row("float", "Delay", QVariant(2.5));
    row("boolean", "Flag", QVariant(1.0));
    row("enumeration", "Mode", QVariant(QString("On")));
    row("text", "Family", QVariant(QString("Two words")));
    row("command", "Go", QVariant(-1.0));
    row("no such feature", "Missing", QVariant(-1.0));
}

void tst_FeatureDisplay::valueIsATextOrANumber()
{
    QFETCH(QString, feature);
    QFETCH(QVariant, value);
    m_camera = FeatureTest::mixedCamera();
    const QVariant shownValue = shown().value(feature);
    QCOMPARE(shownValue.type(), value.type());
    QCOMPARE(shownValue, value);
}

void tst_FeatureDisplay::anythingButZeroIsOn_data()
{
    columns<double, bool>("number", "on");
    row("zero", 0.0, false);
    row("negative zero", -0.0, false);
    row("one", 1.0, true);
    row("unreadable", -1.0, true);
    row("small", 1e-300, true);
    row("not a number", std::numeric_limits<double>::quiet_NaN(), true);
}

void tst_FeatureDisplay::anythingButZeroIsOn()
{
    QFETCH(double, number);
    m_camera->addFloat("Number", number);
    QTEST(FeatureDisplay::isOn(shown().number("Number")), "on");
}

void tst_FeatureDisplay::rangeIsTheCamerasInWholeIncrements()
{
    m_camera->addInteger("Number", 0, -5, 1023, 16);
    const FeatureRange range = shown().range("Number");
    QCOMPARE(range.min, -5.0);
    QCOMPARE(range.max, 1008.0);
}

void tst_FeatureDisplay::stepIsTheCamerasIncrement_data()
{
    columns<QString, double>("feature", "step");
    row("increment", "Whole", 16.0);
    row("float without one", "Real", 0.01);
    row("no such feature", "Missing", -1.0);
}

void tst_FeatureDisplay::stepIsTheCamerasIncrement()
{
    QFETCH(QString, feature);
    m_camera->addInteger("Whole", 0, -5, 1023, 16);
    m_camera->addFloat("Real", 0.0, 0.0, 1.0);
    QTEST(shown().steppedRange(feature).step, "step");
}

void tst_FeatureDisplay::unknownRangeIsMinusOne()
{
    m_camera->addFloat("Number", 7.0)->state().hasRange = false;
    const FeatureRange range = shown().range("Number");
    QCOMPARE(range.min, -1.0);
    QCOMPARE(range.max, -1.0);
}

void tst_FeatureDisplay::limitsAreKnownOfARangeAndOfHexadecimals_data()
{
    columns<bool, double, QString, bool>("hasRange", "increment", "representation", "known");
    row("range", true, 0.0, "Linear", true);
    row("none", false, 0.0, "Linear", false);
    // Fitted to it, an unknown maximum becomes another number.
    row("none, with an increment", false, 2.0, "Linear", false);
    row("hexadecimal", false, 0.0, "HexNumber", true);
}

void tst_FeatureDisplay::limitsAreKnownOfARangeAndOfHexadecimals()
{
    QFETCH(bool, hasRange);
    QFETCH(double, increment);
    QFETCH(QString, representation);
    const auto feature = m_camera->addFloat("Number", 7.0);
    feature->state().hasRange = hasRange;
    if (increment > 0.0)
        feature->state().incrementReal = increment;
    feature->representation = representation.toStdString();
    QTEST(shown().knowsLimits("Number"), "known");
}

void tst_FeatureDisplay::decimalValidatorHasTheFeaturesLimits()
{
    // The upper limit is the largest multiple of the increment.
    m_camera->addInteger("Number", 0, -5, 1023, 16);
    const auto* validator =
        qobject_cast<const QDoubleValidator*>(shown().newValidator("Number", &m_field));
    QVERIFY(validator);
    QCOMPARE(validator->parent(), &m_field);
    QCOMPARE(validator->bottom(), -5.0);
    QCOMPARE(validator->top(), 1008.0);
    QCOMPARE(validator->decimals(), 10);
}

void tst_FeatureDisplay::decimalInput_data()
{
    columns<QString, int>("text", "state");
    row("empty", "", int(QValidator::Acceptable));
    row("within", "12.5", int(QValidator::Acceptable));
    row("with an exponent", "1e2", int(QValidator::Acceptable));
    row("ten decimals", "1.0123456789", int(QValidator::Acceptable));
    row("eleven decimals", "1.01234567891", int(QValidator::Invalid));
    row("above", "2000", int(QValidator::Intermediate));
    row("letters", "abc", int(QValidator::Invalid));
    row("blank", " ", int(QValidator::Invalid));
    row("decimal comma", "1,5", int(QValidator::Acceptable));
    row("group separators", "1,000.5", int(QValidator::Invalid));
    row("hexadecimal", "0x1F", int(QValidator::Invalid));
}

void tst_FeatureDisplay::decimalInput()
{
    QFETCH(QString, text);
    m_camera->addFloat("Number", 0.0, 0.0, 1000.0);
    QTEST(int(judge("Number", text)), "state");
}

void tst_FeatureDisplay::hexInput_data()
{
    columns<QString, int>("text", "state");
    row("one digit", "0x1", int(QValidator::Acceptable));
    row("sixteen digits", "0x0123456789abcdEF", int(QValidator::Acceptable));
    row("seventeen digits", "0x0123456789abcdEF0", int(QValidator::Invalid));
    row("no digits", "0x", int(QValidator::Intermediate));
    row("empty", "", int(QValidator::Intermediate));
    row("decimal", "12", int(QValidator::Invalid));
    row("upper-case X", "0X1", int(QValidator::Invalid));
    row("no hexadecimal digit", "0xG", int(QValidator::Invalid));
    row("text behind", "0x1 ", int(QValidator::Invalid));
}

void tst_FeatureDisplay::hexInput()
{
    QFETCH(QString, text);
    m_camera->addInteger("Number", 7)->representation = "HexNumber";
    QTEST(int(judge("Number", text)), "state");
}

void tst_FeatureDisplay::openInput_data()
{
    columns<QString, int>("text", "state");
    row("empty", "", int(QValidator::Acceptable));
    row("number", "2.5", int(QValidator::Acceptable));
    row("large", "1e300", int(QValidator::Acceptable));
    row("lowest", "-1", int(QValidator::Acceptable));
    row("letters", "abc", int(QValidator::Invalid));
    row("hexadecimal", "0x1F", int(QValidator::Invalid));
}

void tst_FeatureDisplay::openInput()
{
    QFETCH(QString, text);
    int position = 0;
    const QValidator* validator = FeatureDisplay::newOpenValidator(&m_field);
    QCOMPARE(validator->parent(), &m_field);
    QTEST(int(validator->validate(text, position)), "state");
}

void tst_FeatureDisplay::readsOnly()
{
    m_camera = FeatureTest::mixedCamera();
    const FeatureDisplay& all = shown();
    for (const char* feature : {"Count", "Delay", "Flag", "Family", "Mode", "Data", "Go"}) {
        all.text(feature);
        all.value(feature);
        all.number(feature);
        all.steppedRange(feature);
        all.knowsLimits(feature);
        all.newValidator(feature, &m_field);
    }
    QCOMPARE(m_camera->writes(), std::vector<std::string>());
}

QTEST_MAIN(tst_FeatureDisplay)
#include "tst_FeatureDisplay.moc"
