#pragma once

#include <QStyledItemDelegate>
#include <QTreeView>

/// What the view of the overview paints, on a desktop with other numbers, in the value column of a
/// setting of the first active branch.
inline QString paintedValue(const QTreeView& view, const QString& feature)
{
    const auto found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, feature, 1,
                                           Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty())
        return QStringLiteral("no such row");
    const QVariant value = found.first().siblingAtColumn(1).data();
    return qobject_cast<QStyledItemDelegate*>(view.itemDelegate())
        ->displayText(value, QLocale(QLocale::German));
}
