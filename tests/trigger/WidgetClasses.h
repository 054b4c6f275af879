#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <functional>

/// Adds a widget of the class that a row of test data stands for.
using AddWidget = std::function<QWidget*(QWidget& form, const QString& objectName)>;
Q_DECLARE_METATYPE(AddWidget)

template <class Widget> AddWidget adder()
{
    return [](QWidget& form, const QString& objectName) {
        auto* widget = new Widget(&form);
        widget->setObjectName(objectName);
        return widget;
    };
}

/// One row for each class of widget that can be bound.
inline void everyBindableClass()
{
    QTest::addColumn<AddWidget>("add");
    QTest::newRow("combo box") << adder<QComboBox>();
    QTest::newRow("line edit") << adder<QLineEdit>();
    QTest::newRow("double spin box") << adder<QDoubleSpinBox>();
    QTest::newRow("spin box") << adder<QSpinBox>();
    QTest::newRow("check box") << adder<QCheckBox>();
    QTest::newRow("push button") << adder<QPushButton>();
}
