#pragma once

#include "tests/trigger/TableForm.h"

#include <QLineEdit>
#include <QSpinBox>

/// A form with every kind of field that is typed into.
class NumberForm : public TableForm
{
public:
    explicit NumberForm(Fake::FakeCamera& fake) : TableForm(fake)
    {
        // Where a field of its own notation differs, the test says so.
        setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        add<QDoubleSpinBox>("spbReal").setDecimals(3);
        add<QSpinBox>("spbWhole");
        add<QLineEdit>("txtReal");
        add<QLineEdit>("txtKey");
        add<QLineEdit>("txtName");
        bind();
        build();
    }

    /// The field of a kind; all but the cell's are named after the feature they write.
    QWidget& field(const QString& kind) const
    {
        static const QMap<QString, QString> names = {
            {"double spin box", "spbReal"}, {"spin box", "spbWhole"},
            {"line edit", "txtReal"},       {"hexadecimal field", "txtKey"},
            {"text field", "txtName"},      {"table cell", "spbLine0_LineDebounceDuration"}};
        return *findChild<QWidget*>(names[kind]);
    }

    /// Where the field's text stands: in a spin box it has a line edit of its own.
    QLineEdit& textOf(const QString& kind) const
    {
        auto* edit = qobject_cast<QLineEdit*>(&field(kind));
        return edit ? *edit : *field(kind).findChild<QLineEdit*>();
    }
};

/// A camera for that form: Real and Whole are 5, the debounce durations 8.
inline std::unique_ptr<Fake::FakeCamera> numberCamera()
{
    auto camera = tableCamera();
    camera->addFloat("Real", 5.0, -100000.0, 100000.0);
    camera->addInteger("Whole", 5, -100000, 100000);
    camera->addInteger("Key", 5, 0, 100000)->representation = "HexNumber";
    camera->addString("Name", "five");
    return camera;
}
