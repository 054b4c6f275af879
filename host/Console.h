#pragma once

class QString;

/// The viewer's own output. It stays away from Qt's message log, because a tab extension may
/// silence that log for the whole process.
namespace Console {

/// One line on standard output: what the user asked for.
void print(const QString& text);

/// One line on standard error, after the program's name: what went wrong.
void complain(const QString& sentence);

} // namespace Console
