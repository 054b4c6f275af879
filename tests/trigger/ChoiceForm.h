#pragma once

#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/trigger/CameraWrites.h"
#include "tests/trigger/PresetFolder.h"
#include "trigger/PresetChoice.h"

#include <QComboBox>
#include <QMap>
#include <QWidget>

#include <memory>

/// A form with a preset box on the part that fills it and applies the presets, without an engine.
class ChoiceForm : public QWidget
{
public:
    explicit ChoiceForm(const Fake::FakeCamera& camera)
        : box(*new QComboBox(this)), features(FeatureTest::wrap(camera)),
          choice(features, *this, [this] {
              ++overviewResets;
              return astray;
          })
    {
    }

    /// Loads a generic file with that content, and applies what is chosen from then on.
    ChoiceForm(Fake::FakeCamera& camera, const QByteArray& json) : ChoiceForm(camera)
    {
        const PresetFolder folder;
        folder.putGeneric(json);
        load(folder.path());
        box.setCurrentIndex(-1);
        connect(&box, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                [this](int index) { choice.apply(&box, index); });
        camera.clearLog();
    }
    ~ChoiceForm() override { choice.shelterWidgets(); }
    ChoiceForm(const ChoiceForm&) = delete;
    ChoiceForm& operator=(const ChoiceForm&) = delete;

    void load(const QString& applicationDir) { choice.load(box, applicationDir); }
    void select(const QString& preset) const { box.setCurrentText(preset); }

    QComboBox& box;
    FeatureManager features;
    PresetChoice choice;
    int overviewResets = 0;        ///< How often the settings overview was to be built anew.
    QMap<QString, QString> astray; ///< The selectors that this leaves astray.
};

/// A camera with four lines and nothing else that a preset may want; an engine accepts it,
/// and its overview writes nothing to it. Line0 and Line1 are inputs.
inline std::unique_ptr<Fake::FakeCamera> lineCamera()
{
    auto camera = std::make_unique<Fake::FakeCamera>();
    camera->addString("DeviceVendorName", "Tarsel Imaging GmbH");
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
