#pragma once

#include "plugin/TabExtensionPlugin.h"

#include <QWidget>

class BaseTabPluginWidget;

namespace Bench {

/// The trigger tab in a window of its own, as a host would show it.
class ShownTab
{
public:
    /// Builds and shows the tab; returns when the window system has drawn it.
    explicit ShownTab(const ZalCPP::FeatureList& features);
    ~ShownTab();
    ShownTab(const ShownTab&) = delete;
    ShownTab& operator=(const ShownTab&) = delete;

    /// What the tab's timer does once a second.
    void tick();

    /// Opens the advanced dialog; returns when the window system has drawn it.
    void openDialog();

    /// Closes it again; returns when it is gone.
    void closeDialog();

    /// The form's control of that object name; ends the program when there is none.
    template <typename Control> Control& control(const char* name)
    {
        auto* found = container.findChild<Control*>(QLatin1String(name));
        if (!found)
            qFatal("The tab has no control '%s'", name);
        return *found;
    }

private:
    static void waitUntilDrawn(const QWidget& window);

    TabExtensionPlugin plugin;
    QWidget container;
    BaseTabPluginWidget* tab = nullptr;
};

} // namespace Bench
