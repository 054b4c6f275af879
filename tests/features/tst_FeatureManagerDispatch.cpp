// The order of FeatureManager's virtual operations, and which form calls which.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/VirtualSlot.h"

#include <QtTest>

#include <functional>

using Q = const QString&;

namespace {

/// Records which two- or three-name form was reached, and with which names.
class Recorder : public FeatureManager
{
public:
    using FeatureManager::FeatureManager;
    using FeatureManager::GetAvailableEnumEntries;
    using FeatureManager::GetDisplayName;
    using FeatureManager::GetIncrement;
    using FeatureManager::GetIsFeatureAvailable;
    using FeatureManager::GetIsFeatureWritable;
    using FeatureManager::GetIsFloatFeature;
    using FeatureManager::GetIsWritable;
    using FeatureManager::GetStringValue;
    using FeatureManager::GetValue;
    using FeatureManager::GetValueIsWritableRangeIncrement;
    using FeatureManager::GetValueRange;
    using FeatureManager::GetValueRangeIncrement;
    using FeatureManager::SetValue;

    double GetValue(Q a, Q b, Q c) const override { return note(77.0, {"GetValue", a, b, c}); }
    double GetValue(Q a, Q b) const override { return note(77.0, {"GetValue", a, b}); }
    QString GetStringValue(Q a, Q b) const override { return note("s", {"GetStringValue", a, b}); }
    QString GetStringValue(Q a) const override { return note("s", {"GetStringValue", a}); }
    bool GetIsWritable(Q a, Q b, Q c) const override
    {
        return note(true, {"GetIsWritable", a, b, c});
    }
    bool GetIsWritable(Q a, Q b) const override { return note(true, {"GetIsWritable", a, b}); }
    double GetIncrement(Q a, Q b) const override { return note(77.0, {"GetIncrement", a, b}); }
    QString GetDisplayName(Q a, Q b, Q c) const override
    {
        return note("d", {"GetDisplayName", a, b, c});
    }
    QString GetDisplayName(Q a, Q b) const override { return note("d", {"GetDisplayName", a, b}); }
    double GetValueIsWritableRangeIncrement(Q a, Q b, Q c, bool*, double*, double*,
                                            double*) const override
    {
        return note(77.0, {"GetValueIsWritableRangeIncrement", a, b, c});
    }
    double GetValueIsWritableRangeIncrement(Q a, Q b, bool*, double*, double*,
                                            double*) const override
    {
        return note(77.0, {"GetValueIsWritableRangeIncrement", a, b});
    }
    double GetValueRangeIncrement(Q a, Q b, Q c, double*, double*, double*) const override
    {
        return note(77.0, {"GetValueRangeIncrement", a, b, c});
    }
    double GetValueRangeIncrement(Q a, Q b, double*, double*, double*) const override
    {
        return note(77.0, {"GetValueRangeIncrement", a, b});
    }
    double GetValueRange(Q a, Q b, Q c, double*, double*) const override
    {
        return note(77.0, {"GetValueRange", a, b, c});
    }
    double GetValueRange(Q a, Q b, double*, double*) const override
    {
        return note(77.0, {"GetValueRange", a, b});
    }
    QStringList GetAvailableEnumEntries(Q a, Q b) const override
    {
        return note(QStringList{"e"}, {"GetAvailableEnumEntries", a, b});
    }
    bool GetIsFeatureAvailable(Q a, Q b) const override
    {
        return note(true, {"GetIsFeatureAvailable", a, b});
    }
    bool GetIsFeatureAvailable(Q a, Q b, Q c) const override
    {
        return note(true, {"GetIsFeatureAvailable", a, b, c});
    }
    bool GetIsFeatureWritable(Q a, Q b) const override
    {
        return note(true, {"GetIsFeatureWritable", a, b});
    }
    bool GetIsFeatureWritable(Q a, Q b, Q c) const override
    {
        return note(true, {"GetIsFeatureWritable", a, b, c});
    }
    bool GetIsFloatFeature(Q a, Q b, Q c) const override
    {
        return note(true, {"GetIsFloatFeature", a, b, c});
    }
    bool GetIsFloatFeature(Q a, Q b) const override
    {
        return note(true, {"GetIsFloatFeature", a, b});
    }
    double SetValue(Q a, Q b, Q c, double) const override
    {
        return note(77.0, {"SetNumber", a, b, c});
    }
    double SetValue(Q a, Q b, double) const override { return note(77.0, {"SetNumber", a, b}); }
    QString SetValue(Q a, Q b, Q c, Q) const override { return note("t", {"SetText", a, b, c}); }
    QString SetValue(Q a, Q b, Q) const override { return note("t", {"SetText", a, b}); }

    mutable QStringList reached;

private:
    template <typename T> T note(T result, const QStringList& call) const
    {
        reached.append(call.join('|'));
        return result;
    }
    QString note(const char* result, const QStringList& call) const
    {
        return note(QString(result), call);
    }
};

using F = FeatureManager;
using Call = std::function<void(const Recorder&)>;

int nextPlace = 0;

template <typename Result, typename... Arguments>
void place(const char* name, Result (F::*function)(Arguments...) const)
{
    QTest::newRow(name) << nextPlace++ << static_cast<int>(virtualSlot(function));
}

template <typename Result, typename... Outputs>
void threeDown(const char* name, Result (F::*three)(Q, Q, Q, Outputs...) const,
               Result (F::*two)(Q, Q, Outputs...) const, Result (F::*one)(Q, Outputs...) const)
{
    place(qPrintable(QString("%1, three names").arg(name)), three);
    place(qPrintable(QString("%1, two names").arg(name)), two);
    place(qPrintable(QString("%1, one name").arg(name)), one);
}

void placeWritesAndFacts()
{
    place<double, Q, Q, Q, double>("SetValue number, three names", &F::SetValue);
    place<double, Q, Q, double>("SetValue number, two names", &F::SetValue);
    place<double, Q, double>("SetValue number, one name", &F::SetValue);
    place<QString, Q, Q, Q, Q>("SetValue text, three names", &F::SetValue);
    place<QString, Q, Q, Q>("SetValue text, two names", &F::SetValue);
    place<QString, Q, Q>("SetValue text, one name", &F::SetValue);
    place("RunCommand", &F::RunCommand);
    place("GetCategory", &F::GetCategory);
    place("GetIsFeatureValueAvailable", &F::GetIsFeatureValueAvailable);
    place("GetSelectedFeatures", &F::GetSelectedFeatures);
    place<ZalFeatureDataType, Q>("GetDataType", &F::GetDataType);
    place("GetRepresentation", &F::GetRepresentation);
    place("GetInformation", &F::GetInformation);
    place("GetFeaturesList", &F::GetFeaturesList);
}

} // namespace

Q_DECLARE_METATYPE(Call)

namespace {

// Qualified calls run the manager's own form; what that form calls is virtual again.
using R = const Recorder&;

void addForm(const char* name, const char* reached, const Call& call)
{
    QTest::newRow(name) << call << QString(reached);
}

void addRangeForms()
{
    static bool writable = false;
    static double min = 0.0;
    static double max = 0.0;
    static double inc = 0.0;
    addForm("GetValueIsWritableRangeIncrement 1", "GetValueIsWritableRangeIncrement|X||",
            [](R m) { m.F::GetValueIsWritableRangeIncrement("X", &writable, &min, &max, &inc); });
    addForm("GetValueIsWritableRangeIncrement 2", "GetValueIsWritableRangeIncrement|X|Y|", [](R m) {
        m.F::GetValueIsWritableRangeIncrement("X", "Y", &writable, &min, &max, &inc);
    });
    addForm("GetValueRangeIncrement 1", "GetValueRangeIncrement|X||",
            [](R m) { m.F::GetValueRangeIncrement("X", &min, &max, &inc); });
    addForm("GetValueRangeIncrement 2", "GetValueRangeIncrement|X|Y|",
            [](R m) { m.F::GetValueRangeIncrement("X", "Y", &min, &max, &inc); });
    addForm("GetValueRange 1", "GetValueRange|X||",
            [](R m) { m.F::GetValueRange("X", &min, &max); });
    addForm("GetValueRange 2", "GetValueRange|X|Y|",
            [](R m) { m.F::GetValueRange("X", "Y", &min, &max); });
}

} // namespace

class tst_FeatureManagerDispatch : public QObject
{
    Q_OBJECT

private slots:
    void virtualOperationsStandInTheirOrder_data();
    void virtualOperationsStandInTheirOrder();
    void shorterFormsCallTheLongerOnesThroughTheVirtualTable_data();
    void shorterFormsCallTheLongerOnesThroughTheVirtualTable();
    void formsThatResolveThemselvesReachNoOther_data();
    void formsThatResolveThemselvesReachNoOther();
    void overridingTheThreeNameFormAloneDoesNotChangeGetIsWritableOfOneName();
    void overridingTheThreeNameFormAloneChangesGetIsFeatureWritableOfOneName();
    void writtenTextIsReadBackThroughTheVirtualOneNameForm();
};

void tst_FeatureManagerDispatch::virtualOperationsStandInTheirOrder_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("slot");
    nextPlace = 2; // the destructor has the first two
    threeDown<double>("GetValue", &F::GetValue, &F::GetValue, &F::GetValue);
    place<QString, Q, Q>("GetStringValue, two names", &F::GetStringValue);
    place<QString, Q>("GetStringValue, one name", &F::GetStringValue);
    threeDown<bool>("GetIsWritable", &F::GetIsWritable, &F::GetIsWritable, &F::GetIsWritable);
    place<bool, Q>("GetIsReadable", &F::GetIsReadable);
    place<double, Q, Q>("GetIncrement, two names", &F::GetIncrement);
    place<double, Q>("GetIncrement, one name", &F::GetIncrement);
    place("GetFeatureName, list", &F::GetFeatureName);
    place<QString, const QStringList&>("GetDisplayName, list", &F::GetDisplayName);
    threeDown<QString>("GetDisplayName", &F::GetDisplayName, &F::GetDisplayName,
                       &F::GetDisplayName);
    threeDown<double, bool*, double*, double*, double*>(
        "GetValueIsWritableRangeIncrement", &F::GetValueIsWritableRangeIncrement,
        &F::GetValueIsWritableRangeIncrement, &F::GetValueIsWritableRangeIncrement);
    threeDown<double, double*, double*, double*>(
        "GetValueRangeIncrement", &F::GetValueRangeIncrement, &F::GetValueRangeIncrement,
        &F::GetValueRangeIncrement);
    threeDown<double, double*, double*>("GetValueRange", &F::GetValueRange, &F::GetValueRange,
                                        &F::GetValueRange);
    place("GetWritableEnumValue", &F::GetWritableEnumValue);
    place<QStringList, Q, Q>("GetAvailableEnumEntries, two names", &F::GetAvailableEnumEntries);
    place<QStringList, Q>("GetAvailableEnumEntries, one name", &F::GetAvailableEnumEntries);
    // These two families stand shortest form first, unlike all others.
    place<bool, Q>("GetIsFeatureAvailable, one name", &F::GetIsFeatureAvailable);
    place<bool, Q, Q>("GetIsFeatureAvailable, two names", &F::GetIsFeatureAvailable);
    place<bool, Q, Q, Q>("GetIsFeatureAvailable, three names", &F::GetIsFeatureAvailable);
    place<bool, Q>("GetIsFeatureWritable, one name", &F::GetIsFeatureWritable);
    place<bool, Q, Q>("GetIsFeatureWritable, two names", &F::GetIsFeatureWritable);
    place<bool, Q, Q, Q>("GetIsFeatureWritable, three names", &F::GetIsFeatureWritable);
    threeDown<bool>("GetIsFloatFeature", &F::GetIsFloatFeature, &F::GetIsFloatFeature,
                    &F::GetIsFloatFeature);
    placeWritesAndFacts();
    QCOMPARE(nextPlace, 2 + 51);
}

void tst_FeatureManagerDispatch::virtualOperationsStandInTheirOrder()
{
    QFETCH(int, place);
    QFETCH(int, slot);
    QCOMPARE(slot, place);
}

void tst_FeatureManagerDispatch::shorterFormsCallTheLongerOnesThroughTheVirtualTable_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QString>("reached");
    addForm("GetValue 1", "GetValue|X||", [](R m) { m.F::GetValue("X"); });
    addForm("GetValue 2", "GetValue|X|Y|", [](R m) { m.F::GetValue("X", "Y"); });
    addForm("GetStringValue 1", "GetStringValue|X|", [](R m) { m.F::GetStringValue("X"); });
    addForm("GetIsWritable 1", "GetIsWritable|X|", [](R m) { m.F::GetIsWritable("X"); });
    addForm("GetIncrement 1", "GetIncrement|X|", [](R m) { m.F::GetIncrement("X"); });
    addForm("GetDisplayName 1", "GetDisplayName|X|",
            [](R m) { m.F::GetDisplayName(QString("X")); });
    addRangeForms();
    addForm("GetAvailableEnumEntries 1", "GetAvailableEnumEntries|X|",
            [](R m) { m.F::GetAvailableEnumEntries("X"); });
    addForm("GetIsFeatureAvailable 1", "GetIsFeatureAvailable|X|",
            [](R m) { m.F::GetIsFeatureAvailable("X"); });
    addForm("GetIsFeatureAvailable 2", "GetIsFeatureAvailable|X|Y|",
            [](R m) { m.F::GetIsFeatureAvailable("X", "Y"); });
    addForm("GetIsFeatureWritable 1", "GetIsFeatureWritable|X|",
            [](R m) { m.F::GetIsFeatureWritable("X"); });
    addForm("GetIsFeatureWritable 2", "GetIsFeatureWritable|X|Y|",
            [](R m) { m.F::GetIsFeatureWritable("X", "Y"); });
    addForm("GetIsFloatFeature 1", "GetIsFloatFeature|X||",
            [](R m) { m.F::GetIsFloatFeature("X"); });
    addForm("GetIsFloatFeature 2", "GetIsFloatFeature|X|Y|",
            [](R m) { m.F::GetIsFloatFeature("X", "Y"); });
    addForm("SetValue number 1", "SetNumber|X||", [](R m) { m.F::SetValue("X", 1.0); });
    addForm("SetValue number 2", "SetNumber|X|Y|", [](R m) { m.F::SetValue("X", "Y", 1.0); });
    addForm("SetValue text 1", "SetText|X||", [](R m) { m.F::SetValue("X", QString("v")); });
    addForm("SetValue text 2", "SetText|X|Y|", [](R m) { m.F::SetValue("X", "Y", QString("v")); });
}

void tst_FeatureManagerDispatch::shorterFormsCallTheLongerOnesThroughTheVirtualTable()
{
    QFETCH(Call, call);
    QFETCH(QString, reached);
    const Recorder recorder(FeatureTest::WrapperList::create());
    call(recorder);
    QCOMPARE(recorder.reached, QStringList{reached});
}

void tst_FeatureManagerDispatch::formsThatResolveThemselvesReachNoOther_data()
{
    QTest::addColumn<Call>("call");
    const auto row = [](const char* name, const Call& call) { QTest::newRow(name) << call; };
    row("GetIsWritable 2", [](R m) { QVERIFY(m.F::GetIsWritable("Gone", "Count")); });
    row("GetIsWritable 3", [](R m) { QVERIFY(m.F::GetIsWritable("Gone", "Too", "Count")); });
    row("GetDisplayName 2",
        [](R m) { QCOMPARE(m.F::GetDisplayName("Gone", "Count"), QString("The count")); });
    row("GetDisplayName 3",
        [](R m) { QCOMPARE(m.F::GetDisplayName("Gone", "Too", "Count"), QString("The count")); });
    row("GetStringValue 2",
        [](R m) { QCOMPARE(m.F::GetStringValue("Gone", "Mode"), QString("On")); });
    row("GetIncrement 2", [](R m) { QCOMPARE(m.F::GetIncrement("Gone", "Count"), 2.0); });
    row("GetWritableEnumValue",
        [](R m) { QCOMPARE(m.F::GetWritableEnumValue("Mode"), QString("On")); });
}

void tst_FeatureManagerDispatch::formsThatResolveThemselvesReachNoOther()
{
    QFETCH(Call, call);
    const auto camera = FeatureTest::mixedCamera();
    const Recorder recorder(FeatureTest::wrap(*camera));
    call(recorder);
    QCOMPARE(recorder.reached, QStringList());
}

void tst_FeatureManagerDispatch::
    overridingTheThreeNameFormAloneDoesNotChangeGetIsWritableOfOneName()
{
    class Denier : public FeatureManager
    {
    public:
        using FeatureManager::FeatureManager;
        using FeatureManager::GetIsWritable;
        bool GetIsWritable(Q, Q, Q) const override { return false; }
    };
    const auto camera = FeatureTest::mixedCamera();
    const Denier denier(FeatureTest::wrap(*camera));
    QVERIFY(denier.GetIsWritable("Count"));
    QVERIFY(!denier.GetIsWritable("Count", QString(), QString()));
}

void tst_FeatureManagerDispatch::
    overridingTheThreeNameFormAloneChangesGetIsFeatureWritableOfOneName()
{
    class Denier : public FeatureManager
    {
    public:
        using FeatureManager::FeatureManager;
        using FeatureManager::GetIsFeatureAvailable;
        using FeatureManager::GetIsFeatureWritable;
        bool GetIsFeatureWritable(Q, Q, Q) const override { return false; }
        bool GetIsFeatureAvailable(Q, Q, Q) const override { return false; }
    };
    const auto camera = FeatureTest::mixedCamera();
    const Denier denier(FeatureTest::wrap(*camera));
    QVERIFY(!denier.GetIsFeatureWritable("Count"));
    QVERIFY(!denier.GetIsFeatureAvailable("Count"));
}

void tst_FeatureManagerDispatch::writtenTextIsReadBackThroughTheVirtualOneNameForm()
{
    const auto camera = FeatureTest::mixedCamera();
    const Recorder recorder(FeatureTest::wrap(*camera));
    QCOMPARE(recorder.F::SetValue("Gone", "Too", "Mode", QString("Off")), QString("s"));
    QCOMPARE(recorder.reached, QStringList{"GetStringValue|Gone"});
}

QTEST_APPLESS_MAIN(tst_FeatureManagerDispatch)

#include "tst_FeatureManagerDispatch.moc"
