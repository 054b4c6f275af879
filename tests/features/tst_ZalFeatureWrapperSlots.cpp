// The order of the wrapper's virtual operations, which is part of its interface.
#include "features/ZalFeatureWrapper.h"
#include "tests/support/VirtualSlot.h"

#include <QtTest>

class tst_ZalFeatureWrapperSlots : public QObject
{
    Q_OBJECT

private slots:
    void virtualOperationsStandInTheirOrder_data();
    void virtualOperationsStandInTheirOrder();
};

namespace {

using W = ZalFeatureWrapper;
using Z = ZalErrorType;
using Bytes = std::vector<unsigned char>;
using Numbers = std::vector<long long>;

/// The table's destructor takes two places, so the n-th operation stands at place n.
void row(const char* name, int order, std::size_t slot)
{
    QTest::newRow(name) << order << static_cast<int>(slot);
}

template <typename Result, typename... Arguments>
void writer(const char* name, int order, Result (W::*function)(Arguments...))
{
    row(name, order, virtualSlot(function));
}

template <typename Result, typename... Arguments>
void reader(const char* name, int order, Result (W::*function)(Arguments...) const)
{
    row(name, order, virtualSlot(function));
}

void addFacts()
{
    reader("GetName", 29, &W::GetName);
    reader("GetDisplayName", 30, &W::GetDisplayName);
    reader("GetDataType", 31, &W::GetDataType);
    reader("GetFlags", 32, &W::GetFlags);
    reader("GetCategory", 33, &W::GetCategory);
    reader("GetUnit", 34, &W::GetUnit);
    reader("GetRepresentation", 35, &W::GetRepresentation);
    reader("GetVisibility", 36, &W::GetVisibility);
    reader("GetToolTip", 37, &W::GetToolTip);
    reader("GetDescription", 38, &W::GetDescription);
    writer("GetSelectedFeatures", 39, &W::GetSelectedFeatures);
    reader("GetValidValueSet", 40, &W::GetValidValueSet);
    writer("IsReadable", 41, &W::IsReadable);
    writer("IsWritable", 42, &W::IsWritable);
    writer("RegisterObserver", 43, &W::RegisterObserver);
    writer("UnregisterObserver", 44, &W::UnregisterObserver);
}

} // namespace

void tst_ZalFeatureWrapperSlots::virtualOperationsStandInTheirOrder_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("slot");
    writer("GetZalFeaturePtr", 2, &W::GetZalFeaturePtr);
    reader<Z, long long&>("GetValue(long long)", 3, &W::GetValue);
    reader<Z, double&>("GetValue(double)", 4, &W::GetValue);
    reader<Z, std::string&>("GetValue(string)", 5, &W::GetValue);
    reader<Z, bool&>("GetValue(bool)", 6, &W::GetValue);
    reader<Z, Bytes&>("GetValue(bytes)", 7, &W::GetValue);
    reader<Z, Bytes&, unsigned&>("GetValue(bytes, size)", 8, &W::GetValue);
    writer<Z, Numbers&>("GetValues(integers)", 9, &W::GetValues);
    writer<Z, std::vector<std::string>&>("GetValues(names)", 10, &W::GetValues);
    reader("GetEntry", 11, &W::GetEntry);
    writer("GetEntries", 12, &W::GetEntries);
    reader<Z, double&, double&>("GetRange(double)", 13, &W::GetRange);
    reader<Z, long long&, long long&>("GetRange(long long)", 14, &W::GetRange);
    writer<Z, long long>("SetValue(long long)", 15, &W::SetValue);
    writer<Z, double>("SetValue(double)", 16, &W::SetValue);
    writer<Z, bool>("SetValue(bool)", 17, &W::SetValue);
    writer<Z, const char*>("SetValue(const char*)", 18, &W::SetValue);
    writer<Z, Bytes&>("SetValue(bytes)", 20, &W::SetValue);
    reader("HasIncrement", 21, &W::HasIncrement);
    reader<Z, long long&>("GetIncrement(long long)", 22, &W::GetIncrement);
    reader<Z, double&>("GetIncrement(double)", 23, &W::GetIncrement);
    reader<Z, const char*, bool&>("IsValueAvailable(name)", 24, &W::IsValueAvailable);
    reader<Z, long long, bool&>("IsValueAvailable(value)", 26, &W::IsValueAvailable);
    writer("RunCommand", 27, &W::RunCommand);
    reader("IsCommandDone", 28, &W::IsCommandDone);
    addFacts();
}

void tst_ZalFeatureWrapperSlots::virtualOperationsStandInTheirOrder()
{
    QFETCH(int, order);
    QFETCH(int, slot);
    QCOMPARE(slot, order);
}

QTEST_APPLESS_MAIN(tst_ZalFeatureWrapperSlots)

#include "tst_ZalFeatureWrapperSlots.moc"
