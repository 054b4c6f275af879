// How FeatureManager turns names into features.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/Rows.h"

#include <QtTest>

using Fake::FakeCamera;
using FeatureTest::toList;
using FeatureTest::wrap;
using FeatureTest::WrapperList;

namespace {

/// A wrapper that lets a test act while a lookup asks it for its name.
class MeddlingWrapper : public ZalFeatureWrapper
{
public:
    using ZalFeatureWrapper::ZalFeatureWrapper;
    ZalErrorType GetName(std::string& name) const override
    {
        meddle();
        return ZalFeatureWrapper::GetName(name);
    }
    std::function<void()> meddle;
};

QString nameOf(const ZalFeatureWrapperPtr& wrapper)
{
    std::string name;
    return wrapper && wrapper->GetName(name) == ZalErrorSuccess ? QString::fromStdString(name)
                                                                : QString("(null)");
}

int nameQuestions(const FakeCamera& camera)
{
    // A name read is two calls.
    return static_cast<int>(toList(camera.calls()).filter(QRegularExpression("^GetName ")).size()) /
           2;
}

const QString X("X");
const QString Y("Y");
const QString Z("Z");
const QString None;

} // namespace

class tst_FeatureManagerLookup : public QObject
{
    Q_OBJECT

private slots:
    void sharesTheListWithoutCopyingItAndReleasesIt();
    void findsTheFeatureByItsExactName_data();
    void findsTheFeatureByItsExactName();
    void emptyNameMatchesAFeatureWhoseNameIsEmpty();
    void firstOfTwoFeaturesOfOneNameWins();
    void namesAreComparedAsUtf8Bytes();
    void nothingIsCached();
    void scanAsksEveryWrapperUpToTheMatch();
    void scanIsUnaffectedByAChangeOfTheList();
    void alternativesAreTriedInOrder_data();
    void alternativesAreTriedInOrder();
    void scansOfTheThreeNameLookup_data();
    void scansOfTheThreeNameLookup();
    void emptyListOfWrappersFindsNothing();
    void unreadableNameIsInvisible();
    void foundWrapperOutlivesTheList();
    void featuresListHoldsAllNamesInOrder();
    void featureNameOfAListIsTheFirstThatExists_data();
    void featureNameOfAListIsTheFirstThatExists();
    void featureNameOfAListStopsAtTheFirstFound();
    void nameThatFailsAfterTheLookupIsEmpty();
    void unreadableDisplayNameOfAListIsEmpty();
};

void tst_FeatureManagerLookup::sharesTheListWithoutCopyingItAndReleasesIt()
{
    FakeCamera camera;
    camera.addInteger("A", 1);
    WrapperList wrappers = wrap(camera);
    auto manager = std::make_unique<FeatureManager>(wrappers);
    const auto added = std::make_shared<ZalFeatureWrapper>(camera.addInteger("B", 2));
    wrappers->append(added);
    QVERIFY(manager->GetFeatureByName(std::string("B")) == added);
    const QWeakPointer<QVector<ZalFeatureWrapperPtr>> watched = wrappers;
    wrappers.reset();
    QVERIFY(!watched.isNull());
    manager.reset();
    QVERIFY(watched.isNull());
}

void tst_FeatureManagerLookup::findsTheFeatureByItsExactName_data()
{
    columns<QString, QString>("name", "found");
    row("exact", "TriggerMode", "TriggerMode");
    row("lower case", "triggermode", "(null)");
    row("longer", "TriggerModes", "(null)");
    row("shorter", "TriggerMod", "(null)");
    row("leading blank", " TriggerMode", "(null)");
    row("trailing blank", "TriggerMode ", "(null)");
    row("lower case on the camera", "LineMode", "(null)");
    row("as on the camera", "linemode", "linemode");
    row("empty", "", "(null)");
}

void tst_FeatureManagerLookup::findsTheFeatureByItsExactName()
{
    QFETCH(QString, name);
    QFETCH(QString, found);
    FakeCamera camera;
    camera.addInteger("linemode", 1);
    camera.addInteger("TriggerMode", 1);
    const FeatureManager manager(wrap(camera));
    QCOMPARE(nameOf(manager.GetFeatureByName(name)), found);
    QCOMPARE(nameOf(manager.GetFeatureByName(name.toStdString())), found);
}

void tst_FeatureManagerLookup::emptyNameMatchesAFeatureWhoseNameIsEmpty()
{
    FakeCamera camera;
    camera.addInteger("A", 1);
    const auto nameless = camera.addInteger("", 2);
    const FeatureManager manager(wrap(camera));
    QVERIFY(manager.GetFeatureByName(std::string())->GetZalFeaturePtr() == nameless);
    QVERIFY(manager.GetFeatureByName(None)->GetZalFeaturePtr() == nameless);
}

void tst_FeatureManagerLookup::firstOfTwoFeaturesOfOneNameWins()
{
    FakeCamera camera;
    const auto first = camera.addInteger("A", 1);
    camera.addInteger("A", 2);
    const FeatureManager manager(wrap(camera));
    QVERIFY(manager.GetFeatureByName(std::string("A"))->GetZalFeaturePtr() == first);
}

void tst_FeatureManagerLookup::namesAreComparedAsUtf8Bytes()
{
    FakeCamera camera;
    camera.addInteger("Verz\xC3\xB6gerung", 1);
    const FeatureManager manager(wrap(camera));
    const QString name = QStringLiteral(u"Verz\u00F6gerung");
    const QString decomposed = QStringLiteral(u"Verzo\u0308gerung");
    QCOMPARE(nameOf(manager.GetFeatureByName(name)), name);
    QCOMPARE(nameOf(manager.GetFeatureByName("A", name)), name);
    QCOMPARE(nameOf(manager.GetFeatureByName("A", "B", name)), name);
    QCOMPARE(nameOf(manager.GetFeatureByName(decomposed)), QString("(null)"));
}

void tst_FeatureManagerLookup::nothingIsCached()
{
    FakeCamera camera;
    const auto feature = camera.addInteger("A", 1);
    const FeatureManager manager(wrap(camera));
    QVERIFY(manager.GetFeatureByName(std::string("A")) != nullptr);
    QVERIFY(manager.GetFeatureByName(std::string("A")) != nullptr);
    QCOMPARE(nameQuestions(camera), 2);
    feature->state().implemented = false;
    QVERIFY(manager.GetFeatureByName(std::string("A")) == nullptr);
    feature->state().implemented = true;
    QVERIFY(manager.GetFeatureByName(std::string("A")) != nullptr);
}

void tst_FeatureManagerLookup::scanAsksEveryWrapperUpToTheMatch()
{
    FakeCamera camera;
    for (const char* name : {"A", "B", "C"})
        camera.addInteger(name, 1);
    const FeatureManager manager(wrap(camera));
    manager.GetFeatureByName(std::string("B"));
    QCOMPARE(toList(camera.calls()),
             (QStringList{"GetName A", "GetName A", "GetName B", "GetName B"}));
}

void tst_FeatureManagerLookup::scanIsUnaffectedByAChangeOfTheList()
{
    FakeCamera camera;
    const auto first = std::make_shared<MeddlingWrapper>(camera.addInteger("A", 1));
    const auto second = std::make_shared<ZalFeatureWrapper>(camera.addInteger("B", 2));
    const auto wrappers = WrapperList::create();
    wrappers->append(first);
    wrappers->append(second);
    first->meddle = [&] { wrappers->clear(); };
    const FeatureManager manager(wrappers);
    QVERIFY(manager.GetFeatureByName(std::string("B")) == second);
    QVERIFY(manager.GetFeatureByName(std::string("B")) == nullptr);

    wrappers->append(first);
    wrappers->append(second);
    QCOMPARE(manager.GetFeaturesList(), (QStringList{"A", "B"}));
}

void tst_FeatureManagerLookup::alternativesAreTriedInOrder_data()
{
    columns<QStringList, QStringList, QString>("features", "names", "found");
    row("X of (X, Y)", QStringList{X, Y}, QStringList{X, Y}, X);
    row("Y of (X, Y)", QStringList{Y}, QStringList{X, Y}, Y);
    row("nothing of (X, Y)", QStringList{Z}, QStringList{X, Y}, "(null)");
    row("X of (X, empty)", QStringList{X}, QStringList{X, None}, X);
    row("nothing of (X, empty)", QStringList{Y}, QStringList{X, None}, "(null)");
    row("Z of (X, Y, Z)", QStringList{Z}, QStringList{X, Y, Z}, Z);
    row("X before Z", QStringList{Z, X}, QStringList{X, Y, Z}, X);
    row("Y before Z", QStringList{Z, Y}, QStringList{X, Y, Z}, Y);
    row("X before Y", QStringList{Y, X}, QStringList{X, Y, Z}, X);
    row("nothing of (X, empty, Z)", QStringList{Z}, QStringList{X, None, Z}, "(null)");
    row("X of (X, empty, Z)", QStringList{X, Z}, QStringList{X, None, Z}, X);
    row("nothing of (X, Y, empty)", QStringList{Z}, QStringList{X, Y, None}, "(null)");
    row("nothing of (X, Y, Z)", QStringList{"A"}, QStringList{X, Y, Z}, "(null)");
    // An empty alternative is never looked up, not even where a feature has an empty name.
    row("nameless is no alternative", QStringList{""}, QStringList{X, None, None}, "(null)");
}

void tst_FeatureManagerLookup::alternativesAreTriedInOrder()
{
    QFETCH(QStringList, features);
    QFETCH(QStringList, names);
    QFETCH(QString, found);
    FakeCamera camera;
    for (const QString& feature : features)
        camera.addInteger(feature.toStdString(), 1);
    const FeatureManager manager(wrap(camera));
    const bool two = names.size() == 2;
    const ZalFeatureWrapperPtr wrapper =
        two ? manager.GetFeatureByName(names[0], names[1])
            : manager.GetFeatureByName(names[0], names[1], names[2]);
    QCOMPARE(nameOf(wrapper), found);
    const bool available = two ? manager.GetIsFeatureAvailable(names[0], names[1])
                               : manager.GetIsFeatureAvailable(names[0], names[1], names[2]);
    QCOMPARE(available, wrapper != nullptr);
}

void tst_FeatureManagerLookup::scansOfTheThreeNameLookup_data()
{
    columns<QStringList, int>("names", "scans");
    // The first alternative is looked up twice before the second one's turn comes.
    row("none exists", QStringList{X, Y, Z}, 4);
    row("no second alternative", QStringList{X, Y, None}, 3);
    row("no first alternative", QStringList{X, None, Z}, 1);
    row("first name exists", QStringList{"A", Y, Z}, 1);
    row("first alternative exists", QStringList{X, "A", Z}, 2);
    row("second alternative exists", QStringList{X, Y, "A"}, 4);
}

void tst_FeatureManagerLookup::scansOfTheThreeNameLookup()
{
    QFETCH(QStringList, names);
    QFETCH(int, scans);
    FakeCamera camera;
    camera.addInteger("A", 1);
    const FeatureManager manager(wrap(camera));
    manager.GetFeatureByName(names[0], names[1], names[2]);
    QCOMPARE(nameQuestions(camera), scans);
}

void tst_FeatureManagerLookup::emptyListOfWrappersFindsNothing()
{
    const FeatureManager manager(WrapperList::create());
    QVERIFY(!manager.GetFeatureByName(std::string("A")));
    QVERIFY(!manager.GetFeatureByName(X));
    QVERIFY(!manager.GetFeatureByName(X, Y));
    QVERIFY(!manager.GetFeatureByName(X, Y, Z));
    QVERIFY(!manager.GetFeatureByName(std::string()));
    QCOMPARE(manager.GetFeaturesList(), QStringList());
    QCOMPARE(manager.GetFeatureName(QStringList{X, Y}), QString());
}

void tst_FeatureManagerLookup::unreadableNameIsInvisible()
{
    FakeCamera camera;
    camera.addInteger("A", 1);
    camera.addInteger("B", 1);
    camera.failCall("GetName", "A");
    const FeatureManager manager(wrap(camera));
    QVERIFY(!manager.GetFeatureByName(std::string("A")));
    QVERIFY(manager.GetFeatureByName(std::string("B")) != nullptr);
    QCOMPARE(manager.GetFeaturesList(), QStringList{"B"});
    QVERIFY(!manager.GetIsFeatureAvailable("A"));
}

void tst_FeatureManagerLookup::foundWrapperOutlivesTheList()
{
    FakeCamera camera;
    camera.addInteger("A", 1);
    WrapperList wrappers = wrap(camera);
    const ZalFeatureWrapperPtr found = FeatureManager(wrappers).GetFeatureByName(std::string("A"));
    wrappers->clear();
    QCOMPARE(nameOf(found), QString("A"));
}

void tst_FeatureManagerLookup::featuresListHoldsAllNamesInOrder()
{
    FakeCamera camera;
    for (const char* name : {"B", "A", "", "\xC3\x84"})
        camera.addInteger(name, 1);
    const FeatureManager manager(wrap(camera));
    QCOMPARE(manager.GetFeaturesList(), (QStringList{"B", "A", QStringLiteral(u"\u00C4")}));
}

void tst_FeatureManagerLookup::featureNameOfAListIsTheFirstThatExists_data()
{
    columns<QStringList, QString, QString>("names", "name", "displayName");
    row("only the second exists", QStringList{"A", Y}, Y, "The Y");
    row("first of two", QStringList{Z, Y}, Z, "The Z");
    row("neither exists", QStringList{"A", "B"}, "", "");
    row("fifth", QStringList{"A", "B", "", "C", Z}, Z, "The Z");
    row("empty list", QStringList(), "", "");
}

void tst_FeatureManagerLookup::featureNameOfAListIsTheFirstThatExists()
{
    QFETCH(QStringList, names);
    QFETCH(QString, name);
    QFETCH(QString, displayName);
    FakeCamera camera;
    camera.addInteger("Y", 1)->displayName = "The Y";
    camera.addInteger("Z", 1)->displayName = "The Z";
    const FeatureManager manager(wrap(camera));
    QCOMPARE(manager.GetFeatureName(names), name);
    QCOMPARE(manager.GetDisplayName(names), displayName);
}

void tst_FeatureManagerLookup::featureNameOfAListStopsAtTheFirstFound()
{
    FakeCamera camera;
    camera.addInteger("A", 1);
    const FeatureManager manager(wrap(camera));
    manager.GetFeatureName(QStringList{"X", "A", "Y", "Z"});
    QCOMPARE(nameQuestions(camera), 3); // X, A and the found feature's own name
}

void tst_FeatureManagerLookup::nameThatFailsAfterTheLookupIsEmpty()
{
    FakeCamera camera;
    camera.addInteger("A", 1);
    camera.addInteger("B", 1);
    const FeatureManager manager(wrap(camera));
    camera.failNthCall(4); // two calls find A, the next two read its name
    QCOMPARE(manager.GetFeatureName(QStringList{"A", "B"}), QString());
    QCOMPARE(nameQuestions(camera), 2);
}

void tst_FeatureManagerLookup::unreadableDisplayNameOfAListIsEmpty()
{
    FakeCamera camera;
    camera.addInteger("A", 1);
    camera.addInteger("B", 1);
    camera.failCall("GetDisplayName", "A");
    const FeatureManager manager(wrap(camera));
    QCOMPARE(manager.GetDisplayName(QStringList{"A", "B"}), QString());
    QCOMPARE(manager.GetFeatureName(QStringList{"A", "B"}), QString("A"));
}

QTEST_APPLESS_MAIN(tst_FeatureManagerLookup)

#include "tst_FeatureManagerLookup.moc"
