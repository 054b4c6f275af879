#pragma once

#include "sdk/cameras/Cameras.h"

#include <QSize>
#include <QString>
#include <QStringList>

/// What the viewer is asked to do. Paths are absolute.
struct ViewerOptions
{
    Cameras::Source camera;
    QString pluginFolder;       ///< Empty: the folder "plugins" beside the program.
    QString screenshotFile;     ///< Empty: none, the window stays open.
    int screenshotDelay = 1500; ///< Milliseconds from showing the window to the screenshot.
    QSize windowSize;           ///< Invalid: the viewer's own choice.
    QString palette;            ///< "light", "dark", or empty for the desktop's.
    bool acquire = false;       ///< Start acquiring at once.
};

/// The outcome of reading the command line.
struct CommandLine
{
    enum class Action
    {
        Run,
        ListCameras,
        ShowText,
        Reject
    };

    Action action = Action::Run;
    ViewerOptions options;
    QString text; ///< ShowText: what to print. Reject: what is wrong, as a sentence.
};

/// Reads `arguments`, the program's name first. `models` are the simulated models that may be
/// asked for. Relative paths count from the current directory. Needs a QCoreApplication.
CommandLine readCommandLine(const QStringList& arguments, const QStringList& models);
