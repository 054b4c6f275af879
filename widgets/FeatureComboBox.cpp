#include "widgets/FeatureComboBox.h"

#include "features/FeatureManager.h"
#include "features/RichText.h"

#include <QComboBox>

static void selectText(QComboBox& box, const QString& text)
{
    box.setCurrentIndex(box.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

bool showFeatureInComboBox(const FeatureManager& features, const QString& feature, QComboBox& box,
                           bool setToolTips)
{
    const QString value = features.GetStringValue(feature);
    const QStringList entries = features.GetAvailableEnumEntries(feature);
    box.clear();
    box.insertItems(box.count(), entries);
    for (int i = 0; setToolTips && i < entries.size(); ++i)
        box.setItemData(i, RichText::forToolTip(entries[i]), Qt::ToolTipRole);
    selectText(box, value);

    const bool writable = features.GetIsWritable(feature);
    box.setEnabled(writable);
    return writable;
}
