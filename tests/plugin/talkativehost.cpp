// A host that writes to Qt's message log before and after its first tab: what comes out shows
// whether the log is silent.
#include "plugin/TabExtensionInterface.h"
#include "tests/plugin/HostWindow.h"
#include "tests/support/FakeCamera.h"

#include <QApplication>
#include <QDebug>
#include <QPluginLoader>

namespace {

void talk(const char* when)
{
    qDebug() << when << "debug";
    qInfo() << when << "info";
    qWarning() << when << "warning";
    qCritical() << when << "critical";
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QPluginLoader loader(QStringLiteral(PLUGIN));
    auto* extension = qobject_cast<TabExtensionInterface*>(loader.instance());
    const auto camera = Fake::FakeCamera::standard();
    HostWindow host;
    talk("before");
    if (!extension || extension->get(camera->features(), *host.container, nullptr) != 0)
        return 1;
    talk("after");
    return 0;
}
