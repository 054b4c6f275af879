#include "ui/AdvTriggerWidget.h"

#include "features/FeatureManager.h"
#include "plugin/TabExtensionException.h"
#include "ui/AdvTriggerDialog.h"
#include "ui/EntryWidth.h"
#include "ui/Hints.h"
#include "ui/SettingsTreeModel.h"
#include "ui_AdvTriggerWidget.h"

#include <QCoreApplication>
#include <QDialog>
#include <QScreen>
#include <QSignalBlocker>
#include <QTranslator>

namespace {

/// Shows the wait cursor over a widget as long as it lives; the widget may go first.
class WaitCursor
{
public:
    explicit WaitCursor(QWidget& widget) : m_widget(&widget)
    {
        m_widget->setCursor(Qt::WaitCursor);
    }
    ~WaitCursor()
    {
        if (m_widget)
            m_widget->unsetCursor();
    }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    QPointer<QWidget> m_widget;
};

constexpr int DialogMargin = 4;

/// The wanted size, as far as the screen has room for it within a window frame.
QSize withinScreen(QSize wanted, const QScreen& screen)
{
    constexpr QSize windowFrame(16, 48);
    return wanted.boundedTo(screen.availableSize() - windowFrame);
}

} // namespace

AdvTriggerWidget::AdvTriggerWidget(const ZalCPP::FeatureList& features, QWidget* parent)
    : AdvTriggerBase(features, parent), m_form(std::make_unique<Ui::AdvTriggerWidget>())
{
    if (!hasTriggerFeatures())
        throw TENotSupported(QStringLiteral("AdvTriggerWidget"),
                             QStringLiteral("camera does not support trigger, widget not created"));
    nameForAccessibility();
    m_form->setupUi(this);
    exemptFreeWidgets();
    Hints::keepRoomOf(*m_form->lbl_notAcquireHint);
    m_form->lbl_notAcquireHint->hide();
    installTranslator();
}

AdvTriggerWidget::~AdvTriggerWidget() = default;

bool AdvTriggerWidget::hasTriggerFeatures() const
{
    return m_featureManager->GetIsFeatureAvailable(QStringLiteral("TriggerSelector")) &&
           m_featureManager->GetIsFeatureAvailable(QStringLiteral("LineSelector")) &&
           m_featureManager->GetIsFeatureAvailable(QStringLiteral("LineMode"));
}

void AdvTriggerWidget::nameForAccessibility()
{
    if (parentWidget() != nullptr)
        parentWidget()->setAccessibleName(tr("Trigger IO"));
    setAccessibleName(tr("Trigger IO"));
}

void AdvTriggerWidget::exemptFreeWidgets()
{
    // The form has no apply button; its name stays reserved so that one never binds to a feature.
    m_exemptWidgets << QStringLiteral("cmbSelectPreset") << QStringLiteral("btnApplyPreset")
                    << QStringLiteral("btnAdvancedDialog") << QStringLiteral("lbl_notAcquireHint")
                    << QStringLiteral("chkTooltips");
}

// The texts above were translated by translators installed earlier: this one serves the texts that
// are still to come.
void AdvTriggerWidget::installTranslator()
{
    if (tr("Trigger IO").isEmpty())
        return;
    std::unique_ptr<QTranslator> translator(
        GetTranslator(QStringLiteral("tabextensionadvtrigger")));
    if (translator->isEmpty())
        return;
    translator->setParent(QCoreApplication::instance());
    QCoreApplication::installTranslator(translator.release());
}

void AdvTriggerWidget::showEvent(QShowEvent* event)
{
    if (!m_shown) {
        m_shown = true;
        bind();
    } else {
        m_settingsModel->ResetData();
    }
    BaseTabPluginWidget::showEvent(event);
}

void AdvTriggerWidget::bind()
{
    m_form->scrollArea->setAccessibleName(tr("Trigger IO"));
    InitBaseWidgets();
    CreateIOTable(m_form->tableWidget);
    SetupSettingsOverview(m_form->treeView);
    connect(m_form->btnAdvancedDialog, SIGNAL(clicked()), SLOT(OnClickAdvancedDialog()));
    LoadPresets(m_form->cmbSelectPreset, QCoreApplication::applicationDirPath());
    m_form->cmbSelectPreset->setCurrentIndex(-1);
    EntryWidth::limitMeasuring(*m_form->cmbSelectPreset);
    // Not before: filling the box selects its first preset, which nobody asked for.
    connect(m_form->cmbSelectPreset, SIGNAL(currentIndexChanged(int)), SLOT(OnSelectPreset(int)));
    foldStatusSection();
    connect(m_form->chkTooltips, SIGNAL(stateChanged(int)), SLOT(ActivateTooltips(int)));
    RegisterFeatureObserver(false);
}

// The section unfolds to the height that its frame has now. The overview grows with each trigger,
// counter and timer that is put to use: until it fills the tab, it is shown whole.
void AdvTriggerWidget::foldStatusSection()
{
    QFrame& frame = *m_form->frmTriggerFeaturesStatus;
    frame.resize(frame.width(), qMax(frame.sizeHint().height(), height()));
    m_form->btnTriggerFeaturesStatus->setContent(&frame);
}

void AdvTriggerWidget::updateInit()
{
    if (m_changedFeatures->isEmpty())
        return;
    UpdateInitBase();
    UpdateInitTable(m_form->tableWidget);
}

void AdvTriggerWidget::SetCustomPreset()
{
    m_form->cmbSelectPreset->setCurrentText(CUSTOM_PRESET);
}

void AdvTriggerWidget::updateColoredControls()
{
    Hints::colour(*m_form->lbl_notAcquireHint, isDarkMode());
}

void AdvTriggerWidget::camIsStreaming(bool streamingIsOn)
{
    emit CamStreamingOn(streamingIsOn);
    m_form->cmbSelectPreset->setEnabled(!streamingIsOn);
    m_form->lbl_notAcquireHint->setVisible(streamingIsOn);
}

QString AdvTriggerWidget::dialogTitle() const
{
    const QString model = m_featureManager->GetStringValue(QStringLiteral("DeviceModelName"));
    const QString serial = m_featureManager->GetStringValue(QStringLiteral("DeviceSerialNumber"));
    return tr("Advanced Trigger IO") + QStringLiteral(" (%1-%2)").arg(model, serial);
}

void AdvTriggerWidget::OnClickAdvancedDialog()
{
    auto dialog = std::make_unique<QDialog>(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(dialogTitle());
    dialog->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* layout = new QVBoxLayout(dialog.get());
    // The content's two frames have margins enough; small screens have no room for more.
    layout->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
    const int presetIndex = m_form->cmbSelectPreset->currentIndex();
    const WaitCursor wait(*this);
    try {
        m_dialogContent = new AdvTriggerDialog(m_featureList, presetIndex, dialog.get());
    } catch (const TabExtensionException&) {
        return;
    }
    connect(dialog.get(), SIGNAL(finished(int)), SLOT(showTabWidget(int)));
    connect(this, SIGNAL(CamStreamingOn(bool)), m_dialogContent, SLOT(disableContents(bool)));
    layout->addWidget(m_dialogContent);
    dialog->resize(withinScreen(m_dialogContent->size(), *dialog->screen()));
    // From here on it deletes itself when it is closed, and goes with the tab at the latest.
    makeWayFor(dialog.release());
}

void AdvTriggerWidget::makeWayFor(const QPointer<QDialog>& dialog)
{
    setVisible(false);
    emit dialogWindowDisplayed(true);
    // A host may drop the tab on hearing this, and with it the dialog.
    if (dialog)
        dialog->show();
}

void AdvTriggerWidget::showTabWidget(int /*result*/)
{
    const WaitCursor wait(*this);
    if (m_dialogContent) {
        const QSignalBlocker silence(m_form->cmbSelectPreset);
        m_form->cmbSelectPreset->setCurrentIndex(m_dialogContent->getCurrentPresetIndex());
    }
    setVisible(true);
    emit dialogWindowDisplayed(false);
}
