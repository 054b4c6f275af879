#include "bench/ShownTab.h"

#include "widgets/BaseTabPluginWidget.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDialog>
#include <QWindow>

namespace Bench {

ShownTab::ShownTab(const ZalCPP::FeatureList& features)
{
    if (plugin.get(features, container, nullptr) != 0)
        qFatal("The plugin refuses the camera");
    tab = container.findChild<BaseTabPluginWidget*>();
    container.show();
    waitUntilDrawn(container);
}

ShownTab::~ShownTab()
{
    container.hide();
}

void ShownTab::waitUntilDrawn(const QWidget& window)
{
    while (!window.windowHandle()->isExposed())
        QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

void ShownTab::openDialog()
{
    control<QAbstractButton>("btnAdvancedDialog").click();
    const auto* dialog = container.findChild<QDialog*>();
    if (!dialog)
        qFatal("The dialog does not open");
    waitUntilDrawn(*dialog);
}

void ShownTab::closeDialog()
{
    container.findChild<QDialog*>()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (container.findChild<QDialog*>())
        qFatal("The dialog stays");
}

void ShownTab::tick()
{
    QMetaObject::invokeMethod(tab, "updateTimer", Qt::DirectConnection);
}

} // namespace Bench
