#pragma once

#include "tests/support/FakeCamera.h"
#include "tests/ui/PresetsFile.h"
#include "ui/AdvTriggerDialog.h"

#include <QDialog>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

/// The dialog's content with what tests need of its inside.
class DialogUnderTest : public AdvTriggerDialog
{
public:
    using AdvTriggerBase::m_exemptWidgets;
    using AdvTriggerDialog::AdvTriggerDialog;
    using AdvTriggerDialog::calculatePWM;
    using AdvTriggerDialog::enablePWM;
    using AdvTriggerDialog::reverseCalcPWM;
    using AdvTriggerDialog::updateInit;
    using BaseTabPluginWidget::m_changedFeatures;
    using BaseTabPluginWidget::m_observedFeatures;

    /// What the refresh timer does once a second.
    void tick() { updateTimer(); }
    /// A tick in which just these features count as changed.
    void report(const QStringList& features)
    {
        *m_changedFeatures = features;
        tick();
    }
};

/// The content in a window, on a camera of its own. Tests reach the form's widgets as users do: by
/// what they are named.
class DialogOnCamera
{
public:
    explicit DialogOnCamera(std::unique_ptr<Fake::FakeCamera> fake = cameraOfPresetFamily(),
                            int presetIndex = -1)
        : camera(std::move(fake)),
          content(new DialogUnderTest(camera->features(), presetIndex, &window))
    {
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(4, 4, 4, 4); // As in the window that the tab opens.
        layout->addWidget(content);
    }

    /// Shows the window, lets the first tick refresh everything and forgets the calls of both.
    void showAndSettle()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        content->tick();
        camera->clearLog();
    }

    template <class Widget = QWidget> Widget* find(const QString& name) const
    {
        auto* widget = content->findChild<Widget*>(name);
        if (widget == nullptr)
            qFatal("the form has no %s", qPrintable(name));
        return widget;
    }

    Fake::FakeFeature& feature(const char* name) const { return (*camera)[name]; }

    QStringList writes() const
    {
        QStringList list;
        for (const std::string& write : camera->writes())
            list << QString::fromStdString(write);
        return list;
    }

    std::unique_ptr<Fake::FakeCamera> camera;
    QDialog window;
    DialogUnderTest* content;
};
