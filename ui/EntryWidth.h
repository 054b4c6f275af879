#pragma once

class QComboBox;

/// The room that the entries of a combo box take. A file may bring a hundred thousand presets, and
/// measuring a text takes as long as reading it: only the first 500 entries count.
namespace EntryWidth {

/// The width of the widest of them, in pixels; 0 for a box without entries.
int widest(const QComboBox& box);

/// Makes a box that takes the width of all its entries go by those alone, once it has more of them.
/// Call it when the box is filled.
void limitMeasuring(QComboBox& box);

} // namespace EntryWidth
