#pragma once

class QComboBox;

/// The room that the entries of a combo box take. A file may bring a hundred thousand presets, and
/// measuring a text takes as long as reading it: only the first 500 entries count.
namespace EntryWidth {

/// The width of the widest of them, in pixels; 0 for a box without entries.
int widest(const QComboBox& box);

/// Has a box that makes room for all of its entries make room for those alone, once it has more. To
/// be called when the box is filled.
void limitMeasuring(QComboBox& box);

} // namespace EntryWidth
