#include "trigger/PresetChoice.h"

#include "features/FeatureManager.h"
#include "features/RichText.h"
#include "trigger/PresetFile.h"
#include "trigger/PresetRunner.h"

#include <QComboBox>
#include <QMessageBox>
#include <QStandardItemModel>

namespace {

/// A preset in its box. Its settings and its tooltip are made when they are asked for: thousands of
/// presets may be listed, and one is chosen. The tooltip's text comes from a file, so it must not
/// open anything.
class PresetItem : public QStandardItem
{
public:
    explicit PresetItem(const PresetFile::Preset& preset)
        : QStandardItem(preset.name), m_preset(preset)
    {
    }

    QVariant data(int role) const override
    {
        switch (role) {
        case Qt::UserRole:
            return m_preset.members().toVariantMap();
        case Qt::ToolTipRole:
            return RichText::forToolTip(m_preset.toolTip());
        default:
            return QStandardItem::data(role);
        }
    }

private:
    PresetFile::Preset m_preset;
};

/// All at once: the box and its list then react to one signal of the model, not to two for each
/// preset.
void appendPresets(QComboBox& box, const QVector<PresetFile::Preset>& presets)
{
    QList<QStandardItem*> items;
    for (const PresetFile::Preset& preset : presets)
        items.append(new PresetItem(preset));
    // A box has such a model unless it was given another.
    static_cast<QStandardItemModel*>(box.model())->invisibleRootItem()->appendRows(items);
}

PresetFile::Plan planAt(const QComboBox& presets, int index)
{
    return PresetFile::planOf(QJsonObject::fromVariantMap(presets.itemData(index).toMap()));
}

} // namespace

PresetChoice::PresetChoice(const FeatureManager& features, QWidget& form,
                           ResetOverview resetOverview)
    : m_features(features), m_form(form), m_resetOverview(std::move(resetOverview))
{
}

void PresetChoice::load(QComboBox& presets, const QString& applicationDir) const
{
    presets.clear();
    const QString family = m_features.GetStringValue(QStringLiteral("DeviceFamilyName"));
    const PresetFile::Bytes file = PresetFile::read(PresetFile::pathFor(applicationDir, family));
    if (!file.error.isEmpty()) {
        // Which of the files was tried says less than where the camera's files are looked for.
        qWarning("WARN: Couldn't open file with presets: '%s'", qUtf8Printable(applicationDir));
        return;
    }
    const PresetFile::Content content = PresetFile::parse(file.content);
    if (!content.parseError.isEmpty())
        qWarning("JSON parse error: '%s'", qUtf8Printable(content.parseError));
    appendPresets(presets, content.presets);
}

void PresetChoice::apply(const QPointer<QComboBox>& presets, int index)
{
    if (applyTurnOffBefore(presets, index))
        applyOne(presets, index);
}

/// Every ordinary preset starts from a clean state, where the file says what that is. False where
/// it cannot start at all.
bool PresetChoice::applyTurnOffBefore(const QPointer<QComboBox>& presets, int index)
{
    const int turnOff =
        presets->findText(PresetFile::TurnOffPreset, Qt::MatchExactly | Qt::MatchCaseSensitive);
    const QString preset = presets->itemText(index);
    const bool keepsState = preset == PresetFile::CustomPreset || preset == PresetFile::ResetPreset;
    return turnOff < 0 || turnOff == index || keepsState || applyOne(presets, turnOff);
}

/// False where nothing may follow: a selector went astray, so that settings would end up under
/// another entry, or whoever owns the form destroyed it while an error box was open.
bool PresetChoice::applyOne(const QPointer<QComboBox>& presets, int index)
{
    const QPointer<QWidget> form(&m_form);
    const QString chosen = presets->currentText();
    PresetRunner runner(m_features);
    const QString errors = runner.run(planAt(*presets, index));
    if (!errors.isEmpty())
        showErrors(chosen, errors);
    if (!form)
        return false;
    const QString astray = resetOverview();
    if (!astray.isEmpty())
        showErrors(chosen, astray);
    return form && presets && astray.isEmpty() && !runner.leftSelectorAstray();
}

/// The overview steps selectors: a line for each that the camera did not put back.
QString PresetChoice::resetOverview() const
{
    const QMap<QString, QString> astray = m_resetOverview();
    QString errors;
    for (auto it = astray.begin(); it != astray.end(); ++it)
        errors += PresetRunner::errorLine(it.key(), it.value());
    return errors;
}

void PresetChoice::showErrors(const QString& preset, const QString& errors)
{
    const std::shared_ptr<QWidget> shelter = this->shelter();
    const QPointer<QMessageBox> message(new QMessageBox(
        QMessageBox::Warning, tr("Select preset: %1").arg(preset),
        tr("Error(s) on setting the preset:\n\n%1").arg(errors), QMessageBox::Ok, &m_form));
    message->setTextFormat(Qt::PlainText);
    message->exec();
    delete message;
}

/// Below an error box some widget of the form is still handling an event: the preset box, or the
/// one whose edit turned the preset to "Custom". It must outlive that, even where the form is
/// destroyed meanwhile. The last box to close lets the shelter go, once the event is done.
std::shared_ptr<QWidget> PresetChoice::shelter()
{
    std::shared_ptr<QWidget> shelter = m_shelter.lock();
    if (!shelter) {
        shelter.reset(new QWidget, [](QWidget* widget) { widget->deleteLater(); });
        m_shelter = shelter;
    }
    return shelter;
}

void PresetChoice::shelterWidgets() const
{
    const std::shared_ptr<QWidget> shelter = m_shelter.lock();
    if (!shelter)
        return;
    // Leaving its window takes the focus from a field, which then reports its last edit.
    for (const QWidget* widget : m_form.findChildren<QWidget*>())
        widget->disconnect(&m_form);
    for (QWidget* widget : m_form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        // Windows go with the form: the error box itself, and the tab's dialog.
        if (!widget->isWindow())
            widget->setParent(shelter.get());
    }
}
