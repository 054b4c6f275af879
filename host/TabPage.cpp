#include "host/TabPage.h"

#include <QVBoxLayout>

TabPage::TabPage(QWidget* parent) : QWidget(parent), m_container(new QWidget(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_container);
}

QString TabPage::acquisitionSignal()
{
    return QString::fromLatin1(SIGNAL(acquisitionChanged(bool)));
}
