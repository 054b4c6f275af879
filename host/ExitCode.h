#pragma once

/// What the viewer's process ends with. `--help` prints this table.
enum ExitCode : int
{
    ExitSuccess = 0,          ///< All went well; a tab that does not support the camera included.
    ExitBadArguments = 2,     ///< The command line makes no sense.
    ExitNoCamera = 3,         ///< No camera was found, or it could not be opened.
    ExitBrokenExtension = 4,  ///< The viewer ran, but a file in the plugins folder was unusable.
    ExitScreenshotFailed = 5, ///< The screenshot could not be written.
    ExitNoDisplay = 6,        ///< There is no display to open a window on.
};
