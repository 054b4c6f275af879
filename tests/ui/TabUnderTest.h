#pragma once

#include "tests/support/FakeCamera.h"
#include "ui/AdvTriggerWidget.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

#include <memory>

/// The trigger tab with what tests need of its inside.
class TabUnderTest : public AdvTriggerWidget
{
public:
    using AdvTriggerBase::m_exemptWidgets;
    using AdvTriggerBase::m_settingsModel;
    using AdvTriggerWidget::AdvTriggerWidget;
    using AdvTriggerWidget::updateInit;
    using BaseTabPluginWidget::m_changedFeatures;
    using BaseTabPluginWidget::m_observedFeatures;

    /// What the refresh timer does once a second.
    void tick() { updateTimer(); }
};

/// A tab on a camera of its own. Tests reach the form's widgets as users do: by what they are
/// named.
class TabOnCamera
{
public:
    explicit TabOnCamera(std::unique_ptr<Fake::FakeCamera> fake = Fake::FakeCamera::standard())
        : camera(std::move(fake)), tab(camera->features(), nullptr)
    {
    }

    /// Shows the tab, lets the first tick refresh everything and forgets the calls of both.
    void showAndSettle()
    {
        show();
        tab.tick();
        camera->clearLog();
    }

    void show()
    {
        tab.show();
        QVERIFY(QTest::qWaitForWindowActive(&tab));
    }

    template <class Widget = QWidget> Widget* find(const QString& name) const
    {
        auto* widget = tab.findChild<Widget*>(name);
        if (widget == nullptr)
            qFatal("the form has no %s", qPrintable(name));
        return widget;
    }

    std::unique_ptr<Fake::FakeCamera> camera;
    TabUnderTest tab;
};

/// The same texts as a list of Qt's, which test failures print readably.
inline QStringList toList(const std::vector<std::string>& texts)
{
    QStringList list;
    for (const std::string& text : texts)
        list << QString::fromStdString(text);
    return list;
}

/// What was written beside the selectors, which the tab steps through their entries to read what
/// they govern.
inline QStringList settingsWritten(const Fake::FakeCamera& camera)
{
    return toList(camera.writes()).filter(QRegularExpression(QStringLiteral("^(?!.*Selector=)")));
}
