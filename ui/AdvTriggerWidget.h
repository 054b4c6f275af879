#pragma once

#include "trigger/AdvTriggerBase.h"

#include <memory>

namespace Ui {
class AdvTriggerWidget;
}

/// The tab "Advanced Trigger IO": the camera's basic trigger settings on a fixed form, bound to the
/// camera's features by the names of the form's widgets.
///
/// The tab binds when it is shown for the first time: until then it has read no more than what
/// decides whether the plugin takes the camera. GUI thread only.
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
    void hideSectionsWithoutContent();
    void installTranslator();
    void bind();

    bool m_shown = false;
    std::unique_ptr<Ui::AdvTriggerWidget> m_form;
};
