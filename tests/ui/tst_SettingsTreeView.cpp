// The overview of active settings in a view.
#include "tests/ui/TreeForm.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTreeView>

namespace {

/// Whoever refreshes a form.
class Reporter : public QObject
{
    Q_OBJECT

signals:
    void FeatureChanged(const QString& featureName, const QVariant& value);
};

} // namespace

class tst_SettingsTreeView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void showsTheTreeUnfolded();
    void fitsItsColumns();
    void unfoldsWheneverRowsAreInserted();
    void followsTheReporter();
    void showsSixDigitsHoweverTheNumberArrived_data();
    void showsSixDigitsHoweverTheNumberArrived();
    void hasANameForAssistiveTechnology();

private:
    bool isUnfolded() const;
    QString shownValue(const QString& feature) const;

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TreeForm> m_form;
    std::unique_ptr<QTreeView> m_view;
    Reporter m_reporter;
};

void tst_SettingsTreeView::init()
{
    m_camera = triggerCamera();
    // The reports are about the one that the overview shows.
    m_camera->find("TriggerSelector")->state().text = "FrameStart";
    m_form = std::make_unique<TreeForm>(*m_camera);
    m_view = std::make_unique<QTreeView>();
    m_form->tree.showIn(m_view.get(), &m_reporter);
}

void tst_SettingsTreeView::cleanup()
{
    m_view.reset();
    m_form.reset();
    m_camera.reset();
}

bool tst_SettingsTreeView::isUnfolded() const
{
    for (int row = 0; row < m_form->model().rowCount(); ++row) {
        const QModelIndex branch = m_form->model().index(row, 0);
        if (m_form->model().hasChildren(branch) && !m_view->isExpanded(branch))
            return false;
    }
    return true;
}

/// As the view paints it on a desktop with other numbers.
QString tst_SettingsTreeView::shownValue(const QString& feature) const
{
    const auto names = m_form->model().findItems(feature, Qt::MatchExactly | Qt::MatchRecursive);
    if (names.size() != 1)
        return QStringLiteral("no such row");
    const QVariant value = names.first()->index().siblingAtColumn(1).data();
    return qobject_cast<QStyledItemDelegate*>(m_view->itemDelegate())
        ->displayText(value, QLocale(QLocale::German));
}

void tst_SettingsTreeView::showsTheTreeUnfolded()
{
    QCOMPARE(m_view->model(), m_form->tree.model());
    QCOMPARE(m_form->branches().last(), QString("Trigger: FrameStart"));
    QVERIFY(isUnfolded());
}

void tst_SettingsTreeView::fitsItsColumns()
{
    QCOMPARE(m_view->header()->sectionResizeMode(0), QHeaderView::ResizeToContents);
    QVERIFY(m_view->header()->stretchLastSection());
}

void tst_SettingsTreeView::unfoldsWheneverRowsAreInserted()
{
    m_view->collapseAll();
    QVERIFY(!isUnfolded());
    m_form->tree.addSelectorBranch("TriggerSelector", "LineStart");
    QVERIFY(isUnfolded());
}

void tst_SettingsTreeView::followsTheReporter()
{
    emit m_reporter.FeatureChanged("TriggerSource", "Line0");
    QCOMPARE(shownValue("TriggerSource"), QString("Line0"));
    emit m_reporter.FeatureChanged("TriggerMode", "Off");
    QCOMPARE(m_form->branches().last(), QString("Trigger: inactive"));
}

void tst_SettingsTreeView::showsSixDigitsHoweverTheNumberArrived_data()
{
    QTest::addColumn<double>("delay");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a tenth") << 0.1 << "0.1";
    QTest::newRow("one million") << 1e6 << "1e+06";
    QTest::newRow("many digits") << 1234.56789 << "1234.57";
}

void tst_SettingsTreeView::showsSixDigitsHoweverTheNumberArrived()
{
    QFETCH(double, delay);
    QFETCH(QString, shown);
    emit m_reporter.FeatureChanged("TriggerDelay", delay);
    QCOMPARE(shownValue("TriggerDelay"), shown);
    (*m_camera)["TriggerDelay"].stateFor("FrameStart").real = delay;
    m_form->tree.ResetData();
    QCOMPARE(shownValue("TriggerDelay"), shown);
}

void tst_SettingsTreeView::hasANameForAssistiveTechnology()
{
    QCOMPARE(m_view->accessibleName(), QString("Trigger features status"));
}

QTEST_MAIN(tst_SettingsTreeView)
#include "tst_SettingsTreeView.moc"
