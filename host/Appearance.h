#pragma once

class QString;

/// Gives the application one of the viewer's own palettes, "light" or "dark"; with an empty name
/// it keeps the desktop's look.
void applyPalette(const QString& name);
