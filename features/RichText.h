#pragma once

#include <QString>

/// Texts of cameras and files that Qt shows as rich text.
namespace RichText {

/// The text without anything that would make Qt open a file or an address to show it: pictures,
/// backgrounds, style sheets. A text that has nothing of that kind comes back unchanged, however
/// odd it is. In any other, only tags of plain formatting stay tags; the rest is shown as it is
/// written. Any thread; opens nothing itself.
QString withoutResources(const QString& text);

/// What a tooltip shows of a text: its first 64 K characters, without resources. Nobody reads more,
/// and looking through millions of brackets holds the window for seconds.
QString forToolTip(const QString& text);

} // namespace RichText
