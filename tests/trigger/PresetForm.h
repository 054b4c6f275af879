#pragma once

#include "tests/trigger/ChoiceForm.h"
#include "tests/trigger/TestEngine.h"
#include "ui/SettingsTreeModel.h"

#include <QComboBox>
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
