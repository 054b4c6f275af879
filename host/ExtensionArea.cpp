#include "host/ExtensionArea.h"

#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Room for a form of 517 pixels with some to spare, wider with a large font, and never too narrow
// to use.
constexpr int PreferredWidth = 540;
constexpr int PreferredWidthInLines = 33; // As wide as that many lines of text are high.
constexpr int SmallestWidth = 374;

} // namespace

ExtensionArea::ExtensionArea(QWidget* parent)
    : QWidget(parent), m_tabs(new QTabWidget), m_notice(new QLabel)
{
    setMinimumWidth(SmallestWidth);
    m_tabs->setObjectName(QStringLiteral("tabWidget"));
    // A page reaches to the edges of the area, without a frame around it.
    m_tabs->setDocumentMode(true);
    m_tabs->hide();
    m_notice->setObjectName(QStringLiteral("extensionNotice"));
    m_notice->setWordWrap(true);
    m_notice->setMargin(12);
    m_notice->setAlignment(Qt::AlignCenter);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_notice->setText(tr("No tab extension was found."));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(m_notice);
}

void ExtensionArea::add(std::vector<TabExtension> extensions)
{
    QStringList sentences;
    for (TabExtension& extension : extensions) {
        if (extension.outcome != TabExtension::Outcome::Shown) {
            sentences.append(extension.sentence);
            continue;
        }
        TabPage* page = extension.page.release();
        connect(this, &ExtensionArea::acquisitionChanged, page, &TabPage::acquisitionChanged);
        m_tabs->addTab(page, extension.title);
    }
    m_tabs->setVisible(m_tabs->count() > 0);
    if (!extensions.empty())
        m_notice->setText(sentences.join(QLatin1Char('\n')));
    m_notice->setVisible(!m_notice->text().isEmpty());
}

QSize ExtensionArea::sizeHint() const
{
    return {std::max(PreferredWidth, PreferredWidthInLines * fontMetrics().height()),
            QWidget::sizeHint().height()};
}
