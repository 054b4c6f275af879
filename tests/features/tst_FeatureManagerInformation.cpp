// FeatureManager: the description of a feature for its tool tip.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <climits>

using Fake::FakeCamera;
using Fake::FakeFeature;
using FeatureTest::callsAfterLookup;

namespace {

constexpr ZalFeatureFlagsType ReadWrite = ZalFeatureFlagsRead | ZalFeatureFlagsWrite;

QString informationOf(const FakeCamera& camera, const char* name)
{
    return FeatureManager(FeatureTest::wrap(camera)).GetInformation(name);
}

/// The lines between visibility and category.
QString typeBlockOf(const FakeCamera& camera, const char* name)
{
    const QString text = informationOf(camera, name);
    const QString before("<b>Visibility:</b> BEGINNER<br/>");
    const auto begin = text.indexOf(before) + before.size();
    return text.mid(begin, text.indexOf("<b>Category:</b>") - begin);
}

} // namespace

class tst_FeatureManagerInformation : public QObject
{
    Q_OBJECT

private slots:
    void informationOfAnIntegerIsComplete();
    void informationOfAFloatIsComplete();
    void missingDescriptionIsNotAvailable_data();
    void missingDescriptionIsNotAvailable();
    void eachSentenceOfTheDescriptionEndsALine_data();
    void eachSentenceOfTheDescriptionEndsALine();
    void placeMarkersInTheDescriptionAreReplacedByTheRest_data();
    void placeMarkersInTheDescriptionAreReplacedByTheRest();
    void visibilityIsNamed_data();
    void visibilityIsNamed();
    void visibilityThatCannotBeReadIsUnknown();
    void typesWithoutLimitsShowTheirTypeAlone_data();
    void typesWithoutLimitsShowTheirTypeAlone();
    void dataTypeThatCannotBeReadShowsNoTypeBlock();
    void flagsDecideWhetherLimitsAreShown_data();
    void flagsDecideWhetherLimitsAreShown();
    void flagsThatCannotBeReadHideTheLimits();
    void integerIntervalIsHiddenForOne_data();
    void integerIntervalIsHiddenForOne();
    void unreadableRangeHidesTheTypeLineButNotTheInterval();
    void floatIntervalHasTenDecimals_data();
    void floatIntervalHasTenDecimals();
    void floatMinimumHasNineDigitsAndMaximumTwelve_data();
    void floatMinimumHasNineDigitsAndMaximumTwelve();
    void nameAndCategoryThatCannotBeReadAreEmpty();
    void textsAreDecodedFromUtf8();
    void informationOfAnUnknownNameIsEmptyAndLogged();
    void nothingElseIsLogged();
};

void tst_FeatureManagerInformation::informationOfAnIntegerIsComplete()
{
    const auto camera = FeatureTest::mixedCamera();
    QCOMPARE(informationOf(*camera, "Count"),
             QString("<b>Feature Description:</b> <br/>Counts ticks.<br/><br/>"
                     "<b>Feature Name:</b> Count<br/>"
                     "<b>Visibility:</b> GURU<br/>"
                     "<b>Type:</b> Integer<br/><b>Minimum:</b> -10<br/><b>Maximum:</b> 1000<br/>"
                     "<b>Interval:</b> 2<br/>"
                     "<b>Category:</b> Root/Counters<br/>"));
}

void tst_FeatureManagerInformation::informationOfAFloatIsComplete()
{
    const auto camera = FeatureTest::mixedCamera();
    FakeFeature& delay = (*camera)["Delay"];
    delay.description = "Delays the trigger";
    delay.category = "Trigger";
    QCOMPARE(informationOf(*camera, "Delay"),
             QString("<b>Feature Description:</b> <br/>Delays the trigger<br/>"
                     "<b>Feature Name:</b> Delay<br/>"
                     "<b>Visibility:</b> BEGINNER<br/>"
                     "<b>Type:</b> Float<br/><b>Minimum:</b> 0.5<br/><b>Maximum:</b> 99.5<br/>"
                     "<b>Interval:</b> 0.2500000000<br/>"
                     "<b>Category:</b> Trigger<br/>"));
}

void tst_FeatureManagerInformation::missingDescriptionIsNotAvailable_data()
{
    QTest::addColumn<bool>("failing");
    QTest::newRow("empty") << false;
    QTest::newRow("unreadable") << true;
}

void tst_FeatureManagerInformation::missingDescriptionIsNotAvailable()
{
    QFETCH(bool, failing);
    FakeCamera camera;
    const auto feature = camera.addCommand("Go");
    if (failing) {
        feature->description = "Never seen.";
        camera.failCall("GetDescription", "Go");
    }
    QCOMPARE(informationOf(camera, "Go"),
             QString("<b>Feature Description:</b> N/A<br/><br/><b>Feature Name:</b> Go<br/>"
                     "<b>Visibility:</b> BEGINNER<br/><b>Type:</b> Command<br/>"
                     "<b>Category:</b> <br/>"));
}

void tst_FeatureManagerInformation::eachSentenceOfTheDescriptionEndsALine_data()
{
    columns<QString, QString>("description", "shown");
    row("two sentences", "First. Second.", "<br/>First.<br/> Second.<br/><br/>");
    row("no full stop", "Just words", "<br/>Just words<br/>");
    row("full stop in a number", "Up to 2.5 s", "<br/>Up to 2.<br/>5 s<br/>");
    row("ellipsis", "Wait...", "<br/>Wait.<br/>.<br/>.<br/><br/>");
    row("other ends", "Why? So!", "<br/>Why? So!<br/>");
}

void tst_FeatureManagerInformation::eachSentenceOfTheDescriptionEndsALine()
{
    QFETCH(QString, description);
    QFETCH(QString, shown);
    FakeCamera camera;
    camera.addCommand("Go")->description = description.toStdString();
    const QString text = informationOf(camera, "Go");
    QCOMPARE(text.left(text.indexOf("<b>Feature Name:</b>")),
             "<b>Feature Description:</b> " + shown);
}

void tst_FeatureManagerInformation::placeMarkersInTheDescriptionAreReplacedByTheRest_data()
{
    columns<QString, QString>("description", "shown");
    // # stands for the information: it goes where the lowest place marker is left over.
    row("none", "100 %", "<br/>100 %<br/>#");
    row("%1", "Duty %1 s", "<br/>Duty # s<br/>%2");
    row("%2", "Duty %2 s", "<br/>Duty # s<br/>#");
    row("%3", "Duty %3 s", "<br/>Duty %3 s<br/>#");
}

void tst_FeatureManagerInformation::placeMarkersInTheDescriptionAreReplacedByTheRest()
{
    QFETCH(QString, description);
    QFETCH(QString, shown);
    FakeCamera camera;
    camera.addCommand("Go")->description = description.toStdString();
    const QString information("<b>Feature Name:</b> Go<br/><b>Visibility:</b> BEGINNER<br/>"
                              "<b>Type:</b> Command<br/><b>Category:</b> <br/>");
    QCOMPARE(informationOf(camera, "Go"),
             "<b>Feature Description:</b> " + shown.replace("#", information));
}

void tst_FeatureManagerInformation::visibilityIsNamed_data()
{
    columns<unsigned, QString>("visibility", "name");
    row("0", 0U, "UNKNOWN");
    row("1", 1U, "BEGINNER");
    row("2", 2U, "EXPERT");
    row("3", 3U, "GURU");
    row("4", 4U, "INVISIBLE");
    row("5", 5U, "N/A");
    row("99", 99U, "N/A");
}

void tst_FeatureManagerInformation::visibilityIsNamed()
{
    QFETCH(unsigned, visibility);
    QFETCH(QString, name);
    FakeCamera camera;
    camera.addCommand("Go")->visibility = visibility;
    QVERIFY(informationOf(camera, "Go").contains("<b>Visibility:</b> " + name + "<br/><b>Type:"));
}

void tst_FeatureManagerInformation::visibilityThatCannotBeReadIsUnknown()
{
    FakeCamera camera;
    camera.addCommand("Go");
    camera.failCall("GetVisibility", "Go");
    QVERIFY(informationOf(camera, "Go").contains("<b>Visibility:</b> UNKNOWN<br/>"));
}

void tst_FeatureManagerInformation::typesWithoutLimitsShowTheirTypeAlone_data()
{
    columns<unsigned, QString>("type", "block");
    row("unknown", 0U, "");
    row("enumeration", 3U, "<b>Type:</b> Enumeration<br/>");
    row("string", 4U, "<b>Type:</b> String<br/>");
    row("boolean", 5U, "<b>Type:</b> Boolean<br/>");
    row("command", 6U, "<b>Type:</b> Command<br/>");
    row("raw", 7U, "<b>Type:</b> Raw<br/>");
    row("none", 8U, "");
    row("undocumented", 99U, "");
}

void tst_FeatureManagerInformation::typesWithoutLimitsShowTheirTypeAlone()
{
    QFETCH(unsigned, type);
    QFETCH(QString, block);
    FakeCamera camera;
    camera.add("Thing", type);
    QCOMPARE(typeBlockOf(camera, "Thing"), block);
    QVERIFY(!callsAfterLookup(camera).contains("GetFlags Thing"));
}

void tst_FeatureManagerInformation::dataTypeThatCannotBeReadShowsNoTypeBlock()
{
    FakeCamera camera;
    camera.addInteger("Count", 1);
    camera.failCall("GetDataType", "Count");
    QCOMPARE(typeBlockOf(camera, "Count"), QString());
}

void tst_FeatureManagerInformation::flagsDecideWhetherLimitsAreShown_data()
{
    columns<unsigned, bool>("flags", "shown");
    row("none", 0x00U, false);
    row("read", 0x01U, true);
    row("write", 0x02U, true);
    row("read and write", 0x03U, true);
    row("undocumented bit alone", 0x04U, false);
    row("read and an undocumented bit", 0x05U, false);
    row("volatile", 0x08U, true);
    row("read and volatile", 0x09U, true);
    row("modify-write", 0x10U, true);
    row("read and a high undocumented bit", 0x21U, false);
    row("write and an undocumented bit", 0x06U, true);
}

void tst_FeatureManagerInformation::flagsDecideWhetherLimitsAreShown()
{
    QFETCH(unsigned, flags);
    QFETCH(bool, shown);
    FakeCamera camera;
    camera.addInteger("Count", 1, 2, 30, 4)->flags = flags;
    camera.addFloat("Delay", 1.0, 0.5, 2.5)->flags = flags;
    const QString integer("<b>Type:</b> Integer<br/><b>Minimum:</b> 2<br/>"
                          "<b>Maximum:</b> 30<br/><b>Interval:</b> 4<br/>");
    const QString real("<b>Type:</b> Float<br/><b>Minimum:</b> 0.5<br/><b>Maximum:</b> 2.5<br/>");
    QCOMPARE(typeBlockOf(camera, "Count"), shown ? integer : QString());
    QCOMPARE(typeBlockOf(camera, "Delay"), shown ? real : QString());
}

void tst_FeatureManagerInformation::flagsThatCannotBeReadHideTheLimits()
{
    FakeCamera camera;
    camera.addInteger("Count", 1)->flags = ReadWrite;
    camera.failCall("GetFlags", "Count");
    QCOMPARE(typeBlockOf(camera, "Count"), QString());
}

void tst_FeatureManagerInformation::integerIntervalIsHiddenForOne_data()
{
    columns<qlonglong, QString>("increment", "interval");
    row("1", qlonglong(1), "");
    row("4", qlonglong(4), "<b>Interval:</b> 4<br/>");
    row("0", qlonglong(0), "<b>Interval:</b> 0<br/>");
    row("-1", qlonglong(-1), "<b>Interval:</b> -1<br/>");
}

void tst_FeatureManagerInformation::integerIntervalIsHiddenForOne()
{
    QFETCH(qlonglong, increment);
    QFETCH(QString, interval);
    FakeCamera camera;
    camera.addInteger("Count", 1, LLONG_MIN, LLONG_MAX, increment);
    QCOMPARE(typeBlockOf(camera, "Count"),
             "<b>Type:</b> Integer<br/><b>Minimum:</b> -9223372036854775808<br/>"
             "<b>Maximum:</b> 9223372036854775807<br/>" +
                 interval);
}

void tst_FeatureManagerInformation::unreadableRangeHidesTheTypeLineButNotTheInterval()
{
    FakeCamera camera;
    camera.addInteger("Count", 1, 0, 100, 4)->state().hasRange = false;
    camera.addFloat("Delay", 1.0)->state().hasRange = false;
    camera["Delay"].state().incrementReal = 0.5;
    QCOMPARE(typeBlockOf(camera, "Count"), QString("<b>Interval:</b> 4<br/>"));
    QCOMPARE(typeBlockOf(camera, "Delay"), QString("<b>Interval:</b> 0.5000000000<br/>"));
    camera["Count"].state().incrementInteger.reset();
    QCOMPARE(typeBlockOf(camera, "Count"), QString());
}

void tst_FeatureManagerInformation::floatIntervalHasTenDecimals_data()
{
    columns<double, QString>("increment", "interval");
    row("0.5", 0.5, "0.5000000000");
    row("1 is shown too", 1.0, "1.0000000000");
    row("tiny", 1e-9, "0.0000000010");
    row("large", 1e6, "1000000.0000000000");
}

void tst_FeatureManagerInformation::floatIntervalHasTenDecimals()
{
    QFETCH(double, increment);
    QFETCH(QString, interval);
    FakeCamera camera;
    camera.addFloat("Delay", 1.0, 0.0, 10.0)->state().incrementReal = increment;
    QCOMPARE(typeBlockOf(camera, "Delay"),
             "<b>Type:</b> Float<br/><b>Minimum:</b> 0<br/><b>Maximum:</b> 10<br/>"
             "<b>Interval:</b> " +
                 interval + "<br/>");
}

void tst_FeatureManagerInformation::floatMinimumHasNineDigitsAndMaximumTwelve_data()
{
    columns<double, QString, QString>("limit", "minimum", "maximum");
    row("many digits", 1234567.891234, "1234567.89", "1234567.89123");
    row("ten digits", 1234567891.0, "1.23456789e+09", "1234567891");
    row("third", 1.0 / 3.0, "0.333333333", "0.333333333333");
    row("whole", 1000000.0, "1000000", "1000000");
}

void tst_FeatureManagerInformation::floatMinimumHasNineDigitsAndMaximumTwelve()
{
    QFETCH(double, limit);
    QFETCH(QString, minimum);
    QFETCH(QString, maximum);
    FakeCamera camera;
    camera.addFloat("Delay", limit, limit, limit);
    QCOMPARE(typeBlockOf(camera, "Delay"),
             QString("<b>Type:</b> Float<br/><b>Minimum:</b> %1<br/><b>Maximum:</b> %2<br/>")
                 .arg(minimum, maximum));
}

void tst_FeatureManagerInformation::nameAndCategoryThatCannotBeReadAreEmpty()
{
    FakeCamera camera;
    camera.addCommand("Go")->category = "Never/Seen";
    camera.failCall("GetCategory", "Go");
    const FeatureManager manager(FeatureTest::wrap(camera));
    // Two calls find the feature, two read its description; then its name is read.
    camera.failNthCall(5);
    QCOMPARE(manager.GetInformation("Go"),
             QString("<b>Feature Description:</b> N/A<br/><br/><b>Feature Name:</b> <br/>"
                     "<b>Visibility:</b> BEGINNER<br/><b>Type:</b> Command<br/>"
                     "<b>Category:</b> <br/>"));
}

void tst_FeatureManagerInformation::textsAreDecodedFromUtf8()
{
    FakeCamera camera;
    const auto feature = camera.addCommand("Los\xC3\xA4");
    feature->category = "\xC3\x96";
    feature->description = "\xC2\xB5";
    const QString name = QStringLiteral(u"Los\u00E4");
    const QString text = FeatureManager(FeatureTest::wrap(camera)).GetInformation(name);
    QVERIFY(text.contains("<b>Feature Name:</b> " + name + "<br/>"));
    QVERIFY(text.contains(QStringLiteral(u"<b>Category:</b> \u00D6<br/>")));
    QVERIFY(text.contains(QStringLiteral(u"Description:</b> <br/>\u00B5<br/>")));
}

void tst_FeatureManagerInformation::informationOfAnUnknownNameIsEmptyAndLogged()
{
    const FakeCamera camera;
    const LogCapture log;
    QCOMPARE(informationOf(camera, "Gone"), QString());
    QCOMPARE(log.lines(), QStringList{"default/debug Error: FeatureManager::GetInformation() - "
                                      "cannot get ZalFeatureWrapperPtr for  \"Gone\""});
}

void tst_FeatureManagerInformation::nothingElseIsLogged()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    const LogCapture log;
    for (const char* operation : {"GetDescription", "GetVisibility", "GetDataType", "GetCategory",
                                  "GetFlags", "GetIntegerRange", "GetIntegerIncrement"}) {
        camera->clearFailures();
        camera->failCall(operation, "Count");
        manager.GetInformation("Count");
        QVERIFY2(camera->callCount(operation, "Count") > 0, operation);
    }
    QCOMPARE(log.lines(), QStringList());
}

QTEST_APPLESS_MAIN(tst_FeatureManagerInformation)

#include "tst_FeatureManagerInformation.moc"
