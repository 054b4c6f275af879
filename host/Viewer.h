#pragma once

struct ViewerOptions;

/// Opens the camera and the window and runs until the window is closed or the screenshot is taken.
/// Needs a QApplication. Returns an ExitCode.
int runViewer(const ViewerOptions& options);

/// Prints the cameras that are found, one a line. Returns an ExitCode.
int listCameras();
