#include "bench/ShownTab.h"

#include "widgets/BaseTabPluginWidget.h"

#include <QCoreApplication>
#include <QWindow>

namespace Bench {

ShownTab::ShownTab(const ZalCPP::FeatureList& features)
{
    if (plugin.get(features, container, nullptr) != 0)
        qFatal("The plugin refuses the camera");
    tab = container.findChild<BaseTabPluginWidget*>();
    container.show();
    while (!container.windowHandle()->isExposed())
        QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

ShownTab::~ShownTab()
{
    container.hide();
}

void ShownTab::tick()
{
    QMetaObject::invokeMethod(tab, "updateTimer", Qt::DirectConnection);
}

} // namespace Bench
