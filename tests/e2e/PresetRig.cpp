#include "tests/e2e/PresetRig.h"

#include "features/FeatureManager.h"
#include "plugin/TabExtensionException.h"
#include "tests/trigger/MessageBoxes.h"

#include <ZalCPP/CameraSystem.h>

PresetEngine::PresetEngine(const ZalCPP::FeatureList& features, const QString& applicationDir)
    : AdvTriggerBase(features, nullptr), box(*new QComboBox(this))
{
    LoadPresets(&box, applicationDir);
    box.setCurrentIndex(-1);
    connect(&box, SIGNAL(currentIndexChanged(int)), SLOT(OnSelectPreset(int)));
}

QString PresetEngine::apply(const QString& preset, bool& found)
{
    const MessageBoxes boxes;
    found = box.findText(preset, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0;
    box.setCurrentText(preset);
    return boxes.texts().join(QLatin1Char('\n'));
}

PresetRig::PresetRig(const QString& model, const QString& applicationDir, const QString& address)
{
    ZalSim::Options options;
    options.model = model.toStdString();
    std::string error;
    simulator = ZalSim::SimulatedCamera::start(options, error);
    if (simulator)
        camera = ZalCPP::CameraSystem::Open(
            address.isEmpty() ? simulator->cameraId() : address.toStdString(), error);
    problem = QString::fromStdString(error);
    if (!camera)
        return;
    try {
        engine = std::make_unique<PresetEngine>(camera->Features(), applicationDir);
    } catch (const TENotSupported&) {
        problem = QStringLiteral("The camera does not tell its maker in time.");
    }
}

PresetRig::~PresetRig()
{
    if (camera)
        camera->StopAcquisition();
}

QString PresetRig::readFeature(const QString& feature) const
{
    const FeatureManager& manager = *engine->m_featureManager;
    switch (manager.GetDataType(feature)) {
    case ZalFeatureEnum:
    case ZalFeatureString:
        return manager.GetStringValue(feature);
    default:
        return QString::number(manager.GetValue(feature));
    }
}

QString PresetRig::read(const QString& path) const
{
    const int last = path.lastIndexOf(QLatin1Char(' '));
    if (last > 0)
        write(path.left(last));
    return readFeature(path.mid(last + 1));
}

void PresetRig::write(const QString& path) const
{
    for (const QString& assignment : path.split(QLatin1Char(' '))) {
        const QString feature = assignment.section(QLatin1Char('='), 0, 0);
        const QString value = assignment.section(QLatin1Char('='), 1);
        const bool isText = engine->m_featureManager->GetDataType(feature) == ZalFeatureEnum;
        if (isText)
            engine->m_featureManager->SetValue(feature, value);
        else
            engine->m_featureManager->SetValue(feature, value.toDouble());
    }
}

bool PresetRig::startAcquisition()
{
    const auto status = camera->StartAcquisition([this](const ZalCPP::Frame&) { ++m_frameCount; });
    return status == ZalErrorSuccess;
}
