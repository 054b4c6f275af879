// Mistakes in a form that neither its compiler nor the engine reports: a name that binds to
// nothing, a label without its widget, a widget that the Tab key leaves out.
#include "tests/ui/DialogUnderTest.h"
#include "tests/ui/TabUnderTest.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QTextCodec>
#include <QXmlStreamReader>

namespace {

/// What the engine may bind, with the prefix that the class calls for.
QString prefixOf(const QWidget* widget)
{
    const QLatin1String kind(widget->metaObject()->className());
    const QMap<QString, QString> prefixes = {{"QComboBox", "cmb"}, {"QLineEdit", "txt"},
                                             {"QSpinBox", "spb"},  {"QDoubleSpinBox", "spb"},
                                             {"QCheckBox", "chk"}, {"QPushButton", "btn"}};
    return prefixes.value(kind);
}

/// A form's file: what of it cannot be seen on the finished form.
struct FormFile
{
    QByteArray content;
    QStringList names; ///< Of widgets, layouts and spacers.
    QStringList widgets;
    QStringList tabStops;
    QStringList texts; ///< The translatable ones.
};

void readElement(QXmlStreamReader& xml, FormFile& form)
{
    const auto attributes = xml.attributes();
    const QString element = xml.name().toString();
    const QString name = attributes.value("name").toString();
    if (element == "widget" || element == "layout" || element == "spacer")
        form.names << name;
    if (element == "widget")
        form.widgets << name;
    if (element == "tabstop")
        form.tabStops << xml.readElementText();
    if (element == "string" && attributes.value("notr") != QLatin1String("true"))
        form.texts << xml.readElementText();
}

FormFile readForm(const QString& name)
{
    FormFile form;
    QFile file(QStringLiteral(FORM_FOLDER "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(name));
    form.content = file.readAll();
    QXmlStreamReader xml(form.content);
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement)
            readElement(xml, form);
    if (xml.hasError())
        qFatal("%s: %s", qPrintable(name), qPrintable(xml.errorString()));
    return form;
}

/// A form in both shapes: its file, and the widget that was built with it.
struct Form
{
    FormFile file;
    QWidget* root;
    QStringList exempt;
    int inputs; ///< How many input widgets it has.
};

/// A label that tells something by itself, for example what the camera lacks.
bool isHint(const QLabel& label)
{
    return label.objectName().startsWith("lbl_");
}

/// Cells of the table of lines are not in the form's file.
bool isCell(const QWidget& widget)
{
    return widget.objectName().contains('_') && !widget.objectName().startsWith("lbl_");
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

} // namespace

class tst_FormLint : public QObject
{
    Q_OBJECT

private slots:
    void inputWidgetNamesAFeatureOrIsExempt_data();
    void inputWidgetNamesAFeatureOrIsExempt();
    void labelBelongsToTheWidgetThatItNames_data();
    void labelBelongsToTheWidgetThatItNames();
    void namesAreUnique_data();
    void namesAreUnique();
    void everyFocusWidgetIsATabStopOnce_data();
    void everyFocusWidgetIsATabStopOnce();
    void fileIsUtf8_data();
    void fileIsUtf8();
    void textsAreTheAgreedOnes();

private:
    void addForms() const;
    const Form& form(const QString& name) const
    {
        return name.contains("Dialog") ? m_dialog : m_tab;
    }
    const Form& currentForm() const
    {
        QFETCH(QString, name);
        return form(name);
    }

    TabOnCamera m_builtTab;
    DialogOnCamera m_builtDialog;
    const Form m_tab{readForm("AdvTriggerWidget.ui"), &m_builtTab.tab,
                     m_builtTab.tab.m_exemptWidgets, 9};
    const Form m_dialog{readForm("AdvTriggerDialog.ui"), m_builtDialog.content,
                        m_builtDialog.content->m_exemptWidgets, 51};
};

void tst_FormLint::addForms() const
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"AdvTriggerWidget", "AdvTriggerDialog"})
        QTest::newRow(name) << QString(name);
}

void tst_FormLint::inputWidgetNamesAFeatureOrIsExempt_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("prefix");
    for (const char* name : {"AdvTriggerWidget", "AdvTriggerDialog"}) {
        int rows = 0;
        for (const QWidget* widget : form(name).root->findChildren<QWidget*>()) {
            const QString prefix = prefixOf(widget);
            if (prefix.isEmpty() || widget->objectName() == "qt_spinbox_lineedit" ||
                isCell(*widget))
                continue;
            QTest::addRow("%s %s", name, qPrintable(widget->objectName()))
                << QString(name) << widget->objectName() << prefix;
            ++rows;
        }
        QCOMPARE(rows, form(name).inputs);
    }
}

void tst_FormLint::inputWidgetNamesAFeatureOrIsExempt()
{
    QFETCH(QString, widget);
    QFETCH(QString, prefix);
    QCOMPARE(widget.left(3), prefix);
    const bool isFeature = m_builtTab.camera->find(widget.mid(3).toStdString()) != nullptr;
    QVERIFY(isFeature != currentForm().exempt.contains(widget));
}

void tst_FormLint::labelBelongsToTheWidgetThatItNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("label");
    for (const char* name : {"AdvTriggerWidget", "AdvTriggerDialog"})
        for (const QLabel* label : form(name).root->findChildren<QLabel*>())
            if (label->objectName().startsWith("lbl") && !isCell(*label))
                QTest::addRow("%s %s", name, qPrintable(label->objectName()))
                    << QString(name) << label->objectName();
}

void tst_FormLint::labelBelongsToTheWidgetThatItNames()
{
    QFETCH(QString, label);
    const auto* widget = currentForm().root->findChild<QLabel*>(label);
    QCOMPARE(widget->buddy() == nullptr, isHint(*widget));
    if (!isHint(*widget))
        QCOMPARE(widget->buddy()->objectName().mid(3), label.mid(3));
}

void tst_FormLint::namesAreUnique_data()
{
    addForms();
}

void tst_FormLint::namesAreUnique()
{
    const QStringList names = currentForm().file.names;
    QStringList unique = names;
    unique.removeDuplicates();
    QCOMPARE(names, unique);
    QVERIFY(!names.contains(QString()));
}

void tst_FormLint::everyFocusWidgetIsATabStopOnce_data()
{
    addForms();
}

void tst_FormLint::everyFocusWidgetIsATabStopOnce()
{
    QStringList takeFocus;
    for (const QString& name : currentForm().file.widgets) {
        const auto* widget = currentForm().root->findChild<QWidget*>(name);
        if (widget != nullptr && (widget->focusPolicy() & Qt::TabFocus) != 0)
            takeFocus << name;
    }
    QVERIFY(takeFocus.size() > 10);
    QCOMPARE(sorted(currentForm().file.tabStops), sorted(takeFocus));
}

void tst_FormLint::fileIsUtf8_data()
{
    addForms();
}

void tst_FormLint::fileIsUtf8()
{
    const QByteArray& content = currentForm().file.content;
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(content.constData(), content.size(), &state);
    QCOMPARE(state.invalidChars, 0);
    QVERIFY(content.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
}

void tst_FormLint::textsAreTheAgreedOnes()
{
    const QString dialogText =
        "<html><head/><body><p align=\"right\">Acquisition Mode, Action Command,</p>"
        "<p align=\"right\">Counters and Timers:</p></body></html>";
    const QStringList expected = {"Form",
                                  "Full Trigger configuration only if camera is not acquiring!",
                                  "Select Preset:",
                                  "Tooltips on:",
                                  "Configure Trigger:",
                                  "Source:",
                                  "Activation:",
                                  "Selector:",
                                  "Mode:",
                                  QString::fromUtf8("Delay (\xC2\xB5s):"),
                                  "Execute SW Trigger",
                                  "Configure Advanced Trigger Features:",
                                  dialogText,
                                  "Open dialog",
                                  "Configure inputs and outputs:",
                                  "I/O Mode",
                                  "LineMode",
                                  "Invert",
                                  "LineInverter",
                                  "I/O Line Source",
                                  "LineSource",
                                  "Status",
                                  "LineStatus",
                                  "Show Trigger Features Status:"};
    QCOMPARE(m_tab.file.texts, expected);
}

QTEST_MAIN(tst_FormLint)
#include "tst_FormLint.moc"
