// Renders the pictures of the tab at work: tabpictures FOLDER
#include "tests/e2e/RunningViewer.h"

#include "host/Appearance.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QScreen>
#include <QToolButton>
#include <QtTest>

namespace {

constexpr QSize NarrowTab(350, 747);
constexpr QSize UsualTab(517, 747);
constexpr QSize WideTab(900, 747);

class Picture
{
public:
    Picture(QString folder, const char* palette) : m_folder(std::move(folder))
    {
        applyPalette(QString::fromLatin1(palette));
        m_viewer = std::make_unique<RunningViewer>(Cameras::Source{});
        if (!m_viewer->window())
            qFatal("%s", qPrintable(m_viewer->problem));
        m_viewer->waitForTicks(1);
    }
    ~Picture() { m_viewer->close(); }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    const RunningViewer& viewer() const { return *m_viewer; }

    void choosePreset(const char* name) const
    {
        m_viewer->choose("cmbSelectPreset", QString::fromLatin1(name));
        m_viewer->waitForTicks(1);
    }

    void unfoldOverview() const
    {
        auto& frame = *m_viewer->control<QWidget>("frmTriggerFeaturesStatus");
        m_viewer->control<QToolButton>("btnTriggerFeaturesStatus")->click();
        if (!QTest::qWaitFor([&] { return frame.height() >= frame.sizeHint().height(); }))
            qFatal("the overview does not unfold");
    }

    void takeTab(const char* name, QSize size = UsualTab) const
    {
        QWidget& tab = *m_viewer->tab();
        // Out of the viewer's layout for the picture, which is wanted in a size of its own.
        tab.setWindowFlag(Qt::Window);
        tab.resize(size);
        tab.show();
        if (!QTest::qWaitForWindowExposed(&tab))
            qFatal("the tab does not show");
        m_viewer->waitForTicks(1);
        save(tab.grab(), name);
    }

    void takeWindow(const char* name) const { save(m_viewer->window()->grab(), name); }

    /// With what lies on top of the window, such as an open list.
    void takeScreen(const char* name) const
    {
        const QWidget& window = *m_viewer->window();
        save(
            window.screen()->grabWindow(0, window.x(), window.y(), window.width(), window.height()),
            name);
    }

private:
    void save(const QPixmap& pixmap, const char* name) const
    {
        const QString file = m_folder + QLatin1Char('/') + QLatin1String(name);
        if (!pixmap.save(file))
            qFatal("cannot write %s", qPrintable(file));
        std::puts(qPrintable(file));
    }

    const QString m_folder;
    std::unique_ptr<RunningViewer> m_viewer;
};

void softwareTrigger(const QString& folder)
{
    const Picture picture(folder, "light");
    picture.choosePreset("Software Trigger");
    picture.viewer().clickAcquire();
    for (int frame = 1; frame <= 3; ++frame) {
        picture.viewer().click("btnTriggerSoftware");
        if (!QTest::qWaitFor([&] { return picture.viewer().frames() == frame; }))
            qFatal("no frame came");
    }
    picture.takeWindow("guide-software-trigger.png");
}

void presetList(const QString& folder)
{
    const Picture picture(folder, "light");
    auto& box = *picture.viewer().control<QComboBox>("cmbSelectPreset");
    box.showPopup();
    if (!QTest::qWaitForWindowExposed(box.view()->window()))
        qFatal("the list does not open");
    picture.takeScreen("guide-presets.png");
    box.hidePopup();
}

void takePreset(const QString& folder, const char* preset, const char* file)
{
    const Picture picture(folder, "light");
    picture.choosePreset(preset);
    picture.unfoldOverview();
    picture.takeTab(file);
}

void sizes(const QString& folder)
{
    for (const char* palette : {"light", "dark"}) {
        const Picture picture(folder, palette);
        picture.choosePreset("Every 4th Pulse (Counter0)");
        picture.unfoldOverview();
        const QByteArray name = QByteArray("tab-") + palette;
        picture.takeTab(name + "-350.png", NarrowTab);
        picture.takeTab(name + "-517.png", UsualTab);
        picture.takeTab(name + "-900.png", WideTab);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: tabpictures FOLDER");
    const QString folder = QString::fromLocal8Bit(argv[1]);
    softwareTrigger(folder);
    takePreset(folder, "Hardware Trigger on Line0", "guide-hardware-trigger.png");
    takePreset(folder, "Strobe on Line3", "guide-strobe.png");
    presetList(folder);
    sizes(folder);
    return 0;
}
