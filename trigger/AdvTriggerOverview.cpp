// The overview of active triggers, counters and timers in the form's tree view.
#include "trigger/AdvTriggerBase.h"
#include "trigger/SettingsTreeModel.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace {

/// Numbers look the same whether they were read for the overview or reported as changed.
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

void AdvTriggerBase::SetupSettingsOverview(QTreeView* view)
{
    QStandardItemModel* model = m_settingsModel->model();
    view->setModel(model);
    view->setItemDelegate(new SettingsDelegate(view));
    view->setAccessibleName(tr("Trigger features status"));
    view->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    view->header()->setStretchLastSection(true);
    connect(this, SIGNAL(FeatureChanged(const QString&, const QVariant&)), m_settingsModel,
            SLOT(OnFeatureChanged(const QString&, const QVariant&)));
    connect(model, SIGNAL(rowsInserted(const QModelIndex&, int, int)), view, SLOT(expandAll()));
    view->expandAll();
}
