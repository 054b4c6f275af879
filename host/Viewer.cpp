#include "host/Viewer.h"

#include "host/Appearance.h"
#include "host/CameraSession.h"
#include "host/CommandLine.h"
#include "host/Console.h"
#include "host/ExitCode.h"
#include "host/MainWindow.h"
#include "host/Screenshot.h"
#include "host/SdkCamera.h"

#include <ZalCPP/CameraSystem.h>

#include <QApplication>
#include <QDir>
#include <QScreen>

#include <algorithm>

namespace {

std::vector<TabExtension> loadExtensions(const ViewerOptions& options,
                                         const ZalCPP::FeatureList& features)
{
    const QString folder = options.pluginFolder.isEmpty()
                               ? QCoreApplication::applicationDirPath() + "/plugins"
                               : options.pluginFolder;
    std::vector<TabExtension> extensions = loadTabExtensions(folder, features);
    for (const TabExtension& extension : extensions) {
        if (!extension.sentence.isEmpty())
            Console::complain(extension.sentence);
    }
    return extensions;
}

bool isBroken(const TabExtension& extension)
{
    return extension.outcome == TabExtension::Outcome::Broken;
}

QSize windowSize(const ViewerOptions& options)
{
    if (options.windowSize.isValid())
        return options.windowSize;
    return QSize(1280, 860).boundedTo(QGuiApplication::primaryScreen()->availableSize());
}

/// Runs the event loop until the window is closed; false when a wanted screenshot failed.
bool runEventLoop(MainWindow& window, const CameraSession& session, const ViewerOptions& options)
{
    if (options.screenshotFile.isEmpty())
        return QApplication::exec() == 0;

    Screenshot screenshot(window, session, options.screenshotFile, options.screenshotDelay);
    QObject::connect(&screenshot, &Screenshot::finished,
                     [](bool saved) { QApplication::exit(saved ? 0 : 1); });
    return QApplication::exec() == 0;
}

} // namespace

int runViewer(const ViewerOptions& options)
{
    // Tab extensions look for their translations relative to the working directory.
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    applyPalette(options.palette);

    QString error;
    std::unique_ptr<CameraDevice> camera = openCamera(options.camera, error);
    if (!camera) {
        Console::complain(error);
        return ExitNoCamera;
    }

    CameraSession session(std::move(camera));
    MainWindow window(session);
    std::vector<TabExtension> extensions = loadExtensions(options, session.features());
    const bool broken = std::any_of(extensions.begin(), extensions.end(), isBroken);
    window.addExtensions(std::move(extensions));
    window.resize(windowSize(options));
    window.show();
    session.setAcquiring(options.acquire);

    if (!runEventLoop(window, session, options)) {
        Console::complain(
            QCoreApplication::translate("Viewer", "The screenshot could not be written to \"%1\".")
                .arg(options.screenshotFile));
        return ExitScreenshotFailed;
    }
    return broken ? ExitBrokenExtension : ExitSuccess;
}

int listCameras()
{
    const std::vector<ZalCPP::CameraInfo> cameras = ZalCPP::CameraSystem::List();
    for (const ZalCPP::CameraInfo& camera : cameras) {
        QStringList columns;
        for (const std::string& text :
             {camera.id, camera.vendor, camera.model, camera.serial, camera.address})
            columns.append(QString::fromStdString(text));
        Console::print(columns.join(QLatin1Char('\t')));
    }
    if (!cameras.empty())
        return ExitSuccess;
    Console::complain(QCoreApplication::translate("Viewer", "No camera was found."));
    return ExitNoCamera;
}
