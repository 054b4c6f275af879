#include "ui/EntryWidth.h"

#include <QComboBox>

#include <algorithm>

namespace {

constexpr int MostMeasured = 500;

} // namespace

int EntryWidth::widest(const QComboBox& box)
{
    const QFontMetrics metrics = box.fontMetrics();
    int width = 0;
    for (int i = 0; i < std::min(box.count(), MostMeasured); ++i)
        width = std::max(width, metrics.horizontalAdvance(box.itemText(i)));
    return width;
}

void EntryWidth::limitMeasuring(QComboBox& box)
{
    if (box.count() <= MostMeasured)
        return;
    const int letter = std::max(1, box.fontMetrics().horizontalAdvance(QLatin1Char('X')));
    box.setMinimumContentsLength(widest(box) / letter + 1);
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}
