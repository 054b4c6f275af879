#pragma once

#include "plugin/TabExtensionPlugin.h"
#include "tests/faults/FaultyCamera.h"
#include "tests/faults/FormLife.h"
#include "tests/faults/Gallery.h"
#include "tests/faults/Ledger.h"
#include "tests/plugin/HostWindow.h"

#include <QStringList>

#include <functional>
#include <memory>

class QTimer;

namespace Faults {

class User;

/// Things that go wrong on purpose, so that the sweep can be seen to find them.
enum class Plant
{
    None,
    UnaskedWrite, ///< After the fault, something writes TriggerDelay=77.
    StaleWidget,  ///< After the fault, a box shows what the camera does not have.
    Crash,        ///< The fault ends the process.
    Hang,         ///< The fault stops the process.
    LostLine,     ///< After the fault, something selects another line.
};

/// The life of one tab from `get()` to the end of its container, in steps. What is wrong with it
/// goes to the findings.
class Session
{
public:
    Session(FaultyCamera& usedCamera, Gallery& usedGallery, Plant planted = Plant::None)
        : m_camera(usedCamera), m_gallery(usedGallery), m_plant(planted)
    {
    }

    /// Plays it from end to end.
    void play();

    /// Whether the dialog's part is left out where a session has come the same way before: the same
    /// question failed in the tab's part, and camera and tab ended the same.
    bool leavesOutTroddenWays = false;

    /// What breaks a promise, one line each.
    QStringList findings;
    /// What breaks none and is worth knowing all the same.
    QStringList notes;
    /// What the user asked for and the camera never took.
    QStringList unansweredAsks;

private:
    void step(const QString& name, const std::function<void()>& action);
    void settle();
    void judge();
    void spring();
    void judgeSelectors();
    void remember(const Failures& failures);
    void tick();
    QList<QTimer*> refreshTimers() const;

    void start();
    void useTab();
    void useDialog();
    void editInDialog();
    void usePwm();
    void end();
    void applyPreset(QWidget& form, const QString& name);
    void askForPreset(const QString& name);
    void changeFromOutside();
    static void openTab(TabExtensionPlugin& plugin, HostWindow& host, const FaultyCamera& camera);
    static void showWindow(HostWindow& host);
    static void openDialog(QWidget& tab);
    void hideAndShow(QWidget& window);
    /// Ends the faults and compares the form with the same form of a tab made new.
    void recoverAndCompare(bool dialogIsOpen);
    Portrait portraitOfNewForm(bool isDialog) const;
    FormLife lifeOf(bool isDialog) const;
    bool isOnTroddenWay() const;

    QWidget* tab() const;
    QWidget* dialog() const;
    User user(QWidget& form);

    FaultyCamera& m_camera;
    Gallery& m_gallery;
    Plant m_plant;
    TabExtensionPlugin m_plugin;
    std::unique_ptr<HostWindow> m_host;
    bool m_isTabCompared = false;
    bool m_isDialogCompared = false;
    Portrait m_portraitOfTab; ///< As it was compared.
    QString m_stepName;
    QMap<QString, QString> m_selectedBefore; ///< By selector, when the step began.
    QString m_struckStep;                    ///< In which the first call failed.
    QMap<QString, Failures> m_failuresOfSteps;
    Failures m_sinceDialogOverview;
    Circumstances m_circumstances;
};

} // namespace Faults
