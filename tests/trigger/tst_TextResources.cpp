// Texts of presets files and cameras, shown as the tooltips that they become: nothing in them is
// opened.
#include "tests/support/WatchedFifo.h"
#include "tests/trigger/PresetForm.h"

#include <QAbstractItemView>
#include <QDoubleSpinBox>
#include <QHelpEvent>
#include <QJsonDocument>
#include <QLabel>
#include <QToolTip>
#include <QtTest>

namespace {

QByteArray fileWith(const QString& name, const QJsonObject& members)
{
    return QJsonDocument(QJsonObject{{"#presets", QJsonArray{name}}, {name, members}}).toJson();
}

/// The text of the tooltip that is on the screen.
QString shownToolTip()
{
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("QTipLabel") && widget->isVisible())
            return static_cast<const QLabel*>(widget)->text();
    }
    return QString();
}

void showToolTipOf(const QComboBox& box, int index)
{
    QAbstractItemView* view = box.view();
    const QPoint at = view->visualRect(view->model()->index(index, 0)).center();
    QHelpEvent event(QEvent::ToolTip, at, view->viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(view->viewport(), &event);
}

constexpr int LongestToolTip = 64 * 1024;

/// The tooltip of a preset that has that many characters in its file's words.
QString presetToolTipOf(int length)
{
    const int title = QStringLiteral("<b>P</b><br>").size();
    const auto camera = lineCamera();
    const PresetForm form(*camera, fileWith("P", {{"#tooltip", QString(length - title, 'A')}}));
    return form.box.itemData(0, Qt::ToolTipRole).toString();
}

/// Binds the form and points at its widget.
void askForToolTip(TestEngine& form, QWidget& widget)
{
    form.InitBaseWidgets();
    form.ActivateTooltips(Qt::Checked);
    form.show();
    QHelpEvent event(QEvent::ToolTip, QPoint(1, 1), widget.mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(&widget, &event);
}

/// The tooltip of a feature whose description makes it that long.
QString featureToolTipOf(int length)
{
    const auto textWith = [](int letters) {
        const auto camera = acceptedCamera();
        camera->addFloat("ExposureTime", 1.0)->description = std::string(letters, 'A');
        TestEngine form(*camera);
        auto& box = form.add<QDoubleSpinBox>("spbExposureTime");
        askForToolTip(form, box);
        return box.toolTip();
    };
    const int frame = textWith(1).size() - 1;
    return textWith(length - frame);
}

} // namespace

class tst_TextResources : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void watchedPipeTellsThatItWasOpened();
    void toolTipOfAPresetOpensNothing_data();
    void toolTipOfAPresetOpensNothing();
    void toolTipOfAFeatureOpensNothing_data();
    void toolTipOfAFeatureOpensNothing();
    void toolTipOfAnEntryOpensNothing();
    void formattingOfAPresetStays();
    void longToolTipIsCut_data();
    void longToolTipIsCut();

private:
    QString picture() const { return QStringLiteral("<img src=\"%1\">").arg(m_path); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    std::unique_ptr<WatchedFifo> m_fifo;
};

void tst_TextResources::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    // No full stop: in a feature's description a line break would follow it.
    m_path = m_folder->filePath(QStringLiteral("pipe"));
    QVERIFY(!m_path.contains(QLatin1Char('.')));
    m_fifo = std::make_unique<WatchedFifo>(m_path);
}

void tst_TextResources::cleanup()
{
    QToolTip::hideText();
    m_fifo.reset();
    m_folder.reset();
}

void tst_TextResources::watchedPipeTellsThatItWasOpened()
{
    QToolTip::showText(QPoint(10, 10), "<b>A</b>" + picture());
    QVERIFY(m_fifo->wasOpened());
}

void tst_TextResources::toolTipOfAPresetOpensNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("members");
    QTest::newRow("name") << "%1"
                          << "{}";
    QTest::newRow("tooltip") << "P"
                             << R"({"#tooltip": "%1"})";
    QTest::newRow("command") << "P"
                             << R"({"#execute": "%1"})";
    QTest::newRow("feature") << "P"
                             << R"({"%1": {"#value": "a"}})";
    QTest::newRow("dependent feature") << "P"
                                       << R"({"A": {"%1": "a"}})";
    QTest::newRow("tooltip with a style") << "P"
                                          << R"({"#tooltip": "<p style='background: url(%2)'>A"})";
}

void tst_TextResources::toolTipOfAPresetOpensNothing()
{
    QFETCH(QString, name);
    QFETCH(QString, members);
    const QString inJson = QString(picture()).replace("\"", "\\\"");
    const auto camera = lineCamera();
    const PresetForm form(*camera,
                          fileWith(name.replace("%1", picture()),
                                   QJsonDocument::fromJson(
                                       members.replace("%1", inJson).replace("%2", m_path).toUtf8())
                                       .object()));
    QCOMPARE(form.box.count(), 1);
    form.box.showPopup();
    showToolTipOf(form.box, 0);
    QVERIFY(shownToolTip().contains(m_path));
    QVERIFY(!m_fifo->wasOpened());
}

void tst_TextResources::toolTipOfAFeatureOpensNothing_data()
{
    QTest::addColumn<QString>("fact");
    QTest::newRow("description") << "description";
    QTest::newRow("category") << "category";
}

void tst_TextResources::toolTipOfAFeatureOpensNothing()
{
    QFETCH(QString, fact);
    const auto camera = acceptedCamera();
    Fake::FakeFeature& feature = *camera->addFloat("ExposureTime", 1.0);
    (fact == "category" ? feature.category : feature.description) = picture().toStdString();
    TestEngine form(*camera);
    auto& box = form.add<QDoubleSpinBox>("spbExposureTime");
    askForToolTip(form, box);
    QVERIFY(shownToolTip().contains(m_path));
    QVERIFY(!m_fifo->wasOpened());
}

void tst_TextResources::toolTipOfAnEntryOpensNothing()
{
    const auto camera = acceptedCamera();
    camera->addEnum("ExposureMode", {picture().toStdString()}, picture().toStdString());
    TestEngine form(*camera);
    QComboBox box;
    form.updateComboBox("ExposureMode", &box, true);
    box.showPopup();
    showToolTipOf(box, 0);
    QVERIFY(shownToolTip().contains(m_path));
    QVERIFY(!m_fifo->wasOpened());
}

void tst_TextResources::formattingOfAPresetStays()
{
    const auto camera = lineCamera();
    const PresetForm form(*camera, onePreset(R"({"#tooltip": "<font color=red>1 < 2</font>"})"));
    QCOMPARE(form.box.itemData(0, Qt::ToolTipRole).toString(),
             QStringLiteral("<b>P</b><br><font color=red>1 < 2</font>"));
}

void tst_TextResources::longToolTipIsCut_data()
{
    QTest::addColumn<bool>("ofPreset");
    QTest::addColumn<int>("length");
    for (const int length : {LongestToolTip, LongestToolTip + 1000, 7000000}) {
        QTest::addRow("preset, %d characters", length) << true << length;
        QTest::addRow("feature, %d characters", length) << false << length;
    }
}

void tst_TextResources::longToolTipIsCut()
{
    QFETCH(bool, ofPreset);
    QFETCH(int, length);
    const QString shown = ofPreset ? presetToolTipOf(length) : featureToolTipOf(length);
    QCOMPARE(shown.size(), std::min(length, LongestToolTip));
}

QTEST_MAIN(tst_TextResources)
#include "tst_TextResources.moc"
