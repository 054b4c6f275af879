#include "plugin/TabExtensionException.h"

#include <QTest>

#include <cstddef>
#include <type_traits>

static_assert(!std::is_polymorphic_v<TabExtensionException>);
static_assert(!std::is_polymorphic_v<TENotSupported>);
static_assert(std::is_base_of_v<TabExtensionException, TENotSupported>);
static_assert(sizeof(TENotSupported) == sizeof(TabExtensionException), "adds no field");
static_assert(offsetof(TabExtensionException, className) <
              offsetof(TabExtensionException, message));
static_assert(offsetof(TabExtensionException, message) < offsetof(TabExtensionException, code));
static_assert(std::is_same_v<decltype(TabExtensionException::code), qint32>);

class tst_TabExtensionException : public QObject
{
    Q_OBJECT

private slots:
    void fieldsStandInOrder();
    void notSupportedCarriesCodeFour();
    void notSupportedIsCaughtAsTheBaseByReference();
};

void tst_TabExtensionException::fieldsStandInOrder()
{
    const TabExtensionException exception{"Widget", "reason", 7};
    QCOMPARE(exception.className, QStringLiteral("Widget"));
    QCOMPARE(exception.message, QStringLiteral("reason"));
    QCOMPARE(exception.code, 7);
}

void tst_TabExtensionException::notSupportedCarriesCodeFour()
{
    const TENotSupported refusal("Widget", "reason");
    QCOMPARE(refusal.className, QStringLiteral("Widget"));
    QCOMPARE(refusal.message, QStringLiteral("reason"));
    QCOMPARE(refusal.code, 4);
}

void tst_TabExtensionException::notSupportedIsCaughtAsTheBaseByReference()
{
    qint32 code = 0;
    try {
        throw TENotSupported("Widget", "reason");
    } catch (const TabExtensionException& refusal) {
        code = refusal.code;
    }
    QCOMPARE(code, 4);
}

QTEST_APPLESS_MAIN(tst_TabExtensionException)
#include "tst_TabExtensionException.moc"
