#pragma once

#include <QCoreApplication>
#include <QMap>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>

class FeatureManager;
class QComboBox;
class QWidget;

/// The box from which the user chooses a preset: fills it with the presets for the camera, applies
/// the one chosen and shows in a message what the camera did not take.
///
/// GUI thread only.
class PresetChoice
{
    // The catalogues know the engine's texts by the name of its class, whichever part shows them.
    Q_DECLARE_TR_FUNCTIONS(AdvTriggerBase)

public:
    /// Builds the overview of the camera's settings anew. Returns the selectors that it left at
    /// another entry than before, with the entries that they had.
    using ResetOverview = std::function<QMap<QString, QString>()>;

    /// The form is the parent of the messages. Features and form must outlive this object.
    PresetChoice(const FeatureManager& features, QWidget& form, ResetOverview resetOverview);

    /// Clears the box and fills it with the presets for this camera from `applicationDir`/plugins.
    /// Without a usable file the box stays empty; that is logged only.
    void load(QComboBox& presets, const QString& applicationDir) const;

    /// Applies the preset at that index, and "Turn Off All" before an ordinary one. Each reports
    /// the settings that the camera did not take in a modal box of its own, during which the form
    /// may be destroyed, and this object with it.
    void apply(const QPointer<QComboBox>& presets, int index);

    /// To be called in the form's destructor. Below an open box some widget of the form is still
    /// handling an event; the form's widgets then outlive the form until the box is closed.
    void shelterWidgets() const;

private:
    bool applyTurnOffBefore(const QPointer<QComboBox>& presets, int index);
    bool applyOne(const QPointer<QComboBox>& presets, int index);
    QString resetOverview() const;
    void showErrors(const QString& preset, const QString& errors);
    std::shared_ptr<QWidget> shelter();

    const FeatureManager& m_features;
    QWidget& m_form;
    ResetOverview m_resetOverview;
    /// Where the form's widgets go when the form is destroyed with an error box open.
    std::weak_ptr<QWidget> m_shelter;
};
