#include "tests/faults/Portrait.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTreeView>
#include <QValidator>

namespace Faults {
namespace {

QString textOf(const QComboBox& box)
{
    // Which preset was chosen last is the user's matter, not the camera's.
    const bool isPresetBox = box.objectName() == "cmbSelectPreset";
    QStringList entries;
    for (int i = 0; i < box.count(); ++i)
        entries.append(box.itemText(i));
    return QStringLiteral("'%1' of %2")
        .arg(isPresetBox ? QString() : box.currentText(), entries.join(','));
}

/// What may be typed belongs to what a form shows: the shown text is judged by it.
QString textOf(const QLineEdit& edit)
{
    static const QMap<QValidator::State, QString> verdicts = {
        {QValidator::Invalid, "invalid"},
        {QValidator::Intermediate, "intermediate"},
        {QValidator::Acceptable, "acceptable"}};
    QString text = edit.text();
    int cursor = text.size();
    const QString verdict =
        edit.validator() ? verdicts[edit.validator()->validate(text, cursor)] : "unjudged";
    return QStringLiteral("'%1' %2").arg(edit.text(), verdict);
}

template <class SpinBox> QString rangeOf(const SpinBox& box)
{
    return QStringLiteral("%1 in %2..%3 by %4")
        .arg(box.value())
        .arg(box.minimum())
        .arg(box.maximum())
        .arg(box.singleStep());
}

QString textOf(const QTableWidget& table)
{
    QStringList rows;
    for (int row = 0; row < table.rowCount(); ++row)
        rows.append(table.verticalHeaderItem(row)->text());
    QStringList hidden;
    for (int column = 0; column < table.columnCount(); ++column) {
        if (table.isColumnHidden(column))
            hidden.append(QString::number(column));
    }
    return QStringLiteral("%1 without %2").arg(rows.join(','), hidden.join(','));
}

QString shown(const QTreeView& view, const QModelIndex& index)
{
    const auto* delegate = qobject_cast<QStyledItemDelegate*>(view.itemDelegate());
    return delegate ? delegate->displayText(index.data(), view.locale()) : index.data().toString();
}

/// Sorted: the order of branches that came and went is free.
QString textOf(const QTreeView& view, const QModelIndex& parent)
{
    const QAbstractItemModel& model = *view.model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex title = model.index(row, 0, parent);
        const QString below = model.hasChildren(title) ? textOf(view, title) : QString();
        rows.append(QStringLiteral("%1=%2 %3")
                        .arg(shown(view, title), shown(view, title.siblingAtColumn(1)), below));
    }
    rows.sort();
    return '(' + rows.join("; ") + ')';
}

QString contentOf(const QWidget& widget)
{
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        return textOf(*box);
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget))
        return textOf(*edit);
    if (const auto* box = qobject_cast<const QSpinBox*>(&widget))
        return rangeOf(*box);
    if (const auto* box = qobject_cast<const QDoubleSpinBox*>(&widget))
        return rangeOf(*box);
    if (const auto* box = qobject_cast<const QCheckBox*>(&widget))
        return box->isChecked() ? "checked" : "unchecked";
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return group->isCheckable() && group->isChecked() ? "checked" : "plain";
    if (const auto* table = qobject_cast<const QTableWidget*>(&widget))
        return textOf(*table);
    if (const auto* view = qobject_cast<const QTreeView*>(&widget))
        return textOf(*view, QModelIndex());
    const bool isShown =
        qobject_cast<const QPushButton*>(&widget) || qobject_cast<const QLabel*>(&widget);
    return isShown ? QString("there") : QString();
}

} // namespace

Portrait portraitOf(const QWidget& form)
{
    Portrait portrait;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        // The tab's dialog is a form of its own.
        const bool isOwn = widget->window() == form.window();
        if (name.isEmpty() || name.startsWith("qt_") || name == "chkTooltips" || !isOwn)
            continue;
        const QString content = contentOf(*widget);
        if (!content.isEmpty())
            portrait[name] = content + (widget->isEnabled() ? " enabled" : " disabled");
    }
    return portrait;
}

std::vector<Difference> differences(const Portrait& actual, const Portrait& expected)
{
    std::vector<Difference> found;
    for (auto it = expected.begin(); it != expected.end(); ++it) {
        const QString now = actual.value(it.key(), "missing");
        if (now != it.value())
            found.push_back({it.key(), now, it.value()});
    }
    return found;
}

} // namespace Faults
