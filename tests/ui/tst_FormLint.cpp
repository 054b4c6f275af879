// Mistakes in a form that neither its compiler nor the engine reports: a name that binds to
// nothing, a label without its widget, a widget that the Tab key leaves out.
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
    QStringList tabStops;
    QStringList texts;   ///< The translatable ones.
    QStringList handled; ///< Names of widgets that take the keyboard focus.
};

bool takesFocus(const QString& kind)
{
    static const QSet<QString> kinds = {
        "QComboBox",   "QLineEdit",    "QSpinBox",  "QDoubleSpinBox",   "QCheckBox",
        "QPushButton", "QTableWidget", "QTreeView", "CollapsingButton", "QScrollArea"};
    return kinds.contains(kind);
}

void readElement(QXmlStreamReader& xml, FormFile& form)
{
    const auto attributes = xml.attributes();
    const QString element = xml.name().toString();
    const QString name = attributes.value("name").toString();
    if (element == "widget" || element == "layout" || element == "spacer")
        form.names << name;
    if (element == "widget" && takesFocus(attributes.value("class").toString()))
        form.handled << name;
    if (element == "tabstop")
        form.tabStops << xml.readElementText();
    if (element == "string" && attributes.value("notr") != QLatin1String("true"))
        form.texts << xml.readElementText();
}

FormFile readForm()
{
    FormFile form;
    QFile file(QStringLiteral(FORM_FILE));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", FORM_FILE);
    form.content = file.readAll();
    QXmlStreamReader xml(form.content);
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement)
            readElement(xml, form);
    if (xml.hasError())
        qFatal("%s: %s", FORM_FILE, qPrintable(xml.errorString()));
    return form;
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
    void namesAreUnique();
    void everyFocusWidgetIsATabStopOnce();
    void fileIsUtf8();
    void textsAreTheAgreedOnes();

private:
    TabOnCamera form;
    FormFile file = readForm();
};

void tst_FormLint::inputWidgetNamesAFeatureOrIsExempt_data()
{
    QTest::addColumn<QString>("prefix");
    int rows = 0;
    for (const QWidget* widget : form.tab.findChildren<QWidget*>()) {
        const QString prefix = prefixOf(widget);
        if (prefix.isEmpty() || widget->objectName() == "qt_spinbox_lineedit")
            continue;
        QTest::newRow(qPrintable(widget->objectName())) << prefix;
        ++rows;
    }
    QCOMPARE(rows, 9);
}

void tst_FormLint::inputWidgetNamesAFeatureOrIsExempt()
{
    QFETCH(QString, prefix);
    const QString name = QTest::currentDataTag();
    QCOMPARE(name.left(3), prefix);
    const bool isFeature = form.camera->find(name.mid(3).toStdString()) != nullptr;
    QVERIFY(isFeature != form.tab.m_exemptWidgets.contains(name));
}

void tst_FormLint::labelBelongsToTheWidgetThatItNames_data()
{
    QTest::addColumn<bool>("exempt");
    for (const QLabel* label : form.tab.findChildren<QLabel*>())
        if (label->objectName().startsWith("lbl"))
            QTest::newRow(qPrintable(label->objectName()))
                << form.tab.m_exemptWidgets.contains(label->objectName());
}

void tst_FormLint::labelBelongsToTheWidgetThatItNames()
{
    QFETCH(bool, exempt);
    const auto* label = form.find<QLabel>(QTest::currentDataTag());
    QCOMPARE(label->buddy() == nullptr, exempt);
    if (!exempt)
        QCOMPARE(label->buddy()->objectName().mid(3), label->objectName().mid(3));
}

void tst_FormLint::namesAreUnique()
{
    QStringList unique = file.names;
    unique.removeDuplicates();
    QCOMPARE(file.names, unique);
    QVERIFY(!file.names.contains(QString()));
}

void tst_FormLint::everyFocusWidgetIsATabStopOnce()
{
    QCOMPARE(sorted(file.tabStops), sorted(file.handled));
}

void tst_FormLint::fileIsUtf8()
{
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(file.content.constData(), file.content.size(),
                                                 &state);
    QCOMPARE(state.invalidChars, 0);
    QVERIFY(file.content.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
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
    QCOMPARE(file.texts, expected);
}

QTEST_MAIN(tst_FormLint)
#include "tst_FormLint.moc"
