// The language alone is the first two letters of the locale, even where the language has three.
#include "tests/support/FakeCamera.h"
#include "tests/widgets/TestTabWidget.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

#include <memory>

class tst_BaseTabPluginWidgetTranslatorShort : public QObject
{
    Q_OBJECT

private slots:
    void languageIsCutToTwoLetters();
};

void tst_BaseTabPluginWidgetTranslatorShort::languageIsCutToTwoLetters()
{
    QCOMPARE(QLocale::system().name(), QStringLiteral("gsw_CH"));
    const auto camera = Fake::FakeCamera::standard();
    TestTabWidget widget(camera->features());
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    QVERIFY(QDir().mkdir("qm"));
    QVERIFY(QFile::copy(QStringLiteral(TRANSLATIONS "/de.qm"), "qm/tab_gs.qm"));
    const std::unique_ptr<QTranslator> translator(widget.GetTranslator("tab"));
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(translator->translate("Test", "tab"), QStringLiteral("Reiter"));
}

int main(int argc, char* argv[])
{
    qputenv("LC_ALL", "gsw_CH.UTF-8");
    QApplication application(argc, argv);
    tst_BaseTabPluginWidgetTranslatorShort test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_BaseTabPluginWidgetTranslatorShort.moc"
