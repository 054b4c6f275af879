#pragma once

class QString;
struct ViewerOptions;

/// Whether there is something to open a window on.
namespace Display {

/// False when a window cannot be shown at all. A screenshot needs no display: for it, and when the
/// environment names no usable one, this chooses the platform without one. Call without an
/// application object and before any thread is started. A display that does not answer holds it up
/// for 20 seconds at most.
bool prepare(const ViewerOptions& options);

/// Why prepare() said no, as a sentence for the user. Needs a QCoreApplication for its language.
QString complaint(const ViewerOptions& options);

} // namespace Display
