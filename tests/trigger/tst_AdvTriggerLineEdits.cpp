// Texts and limits of line edits.
#include "tests/trigger/TestEngine.h"

#include <QDoubleValidator>
#include <QLineEdit>
#include <QLocale>
#include <QTest>

#include <limits>

class tst_AdvTriggerLineEdits : public QObject
{
    Q_OBJECT

private slots:
    void init() { camera = acceptedCamera(); }
    void cleanup();

    void integerIsShown_data();
    void integerIsShown();
    void floatIsShown_data();
    void floatIsShown();
    void floatInHexadecimalSaturates_data();
    void floatInHexadecimalSaturates();
    void textIsShownAsItIs();
    void refreshFormatsAsTheBindingDoes_data();
    void refreshFormatsAsTheBindingDoes();
    void unreadableFeatureIsShownEmpty();
    void writableButUnreadableFeatureCanBeEdited();

    void textsHaveNoValidator();
    void readOnlyFeatureHasNoValidator();
    void decimalValidatorHasTheFeaturesLimits();
    void firstRefreshThatCanLimitsTheInput_data();
    void firstRefreshThatCanLimitsTheInput();
    void refreshWithoutLimitsTakesAnyNumber();
    void refreshSetsLimitsThatOpeningLost_data();
    void refreshSetsLimitsThatOpeningLost();
    void textTakenForANumberLosesItsLimits();
    void refreshKeepsTheValidator();
    void refreshGivesTextsNoValidator();
    void decimalInput_data();
    void decimalInput();
    void decimalInputIsInCNotationEverywhere();
    void hexInput_data();
    void hexInput();

private:
    QLineEdit& bind(const QString& objectName);
    QValidator::State judge(const QLineEdit& edit, QString text) const;

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<TestEngine> engine;
};

void tst_AdvTriggerLineEdits::cleanup()
{
    engine.reset();
    camera.reset();
    QLocale::setDefault(QLocale::c()); // one test lives in Germany
}

QLineEdit& tst_AdvTriggerLineEdits::bind(const QString& objectName)
{
    engine = std::make_unique<TestEngine>(*camera);
    auto& edit = engine->add<QLineEdit>(objectName);
    edit.setText("from the form");
    engine->InitBaseWidgets();
    return edit;
}

QValidator::State tst_AdvTriggerLineEdits::judge(const QLineEdit& edit, QString text) const
{
    int position = 0;
    return edit.validator()->validate(text, position);
}

void tst_AdvTriggerLineEdits::integerIsShown_data()
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

void tst_AdvTriggerLineEdits::integerIsShown()
{
    QFETCH(qlonglong, value);
    QFETCH(QString, representation);
    camera->addInteger("Number", value)->representation = representation.toStdString();
    QTEST(bind("txtNumber").text(), "text");
}

void tst_AdvTriggerLineEdits::floatIsShown_data()
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

void tst_AdvTriggerLineEdits::floatIsShown()
{
    QFETCH(double, value);
    camera->addFloat("Number", value);
    QTEST(bind("txtNumber").text(), "text");
}

void tst_AdvTriggerLineEdits::floatInHexadecimalSaturates_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("fraction goes") << 255.9 << "0xFF";
    QTest::newRow("above") << 1e30 << "0x7FFFFFFFFFFFFFFF";
    QTest::newRow("below") << -1e30 << "0x8000000000000000";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "0x0";
}

void tst_AdvTriggerLineEdits::floatInHexadecimalSaturates()
{
    QFETCH(double, value);
    camera->addFloat("Number", value)->representation = "HexNumber";
    QTEST(bind("txtNumber").text(), "text");
}

void tst_AdvTriggerLineEdits::textIsShownAsItIs()
{
    camera->addString("Name", "0x10 \xC3\xA4")->representation = "HexNumber";
    QCOMPARE(bind("txtName").text(), QString::fromUtf8("0x10 \xC3\xA4"));
    camera->addEnum("Mode", {"Off", "On"}, "On");
    QCOMPARE(bind("txtMode").text(), QString("On"));
}

void tst_AdvTriggerLineEdits::refreshFormatsAsTheBindingDoes_data()
{
    integerIsShown_data();
}

void tst_AdvTriggerLineEdits::refreshFormatsAsTheBindingDoes()
{
    QFETCH(qlonglong, value);
    QFETCH(QString, representation);
    auto feature = camera->addInteger("Number", 7);
    feature->representation = representation.toStdString();
    QLineEdit& edit = bind("txtNumber");
    feature->state().integer = value;
    engine->refresh({"Number"});
    QTEST(edit.text(), "text");
}

void tst_AdvTriggerLineEdits::unreadableFeatureIsShownEmpty()
{
    auto feature = camera->addInteger("Number", 7);
    feature->state().readable = false;
    feature->state().writable = false;
    const QLineEdit& edit = bind("txtNumber");
    QCOMPARE(edit.text(), QString());
    QVERIFY(!edit.isEnabled());
    QCOMPARE(camera->callCount("GetIntegerValue", "Number"), 0);
}

void tst_AdvTriggerLineEdits::writableButUnreadableFeatureCanBeEdited()
{
    camera->addInteger("Number", 7)->state().readable = false;
    QLineEdit& edit = bind("txtNumber");
    QCOMPARE(edit.text(), QString());
    QVERIFY(edit.isEnabled());
    QVERIFY(edit.validator());
}

void tst_AdvTriggerLineEdits::textsHaveNoValidator()
{
    camera->addString("Name", "x")->representation = "HexNumber";
    QVERIFY(!bind("txtName").validator());
    camera->addEnum("Mode", {"Off", "On"}, "On");
    QVERIFY(!bind("txtMode").validator());
}

void tst_AdvTriggerLineEdits::readOnlyFeatureHasNoValidator()
{
    camera->addInteger("Number", 7)->state().writable = false;
    QVERIFY(!bind("txtNumber").validator());
}

void tst_AdvTriggerLineEdits::decimalValidatorHasTheFeaturesLimits()
{
    // The upper limit is the largest multiple of the increment.
    camera->addInteger("Number", 0, -5, 1023, 16);
    const auto* validator = qobject_cast<const QDoubleValidator*>(bind("txtNumber").validator());
    QVERIFY(validator);
    QCOMPARE(validator->bottom(), -5.0);
    QCOMPARE(validator->top(), 1008.0);
    QCOMPARE(validator->decimals(), 10);
}

void tst_AdvTriggerLineEdits::firstRefreshThatCanLimitsTheInput_data()
{
    QTest::addColumn<QString>("representation");
    QTest::addColumn<QString>("accepted");
    QTest::addColumn<QString>("refused");
    QTest::newRow("decimal") << ""
                             << "12.5"
                             << "0x1F";
    QTest::newRow("hexadecimal") << "HexNumber"
                                 << "0x1F"
                                 << "12.5";
}

void tst_AdvTriggerLineEdits::firstRefreshThatCanLimitsTheInput()
{
    QFETCH(QString, representation);
    QFETCH(QString, accepted);
    QFETCH(QString, refused);
    camera->addInteger("Number", 7, 0, 1000)->representation = representation.toStdString();
    camera->failCall("IsWritable", "Number", ZalErrorTimeout);
    QLineEdit& edit = bind("txtNumber");
    QVERIFY(!edit.isEnabled());
    engine->refresh({"Number"});
    QVERIFY(!edit.validator());
    camera->clearFailures();
    engine->refresh({"Number"});
    QVERIFY(edit.isEnabled());
    QVERIFY(edit.validator());
    QCOMPARE(judge(edit, accepted), QValidator::Acceptable);
    QCOMPARE(judge(edit, refused), QValidator::Invalid);
}

// Limits that are not known would let nothing be typed.
void tst_AdvTriggerLineEdits::refreshWithoutLimitsTakesAnyNumber()
{
    auto feature = camera->addFloat("Number", 7.0, 0.0, 1000.0);
    camera->failCall("IsWritable", "Number", ZalErrorTimeout);
    QLineEdit& edit = bind("txtNumber");
    camera->clearFailures();
    feature->state().hasRange = false;
    engine->refresh({"Number"});
    QVERIFY(edit.isEnabled());
    // What is no number would be written as 0.
    QCOMPARE(judge(edit, "abc"), QValidator::Invalid);
    QCOMPARE(judge(edit, "2.5"), QValidator::Acceptable);
    QCOMPARE(judge(edit, "1e300"), QValidator::Acceptable);
    feature->state().hasRange = true;
    engine->refresh({"Number"});
    const auto* validator = qobject_cast<const QDoubleValidator*>(edit.validator());
    QVERIFY(validator);
    QCOMPARE(validator->bottom(), 0.0);
    QCOMPARE(validator->top(), 1000.0);
    QCOMPARE(validator->decimals(), 10);
}

void tst_AdvTriggerLineEdits::refreshSetsLimitsThatOpeningLost_data()
{
    QTest::addColumn<double>("increment"); // 0: none
    QTest::newRow("without an increment") << 0.0;
    // Fitted to it, an unknown maximum becomes another number.
    QTest::newRow("with an increment") << 2.0;
}

void tst_AdvTriggerLineEdits::refreshSetsLimitsThatOpeningLost()
{
    QFETCH(double, increment);
    auto feature = camera->addFloat("Number", 7.0, 0.0, 1000.0);
    if (increment > 0.0)
        feature->state().incrementReal = increment;
    feature->state().hasRange = false;
    QLineEdit& edit = bind("txtNumber");
    QVERIFY(edit.isEnabled());
    engine->refresh({"Number"});
    QVERIFY(!edit.hasAcceptableInput());
    feature->state().hasRange = true;
    engine->refresh({"Number"});
    QVERIFY(edit.hasAcceptableInput());
    QCOMPARE(judge(edit, "2000"), QValidator::Intermediate);
    QCOMPARE(judge(edit, "1.01234567891"), QValidator::Invalid);
    // Once they are known, nobody is asked again.
    camera->clearLog();
    engine->refresh({"Number"});
    QCOMPARE(camera->callCount("GetFloatRange", "Number"), 0);
}

void tst_AdvTriggerLineEdits::textTakenForANumberLosesItsLimits()
{
    camera->addString("Name", "x");
    camera->failCall("GetDataType", "Name");
    QLineEdit& edit = bind("txtName");
    QVERIFY(edit.isEnabled());
    QCOMPARE(judge(edit, "y"), QValidator::Invalid);
    camera->clearFailures();
    engine->refresh({"Name"});
    QVERIFY(!edit.validator());
    QCOMPARE(edit.text(), QString("x"));
}

void tst_AdvTriggerLineEdits::refreshKeepsTheValidator()
{
    camera->addFloat("Number", 7.0, 0.0, 1000.0);
    QLineEdit& edit = bind("txtNumber");
    const QValidator* first = edit.validator();
    camera->clearLog();
    engine->refresh({"Number"});
    QCOMPARE(edit.validator(), first);
    QCOMPARE(camera->callCount("GetFloatRange", "Number"), 0);
}

void tst_AdvTriggerLineEdits::refreshGivesTextsNoValidator()
{
    camera->addString("Name", "x")->state().writable = false;
    QLineEdit& edit = bind("txtName");
    camera->find("Name")->state().writable = true;
    engine->refresh({"Name"});
    QVERIFY(edit.isEnabled());
    QVERIFY(!edit.validator());
}

void tst_AdvTriggerLineEdits::decimalInput_data()
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

void tst_AdvTriggerLineEdits::decimalInput()
{
    QFETCH(QString, text);
    camera->addFloat("Number", 0.0, 0.0, 1000.0);
    QTEST(int(judge(bind("txtNumber"), text)), "state");
}

void tst_AdvTriggerLineEdits::decimalInputIsInCNotationEverywhere()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    camera->addFloat("Number", 2.5, 0.0, 1000.0);
    QLineEdit& edit = bind("txtNumber");
    QCOMPARE(edit.text(), QString("2.5"));
    QVERIFY(edit.hasAcceptableInput());
    QCOMPARE(judge(edit, "2.5"), QValidator::Acceptable);
    QCOMPARE(judge(edit, "2.000,5"), QValidator::Invalid);
}

void tst_AdvTriggerLineEdits::hexInput_data()
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

void tst_AdvTriggerLineEdits::hexInput()
{
    QFETCH(QString, text);
    camera->addInteger("Number", 7)->representation = "HexNumber";
    QTEST(int(judge(bind("txtNumber"), text)), "state");
}

QTEST_MAIN(tst_AdvTriggerLineEdits)
#include "tst_AdvTriggerLineEdits.moc"
