// The tab's construction: refusals, names, exempt widgets, translator, and what it leaves undone.
#include "plugin/TabExtensionException.h"
#include "tests/ui/TabUnderTest.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMetaMethod>
#include <QTemporaryDir>
#include <QTranslator>

namespace {

/// Translates the tab's accessible name to nothing.
class EmptyName : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* text, const char*, int) const override
    {
        return qstrcmp(text, "Trigger IO") == 0 ? QStringLiteral("") : QString();
    }
};

/// A working directory with the tab's translation for this system's locale, until destroyed.
class TranslatedWorkingDirectory
{
public:
    TranslatedWorkingDirectory() : m_before(QDir::currentPath())
    {
        QDir(m_directory.path()).mkdir("qm");
        ready = QFile::copy(QStringLiteral(TAB_TRANSLATION),
                            m_directory.filePath("qm/tabextensionadvtrigger_%1.qm")
                                .arg(QLocale::system().name())) &&
                QDir::setCurrent(m_directory.path());
    }
    ~TranslatedWorkingDirectory() { QDir::setCurrent(m_before); }

    bool ready = false;

private:
    QTemporaryDir m_directory;
    QString m_before;
};

QString sourceLabel(const QWidget& tab)
{
    return tab.findChild<QLabel*>("lblTriggerSource")->text();
}

QString translatedSource()
{
    return QCoreApplication::translate("AdvTriggerWidget", "Source:");
}

/// Where the lookups of the log ended, each of which walks the list from its first feature on: at
/// the feature found, or at the list's end.
QStringList endsOfLookups(const Fake::FakeCamera& camera)
{
    const QString first = QStringLiteral("DeviceVendorName");
    QStringList ends;
    QString last = first;
    for (const QString& call : toList(camera.calls())) {
        if (!call.startsWith("GetName "))
            continue;
        const QString name = call.section(' ', 1);
        if (name == first && last != first)
            ends << last;
        last = name;
    }
    return ends << last;
}

TENotSupported refusalOf(const Fake::FakeCamera& camera)
{
    try {
        const AdvTriggerWidget tab(camera.features(), nullptr);
    } catch (const TENotSupported& refusal) {
        return refusal;
    }
    return {QStringLiteral("accepted"), QString()};
}

} // namespace

class tst_AdvTriggerWidget : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void refusesCameraWithout_data();
    void refusesCameraWithout();
    void refusalLeavesNothingInTheParent();
    void foreignVendorIsRefusedByTheBase();
    void asksForFeaturesInOrderUntilOneIsMissing_data();
    void asksForFeaturesInOrderUntilOneIsMissing();
    void namesItselfAndItsParentForAccessibility();
    void namesItselfWithoutParent();
    void setsUpTheFormOnItself();
    void exemptsItsFreeWidgetsInOrder();
    void hidesTheHint();
    void showsAllItsParts_data();
    void showsAllItsParts();
    void bindsNothingBeforeTheFirstShow();
    void installsItsTranslatorAfterTheFormIsSetUp();
    void installsNoTranslatorWithoutFile();
    void installsNoTranslatorWhenItsNameIsTranslatedToNothing();
    void declaresSignalAndSlotsInOrder();
    void hostCanConnectTheNoticeToItsSignal();
};

void tst_AdvTriggerWidget::cleanup()
{
    // A tab's translator stays in the application for good; the next test starts without.
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>());
}

void tst_AdvTriggerWidget::refusesCameraWithout_data()
{
    QTest::addColumn<QString>("feature");
    for (const char* feature : {"TriggerSelector", "LineSelector", "LineMode"})
        QTest::newRow(feature) << QString(feature);
}

void tst_AdvTriggerWidget::refusesCameraWithout()
{
    QFETCH(QString, feature);
    const auto camera = Fake::FakeCamera::standard();
    camera->remove(feature.toStdString());
    const TENotSupported refusal = refusalOf(*camera);
    QCOMPARE(refusal.className, QString("AdvTriggerWidget"));
    QCOMPARE(refusal.message, QString("camera does not support trigger, widget not created"));
    QCOMPARE(refusal.code, 4);
}

void tst_AdvTriggerWidget::refusalLeavesNothingInTheParent()
{
    const auto camera = Fake::FakeCamera::standard();
    camera->remove("LineMode");
    QWidget parent;
    QVERIFY_EXCEPTION_THROWN(AdvTriggerWidget(camera->features(), &parent), TENotSupported);
    QVERIFY(parent.children().isEmpty());
    QCOMPARE(parent.accessibleName(), QString());
}

void tst_AdvTriggerWidget::foreignVendorIsRefusedByTheBase()
{
    const auto camera = Fake::FakeCamera::standard();
    (*camera)["DeviceVendorName"].state().text = "Another Maker";
    const TENotSupported refusal = refusalOf(*camera);
    QCOMPARE(refusal.className, QString("BaseTabPluginWidget"));
    QCOMPARE(refusal.code, 4);
}

void tst_AdvTriggerWidget::asksForFeaturesInOrderUntilOneIsMissing_data()
{
    QTest::addColumn<QString>("missing");
    QTest::addColumn<QStringList>("lookups");
    const QString end = "TimerReset";
    QTest::newRow("all there") << QString()
                               << QStringList{"TriggerSelector", "LineSelector", "LineMode"};
    QTest::newRow("no trigger selector") << "TriggerSelector" << QStringList{end};
    QTest::newRow("no line selector") << "LineSelector" << QStringList{"TriggerSelector", end};
    QTest::newRow("no line mode") << "LineMode"
                                  << QStringList{"TriggerSelector", "LineSelector", end};
}

void tst_AdvTriggerWidget::asksForFeaturesInOrderUntilOneIsMissing()
{
    QFETCH(QString, missing);
    QFETCH(QStringList, lookups);
    const auto camera = Fake::FakeCamera::standard();
    camera->remove(missing.toStdString());
    refusalOf(*camera);
    // The last ones: the base has asked for much more before.
    const QStringList ends = endsOfLookups(*camera);
    QCOMPARE(ends.mid(ends.size() - lookups.size()), lookups);
    QVERIFY(!ends.mid(0, ends.size() - lookups.size()).contains("LineSelector"));
    QVERIFY(!ends.mid(0, ends.size() - lookups.size()).contains("LineMode"));
}

void tst_AdvTriggerWidget::namesItselfAndItsParentForAccessibility()
{
    const auto camera = Fake::FakeCamera::standard();
    QWidget parent;
    const auto* tab = new AdvTriggerWidget(camera->features(), &parent);
    QCOMPARE(parent.accessibleName(), QString("Trigger IO"));
    QCOMPARE(tab->accessibleName(), QString("Trigger IO"));
}

void tst_AdvTriggerWidget::namesItselfWithoutParent()
{
    const TabOnCamera shown;
    QCOMPARE(shown.tab.accessibleName(), QString("Trigger IO"));
}

void tst_AdvTriggerWidget::setsUpTheFormOnItself()
{
    const TabOnCamera fresh;
    QCOMPARE(fresh.tab.objectName(), QString("AdvTriggerWidget"));
    QCOMPARE(fresh.tab.minimumWidth(), 350);
    QCOMPARE(fresh.find("scrollArea")->parentWidget(), &fresh.tab);
}

void tst_AdvTriggerWidget::exemptsItsFreeWidgetsInOrder()
{
    const TabOnCamera fresh;
    const QStringList expected = {"cmbSelectPreset", "btnApplyPreset", "btnAdvancedDialog",
                                  "lbl_notAcquireHint", "chkTooltips"};
    QCOMPARE(fresh.tab.m_exemptWidgets, expected);
    // Reserved, though the form has no such button.
    QVERIFY(fresh.tab.findChild<QWidget*>("btnApplyPreset") == nullptr);
}

void tst_AdvTriggerWidget::hidesTheHint()
{
    const TabOnCamera fresh;
    QVERIFY(fresh.find("lbl_notAcquireHint")->isHidden());
}

void tst_AdvTriggerWidget::showsAllItsParts_data()
{
    QTest::addColumn<bool>("unused");
    for (const char* name :
         {"lblSelectPreset", "cmbSelectPreset", "chkTooltips", "grpTrigger", "grpAdvancedDialog",
          "btnAdvancedDialog", "grpInputOutput", "tableWidget", "btnTriggerFeaturesStatus"})
        QTest::newRow(name) << true;
}

void tst_AdvTriggerWidget::showsAllItsParts()
{
    TabOnCamera shown;
    shown.show();
    QVERIFY(shown.find(QTest::currentDataTag())->isVisible());
    QVERIFY(shown.find(QTest::currentDataTag())->isEnabled());
}

void tst_AdvTriggerWidget::bindsNothingBeforeTheFirstShow()
{
    const TabOnCamera fresh;
    QCOMPARE(fresh.find<QComboBox>("cmbTriggerMode")->count(), 0);
    QVERIFY(!fresh.tab.m_observedFeatures.contains("TriggerSource"));
    QVERIFY(!fresh.tab.m_observedFeatures.contains("LineMode"));
    QCOMPARE(settingsWritten(*fresh.camera), QStringList());
    QCOMPARE(fresh.camera->callCount("GetEnumNames", "TriggerMode"), 0);
    QCOMPARE(fresh.camera->callCount("SetStringValue", "LineSelector"), 0);
}

void tst_AdvTriggerWidget::installsItsTranslatorAfterTheFormIsSetUp()
{
    const TranslatedWorkingDirectory directory;
    QVERIFY(directory.ready);
    QCOMPARE(translatedSource(), QString("Source:"));

    TabOnCamera first;
    QCOMPARE(translatedSource(), QString("Quelle:"));
    QCOMPARE(sourceLabel(first.tab), QString("Source:"));
    QCOMPARE(first.tab.accessibleName(), QString("Trigger IO"));

    first.show();
    QCoreApplication::processEvents();
    QCOMPARE(sourceLabel(first.tab), QString("Source:"));

    const TabOnCamera second;
    QCOMPARE(sourceLabel(second.tab), QString("Quelle:"));
    QCOMPARE(second.tab.accessibleName(), QString("Trigger-EA"));
}

void tst_AdvTriggerWidget::installsNoTranslatorWithoutFile()
{
    const TabOnCamera fresh;
    QVERIFY(QCoreApplication::instance()->findChildren<QTranslator*>().isEmpty());
}

void tst_AdvTriggerWidget::installsNoTranslatorWhenItsNameIsTranslatedToNothing()
{
    const TranslatedWorkingDirectory directory;
    QVERIFY(directory.ready);
    EmptyName emptyName;
    QCoreApplication::installTranslator(&emptyName);
    const TabOnCamera fresh;
    QCOMPARE(fresh.tab.accessibleName(), QString());
    QCOMPARE(translatedSource(), QString("Source:"));
}

void tst_AdvTriggerWidget::declaresSignalAndSlotsInOrder()
{
    const QMetaObject& meta = AdvTriggerWidget::staticMetaObject;
    QStringList signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        signatures << QString::fromLatin1(meta.method(i).methodSignature());
    const QStringList expected = {"dialogWindowDisplayed(bool)", "OnClickAdvancedDialog()",
                                  "showTabWidget(int)", "SetCustomPreset()",
                                  "camIsStreaming(bool)"};
    QCOMPARE(signatures, expected);
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.method(meta.methodOffset()).parameterNames().first(), QByteArray("status"));
}

void tst_AdvTriggerWidget::hostCanConnectTheNoticeToItsSignal()
{
    TabOnCamera fresh;
    QLabel notice;
    QVERIFY(
        QObject::connect(&fresh.tab, "2dialogWindowDisplayed(bool)", &notice, "1setVisible(bool)"));
    emit fresh.tab.dialogWindowDisplayed(true);
    QVERIFY(notice.isVisible());
    emit fresh.tab.dialogWindowDisplayed(false);
    QVERIFY(!notice.isVisible());
}

QTEST_MAIN(tst_AdvTriggerWidget)
#include "tst_AdvTriggerWidget.moc"
