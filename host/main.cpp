#include "host/CommandLine.h"
#include "host/Console.h"
#include "host/Display.h"
#include "host/ExitCode.h"
#include "host/Language.h"
#include "host/Viewer.h"
#include "sdk/simulator/SimulatedCamera.h"

#include <QApplication>

#include <optional>

namespace {

CommandLine readArguments()
{
    QStringList models;
    for (const std::string& model : ZalSim::SimulatedCamera::models())
        models.append(QString::fromStdString(model));
    return readCommandLine(QCoreApplication::arguments(), models);
}

/// Does what needs no window, so that help and complaints need no display. The exit code, or
/// nothing when the window is to be opened.
std::optional<int> runWithoutWindow(int argc, char* argv[], ViewerOptions& options)
{
    const QCoreApplication application(argc, argv);
    Language::installTranslators();
    const CommandLine line = readArguments();
    options = line.options;
    switch (line.action) {
    case CommandLine::Action::ShowText:
        Console::print(line.text);
        return ExitSuccess;
    case CommandLine::Action::ListCameras:
        return listCameras();
    case CommandLine::Action::Reject:
        Console::complain(line.text);
        return ExitBadArguments;
    case CommandLine::Action::Run:
        break;
    }
    return std::nullopt;
}

int refuseWindow(int argc, char* argv[], const ViewerOptions& options)
{
    const QCoreApplication application(argc, argv);
    Language::installTranslators();
    Console::complain(Display::complaint(options));
    return ExitNoDisplay;
}

} // namespace

int main(int argc, char* argv[])
{
    Language::choose(argc, argv);
    ViewerOptions options;
    if (const std::optional<int> exitCode = runWithoutWindow(argc, argv, options))
        return *exitCode;
    if (!Display::prepare(options))
        return refuseWindow(argc, argv, options);
    const QApplication application(argc, argv);
    Language::installTranslators();
    return runViewer(options);
}
