#pragma once

#include "host/TabExtensions.h"

#include <QWidget>

class QLabel;
class QTabWidget;

/// The right side of the window: the tabs of the extensions, and a sentence for each extension that
/// has none.
class ExtensionArea : public QWidget
{
    Q_OBJECT

public:
    explicit ExtensionArea(QWidget* parent = nullptr);

    /// Adds the tabs and sentences; the area takes over the pages.
    void add(std::vector<TabExtension> extensions);

    QSize sizeHint() const override;

signals:
    /// Passed on to every tab.
    void acquisitionChanged(bool acquiring);

private:
    QTabWidget* m_tabs;
    QLabel* m_notice;
};
