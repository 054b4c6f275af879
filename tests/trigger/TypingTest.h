#pragma once

#include "tests/trigger/NumberForm.h"

#include <QRegularExpression>
#include <QTest>

/// Tests of what a person types into the fields of a form. The kinds are those of NumberForm.
class TypingTest : public QObject
{
protected:
    /// Shows the form in a window that has the keyboard, with a field beside the others to go to.
    void openForm()
    {
        camera = numberCamera();
        form = std::make_unique<NumberForm>(*camera);
        form->add<QLineEdit>("txtElsewhere");
        form->show();
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
    }

    void closeForm()
    {
        form.reset();
        camera.reset();
    }

    /// Goes to the field and selects its text, for a key to replace it.
    void enter(const QString& kind)
    {
        form->field(kind).setFocus();
        form->textOf(kind).selectAll();
    }

    /// Types into the field, and does not finish.
    void type(const QString& kind, const QString& typed)
    {
        enter(kind);
        QTest::keyClicks(&form->field(kind), typed);
    }

    void press(const QString& kind, Qt::Key key) { QTest::keyClick(&form->field(kind), key); }
    void leave() { form->findChild<QLineEdit*>("txtElsewhere")->setFocus(); }
    QString text(const QString& kind) const { return form->textOf(kind).text(); }

    /// What was written beside the selected lines.
    QStringList writes() const
    {
        return tableWrites(*camera).filter(QRegularExpression("^(?!LineSelector)"));
    }

    /// Finishes the field, by the return key or by going elsewhere, and returns what was written.
    QStringList finish(const QString& kind, const QString& way = QStringLiteral("Return"))
    {
        if (way == QLatin1String("Return"))
            press(kind, Qt::Key_Return);
        else
            leave();
        return writes();
    }

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<NumberForm> form;
};
