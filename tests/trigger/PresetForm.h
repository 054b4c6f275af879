#pragma once

#include "tests/trigger/PresetFolder.h"
#include "tests/trigger/TestEngine.h"
#include "ui/SettingsTreeModel.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QStandardItemModel>

/// The engine with a preset box, connected like the one of the tab.
class PresetForm : public TestEngine
{
public:
    using AdvTriggerBase::LoadPresets;
    using AdvTriggerBase::m_settingsModel;
    using AdvTriggerBase::OnSelectPreset;

    explicit PresetForm(const Fake::FakeCamera& camera)
        : TestEngine(camera), box(add<QComboBox>(QStringLiteral("cmbSelectPreset")))
    {
        QObject::connect(m_settingsModel->model(), &QAbstractItemModel::rowsRemoved,
                         [this] { ++overviewResets; });
    }

    /// Loads a generic file with that content.
    PresetForm(Fake::FakeCamera& camera, const QByteArray& json) : PresetForm(camera)
    {
        const PresetFolder folder;
        folder.putGeneric(json);
        LoadPresets(&box, folder.path());
        box.setCurrentIndex(-1);
        QObject::connect(&box, SIGNAL(currentIndexChanged(int)), this, SLOT(OnSelectPreset(int)));
        camera.clearLog();
    }

    void select(const QString& preset) const { box.setCurrentText(preset); }

    QComboBox& box;
    int overviewResets = 0; ///< How often the settings overview was built anew.
};

/// A camera with four lines and nothing else that a preset may want; the overview writes nothing
/// to it. Line0 and Line1 are inputs.
inline std::unique_ptr<Fake::FakeCamera> lineCamera()
{
    auto camera = acceptedCamera();
    camera->addEnum("LineSelector", {"Line0", "Line1", "Line2", "Out_1"}, "Line1");
    camera->addEnum("LineMode", {"Input", "Output"}, "Input");
    camera->addBool("LineInverter", false);
    camera->select("LineSelector", {"LineMode", "LineInverter"});
    camera->addEnum("ExposureMode", {"Timed", "TriggerWidth"}, "Timed");
    camera->addFloat("ExposureTime", 5000.0, 10.0, 1000000.0);
    camera->addInteger("BurstCount", 3, 1, 255);
    camera->addString("DeviceUserID", "left");
    camera->addCommand("TriggerSoftware");
    return camera;
}

/// A file with one preset, called "P".
inline QByteArray onePreset(const QByteArray& members)
{
    return R"({"#presets": ["P"], "P": )" + members + "}";
}
