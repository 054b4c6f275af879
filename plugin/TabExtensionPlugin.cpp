#include "plugin/TabExtensionPlugin.h"

#include "plugin/TabExtensionException.h"
#include "ui/AdvTriggerWidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

QString streamingSignal(const QMap<QString, QVariant>* options)
{
    if (!options)
        return QString();
    return options->value(QLatin1String(TabExtensionInterface::StreamingSignalOption)).toString();
}

bool connectNothing(QObject*, const char*)
{
    return false;
}

} // namespace

TabExtensionPlugin::TabExtensionPlugin() : TabExtensionInterface(nullptr) {}

int TabExtensionPlugin::get(const ZalCPP::FeatureList& features, QWidget& container,
                            QMap<QString, QVariant>* options)
{
    const QString signature = streamingSignal(options);

    AdvTriggerWidget* widget = nullptr;
    try {
        widget = new AdvTriggerWidget(features, &container);
    } catch (const TabExtensionException& refusal) {
        return refusal.code;
    }

    // Without a usable signature the connection fails and the tab never hears of streaming.
    if (QObject* host = container.parent())
        QObject::connect(host, signature.toUtf8().constData(), widget, SLOT(camIsStreaming(bool)));

    auto* layout = new QHBoxLayout;
    // The host decides how far the tab stands from its frame.
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(widget);
    container.setLayout(layout);
    layout->addLayout(buildNotice(container, widget));
    return 0;
}

bool TabExtensionPlugin::connectToResetFps(QObject* receiver, const char* member)
{
    return connectNothing(receiver, member);
}

bool TabExtensionPlugin::connectFromAcquire(QObject* receiver, const char* member)
{
    return connectNothing(receiver, member);
}

// Stands in for the tab, which hides itself while its dialog is open.
QLayout* TabExtensionPlugin::buildNotice(QWidget& container, AdvTriggerWidget* widget)
{
    noticeLabel = new QLabel(&container);
    noticeLabel->setText(tr("Please use the Advanced Trigger Dialog."));
    noticeLabel->setVisible(false);
    noticeLabel->setAlignment(Qt::AlignCenter);
    noticeLabel->setStyleSheet(QStringLiteral("font: bold 10px;"));
    QObject::connect(widget, SIGNAL(dialogWindowDisplayed(bool)), noticeLabel,
                     SLOT(setVisible(bool)));

    auto* column = new QVBoxLayout;
    column->addWidget(noticeLabel);
    column->addStretch(0);
    return column;
}
