#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

#include <memory>

class FeatureManager;
class QStandardItem;
class QStandardItemModel;
class QTreeView;

/// The overview of what is configured on the camera: a branch for each trigger, counter and timer
/// that is in use, with its settings below.
///
///     Counter   inactive
///     Timer     Timer0             an entry of TimerSelector whose TimerTriggerSource is not "Off"
///       TimerDuration   1000       a writable feature under that selector
///     Trigger   FrameStart
///
/// GUI thread only.
class SettingsTreeModel : public QObject
{
    Q_OBJECT

public:
    /// Builds the tree at once, see InitData(). The manager must outlive the model.
    SettingsTreeModel(FeatureManager* manager, QObject* parent);
    ~SettingsTreeModel() override;

    /// The tree as views show it: two columns; lives as long as this object.
    QStandardItemModel* model() const;

    /// Shows the tree in the view, unfolded now and whenever rows are inserted, and follows the
    /// reporter's signal FeatureChanged(const QString&, const QVariant&).
    void showIn(QTreeView* view, const QObject* reporter);

    /// Appends all branches. Steps the camera's selectors through their entries and puts them back.
    void InitData();

    /// Builds the tree anew, as InitData() does, and then the branch of a counter or timer without
    /// selector that is in use.
    void ResetData();

    /// Selectors that the last building stepped and could not put back, since the camera did not
    /// answer, with the entries that they had before.
    const QMap<QString, QString>& selectorsAstray() const;

    /// Appends the branch of one entry, with the settings of whatever entry the camera has selected
    /// at this moment.
    void addSelectorBranch(const QString& selector, const QString& entry);

    /// The row of the feature in the branch of the entry that is selected on the camera, or null.
    QStandardItem* findItem(const QString& featureName) const;

public slots:
    /// Follows a change of a feature that the camera reported. Only reads from the camera. A
    /// counter or timer without selector gets its branch here, with no entry: InitData() goes by
    /// entries.
    void OnFeatureChanged(const QString& featureName, const QVariant& value);

private:
    void appendSetting(QStandardItem& branch, const QString& feature, const QString& key);
    QString valueText(const QString& feature) const;
    int appendActiveBranches(const QString& selector);
    bool putBack(const QString& selector, const QString& entry) const;

    void recordSelection(const QString& selector);
    void showValue(const QString& featureName, const QVariant& value);
    void followStatus(const QString& selector, const QString& status);
    void followBranchesWithoutEntries();
    bool hasNoSelector(const QString& selector) const;

    int rowOfBranch(const QString& title, const QString& entry) const;
    int rowOfInactive(const QString& title) const;
    void appendInactive(const QString& title);

    std::unique_ptr<QStandardItemModel> m_model;
    FeatureManager* m_featureManager;
    /// Entry of each selector that the camera had selected when last seen.
    QMap<QString, QString> m_currentEntries;
    QMap<QString, QString> m_selectorsAstray;
};
