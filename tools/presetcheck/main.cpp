#include "sdk/simulator/SimulatedCamera.h"
#include "tools/presetcheck/CommandLine.h"
#include "tools/presetcheck/Output.h"
#include "trigger/PresetFile.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>

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

/// The reports of those files that can be read; complains about the others.
std::vector<Report> checkFiles(const QStringList& files, const CheckCamera* camera)
{
    std::vector<Report> reports;
    for (const QString& name : files) {
        const PresetFile::Bytes file = PresetFile::Read(name);
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

bool followed(const std::vector<Report>& reports, const CheckCamera& camera)
{
    bool all = !camera.isLost();
    for (const Report& report : reports)
        all = all && report.cameraFollowed;
    return all;
}

int check(const CommandLine& line)
{
    std::unique_ptr<CheckCamera> camera;
    QString error;
    if (line.camera.kind != CameraChoice::Kind::None) {
        camera = CheckCamera::open(line.camera, error);
        if (!camera)
            return complain(error);
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
    // What a lost camera means for each single access is noise here.
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
