#include "ui/AdvTriggerWidget.h"

#include "features/FeatureManager.h"
#include "plugin/TabExtensionException.h"
#include "ui_AdvTriggerWidget.h"

#include <QCoreApplication>
#include <QTranslator>

AdvTriggerWidget::AdvTriggerWidget(const ZalCPP::FeatureList& features, QWidget* parent)
    : AdvTriggerBase(features, parent), m_form(std::make_unique<Ui::AdvTriggerWidget>())
{
    if (!hasTriggerFeatures())
        throw TENotSupported(QStringLiteral("AdvTriggerWidget"),
                             QStringLiteral("camera does not support trigger, widget not created"));
    nameForAccessibility();
    m_form->setupUi(this);
    exemptFreeWidgets();
    m_form->lbl_notAcquireHint->hide();
    hideSectionsWithoutContent();
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

// Presets, line table, status tree and dialog do not work yet: an empty box, an empty table and a
// button that does nothing would only puzzle. What starts to work leaves this list.
void AdvTriggerWidget::hideSectionsWithoutContent()
{
    m_form->lblSelectPreset->hide();
    m_form->cmbSelectPreset->hide();
    m_form->grpAdvancedDialog->hide();
    m_form->grpInputOutput->hide();
    m_form->btnTriggerFeaturesStatus->hide();
    m_form->frmTriggerFeaturesStatus->hide();
}

// The texts above were translated by whoever installed a translator before: this one serves the
// texts that are still to come.
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
    }
    BaseTabPluginWidget::showEvent(event);
}

void AdvTriggerWidget::bind()
{
    InitBaseWidgets();
    m_form->cmbSelectPreset->setCurrentIndex(-1);
    m_form->btnTriggerFeaturesStatus->setContent(m_form->frmTriggerFeaturesStatus);
    connect(m_form->chkTooltips, SIGNAL(stateChanged(int)), SLOT(ActivateTooltips(int)));
    RegisterFeatureObserver(false);
}

void AdvTriggerWidget::updateInit()
{
    if (!m_changedFeatures->isEmpty())
        UpdateInitBase();
}

void AdvTriggerWidget::SetCustomPreset()
{
    m_form->cmbSelectPreset->setCurrentText(CUSTOM_PRESET);
}

void AdvTriggerWidget::updateColoredControls()
{
    static const QString lightBlue = QStringLiteral("color: rgba(56,111,251,255);");
    static const QString darkBlue = QStringLiteral("color: rgba(50,95,201,255);");
    m_form->lbl_notAcquireHint->setStyleSheet(isDarkMode() ? lightBlue : darkBlue);
}

void AdvTriggerWidget::camIsStreaming(bool streamingIsOn)
{
    emit CamStreamingOn(streamingIsOn);
    m_form->cmbSelectPreset->setEnabled(!streamingIsOn);
    m_form->lbl_notAcquireHint->setVisible(streamingIsOn);
}
