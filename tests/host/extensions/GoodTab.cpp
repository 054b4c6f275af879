#include "tests/host/extensions/SmallTab.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QStringList>

/// Keeps what it hears of the acquisition in the property "heard", and how often it is told of
/// another palette in the property "paletteChanges".
class Listener : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

public slots:
    void hear(bool streaming)
    {
        const QString word = streaming ? QStringLiteral("on") : QStringLiteral("off");
        setProperty("heard", property("heard").toStringList() + QStringList(word));
    }

protected:
    void changeEvent(QEvent* event) override
    {
        if (event->type() == QEvent::PaletteChange)
            setProperty("paletteChanges", property("paletteChanges").toInt() + 1);
        QWidget::changeEvent(event);
    }
};

/// Behaves as a tab extension should, and leaves what it found in properties of its tab.
class GoodTab : public SmallTab
{
    Q_OBJECT
    Q_INTERFACES(TabExtensionInterface)
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")

public:
    int get(const ZalCPP::FeatureList& features, QWidget& container,
            QMap<QString, QVariant>* options) override
    {
        auto* tab = new Listener(&container);
        tab->setObjectName(QStringLiteral("goodTab"));
        tab->setProperty("features", static_cast<int>(features ? features->size() : 0));
        tab->setProperty("options", QStringList(options->keys()));
        tab->setProperty("containerWasEmpty",
                         container.children().size() == 1 && !container.layout());
        const QByteArray signal = options->value("connectWidgetToSignal").toString().toUtf8();
        const auto connection = connect(container.parent(), signal, tab, SLOT(hear(bool)));
        tab->setProperty("connected", static_cast<bool>(connection));
        auto* layout = new QHBoxLayout;
        layout->addWidget(tab);
        container.setLayout(layout);
        container.setAccessibleName(QStringLiteral("Good Tab"));
        return 0;
    }
};

#include "GoodTab.moc"
