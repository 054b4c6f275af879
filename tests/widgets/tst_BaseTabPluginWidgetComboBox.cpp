#include "tests/support/FakeCamera.h"
#include "tests/widgets/TestTabWidget.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

QStringList itemsOf(const QComboBox& combo)
{
    QStringList items;
    for (int i = 0; i < combo.count(); ++i)
        items << combo.itemText(i);
    return items;
}

} // namespace

class tst_BaseTabPluginWidgetComboBox : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void noBoxIsFalseWithoutAskingTheCamera();
    void showsEntriesAndCurrentOne();
    void replacesWhatTheBoxHeld();
    void leavesOutUnavailableEntries();
    void selectsNothingUnlessEqual_data();
    void selectsNothingUnlessEqual();
    void selectsTheFirstOfEqualEntries();
    void toolTipsAreTheEntriesWhenAskedFor();
    void readOnlyFeatureDisablesTheBox();
    void featureWithoutEntriesGivesAnEmptyBox_data();
    void featureWithoutEntriesGivesAnEmptyBox();
    void signalsAreNotBlocked();

private:
    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TestTabWidget> m_widget;
};

void tst_BaseTabPluginWidgetComboBox::init()
{
    m_camera = Fake::FakeCamera::standard();
    m_camera->addEnum("Mode", {"First", "Second", "Third"}, "Second");
    m_widget = std::make_unique<TestTabWidget>(m_camera->features());
    m_camera->clearLog();
}

void tst_BaseTabPluginWidgetComboBox::noBoxIsFalseWithoutAskingTheCamera()
{
    QCOMPARE(m_widget->updateComboBox("Mode", nullptr, true), false);
    QVERIFY(m_camera->calls().empty());
}

void tst_BaseTabPluginWidgetComboBox::showsEntriesAndCurrentOne()
{
    QComboBox combo;
    QCOMPARE(m_widget->updateComboBox("Mode", &combo, false), true);
    QCOMPARE(itemsOf(combo), QStringList({"First", "Second", "Third"}));
    QCOMPARE(combo.currentText(), QStringLiteral("Second"));
    QVERIFY(combo.isEnabled());
    QVERIFY(m_camera->writes().empty());
}

void tst_BaseTabPluginWidgetComboBox::replacesWhatTheBoxHeld()
{
    QComboBox combo;
    combo.addItems({"Old", "Second", "Older"});
    m_widget->updateComboBox("Mode", &combo, false);
    QCOMPARE(itemsOf(combo), QStringList({"First", "Second", "Third"}));
}

void tst_BaseTabPluginWidgetComboBox::leavesOutUnavailableEntries()
{
    (*m_camera)["Mode"].state().entries[0].available = false;
    QComboBox combo;
    m_widget->updateComboBox("Mode", &combo, false);
    QCOMPARE(itemsOf(combo), QStringList({"Second", "Third"}));
    QCOMPARE(combo.currentIndex(), 0);
}

void tst_BaseTabPluginWidgetComboBox::selectsNothingUnlessEqual_data()
{
    QTest::addColumn<QString>("current");
    QTest::addColumn<int>("index");
    QTest::newRow("equal") << "Third" << 2;
    QTest::newRow("another case") << "third" << -1;
    QTest::newRow("a part") << "Thi" << -1;
    QTest::newRow("more than the entry") << "Third1" << -1;
    QTest::newRow("empty") << "" << -1;
}

void tst_BaseTabPluginWidgetComboBox::selectsNothingUnlessEqual()
{
    QFETCH(QString, current);
    (*m_camera)["Mode"].state().text = current.toStdString();
    QComboBox combo;
    m_widget->updateComboBox("Mode", &combo, false);
    QTEST(combo.currentIndex(), "index");
}

void tst_BaseTabPluginWidgetComboBox::selectsTheFirstOfEqualEntries()
{
    m_camera->addEnum("Twice", {"A", "B", "B"}, "B");
    QComboBox combo;
    m_widget = std::make_unique<TestTabWidget>(m_camera->features());
    m_widget->updateComboBox("Twice", &combo, false);
    QCOMPARE(combo.currentIndex(), 1);
}

void tst_BaseTabPluginWidgetComboBox::toolTipsAreTheEntriesWhenAskedFor()
{
    QComboBox combo;
    m_widget->updateComboBox("Mode", &combo, true);
    QCOMPARE(combo.itemData(0, Qt::ToolTipRole).toString(), QStringLiteral("First"));
    QCOMPARE(combo.itemData(1, Qt::ToolTipRole).toString(), QStringLiteral("Second"));
    QCOMPARE(combo.itemData(2, Qt::ToolTipRole).toString(), QStringLiteral("Third"));

    m_widget->updateComboBox("Mode", &combo, false);
    QVERIFY(!combo.itemData(0, Qt::ToolTipRole).isValid());
}

void tst_BaseTabPluginWidgetComboBox::readOnlyFeatureDisablesTheBox()
{
    (*m_camera)["Mode"].state().writable = false;
    QComboBox combo;
    QCOMPARE(m_widget->updateComboBox("Mode", &combo, false), false);
    QVERIFY(!combo.isEnabled());
    QCOMPARE(combo.currentText(), QStringLiteral("Second"));

    (*m_camera)["Mode"].state().writable = true;
    QCOMPARE(m_widget->updateComboBox("Mode", &combo, false), true);
    QVERIFY(combo.isEnabled());
}

void tst_BaseTabPluginWidgetComboBox::featureWithoutEntriesGivesAnEmptyBox_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<bool>("writable");
    QTest::newRow("number, writable") << "TriggerDelay" << true;
    QTest::newRow("text, read-only") << "DeviceModelName" << false;
    QTest::newRow("missing feature") << "NoSuchFeature" << false;
}

void tst_BaseTabPluginWidgetComboBox::featureWithoutEntriesGivesAnEmptyBox()
{
    QFETCH(QString, feature);
    QFETCH(bool, writable);
    QComboBox combo;
    combo.addItem("Old");
    QCOMPARE(m_widget->updateComboBox(feature, &combo, true), writable);
    QCOMPARE(combo.count(), 0);
    QCOMPARE(combo.currentIndex(), -1);
    QCOMPARE(combo.isEnabled(), writable);
}

// Whoever listens to the box guards himself.
void tst_BaseTabPluginWidgetComboBox::signalsAreNotBlocked()
{
    QComboBox combo;
    const QSignalSpy changes(&combo, SIGNAL(currentTextChanged(QString)));
    m_widget->updateComboBox("Mode", &combo, false);
    QVERIFY(changes.count() > 0);
    QCOMPARE(changes.last().first().toString(), QStringLiteral("Second"));
}

QTEST_MAIN(tst_BaseTabPluginWidgetComboBox)
#include "tst_BaseTabPluginWidgetComboBox.moc"
