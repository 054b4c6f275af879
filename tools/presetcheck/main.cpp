#include "features/FeatureManager.h"
#include "sdk/simulator/SimulatedCamera.h"
#include "tools/presetcheck/CommandLine.h"
#include "tools/presetcheck/Output.h"
#include "tools/presetcheck/PresetCheck.h"
#include "trigger/PresetFile.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>
#include <memory>
#include <utility>

using namespace PresetCheck;

namespace {

void print(const QByteArray& text)
{
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
}

int complain(const QString& sentence)
{
    std::fprintf(stderr, "advtrigger-preset-check: %s\n", sentence.toUtf8().constData());
    return ExitUnusable;
}

QStringList modelNames()
{
    QStringList names;
    for (const std::string& model : ZalSim::SimulatedCamera::models())
        names.append(QString::fromStdString(model));
    return names;
}

QSharedPointer<QVector<ZalFeatureWrapperPtr>> wrappersOf(const ZalCPP::Camera& camera)
{
    auto wrappers = QSharedPointer<QVector<ZalFeatureWrapperPtr>>::create();
    const ZalCPP::FeatureList features = camera.Features();
    for (const ZalCPP::FeaturePtr& feature : *features)
        wrappers->append(std::make_shared<ZalFeatureWrapper>(feature));
    return wrappers;
}

/// An open camera behind the plugin's own access to features.
class OpenCamera
{
public:
    explicit OpenCamera(std::shared_ptr<ZalCPP::Camera> camera)
        : m_camera(std::move(camera)), m_features(wrappersOf(*m_camera))
    {
    }

    const FeatureManager& features() const { return m_features; }
    bool isLost() const { return m_camera->IsLost(); }

    /// Vendor, model and serial number.
    QString name() const
    {
        const ZalCPP::CameraInfo& info = m_camera->Info();
        return QString::fromStdString(info.vendor + ' ' + info.model + ' ' + info.serial)
            .simplified();
    }

private:
    const std::shared_ptr<ZalCPP::Camera> m_camera;
    const FeatureManager m_features;
};

/// The reports on the files that can be read; complains about the others.
std::vector<Report> checkFiles(const QStringList& files, const OpenCamera* camera)
{
    std::vector<Report> reports;
    for (const QString& name : files) {
        const PresetFile::Bytes file = PresetFile::read(name);
        if (!file.error.isEmpty()) {
            complain(QStringLiteral("%1: %2").arg(name, file.error));
            continue;
        }
        reports.push_back(checkPresets(file.content, camera ? &camera->features() : nullptr));
        reports.back().file = name;
    }
    return reports;
}

int exitCodeOf(const std::vector<Report>& reports)
{
    for (const Report& report : reports) {
        if (!report.findings.empty())
            return ExitFindings;
    }
    return ExitClean;
}

bool followed(const std::vector<Report>& reports, const OpenCamera& camera)
{
    bool all = !camera.isLost();
    for (const Report& report : reports)
        all = all && report.cameraFollowed;
    return all;
}

int check(const CommandLine& line)
{
    std::unique_ptr<OpenCamera> camera;
    if (line.camera) {
        std::string error;
        std::shared_ptr<ZalCPP::Camera> opened = Cameras::open(*line.camera, error);
        if (!opened)
            return complain(QString::fromStdString(error));
        camera = std::make_unique<OpenCamera>(std::move(opened));
    }
    const std::vector<Report> reports = checkFiles(line.files, camera.get());
    print(line.json ? asJson(reports, camera ? camera->name() : QString()) : asText(reports));
    if (camera && !followed(reports, *camera))
        return complain(QStringLiteral("The camera stopped answering, or its selectors could not "
                                       "be put back."));
    return reports.size() < static_cast<std::size_t>(line.files.size()) ? int(ExitUnusable)
                                                                        : exitCodeOf(reports);
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    // After a camera is lost, one line for each failed access would be noise.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    const CommandLine line = readCommandLine(QCoreApplication::arguments(), modelNames());
    switch (line.action) {
    case CommandLine::Action::ShowText:
        print(line.text.toUtf8() + '\n');
        return ExitClean;
    case CommandLine::Action::Reject:
        return complain(line.text);
    case CommandLine::Action::Check:
        break;
    }
    return check(line);
}
