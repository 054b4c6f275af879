#pragma once

#include <QWidget>

/// One page of the tab area: the parent of the container that a tab extension builds its tab in,
/// and thus the object whose signal tells the tab whether the camera acquires.
class TabPage : public QWidget
{
    Q_OBJECT

public:
    explicit TabPage(QWidget* parent = nullptr);

    /// The container for the extension; owned by the page, child of the page for good.
    QWidget& container() { return *m_container; }

    /// The encoded signature of acquisitionChanged(), as tab extensions expect it.
    static QString acquisitionSignal();

signals:
    void acquisitionChanged(bool acquiring);

private:
    QWidget* m_container;
};
