#include "ui/SettingsTreeModel.h"

#include "features/FeatureManager.h"

#include <QHeaderView>
#include <QPair>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTreeView>

/// Selector, title of its branches, and the feature that is "Off" while an entry is not in use.
static const QMap<QString, QPair<QString, QString>> BRANCHES = {
    {QStringLiteral("CounterSelector"),
     {QStringLiteral("Counter"), QStringLiteral("CounterEventSource")}},
    {QStringLiteral("TimerSelector"),
     {QStringLiteral("Timer"), QStringLiteral("TimerTriggerSource")}},
    {QStringLiteral("TriggerSelector"), {QStringLiteral("Trigger"), QStringLiteral("TriggerMode")}},
};

static const QString Inactive = QStringLiteral("inactive");
static const QString Off = QStringLiteral("Off");

namespace {

constexpr int TitleColumn = 0;
constexpr int ValueColumn = 1;

QString keyOf(const QString& selector, const QString& entry)
{
    return QStringLiteral("%1_%2").arg(selector, entry);
}

QStandardItem* titleItem(const QString& title)
{
    auto* item = new QStandardItem(title);
    QFont font = item->font();
    font.setWeight(QFont::Bold);
    item->setFont(font);
    return item;
}

/// A number that is reported as changed looks as if it had been read for the overview. What a line
/// edit shows is reported as text, and stays as it is.
class SettingsDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override
    {
        if (value.type() == QVariant::Double)
            return QStringLiteral("%1").arg(value.toDouble());
        return QStyledItemDelegate::displayText(value, locale);
    }
};

} // namespace

SettingsTreeModel::SettingsTreeModel(FeatureManager* manager, QObject* parent)
    : QObject(parent), m_model(std::make_unique<QStandardItemModel>()), m_featureManager(manager)
{
    InitData();
}

SettingsTreeModel::~SettingsTreeModel() = default;

QStandardItemModel* SettingsTreeModel::model() const
{
    return m_model.get();
}

void SettingsTreeModel::showIn(QTreeView* view, const QObject* reporter)
{
    view->setModel(model());
    view->setItemDelegate(new SettingsDelegate(view));
    view->setAccessibleName(tr("Trigger features status"));
    view->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    view->header()->setStretchLastSection(true);
    connect(reporter, SIGNAL(FeatureChanged(const QString&, const QVariant&)),
            SLOT(OnFeatureChanged(const QString&, const QVariant&)));
    connect(model(), SIGNAL(rowsInserted(const QModelIndex&, int, int)), view, SLOT(expandAll()));
    view->expandAll();
}

void SettingsTreeModel::InitData()
{
    m_selectorsAstray.clear();
    for (const QString& selector : BRANCHES.keys()) {
        if (appendActiveBranches(selector) == 0)
            appendInactive(BRANCHES.value(selector).first);
    }
}

void SettingsTreeModel::ResetData()
{
    m_model->removeRows(0, m_model->rowCount());
    InitData();
    followBranchesWithoutEntries();
}

/// Building goes by entries: a counter that has none would be lost until its next report.
void SettingsTreeModel::followBranchesWithoutEntries()
{
    for (auto branch = BRANCHES.cbegin(); branch != BRANCHES.cend(); ++branch) {
        if (!hasNoSelector(branch.key()))
            continue;
        const Answer<QString> status = m_featureManager->askStringValue(branch.value().second);
        if (!status.isMissing())
            followStatus(branch.key(), status.value);
    }
}

const QMap<QString, QString>& SettingsTreeModel::selectorsAstray() const
{
    return m_selectorsAstray;
}

/// Only the settings of the entry selected on the camera can be read. Without knowing the way back,
/// the selector stays where it is: presets go on from there.
int SettingsTreeModel::appendActiveBranches(const QString& selector)
{
    const QString status = BRANCHES.value(selector).second;
    const QStringList entries = m_featureManager->GetAvailableEnumEntries(selector);
    const Answer<QString> selected = m_featureManager->askStringValue(selector);
    m_currentEntries.insert(selector, selected.value);
    if (selected.isMissing())
        return 0;
    int count = 0;
    for (const QString& entry : entries) {
        m_featureManager->SetValue(selector, entry);
        if (m_featureManager->GetStringValue(status) == Off)
            continue;
        addSelectorBranch(selector, entry);
        ++count;
    }
    if (!putBack(selector, selected.value) && !entries.isEmpty())
        m_selectorsAstray.insert(selector, selected.value);
    return count;
}

/// A refusal counts as done: only what was lost on the way is worth another attempt.
bool SettingsTreeModel::putBack(const QString& selector, const QString& entry) const
{
    constexpr int attempts = 2;
    for (int i = 0; i < attempts; ++i) {
        const Written<QString> written = m_featureManager->trySetValue(selector, entry);
        if (!written.unanswered || written.value == entry)
            return true;
    }
    return false;
}

void SettingsTreeModel::addSelectorBranch(const QString& selector, const QString& entry)
{
    QStandardItem* branch = titleItem(BRANCHES.value(selector).first);
    m_model->appendRow({branch, new QStandardItem(entry)});
    for (const QString& feature : m_featureManager->GetSelectedFeatures(selector)) {
        if (m_featureManager->GetDataType(feature) != ZalFeatureCommand &&
            m_featureManager->GetIsWritable(feature))
            appendSetting(*branch, feature, keyOf(selector, entry));
    }
}

void SettingsTreeModel::appendSetting(QStandardItem& branch, const QString& feature,
                                      const QString& key)
{
    auto* name = new QStandardItem(feature);
    name->setData(key, Qt::UserRole);
    branch.appendRow({name, new QStandardItem(valueText(feature))});
}

QString SettingsTreeModel::valueText(const QString& feature) const
{
    switch (m_featureManager->GetDataType(feature)) {
    case ZalFeatureInteger:
    case ZalFeatureFloat:
    case ZalFeatureBool:
        return QStringLiteral("%1").arg(m_featureManager->GetValue(feature));
    default:
        return m_featureManager->GetStringValue(feature);
    }
}

// These are not alternatives: TriggerMode is a setting in its branch and also decides
// whether there is one.
void SettingsTreeModel::OnFeatureChanged(const QString& featureName, const QVariant& value)
{
    if (BRANCHES.contains(featureName))
        recordSelection(featureName);
    showValue(featureName, value);
    for (auto branch = BRANCHES.cbegin(); branch != BRANCHES.cend(); ++branch) {
        if (branch.value().second == featureName)
            followStatus(branch.key(), value.toString());
    }
}

void SettingsTreeModel::recordSelection(const QString& selector)
{
    m_currentEntries.insert(selector, m_featureManager->GetStringValue(selector));
}

void SettingsTreeModel::showValue(const QString& featureName, const QVariant& value)
{
    QStandardItem* name = findItem(featureName);
    if (!name)
        return;
    name->parent()->child(name->row(), ValueColumn)->setData(value, Qt::DisplayRole);
}

QStandardItem* SettingsTreeModel::findItem(const QString& featureName) const
{
    const auto items =
        m_model->findItems(featureName, Qt::MatchExactly | Qt::MatchRecursive, TitleColumn);
    for (QStandardItem* item : items) {
        const QString key = item->data(Qt::UserRole).toString();
        const QString selector = key.section(QLatin1Char('_'), 0, 0);
        if (key == keyOf(selector, m_currentEntries.value(selector)))
            return item;
    }
    return nullptr;
}

void SettingsTreeModel::followStatus(const QString& selector, const QString& status)
{
    const QString title = BRANCHES.value(selector).first;
    const QString entry = m_currentEntries.value(selector);
    const int branch = rowOfBranch(title, entry);
    if (status == Off) {
        if (branch >= 0)
            m_model->removeRow(branch);
        if (m_model->findItems(title, Qt::MatchExactly, TitleColumn).isEmpty())
            appendInactive(title);
        return;
    }
    if (branch >= 0 || (entry.isEmpty() && !hasNoSelector(selector)))
        return;
    addSelectorBranch(selector, entry);
    const int inactive = rowOfInactive(title);
    if (inactive >= 0)
        m_model->removeRow(inactive);
}

/// A counter without a selector has no entry and is in use all the same; a selector without entry
/// is one that cannot be read. On a camera that no longer answers, nothing is found.
bool SettingsTreeModel::hasNoSelector(const QString& selector) const
{
    return !m_featureManager->GetIsFeatureAvailable(selector) &&
           m_featureManager->GetIsFeatureAvailable(BRANCHES.value(selector).second);
}

int SettingsTreeModel::rowOfBranch(const QString& title, const QString& entry) const
{
    for (QStandardItem* item : m_model->findItems(title, Qt::MatchExactly, TitleColumn)) {
        const bool isBranch = item->data(Qt::UserRole).toString() != Inactive;
        if (isBranch && m_model->item(item->row(), ValueColumn)->text() == entry)
            return item->row();
    }
    return -1;
}

int SettingsTreeModel::rowOfInactive(const QString& title) const
{
    for (QStandardItem* item : m_model->findItems(title, Qt::MatchExactly, TitleColumn)) {
        if (item->data(Qt::UserRole).toString() == Inactive)
            return item->row();
    }
    return -1;
}

void SettingsTreeModel::appendInactive(const QString& title)
{
    auto* item = new QStandardItem(title);
    item->setData(Inactive, Qt::UserRole);
    m_model->appendRow({item, new QStandardItem(Inactive)});
}
