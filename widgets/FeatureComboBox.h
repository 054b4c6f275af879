#pragma once

class FeatureManager;
class QComboBox;
class QString;

/// Fills the box with the entries that the feature offers now, selects the current one and enables
/// the box if the feature is writable, which is also the result. The box's signals are not blocked.
/// GUI thread only.
bool showFeatureInComboBox(const FeatureManager& features, const QString& feature, QComboBox& box,
                           bool setToolTips);
