#pragma once

#include "tests/trigger/TestEngine.h"
#include "ui/SettingsTreeModel.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTemporaryDir>

/// The folder of a host application with the presets files that a test puts there.
class PresetFolder
{
public:
    PresetFolder() { QDir(folder.path()).mkdir(QStringLiteral("plugins")); }

    QString path() const { return folder.path(); }

    void put(const QString& name, const QByteArray& content) const
    {
        QFile file(folder.path() + QStringLiteral("/plugins/") + name);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qUtf8Printable(file.fileName()));
    }

    void putGeneric(const QByteArray& content) const
    {
        put(QStringLiteral("AdvTrigger_Presets.json"), content);
    }

private:
    QTemporaryDir folder;
};

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
