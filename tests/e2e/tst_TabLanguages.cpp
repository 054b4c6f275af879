// The built plugin with its built translations, in each language that the viewer can be asked for.
// The system's language has none here, so that every text comes from what the viewer installs.
#include "host/Language.h"
#include "tests/e2e/TabOnFakeCamera.h"

#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QTableWidget>
#include <QToolButton>

class tst_TabLanguages : public QObject
{
    Q_OBJECT

    static void everyLanguage()
    {
        QTest::addColumn<QString>("language");
        for (const QString& language : Language::codes())
            QTest::newRow(qPrintable(language)) << language;
    }

private slots:
    void initTestCase() { QCOMPARE(QLocale::system().name(), QString("pt_BR")); }

    void everyLanguageHasTheTabsTranslations()
    {
        QStringList compiled{"en"}; // What the sources are written in.
        const QDir folder(PROGRAM_FOLDER "/qm");
        for (const QString& file : folder.entryList({"tabextensionadvtrigger_*.qm"}))
            compiled << file.mid(23, 2);
        compiled.sort();
        QCOMPARE(Language::codes(), compiled);
    }

    void tabIsTranslated_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("delay");
        QTest::addColumn<QString>("group");
        QTest::addColumn<QString>("invert");
        QTest::newRow("en") << "Trigger IO"
                            << "Source:"
                            << "Delay (µs):"
                            << "Configure Trigger:"
                            << "Invert";
        QTest::newRow("de") << "Trigger-E/A"
                            << "Quelle:"
                            << "Verzögerung (µs):"
                            << "Trigger konfigurieren:"
                            << "Invertieren";
        QTest::newRow("fr") << "E/S de déclenchement"
                            << "Source\u00a0:"
                            << "Retard (µs)\u00a0:"
                            << "Configurer le déclenchement\u00a0:"
                            << "Inverser";
        QTest::newRow("es") << "E/S de disparo"
                            << "Fuente:"
                            << "Retardo (µs):"
                            << "Configurar el disparo:"
                            << "Invertir";
        QTest::newRow("ja") << "トリガー I/O"
                            << "ソース:"
                            << "遅延 (µs):"
                            << "トリガーの設定:"
                            << "反転";
        QTest::newRow("zh") << "触发 I/O"
                            << "源："
                            << "延迟 (µs)："
                            << "配置触发："
                            << "反转";
    }
    void tabIsTranslated()
    {
        QLocale::setDefault(QLocale(QTest::currentDataTag()));
        const TabOnFakeCamera camera;
        QTEST(camera.title(), "title");
        QTEST(camera.find<QLabel>("lblTriggerSource")->text(), "source");
        QTEST(camera.find<QLabel>("lblTriggerDelay")->text(), "delay");
        QTEST(camera.find<QGroupBox>("grpTrigger")->title(), "group");
        QTEST(camera.find<QTableWidget>("tableWidget")->horizontalHeaderItem(1)->text(), "invert");
    }

    void dialogIsTranslated_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("debounce");
        QTest::addColumn<QString>("notice");
        QTest::newRow("en") << "Advanced Trigger IO"
                            << "3. Configure inputs and outputs:"
                            << "Debounce\nMode"
                            << "Please use the Advanced Trigger Dialog.";
        QTest::newRow("de") << "Erweiterte Trigger-E/A"
                            << "3. Ein- und Ausgänge konfigurieren:"
                            << "Entprell-\nmodus"
                            << "Bitte verwenden Sie den Dialog „Erweiterte Trigger-E/A“.";
        QTest::newRow("fr")
            << "E/S de déclenchement avancées"
            << "3. Configurer les entrées et sorties\u00a0:"
            << "Mode\nanti-rebond"
            << "Veuillez utiliser le dialogue «\u00a0E/S de déclenchement avancées\u00a0».";
        QTest::newRow("es") << "E/S de disparo avanzadas"
                            << "3. Configurar entradas y salidas:"
                            << "Modo\nantirrebote"
                            << "Utilice el diálogo «E/S de disparo avanzadas».";
        QTest::newRow("ja") << "高度なトリガー I/O"
                            << "3. 入出力の設定:"
                            << "デバウンス\nモード"
                            << "「高度なトリガー I/O」ダイアログを使用してください。";
        QTest::newRow("zh") << "高级触发 I/O"
                            << "3. 配置输入和输出："
                            << "去抖\n模式"
                            << "请使用“高级触发 I/O”对话框。";
    }
    void dialogIsTranslated()
    {
        QFETCH(QString, title);
        QFETCH(QString, notice);
        QLocale::setDefault(QLocale(QTest::currentDataTag()));
        const TabOnFakeCamera camera;
        const QDialog* dialog = camera.openDialog();
        QVERIFY2(dialog->windowTitle().startsWith(title + " ("), qPrintable(dialog->windowTitle()));
        const auto* section = dialog->findChild<QToolButton*>("btnConfigureInputOutput");
        QTEST(section->text().trimmed(), "section");
        const auto* table = dialog->findChild<QTableWidget*>("tableWidget");
        QTEST(table->horizontalHeaderItem(4)->text(), "debounce");
        QStringList shown;
        for (const QLabel* label : camera.page().findChildren<QLabel*>()) {
            if (label->isVisibleTo(&camera.page()) && label->window() != dialog)
                shown << label->text();
        }
        QCOMPARE(shown, QStringList{notice});
    }

    void columnsAreNamedAfterTheirFeaturesInEveryLanguage_data() { everyLanguage(); }
    void columnsAreNamedAfterTheirFeaturesInEveryLanguage()
    {
        QFETCH(QString, language);
        QLocale::setDefault(QLocale(language));
        const TabOnFakeCamera camera;
        const auto* table = camera.openDialog()->findChild<QTableWidget*>("tableWidget");
        QStringList features;
        for (int column = 0; column < table->columnCount(); ++column)
            features << table->horizontalHeaderItem(column)->toolTip();
        QCOMPARE(features, QStringList({"LineMode", "LineInverter", "LineSource", "LineStatus",
                                        "LineDebounceMode", "LineDebounceDuration"}));
    }
};

int main(int argc, char* argv[])
{
    // Qt takes the system locale from here, whether or not that locale is installed.
    qputenv("LC_ALL", "pt_BR.UTF-8");
    qunsetenv("LANGUAGE");
    QApplication application(argc, argv);
    tst_TabLanguages test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_TabLanguages.moc"
