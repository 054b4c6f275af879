#pragma once

#include "features/FeatureManager.h"
#include "tests/support/FakeCamera.h"
#include "ui/SettingsTreeModel.h"

#include <QRegularExpression>
#include <QStandardItemModel>
#include <QStringList>

#include <memory>

/// Features under the access that the plugin has to them; like the plugin's own, never deleted
/// before the tree.
inline std::unique_ptr<FeatureManager> managerOf(const Fake::FakeCamera& camera)
{
    const auto wrappers = QSharedPointer<QVector<ZalFeatureWrapperPtr>>::create();
    for (const ZalCPP::FeaturePtr& feature : *camera.features())
        wrappers->append(std::make_shared<ZalFeatureWrapper>(feature));
    return std::make_unique<FeatureManager>(wrappers);
}

/// A settings tree on a camera, readable as text.
class TreeForm
{
public:
    explicit TreeForm(const Fake::FakeCamera& camera)
        : manager(managerOf(camera)), tree(manager.get(), nullptr)
    {
    }

    QStandardItemModel& model() const { return *tree.model(); }

    /// The rows as "Trigger: FrameStart", and "  TriggerMode: On" for a row below.
    QStringList lines() const { return linesBelow(QModelIndex(), QString()); }

    /// The top-level rows alone.
    QStringList branches() const { return lines().filter(QRegularExpression("^[^ ]")); }

    std::unique_ptr<FeatureManager> manager;
    SettingsTreeModel tree;

private:
    QStringList linesBelow(const QModelIndex& parent, const QString& indent) const
    {
        QStringList result;
        for (int row = 0; row < model().rowCount(parent); ++row) {
            const QModelIndex name = model().index(row, 0, parent);
            const QModelIndex value = model().index(row, 1, parent);
            result += indent + name.data().toString() + ": " + value.data().toString();
            result += linesBelow(name, indent + "  ");
        }
        return result;
    }
};

/// A camera with two triggers, FrameStart on and selected by neither name nor order, and neither
/// counters nor timers.
inline std::unique_ptr<Fake::FakeCamera> triggerCamera()
{
    auto camera = std::make_unique<Fake::FakeCamera>();
    camera->addEnum("TriggerSelector", {"FrameStart", "LineStart"}, "LineStart");
    camera->addEnum("TriggerMode", {"Off", "On"}, "Off");
    camera->addEnum("TriggerSource", {"Software", "Line0"}, "Software");
    camera->addFloat("TriggerDelay", 0.5);
    camera->addCommand("TriggerSoftware");
    camera->addInteger("TriggerCount", 3);
    camera->select("TriggerSelector", {"TriggerMode", "TriggerSource", "TriggerDelay",
                                       "TriggerSoftware", "TriggerCount"});
    for (const char* entry : {"FrameStart", "LineStart"})
        (*camera)["TriggerCount"].stateFor(entry).writable = false;
    (*camera)["TriggerMode"].stateFor("FrameStart").text = "On";
    return camera;
}
