#include <QTest>

#include <dlfcn.h>

/// The SDK as a program sees it that loads it at run time.
class SdkLibrary : public QObject
{
    Q_OBJECT

private slots:
    void staysInMemoryWhenItIsUnloaded();
};

void SdkLibrary::staysInMemoryWhenItIsUnloaded()
{
    QVERIFY2(!dlopen(LIBRARY, RTLD_NOW | RTLD_NOLOAD), "The test itself must not be linked to it");
    void* library = dlopen(LIBRARY, RTLD_NOW);
    QVERIFY2(library, dlerror());
    QCOMPARE(dlclose(library), 0);
    QVERIFY(dlopen(LIBRARY, RTLD_NOW | RTLD_NOLOAD));
}

QTEST_GUILESS_MAIN(SdkLibrary)
#include "tst_SdkLibrary.moc"
