// Renders the pictures of the advanced dialog: dialogpictures FOLDER
#include "tests/e2e/RunningViewer.h"

#include "host/Appearance.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <QtTest>

namespace {

constexpr QSize SmallScreen(1008, 720); ///< What 1024x768 leaves within a window's frame.
constexpr QSize LargeScreen(1904, 1032);

/// The dialog on the screen, opened from the viewer's tab.
class OpenDialog
{
public:
    explicit OpenDialog(const char* palette)
    {
        applyPalette(QString::fromLatin1(palette));
        m_viewer = std::make_unique<RunningViewer>(Cameras::Source{});
        if (!m_viewer->window())
            qFatal("%s", qPrintable(m_viewer->problem));
        m_viewer->waitForTicks(1);
        m_viewer->click("btnAdvancedDialog");
        m_dialog = m_viewer->tab()->findChild<QDialog*>();
        if (!m_dialog || !QTest::qWaitForWindowExposed(m_dialog))
            qFatal("the dialog did not open");
        m_dialog->resize(SmallScreen);
    }
    ~OpenDialog() { m_viewer->close(); }
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;

    void resize(QSize size) const { m_dialog->resize(size); }

    template <class Widget> Widget& find(const char* name) const
    {
        return *m_dialog->findChild<Widget*>(QString::fromLatin1(name));
    }

    void unfold(const char* section, const char* content) const
    {
        auto& frame = find<QWidget>(content);
        find<QToolButton>(section).click();
        await([&] { return frame.height() >= frame.sizeHint().height(); });
    }

    void unfoldAll() const
    {
        unfold("btnConfigureTriggerSources", "frmConfigureTriggerSources");
        unfold("btnConfigureInputOutput", "frmConfigureInputOutput");
        unfold("btnConfigureAcquisitionMode", "frmConfigureAcquisitionMode");
        unfold("btnConfigureActionCommand", "frmActionCommand");
        unfold("btnConfigureSoftwareSignal", "frmSoftwareSignal");
        unfold("btnConfigureCounterTimer", "frmCounterTimer");
    }

    /// Switches PWM on and types 1000 Hz and 25 %.
    void enterPwm() const
    {
        unfold("btnConfigureCounterTimer", "frmCounterTimer");
        find<QGroupBox>("grpPWM").setChecked(true);
        type("txtPWMFrequency", "1000");
        type("txtPWMDutyCycle", "25");
        find<QScrollArea>("scrollArea").ensureWidgetVisible(&find<QWidget>("grpPWM"));
        // The camera's own times, and the overview, follow with the dialog's next refresh.
        await([&] { return find<QDoubleSpinBox>("spbTimerDelay").value() == 750.0; });
    }

    void save(const QString& file) const
    {
        QCoreApplication::processEvents();
        if (!m_dialog->grab().save(file))
            qFatal("cannot write %s", qPrintable(file));
        std::puts(qPrintable(file));
    }

private:
    template <class Condition> static void await(const Condition& condition)
    {
        if (!QTest::qWaitFor(condition))
            qFatal("the dialog does not come to rest");
    }

    void type(const char* name, const char* text) const
    {
        auto& edit = find<QLineEdit>(name);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, QString::fromLatin1(text));
        QTest::keyClick(&edit, Qt::Key_Return);
    }

    std::unique_ptr<RunningViewer> m_viewer;
    QDialog* m_dialog = nullptr;
};

void pictures(const QString& folder)
{
    {
        const OpenDialog light("light");
        light.save(folder + QStringLiteral("/dialog-folded.png"));
        light.unfoldAll();
        light.save(folder + QStringLiteral("/dialog-unfolded.png"));
        light.resize(LargeScreen);
        light.save(folder + QStringLiteral("/dialog-large.png"));
    }
    {
        const OpenDialog light("light");
        light.enterPwm();
        light.save(folder + QStringLiteral("/dialog-pwm.png"));
    }
    {
        const OpenDialog light("light");
        light.unfold("btnConfigureTriggerSources", "frmConfigureTriggerSources");
        light.unfold("btnConfigureActionCommand", "frmActionCommand");
        light.save(folder + QStringLiteral("/dialog-action.png"));
    }
    const OpenDialog dark("dark");
    dark.unfoldAll();
    dark.save(folder + QStringLiteral("/dialog-dark.png"));
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: dialogpictures FOLDER");
    pictures(QString::fromLocal8Bit(argv[1]));
    return 0;
}
