// Values and limits of features as a form shows them.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
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

    void rangeIsTheCamerasInWholeIncrements();
    void unknownRangeIsMinusOne();
    void limitsAreKnownOfARangeAndOfHexadecimals_data();
    void limitsAreKnownOfARangeAndOfHexadecimals();
    void decimalValidatorHasTheFeaturesLimits();
    void decimalInput_data();
    void decimalInput();
    void hexInput_data();
    void hexInput();

    void readsOnly();

private:
    /// A display of the features that the camera has by now.
    FeatureDisplay& shown();
    QValidator::State judge(const QString& feature, QString text);

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<FeatureManager> features;
    std::unique_ptr<FeatureDisplay> display;
    QObject field;
};

void tst_FeatureDisplay::init()
{
    camera = std::make_unique<Fake::FakeCamera>();
}

void tst_FeatureDisplay::cleanup()
{
    display.reset();
    features.reset();
    camera.reset();
}

FeatureDisplay& tst_FeatureDisplay::shown()
{
    features = std::make_unique<FeatureManager>(FeatureTest::wrap(*camera));
    display = std::make_unique<FeatureDisplay>(*features);
    return *display;
}

QValidator::State tst_FeatureDisplay::judge(const QString& feature, QString text)
{
    int position = 0;
    return shown().newValidator(feature, &field)->validate(text, position);
}

void tst_FeatureDisplay::integerIsShown_data()
{
    QTest::addColumn<qlonglong>("value");
    QTest::addColumn<QString>("representation");
    QTest::addColumn<QString>("text");
    const qlonglong lowest = std::numeric_limits<qlonglong>::min();
    QTest::newRow("small") << 42LL << ""
                           << "42";
    QTest::newRow("negative") << -42LL << "Linear"
                              << "-42";
    QTest::newRow("more than six digits") << 4294967295LL << "PureNumber"
                                          << "4294967295";
    QTest::newRow("long zeros go into the exponent") << 1000000000LL << ""
                                                     << "1e+09";
    QTest::newRow("hexadecimal") << 0xabcdefLL << "HexNumber"
                                 << "0xABCDEF";
    QTest::newRow("hexadecimal zero") << 0LL << "HexNumber"
                                      << "0x0";
    QTest::newRow("hexadecimal 32 bits") << 4294967295LL << "HexNumber"
                                         << "0xFFFFFFFF";
    QTest::newRow("negative is its 64-bit pattern") << -1LL << "HexNumber"
                                                    << "0xFFFFFFFFFFFFFFFF";
    QTest::newRow("lowest") << lowest << "HexNumber"
                            << "0x8000000000000000";
    QTest::newRow("other spelling") << 255LL << "hexnumber"
                                    << "255";
}

void tst_FeatureDisplay::integerIsShown()
{
    QFETCH(qlonglong, value);
    QFETCH(QString, representation);
    camera->addInteger("Number", value)->representation = representation.toStdString();
    QTEST(shown().text("Number").value(), "text");
}

void tst_FeatureDisplay::floatIsShown_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("tenth") << 0.1 << "0.1";
    QTest::newRow("third") << 1.0 / 3.0 << "0.3333333333333333";
    QTest::newRow("whole") << 1000.0 << "1000";
    QTest::newRow("tiny") << 1e-7 << "1e-07";
    QTest::newRow("all digits") << 123456789.123 << "123456789.123";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "nan";
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << "inf";
}

void tst_FeatureDisplay::floatIsShown()
{
    QFETCH(double, value);
    camera->addFloat("Number", value);
    QTEST(shown().text("Number").value(), "text");
}

void tst_FeatureDisplay::floatInHexadecimalSaturates_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("fraction goes") << 255.9 << "0xFF";
    QTest::newRow("above") << 1e30 << "0x7FFFFFFFFFFFFFFF";
    QTest::newRow("below") << -1e30 << "0x8000000000000000";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "0x0";
}

void tst_FeatureDisplay::floatInHexadecimalSaturates()
{
    QFETCH(double, value);
    camera->addFloat("Number", value)->representation = "HexNumber";
    QTEST(shown().text("Number").value(), "text");
}

void tst_FeatureDisplay::textIsShownAsItIs()
{
    camera->addString("Name", "0x10 \xC3\xA4")->representation = "HexNumber";
    QCOMPARE(shown().text("Name").value(), QString::fromUtf8("0x10 \xC3\xA4"));
    camera->addEnum("Mode", {"Off", "On"}, "On");
    QCOMPARE(shown().text("Mode").value(), QString("On"));
}

void tst_FeatureDisplay::unreadableFeatureHasNoTextAndIsNotRead()
{
    camera->addInteger("Number", 7)->state().readable = false;
    QVERIFY(!shown().text("Number"));
    QCOMPARE(camera->callCount("GetIntegerValue", "Number"), 0);
}

void tst_FeatureDisplay::valueIsATextOrANumber_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("integer") << "Count" << QVariant(42.0);
    QTest::newRow("float") << "Delay" << QVariant(2.5);
    QTest::newRow("boolean") << "Flag" << QVariant(1.0);
    QTest::newRow("enumeration") << "Mode" << QVariant(QString("On"));
    QTest::newRow("text") << "Family" << QVariant(QString("Two words"));
    QTest::newRow("command") << "Go" << QVariant(-1.0);
    QTest::newRow("no such feature") << "Missing" << QVariant(-1.0);
}

void tst_FeatureDisplay::valueIsATextOrANumber()
{
    QFETCH(QString, feature);
    QFETCH(QVariant, value);
    camera = FeatureTest::mixedCamera();
    const QVariant shownValue = shown().value(feature);
    QCOMPARE(shownValue.type(), value.type());
    QCOMPARE(shownValue, value);
}

void tst_FeatureDisplay::rangeIsTheCamerasInWholeIncrements()
{
    camera->addInteger("Number", 0, -5, 1023, 16);
    const FeatureRange range = shown().range("Number");
    QCOMPARE(range.min, -5.0);
    QCOMPARE(range.max, 1008.0);
}

void tst_FeatureDisplay::unknownRangeIsMinusOne()
{
    camera->addFloat("Number", 7.0)->state().hasRange = false;
    const FeatureRange range = shown().range("Number");
    QCOMPARE(range.min, -1.0);
    QCOMPARE(range.max, -1.0);
}

void tst_FeatureDisplay::limitsAreKnownOfARangeAndOfHexadecimals_data()
{
    QTest::addColumn<bool>("hasRange");
    QTest::addColumn<double>("increment"); // 0: none
    QTest::addColumn<QString>("representation");
    QTest::addColumn<bool>("known");
    QTest::newRow("range") << true << 0.0 << "Linear" << true;
    QTest::newRow("none") << false << 0.0 << "Linear" << false;
    // Fitted to it, an unknown maximum becomes another number.
    QTest::newRow("none, with an increment") << false << 2.0 << "Linear" << false;
    QTest::newRow("hexadecimal") << false << 0.0 << "HexNumber" << true;
}

void tst_FeatureDisplay::limitsAreKnownOfARangeAndOfHexadecimals()
{
    QFETCH(bool, hasRange);
    QFETCH(double, increment);
    QFETCH(QString, representation);
    const auto feature = camera->addFloat("Number", 7.0);
    feature->state().hasRange = hasRange;
    if (increment > 0.0)
        feature->state().incrementReal = increment;
    feature->representation = representation.toStdString();
    QTEST(shown().knowsLimits("Number"), "known");
}

void tst_FeatureDisplay::decimalValidatorHasTheFeaturesLimits()
{
    // The upper limit is the largest multiple of the increment.
    camera->addInteger("Number", 0, -5, 1023, 16);
    const auto* validator =
        qobject_cast<const QDoubleValidator*>(shown().newValidator("Number", &field));
    QVERIFY(validator);
    QCOMPARE(validator->parent(), &field);
    QCOMPARE(validator->bottom(), -5.0);
    QCOMPARE(validator->top(), 1008.0);
    QCOMPARE(validator->decimals(), 10);
}

void tst_FeatureDisplay::decimalInput_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");
    QTest::newRow("empty") << "" << int(QValidator::Acceptable);
    QTest::newRow("within") << "12.5" << int(QValidator::Acceptable);
    QTest::newRow("with an exponent") << "1e2" << int(QValidator::Acceptable);
    QTest::newRow("ten decimals") << "1.0123456789" << int(QValidator::Acceptable);
    QTest::newRow("eleven decimals") << "1.01234567891" << int(QValidator::Invalid);
    QTest::newRow("above") << "2000" << int(QValidator::Intermediate);
    QTest::newRow("letters") << "abc" << int(QValidator::Invalid);
    QTest::newRow("blank") << " " << int(QValidator::Invalid);
    QTest::newRow("decimal comma") << "1,5" << int(QValidator::Acceptable);
    QTest::newRow("group separators") << "1,000.5" << int(QValidator::Invalid);
    QTest::newRow("hexadecimal") << "0x1F" << int(QValidator::Invalid);
}

void tst_FeatureDisplay::decimalInput()
{
    QFETCH(QString, text);
    camera->addFloat("Number", 0.0, 0.0, 1000.0);
    QTEST(int(judge("Number", text)), "state");
}

void tst_FeatureDisplay::hexInput_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");
    QTest::newRow("one digit") << "0x1" << int(QValidator::Acceptable);
    QTest::newRow("sixteen digits") << "0x0123456789abcdEF" << int(QValidator::Acceptable);
    QTest::newRow("seventeen digits") << "0x0123456789abcdEF0" << int(QValidator::Invalid);
    QTest::newRow("no digits") << "0x" << int(QValidator::Intermediate);
    QTest::newRow("empty") << "" << int(QValidator::Intermediate);
    QTest::newRow("decimal") << "12" << int(QValidator::Invalid);
    QTest::newRow("upper-case X") << "0X1" << int(QValidator::Invalid);
    QTest::newRow("no hexadecimal digit") << "0xG" << int(QValidator::Invalid);
    QTest::newRow("text behind") << "0x1 " << int(QValidator::Invalid);
}

void tst_FeatureDisplay::hexInput()
{
    QFETCH(QString, text);
    camera->addInteger("Number", 7)->representation = "HexNumber";
    QTEST(int(judge("Number", text)), "state");
}

void tst_FeatureDisplay::readsOnly()
{
    camera = FeatureTest::mixedCamera();
    const FeatureDisplay& all = shown();
    for (const char* feature : {"Count", "Delay", "Flag", "Family", "Mode", "Data", "Go"}) {
        all.text(feature);
        all.value(feature);
        all.knowsLimits(feature);
        all.newValidator(feature, &field);
    }
    QCOMPARE(camera->writes(), std::vector<std::string>());
}

QTEST_MAIN(tst_FeatureDisplay)
#include "tst_FeatureDisplay.moc"
