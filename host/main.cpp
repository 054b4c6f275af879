#include "host/CommandLine.h"
#include "host/Console.h"
#include "host/ExitCode.h"
#include "host/Viewer.h"
#include "sdk/simulator/SimulatedCamera.h"

#include <QApplication>

namespace {

/// Reads the command line before there is a GUI, so that help and complaints need no display.
CommandLine readArguments(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QStringList models;
    for (const std::string& model : ZalSim::SimulatedCamera::Models())
        models.append(QString::fromStdString(model));
    return readCommandLine(QCoreApplication::arguments(), models);
}

int run(int argc, char* argv[], const ViewerOptions& options)
{
    if (!prepareDisplay(options)) {
        Console::complain(QCoreApplication::translate(
            "Viewer", "There is no display to open the window on. Use --screenshot FILE to save "
                      "a picture of it."));
        return ExitNoDisplay;
    }
    const QApplication application(argc, argv);
    return runViewer(options);
}

} // namespace

int main(int argc, char* argv[])
{
    const CommandLine line = readArguments(argc, argv);
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
        return run(argc, argv, line.options);
    }
    return ExitBadArguments;
}
