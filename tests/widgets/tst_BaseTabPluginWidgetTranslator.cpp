// Which translation file is found, in a process whose system locale is de_AT.
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

class tst_BaseTabPluginWidgetTranslator : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void findsTheBestFile_data();
    void findsTheBestFile();
    void tabFallsBackFromAustriaToTheLanguage();
    void translatorIsReturnedWithoutAFileToo();
    void callerGetsANewOneEachTime();

private:
    QString translated(const QString& name);

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TestTabWidget> m_widget;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_folderBefore;
};

QString tst_BaseTabPluginWidgetTranslator::translated(const QString& name)
{
    const std::unique_ptr<QTranslator> translator(m_widget->GetTranslator(name));
    return translator->translate("Test", "tab");
}

void tst_BaseTabPluginWidgetTranslator::initTestCase()
{
    QCOMPARE(QLocale::system().name(), QStringLiteral("de_AT"));
}

// Files are found below the working directory, so every test has an empty one of its own.
void tst_BaseTabPluginWidgetTranslator::init()
{
    m_camera = Fake::FakeCamera::standard();
    m_widget = std::make_unique<TestTabWidget>(m_camera->features());
    m_folder = std::make_unique<QTemporaryDir>();
    m_folderBefore = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    QVERIFY(QDir().mkdir("qm"));
}

void tst_BaseTabPluginWidgetTranslator::cleanup()
{
    QVERIFY(QDir::setCurrent(m_folderBefore));
    m_widget.reset();
}

void tst_BaseTabPluginWidgetTranslator::findsTheBestFile_data()
{
    QTest::addColumn<QStringList>("austrian");
    QTest::addColumn<QStringList>("german");
    QTest::addColumn<QString>("text");
    const QString austrian = QStringLiteral("Österreichischer Reiter");
    const QStringList none;
    QTest::newRow("both") << QStringList{"qm/tab_de_AT.qm"} << QStringList{"qm/tab_de.qm"}
                          << austrian;
    QTest::newRow("territory only") << QStringList{"qm/tab_de_AT.qm"} << none << austrian;
    QTest::newRow("language only") << none << QStringList{"qm/tab_de.qm"} << "Reiter";
    QTest::newRow("without suffix") << none << QStringList{"qm/tab_de"} << "Reiter";
    QTest::newRow("without locale") << none << QStringList{"qm/tab.qm"} << "Reiter";
    QTest::newRow("another territory") << none << QStringList{"qm/tab_de_CH.qm"} << QString();
    QTest::newRow("another name") << none << QStringList{"qm/tab2_de.qm"} << QString();
    QTest::newRow("another folder") << none << QStringList{"tab_de.qm"} << QString();
    QTest::newRow("nothing") << none << none << QString();
}

void tst_BaseTabPluginWidgetTranslator::findsTheBestFile()
{
    QFETCH(QStringList, austrian);
    QFETCH(QStringList, german);
    for (const QString& file : austrian)
        QVERIFY(QFile::copy(QStringLiteral(TRANSLATIONS "/de_AT.qm"), file));
    for (const QString& file : german)
        QVERIFY(QFile::copy(QStringLiteral(TRANSLATIONS "/de.qm"), file));
    QTEST(translated("tab"), "text");
}

void tst_BaseTabPluginWidgetTranslator::tabFallsBackFromAustriaToTheLanguage()
{
    QVERIFY(QFile::copy(QStringLiteral(TRANSLATIONS "/de.qm"), "qm/tabextensionadvtrigger_de.qm"));
    QCOMPARE(translated("tabextensionadvtrigger"), QStringLiteral("Reiter"));
}

void tst_BaseTabPluginWidgetTranslator::translatorIsReturnedWithoutAFileToo()
{
    const std::unique_ptr<QTranslator> translator(m_widget->GetTranslator("tab"));
    QVERIFY(translator);
    QVERIFY(translator->isEmpty());
    QVERIFY(!translator->parent());
}

void tst_BaseTabPluginWidgetTranslator::callerGetsANewOneEachTime()
{
    const std::unique_ptr<QTranslator> first(m_widget->GetTranslator("tab"));
    const std::unique_ptr<QTranslator> second(m_widget->GetTranslator("tab"));
    QVERIFY(first != second);
}

int main(int argc, char* argv[])
{
    // Qt takes the system locale from here, whether or not that locale is installed.
    qputenv("LC_ALL", "de_AT.UTF-8");
    QApplication application(argc, argv);
    tst_BaseTabPluginWidgetTranslator test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_BaseTabPluginWidgetTranslator.moc"
