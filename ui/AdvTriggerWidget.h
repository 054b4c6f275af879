#pragma once

#include "trigger/AdvTriggerBase.h"

#include <QPointer>

#include <memory>

class AdvTriggerDialog;
class QDialog;

namespace Ui {
class AdvTriggerWidget;
}

/// The tab "Advanced Trigger IO": the camera's basic trigger settings on a fixed form, bound to the
/// camera's features by the names of the form's widgets.
///
/// The form is bound to the camera when the tab is shown for the first time. Before that the tab
/// reads what decides whether the plugin takes the camera, and builds the overview, for which it
/// steps the selectors of counters, timers and triggers and puts them back. GUI thread only.
class AdvTriggerWidget : public AdvTriggerBase
{
    Q_OBJECT

public:
    /// Shares the feature list. Throws TENotSupported for a camera of another vendor, or one
    /// without trigger selector, line selector or line mode.
    AdvTriggerWidget(const ZalCPP::FeatureList& features, QWidget* parent);
    ~AdvTriggerWidget() override;

signals:
    /// The tab made way for its dialog (true) or is back in place of it (false).
    void dialogWindowDisplayed(bool status);

public slots:
    /// Opens the advanced dialog, modeless and in place of the tab. A camera that no longer answers
    /// gets none: the tab stays.
    void OnClickAdvancedDialog();

    /// The dialog has finished, with whatever result: shows the tab again, with the dialog's
    /// preset as selected but not applied.
    void showTabWidget(int result);

    /// Says that the settings are no preset's any more. Without a preset of that name nothing
    /// changes.
    void SetCustomPreset() override;

    /// Follows the camera's acquisition: while it streams, no preset can be chosen.
    void camIsStreaming(bool streamingIsOn);

protected:
    void showEvent(QShowEvent* event) override;
    void updateInit() override;
    void updateColoredControls() override;

private:
    bool hasTriggerFeatures() const;
    void nameForAccessibility();
    void exemptFreeWidgets();
    void installTranslator();
    void bind();
    void foldStatusSection();
    QString dialogTitle() const;
    void makeWayFor(const QPointer<QDialog>& dialog);

    bool m_shown = false;
    std::unique_ptr<Ui::AdvTriggerWidget> m_form;
    /// What the dialog opened last holds; its window owns it.
    QPointer<AdvTriggerDialog> m_dialogContent;
};
