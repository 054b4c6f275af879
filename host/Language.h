#pragma once

#include <QStringList>

/// The language that the viewer and its tab extensions speak.
namespace Language {

/// What --language may name.
QStringList codes();

/// Takes the language from --language, when that names a known one, for the system's. It must come
/// before anything that asks Qt for the system's language; without the option nothing changes.
void choose(int argc, const char* const* argv);

/// Gives the application object the texts of that language, Qt's own and the viewer's, as far as
/// there are any. Call after each construction of an application object.
void installTranslators();

/// Gives the application object the texts of a tab extension in that language, if there are any:
/// the file qm/<catalogue>_<language> of the working directory, where tab extensions look for their
/// own. Call before the extension builds its tab, which may not translate again what it has built.
void installExtensionTranslator(const QString& catalogue);

} // namespace Language
