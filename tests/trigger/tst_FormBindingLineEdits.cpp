// Texts and limits in line edits.
#include "tests/support/Rows.h"
#include "tests/trigger/PlainForm.h"

#include <QDoubleValidator>
#include <QLineEdit>
#include <QLocale>
#include <QTest>

class tst_FormBindingLineEdits : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_camera = std::make_unique<Fake::FakeCamera>(); }
    void cleanup();

    void refreshFormatsAsTheBindingDoes_data();
    void refreshFormatsAsTheBindingDoes();
    void firstTextIsTheCameras_data();
    void firstTextIsTheCameras();
    void unreadableFeatureIsShownEmpty();
    void writableButUnreadableFeatureCanBeEdited();

    void openingLimitsTheInput_data();
    void openingLimitsTheInput();
    void textsHaveNoValidator();
    void readOnlyFeatureHasNoValidator();
    void firstRefreshThatCanLimitsTheInput_data();
    void firstRefreshThatCanLimitsTheInput();
    void refreshWithoutLimitsTakesAnyNumber();
    void refreshSetsLimitsThatOpeningLost_data();
    void refreshSetsLimitsThatOpeningLost();
    void textTakenForANumberLosesItsLimits();
    void refreshKeepsTheValidator();
    void refreshGivesTextsNoValidator();
    void decimalInputIsInCNotationEverywhere();

private:
    QLineEdit& bind(const QString& objectName);
    QValidator::State judge(const QLineEdit& edit, QString text) const;

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<PlainForm> m_form;
};

void tst_FormBindingLineEdits::cleanup()
{
    m_form.reset();
    m_camera.reset();
    QLocale::setDefault(QLocale::c()); // one test lives in Germany
}

QLineEdit& tst_FormBindingLineEdits::bind(const QString& objectName)
{
    m_form = std::make_unique<PlainForm>(*m_camera);
    auto& edit = m_form->add<QLineEdit>(objectName);
    edit.setText("from the form");
    m_form->bind();
    return edit;
}

QValidator::State tst_FormBindingLineEdits::judge(const QLineEdit& edit, QString text) const
{
    int position = 0;
    return edit.validator()->validate(text, position);
}

void tst_FormBindingLineEdits::refreshFormatsAsTheBindingDoes_data()
{
    columns<QString, qlonglong, QString, qlonglong, QString>("representation", "first", "firstText",
                                                             "later", "laterText");
    row("decimal", "PureNumber", 4294967295LL, "4294967295", 4294967294LL, "4294967294");
    row("hexadecimal", "HexNumber", 0xabcdefLL, "0xABCDEF", 0xfedcbaLL, "0xFEDCBA");
}

void tst_FormBindingLineEdits::refreshFormatsAsTheBindingDoes()
{
    QFETCH(qlonglong, first);
    QFETCH(qlonglong, later);
    QFETCH(QString, representation);
    auto feature = m_camera->addInteger("Number", first);
    feature->representation = representation.toStdString();
    const QLineEdit& edit = bind("txtNumber");
    QTEST(edit.text(), "firstText");
    feature->state().integer = later;
    m_form->refresh({"Number"});
    QTEST(edit.text(), "laterText");
}

void tst_FormBindingLineEdits::firstTextIsTheCameras_data()
{
    columns<QString, QString>("objectName", "text");
    row("text", "txtName", "0x10 \xC3\xA4");
    row("enumeration", "txtMode", "On");
}

void tst_FormBindingLineEdits::firstTextIsTheCameras()
{
    QFETCH(QString, objectName);
    m_camera->addString("Name", "0x10 \xC3\xA4")->representation = "HexNumber";
    m_camera->addEnum("Mode", {"Off", "On"}, "On");
    const QLineEdit& edit = bind(objectName);
    QTEST(edit.text(), "text");
    QVERIFY(edit.isEnabled());
}

void tst_FormBindingLineEdits::unreadableFeatureIsShownEmpty()
{
    auto feature = m_camera->addInteger("Number", 7);
    feature->state().readable = false;
    feature->state().writable = false;
    const QLineEdit& edit = bind("txtNumber");
    QCOMPARE(edit.text(), QString());
    QVERIFY(!edit.isEnabled());
    QCOMPARE(m_camera->callCount("GetIntegerValue", "Number"), 0);
}

void tst_FormBindingLineEdits::writableButUnreadableFeatureCanBeEdited()
{
    m_camera->addInteger("Number", 7)->state().readable = false;
    QLineEdit& edit = bind("txtNumber");
    QCOMPARE(edit.text(), QString());
    QVERIFY(edit.isEnabled());
    QVERIFY(edit.validator());
}

void tst_FormBindingLineEdits::openingLimitsTheInput_data()
{
    columns<QString, QString, bool>("representation", "text", "accepted");
    row("lowest", "", "-5", true);
    row("below", "", "-6", false);
    row("highest", "", "1000", true);
    row("above", "", "1001", false);
    row("ten decimals", "", "1.0123456789", true);
    row("eleven decimals", "", "1.01234567891", false);
    row("hexadecimal where decimal is asked", "", "0x1F", false);
    row("one hexadecimal digit", "HexNumber", "0x1", true);
    row("sixteen hexadecimal digits", "HexNumber", "0x0123456789abcdEF", true);
    row("seventeen hexadecimal digits", "HexNumber", "0x0123456789abcdEF0", false);
    row("no hexadecimal digit", "HexNumber", "0x", false);
    row("decimal where hexadecimal is asked", "HexNumber", "12", false);
}

void tst_FormBindingLineEdits::openingLimitsTheInput()
{
    QFETCH(QString, representation);
    QFETCH(QString, text);
    m_camera->addFloat("Number", 7.0, -5.0, 1000.0)->representation = representation.toStdString();
    const QLineEdit& edit = bind("txtNumber");
    QVERIFY(edit.validator());
    QTEST(judge(edit, text) == QValidator::Acceptable, "accepted");
}

void tst_FormBindingLineEdits::textsHaveNoValidator()
{
    m_camera->addString("Name", "x")->representation = "HexNumber";
    QVERIFY(!bind("txtName").validator());
    m_camera->addEnum("Mode", {"Off", "On"}, "On");
    QVERIFY(!bind("txtMode").validator());
}

void tst_FormBindingLineEdits::readOnlyFeatureHasNoValidator()
{
    m_camera->addInteger("Number", 7)->state().writable = false;
    QVERIFY(!bind("txtNumber").validator());
}

void tst_FormBindingLineEdits::firstRefreshThatCanLimitsTheInput_data()
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

void tst_FormBindingLineEdits::firstRefreshThatCanLimitsTheInput()
{
    QFETCH(QString, representation);
    QFETCH(QString, accepted);
    QFETCH(QString, refused);
    m_camera->addInteger("Number", 7, 0, 1000)->representation = representation.toStdString();
    m_camera->failCall("IsWritable", "Number", ZalErrorTimeout);
    QLineEdit& edit = bind("txtNumber");
    QVERIFY(!edit.isEnabled());
    m_form->refresh({"Number"});
    QVERIFY(!edit.validator());
    m_camera->clearFailures();
    m_form->refresh({"Number"});
    QVERIFY(edit.isEnabled());
    QVERIFY(edit.validator());
    QCOMPARE(judge(edit, accepted), QValidator::Acceptable);
    QCOMPARE(judge(edit, refused), QValidator::Invalid);
}

// Limits that are not known would let nothing be typed.
void tst_FormBindingLineEdits::refreshWithoutLimitsTakesAnyNumber()
{
    auto feature = m_camera->addFloat("Number", 7.0, 0.0, 1000.0);
    m_camera->failCall("IsWritable", "Number", ZalErrorTimeout);
    QLineEdit& edit = bind("txtNumber");
    m_camera->clearFailures();
    feature->state().hasRange = false;
    m_form->refresh({"Number"});
    QVERIFY(edit.isEnabled());
    // What is no number would be written as 0.
    QCOMPARE(judge(edit, "abc"), QValidator::Invalid);
    QCOMPARE(judge(edit, "2.5"), QValidator::Acceptable);
    QCOMPARE(judge(edit, "1e300"), QValidator::Acceptable);
    feature->state().hasRange = true;
    m_form->refresh({"Number"});
    const auto* validator = qobject_cast<const QDoubleValidator*>(edit.validator());
    QVERIFY(validator);
    QCOMPARE(validator->bottom(), 0.0);
    QCOMPARE(validator->top(), 1000.0);
    QCOMPARE(validator->decimals(), 10);
}

void tst_FormBindingLineEdits::refreshSetsLimitsThatOpeningLost_data()
{
    QTest::addColumn<double>("increment"); // 0: none
    QTest::newRow("without an increment") << 0.0;
    // Fitted to it, an unknown maximum becomes another number.
    QTest::newRow("with an increment") << 2.0;
}

void tst_FormBindingLineEdits::refreshSetsLimitsThatOpeningLost()
{
    QFETCH(double, increment);
    auto feature = m_camera->addFloat("Number", 7.0, 0.0, 1000.0);
    if (increment > 0.0)
        feature->state().incrementReal = increment;
    feature->state().hasRange = false;
    QLineEdit& edit = bind("txtNumber");
    QVERIFY(edit.isEnabled());
    m_form->refresh({"Number"});
    QVERIFY(!edit.hasAcceptableInput());
    feature->state().hasRange = true;
    m_form->refresh({"Number"});
    QVERIFY(edit.hasAcceptableInput());
    QCOMPARE(judge(edit, "2000"), QValidator::Intermediate);
    QCOMPARE(judge(edit, "1.01234567891"), QValidator::Invalid);
    // Once they are known, nobody is asked again.
    m_camera->clearLog();
    m_form->refresh({"Number"});
    QCOMPARE(m_camera->callCount("GetFloatRange", "Number"), 0);
}

void tst_FormBindingLineEdits::textTakenForANumberLosesItsLimits()
{
    m_camera->addString("Name", "x");
    m_camera->failCall("GetDataType", "Name");
    QLineEdit& edit = bind("txtName");
    QVERIFY(edit.isEnabled());
    QCOMPARE(judge(edit, "y"), QValidator::Invalid);
    m_camera->clearFailures();
    m_form->refresh({"Name"});
    QVERIFY(!edit.validator());
    QCOMPARE(edit.text(), QString("x"));
}

void tst_FormBindingLineEdits::refreshKeepsTheValidator()
{
    m_camera->addFloat("Number", 7.0, 0.0, 1000.0);
    QLineEdit& edit = bind("txtNumber");
    const QValidator* first = edit.validator();
    m_camera->clearLog();
    m_form->refresh({"Number"});
    QCOMPARE(edit.validator(), first);
    QCOMPARE(m_camera->callCount("GetFloatRange", "Number"), 0);
}

void tst_FormBindingLineEdits::refreshGivesTextsNoValidator()
{
    m_camera->addString("Name", "x")->state().writable = false;
    QLineEdit& edit = bind("txtName");
    m_camera->find("Name")->state().writable = true;
    m_form->refresh({"Name"});
    QVERIFY(edit.isEnabled());
    QVERIFY(!edit.validator());
}

void tst_FormBindingLineEdits::decimalInputIsInCNotationEverywhere()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    m_camera->addFloat("Number", 2.5, 0.0, 1000.0);
    QLineEdit& edit = bind("txtNumber");
    QCOMPARE(edit.text(), QString("2.5"));
    QVERIFY(edit.hasAcceptableInput());
    QCOMPARE(judge(edit, "2.5"), QValidator::Acceptable);
    QCOMPARE(judge(edit, "2.000,5"), QValidator::Invalid);
}

QTEST_MAIN(tst_FormBindingLineEdits)
#include "tst_FormBindingLineEdits.moc"
