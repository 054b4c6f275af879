#pragma once

#include "sdk/cameras/Cameras.h"

#include <QStringList>

#include <optional>

namespace PresetCheck {

/// What the program ends with.
enum ExitCode : int
{
    ExitClean = 0,    ///< Nothing found.
    ExitFindings = 1, ///< Errors or warnings.
    ExitUnusable = 2  ///< Bad arguments, a file that cannot be read, no camera.
};

/// The command line, understood.
struct CommandLine
{
    enum class Action
    {
        Check,
        ShowText, ///< `text` is what the user asked for.
        Reject    ///< `text` is the complaint.
    };
    Action action = Action::Check;
    QString text;
    QStringList files;
    /// The camera to check against.
    std::optional<Cameras::Source> camera;
    bool json = false;
};

/// `models` are the names of the simulated cameras.
CommandLine readCommandLine(const QStringList& arguments, const QStringList& models);

} // namespace PresetCheck
