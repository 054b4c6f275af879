// The built plugin on a desktop whose language it speaks: the viewer installs the plugin's
// translations before the tab is built, and the tab installs the same file once more afterwards.
#include "tests/e2e/TabOnFakeCamera.h"

#include <QLabel>
#include <QLocale>
#include <QSignalSpy>
#include <QToolButton>

class tst_TabOnGermanDesktop : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(QLocale::system().name(), QString("de_AT")); }

    void viewerAndTabInstallTheSameFile()
    {
        const TabOnFakeCamera camera;
        const QList<QTranslator*> translators = TabOnFakeCamera::translators();
        QCOMPARE(translators.size(), 2);
        for (const QTranslator* translator : translators) {
            QVERIFY(!translator->isEmpty());
            QVERIFY2(translator->filePath().endsWith("qm/tabextensionadvtrigger_de.qm"),
                     qPrintable(translator->filePath()));
        }
    }

    void bothTogetherSpeakGermanFromTheTabToTheDialogAndBack()
    {
        const TabOnFakeCamera m_camera;
        QCOMPARE(m_camera.title(), QString("Trigger-E/A"));
        QCOMPARE(m_camera.find<QLabel>("lblTriggerSource")->text(), QString("Quelle:"));

        QDialog* dialog = m_camera.openDialog();
        QVERIFY(dialog->windowTitle().startsWith("Erweiterte Trigger-E/A ("));
        const auto* section = dialog->findChild<QToolButton*>("btnConfigureSoftwareSignal");
        QCOMPARE(section->text().trimmed(), QString("Softwaresignal konfigurieren:"));

        QSignalSpy gone(dialog, &QObject::destroyed);
        dialog->close();
        QTRY_COMPARE(gone.count(), 1);
        QVERIFY(m_camera.tab()->isVisible());
        QCOMPARE(m_camera.find<QLabel>("lblTriggerSource")->text(), QString("Quelle:"));
    }

    void oneOfThemIsEnough()
    {
        const TabOnFakeCamera m_camera;
        delete TabOnFakeCamera::translators().first();
        QVERIFY(m_camera.openDialog()->windowTitle().startsWith("Erweiterte Trigger-E/A ("));
    }
};

int main(int argc, char* argv[])
{
    // Qt takes the system locale from here, whether or not that locale is installed.
    qputenv("LC_ALL", "de_AT.UTF-8");
    qunsetenv("LANGUAGE");
    QApplication application(argc, argv);
    tst_TabOnGermanDesktop test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_TabOnGermanDesktop.moc"
