#include "tests/trigger/PlainForm.h"

#include "tests/features/FeatureTestSupport.h"

#include <QEvent>

PlainForm::PlainForm(const Fake::FakeCamera& camera)
    : features(FeatureTest::wrap(camera)),
      binding(features, {*this, [this](const QString& feature) { boundFeatures.append(feature); }}),
      lineTable(features,
                {*this, [this](const QString& feature) { tableFeatures.append(feature); }})
{
}

void PlainForm::refresh(const QStringList& changedFeatures)
{
    binding.refresh(changedFeatures, [this](const QString& feature, const QVariant& value) {
        emit FeatureChanged(feature, value);
    });
}

bool PlainForm::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        filtered.insert(watched);
    return QWidget::eventFilter(watched, event);
}
