#pragma once

#include "tests/trigger/NumberForm.h"

#include <QMap>
#include <QRegularExpression>
#include <QTest>

/// Tests of what a person types into the fields of a form. The kinds are those of NumberForm.
class TypingTest : public QObject
{
protected:
    /// A row for each kind.
    static void kinds()
    {
        QTest::addColumn<bool>("unused");
        for (const char* kind : {"double spin box", "spin box", "table cell", "line edit",
                                 "hexadecimal field", "text field"})
            QTest::newRow(kind) << true;
    }

    /// What the field of that kind shows of the camera.
    static QString featureOf(const QString& kind)
    {
        static const QMap<QString, QString> features = {
            {"double spin box", "Real"}, {"spin box", "Whole"},
            {"line edit", "Real"},       {"hexadecimal field", "Key"},
            {"text field", "Name"},      {"table cell", "LineDebounceDuration"}};
        return features[kind];
    }

    Fake::State& stateOf(const QString& kind) const
    {
        Fake::FakeFeature& feature = *m_camera->find(featureOf(kind).toStdString());
        return kind == "table cell" ? feature.stateFor("Line0") : feature.state();
    }

    /// The camera has 7 now, and reports it.
    void report(const QString& kind) const
    {
        Fake::State& state = stateOf(kind);
        state.integer = 7;
        state.real = 7.0;
        state.text = "seven";
        if (kind == "table cell")
            m_form->refreshTable({featureOf(kind)});
        else
            m_form->refresh({featureOf(kind)});
    }

    /// How the field shows that 7.
    static QString seven(const QString& kind)
    {
        static const QMap<QString, QString> texts = {{"double spin box", "7.000"},
                                                     {"hexadecimal field", "0x7"},
                                                     {"text field", "seven"},
                                                     {"table cell", "7.000000"}};
        return texts.value(kind, "7");
    }

    /// Shows the form in a window that has the keyboard, with a field beside the others to go to.
    void openForm()
    {
        m_camera = numberCamera();
        m_form = std::make_unique<NumberForm>(*m_camera);
        m_form->add<QLineEdit>("txtElsewhere");
        m_form->show();
        m_form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
    }

    void closeForm()
    {
        m_form.reset();
        m_camera.reset();
    }

    /// Goes to the field and selects its text, for a key to replace it.
    void enter(const QString& kind)
    {
        m_form->field(kind).setFocus();
        m_form->textOf(kind).selectAll();
    }

    /// Types into the field, and does not finish.
    void type(const QString& kind, const QString& typed)
    {
        enter(kind);
        QTest::keyClicks(&m_form->field(kind), typed);
    }

    /// The same for any kind of field, which so far writes nothing.
    void begin(const QString& kind, const QString& typed)
    {
        const QString prefix = kind == "hexadecimal field" ? "0x" : "";
        type(kind, prefix + typed);
        QCOMPARE(text(kind), prefix + typed);
        QCOMPARE(writes(), QStringList());
    }
    void begin() { begin(QTest::currentDataTag(), "12"); }

    void press(const QString& kind, Qt::Key key) { QTest::keyClick(&m_form->field(kind), key); }
    void leave() { m_form->findChild<QLineEdit*>("txtElsewhere")->setFocus(); }
    QString text(const QString& kind) const { return m_form->textOf(kind).text(); }

    /// What was written beside the selected lines.
    QStringList writes() const
    {
        return tableWrites(*m_camera).filter(QRegularExpression("^(?!LineSelector)"));
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

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<NumberForm> m_form;
};
