// Both forms against their tables: the tab's as it comes out of the form compiler, the dialog's as
// built on a camera that has everything.
#include "tests/support/Rows.h"
#include "tests/ui/DialogUnderTest.h"
#include "tests/ui/FormTables.h"
#include "ui_AdvTriggerWidget.h"

#include <QHeaderView>
#include <QTranslator>

using namespace FormTables;

namespace {

/// Marks every text that it translates with the context in which the text was asked for.
class ContextMarker : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                      int /*n*/) const override
    {
        return QLatin1String(context) + QLatin1Char('|') + QString::fromUtf8(text);
    }
};

QStringList namesIn(const char* list)
{
    return QString(list).split(' ');
}

QString textOf(const QWidget& widget)
{
    const QVariant title = widget.property("title");
    return title.isValid() ? title.toString() : widget.property("text").toString();
}

/// Every text of a form that is translated, which those of its numbers are not.
QStringList textsOf(const QWidget& form)
{
    QStringList texts = {form.windowTitle()};
    for (const QWidget* widget : form.findChildren<QWidget*>())
        if (!qobject_cast<const QAbstractSpinBox*>(widget) &&
            widget->objectName() != "qt_spinbox_lineedit")
            texts << textOf(*widget);
    const auto* table = form.findChild<QTableWidget*>("tableWidget");
    for (int column = 0; column < table->columnCount(); ++column)
        texts << table->horizontalHeaderItem(column)->text()
              << table->horizontalHeaderItem(column)->toolTip();
    texts.removeAll(QString());
    return texts;
}

/// Name of what a layout holds: a widget, a layout, or a spacer's direction.
QString nameOf(QLayoutItem* item)
{
    if (item == nullptr)
        return QStringLiteral("nothing");
    if (item->widget() != nullptr)
        return item->widget()->objectName();
    if (item->layout() != nullptr)
        return item->layout()->objectName();
    return item->expandingDirections() == Qt::Vertical ? QStringLiteral("vertical-spacer")
                                                       : QStringLiteral("horizontal-spacer");
}

QStringList itemsOf(const QLayout& layout)
{
    QStringList items;
    for (int i = 0; i < layout.count(); ++i)
        items << nameOf(layout.itemAt(i));
    return items;
}

} // namespace

class tst_Forms : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void hasTheWidget_data();
    void hasTheWidget();
    void hasNoOthers();
    void scrollAreaShowsItsContents_data();
    void scrollAreaShowsItsContents();
    void layoutHolds_data();
    void layoutHolds();
    void gridHoldsAt_data();
    void gridHoldsAt();
    void hasProperty_data();
    void hasProperty();
    void hintIsBoldAndItalic();
    void statusTreeCascadesSectionResizes();
    void tableHasHeader_data();
    void tableHasHeader();
    void tabulatorWalksInReadingOrder_data();
    void tabulatorWalksInReadingOrder();
    void textsAreTranslatedInTheFormsContext_data();
    void textsAreTranslatedInTheFormsContext();

private:
    /// The form that the row at hand is about: it names one first.
    QWidget& form() const
    {
        const QString name = QString(QTest::currentDataTag()).section(' ', 0, 0);
        return *(name == "tab" ? m_tab.get() : name == "dialog" ? m_built.content : m_dialog.get());
    }
    template <class Object> Object* find(const QString& name) const
    {
        auto* root = qobject_cast<Object*>(&form());
        return root && root->objectName() == name ? root : form().findChild<Object*>(name);
    }
    template <class Object> Object* ofRow() const
    {
        return find<Object>(QString(QTest::currentDataTag()).section(' ', 1, 1));
    }

    PresetsFile m_presets{PresetsFile::fourPresets()};
    DialogOnCamera m_built;
    std::unique_ptr<QWidget> m_tab = std::make_unique<QWidget>();
    std::unique_ptr<QWidget> m_dialog = std::make_unique<QWidget>();
    Ui::AdvTriggerWidget m_tabForm = {};
    Ui::AdvTriggerDialog m_dialogForm = {};
};

void tst_Forms::initTestCase()
{
    m_tabForm.setupUi(m_tab.get());
    m_dialogForm.setupUi(m_dialog.get());
    QCOMPARE(m_tab->objectName(), QString("AdvTriggerWidget"));
    QCOMPARE(QString(m_tab->metaObject()->className()), QString("QWidget"));
    QCOMPARE(m_built.content->objectName(), QString("AdvTriggerDialog"));
}

void tst_Forms::hasTheWidget_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("labelText");
    const auto add = [](const char* name, const WidgetRow& row) {
        const QString label = *row.labelled ? row.labelled : "lbl" + QString(row.name).mid(3);
        QTest::addRow("%s %s", name, row.name) << QString(row.kind) << QString(row.parent)
                                               << QString(row.text) << label << QString(row.label);
    };
    for (const WidgetRow& row : TabWidgets)
        add("tab", row);
    for (const WidgetRow& row : DialogWidgets)
        add("dialog", row);
}

void tst_Forms::hasTheWidget()
{
    QFETCH(QString, text);
    QFETCH(QString, label);
    QFETCH(QString, labelText);
    const auto* widget = ofRow<QWidget>();
    QVERIFY(widget != nullptr);
    QTEST(QString(widget->metaObject()->className()), "kind");
    QTEST(widget->parentWidget()->objectName(), "parent");
    if (!text.isEmpty())
        QCOMPARE(textOf(*widget), text);
    if (labelText.isEmpty())
        return;
    const auto* labelWidget = find<QLabel>(label);
    QVERIFY(labelWidget != nullptr);
    QCOMPARE(labelWidget->text(), labelText);
    QCOMPARE(labelWidget->parentWidget(), widget->parentWidget());
    QCOMPARE(labelWidget->buddy(), widget);
}

void tst_Forms::hasNoOthers()
{
    int named = 0;
    for (const QWidget* widget : m_tab->findChildren<QWidget*>())
        named += !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_") ? 1 : 0;
    QCOMPARE(named, 26);
    QCOMPARE(m_built.content->findChildren<QPushButton*>().size(), namesIn(Buttons).size());
}

void tst_Forms::scrollAreaShowsItsContents_data()
{
    columns<QString, QString>("contents", "layout");
    row("tab scrollArea", Contents, "verticalLayout");
    row("dialog scrollArea", Contents, "gridLayout_8");
    row("dialog scrollArea_2", "scrollAreaWidgetContents_2", "verticalLayout_4");
}

void tst_Forms::scrollAreaShowsItsContents()
{
    const QWidget* contents = ofRow<QScrollArea>()->widget();
    QTEST(contents->objectName(), "contents");
    QTEST(contents->layout()->objectName(), "layout");
}

void tst_Forms::layoutHolds_data()
{
    columns<QString, QStringList>("kind", "items");
    for (const LayoutRow& layout : TabLayouts)
        row(QByteArray("tab ") + layout.name, layout.kind, namesIn(layout.items));
    for (const LayoutRow& layout : DialogLayouts)
        row(QByteArray("dialog ") + layout.name, layout.kind, namesIn(layout.items));
}

void tst_Forms::layoutHolds()
{
    QFETCH(QStringList, items);
    const auto* layout = ofRow<QLayout>();
    QVERIFY(layout != nullptr);
    QTEST(QString(layout->metaObject()->className()), "kind");
    const QStringList held = itemsOf(*layout);
    if (items.removeAll("...") == 0)
        QCOMPARE(held, items);
    for (const QString& item : items)
        QVERIFY2(held.contains(item), qPrintable(item));
}

void tst_Forms::gridHoldsAt_data()
{
    columns<int, int>("line", "column");
    for (const CellRow& cell : TabGrid)
        row(QByteArray("tab ") + cell.item, cell.row, cell.column);
}

void tst_Forms::gridHoldsAt()
{
    QFETCH(int, line);
    QFETCH(int, column);
    const auto* grid = qobject_cast<QGridLayout*>(m_tabForm.grpTrigger->layout());
    QCOMPARE(grid->objectName(), QString("gridLayout"));
    QCOMPARE("tab " + nameOf(grid->itemAtPosition(line, column)), QString(QTest::currentDataTag()));
    QCOMPARE(grid->count(), int(std::size(TabGrid)));
}

void tst_Forms::hasProperty_data()
{
    columns<QByteArray, QVariant>("property", "value");
    const auto add = [](const QByteArray& form, const PropertyRow& it) {
        for (const QString& name : namesIn(it.name))
            row(form + name.toLatin1() + ' ' + it.property, QByteArray(it.property), it.value);
    };
    for (const PropertyRow& property : TabProperties)
        add("tab ", property);
    for (const PropertyRow& property : DialogProperties)
        add("dialog ", property);
    for (const PropertyRow& property : BareDialogProperties)
        add("bare-dialog ", property);
}

void tst_Forms::hasProperty()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    const auto* object = ofRow<QObject>();
    QVERIFY(object != nullptr);
    QVariant actual = object->property(property);
    QVERIFY(actual.isValid());
    if (value.type() == QVariant::Int)
        actual = actual.toInt();
    QCOMPARE(actual, value);
}

void tst_Forms::hintIsBoldAndItalic()
{
    QVERIFY(m_tabForm.lbl_notAcquireHint->font().bold());
    QVERIFY(m_tabForm.lbl_notAcquireHint->font().italic());
}

void tst_Forms::statusTreeCascadesSectionResizes()
{
    QVERIFY(m_tabForm.treeView->header()->cascadingSectionResizes());
}

void tst_Forms::tableHasHeader_data()
{
    columns<int, QString, QString>("column", "text", "toolTip");
    int column = 0;
    for (const HeaderRow& header : TabHeaders)
        row(QByteArray("tab tableWidget ") + header.toolTip, column++, header.text, header.toolTip);
    column = 0;
    for (const HeaderRow& header : DialogHeaders)
        row(QByteArray("dialog tableWidget ") + header.toolTip, column++, header.text,
            header.toolTip);
}

void tst_Forms::tableHasHeader()
{
    QFETCH(int, column);
    const QTableWidgetItem* header = ofRow<QTableWidget>()->horizontalHeaderItem(column);
    QTEST(header->text(), "text");
    QTEST(header->toolTip(), "toolTip");
}

void tst_Forms::tabulatorWalksInReadingOrder_data()
{
    columns<QStringList>("expected");
    row("tab", namesIn(TabReadingOrder));
    row("dialog", namesIn(DialogReadingOrder));
}

void tst_Forms::tabulatorWalksInReadingOrder()
{
    QFETCH(QStringList, expected);
    QStringList walked;
    for (const QWidget* widget = form().nextInFocusChain(); widget != &form();
         widget = widget->nextInFocusChain())
        if (expected.contains(widget->objectName()))
            walked << widget->objectName();
    QCOMPARE(walked, expected);
}

void tst_Forms::textsAreTranslatedInTheFormsContext_data()
{
    columns<QString, int>("context", "count");
    row("tab", "AdvTriggerWidget", 24);
    row("bare-dialog", "AdvTriggerDialog", 79);
}

void tst_Forms::textsAreTranslatedInTheFormsContext()
{
    QFETCH(QString, context);
    QStringList expected = textsOf(form());
    QTEST(int(expected.size()), "count");
    // The space before the texts of section buttons is the button's.
    for (QString& text : expected)
        text.insert(text.startsWith(' ') ? 1 : 0, context + '|');
    ContextMarker marker;
    QCoreApplication::installTranslator(&marker);
    if (&form() == m_tab.get())
        m_tabForm.retranslateUi(m_tab.get());
    else
        m_dialogForm.retranslateUi(m_dialog.get());
    QCOMPARE(textsOf(form()), expected);
}

QTEST_MAIN(tst_Forms)
#include "tst_Forms.moc"
