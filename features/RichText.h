#pragma once

#include <QString>

/// Texts of cameras and files that Qt shows as rich text.
namespace RichText {

/// The text without anything that would make Qt open a file or an address to show it: pictures,
/// backgrounds, style sheets. Plain formatting comes back unchanged; so does anything else that
/// Qt's parser finds nothing of that kind in, however odd it is. The parser is asked in programs
/// with a QGuiApplication, about texts of up to 16,384 characters and 200 opening brackets. In any
/// other text, only tags of plain formatting stay tags; the rest is shown as it is written. Any
/// thread; opens nothing itself.
QString withoutResources(const QString& text);

/// What a tooltip shows of a text: its first 64 K characters, without resources. Nobody reads more,
/// and looking through millions of brackets blocks the window for seconds.
QString forToolTip(const QString& text);

} // namespace RichText
