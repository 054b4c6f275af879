#pragma once

#include <QVariant>
#include <QWidget>

/// What a host has around a tab: the container for it, and a signal for the state of streaming.
class HostWindow : public QWidget
{
    Q_OBJECT

public:
    HostWindow() : container(new QWidget(this)) {}

    QWidget* container;

signals:
    void streaming(bool on);
    void otherState(bool on);
};
