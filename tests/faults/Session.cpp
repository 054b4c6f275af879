#include "tests/faults/Session.h"

#include "features/Answer.h"
#include "tests/faults/Portrait.h"
#include "tests/faults/User.h"
#include "tests/trigger/MessageBoxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QTableWidget>
#include <QTimer>

#include <algorithm>
#include <csignal>

namespace Faults {
namespace {

/// By its signal, also where a sanitizer would make an exit code of it.
void crash()
{
    std::signal(SIGSEGV, SIG_DFL);
    std::raise(SIGSEGV);
}

const QStringList steppedSelectors = {"CounterSelector", "TimerSelector", "TriggerSelector",
                                      "LineSelector"};

/// The dialog is built and bound in one step, the tab in those until its first show.
const QString dialogStep = "open dialog";
const QStringList tabSteps = {"get", "get again", "show"};

Binding bindingOf(const QString& step)
{
    if (step == dialogStep)
        return Binding::Dialog;
    return tabSteps.contains(step) ? Binding::Tab : Binding::None;
}

QWidget* tabIn(const HostWindow& host)
{
    return host.container ? host.container->findChild<QWidget*>("AdvTriggerWidget") : nullptr;
}

QWidget* dialogIn(const HostWindow& host)
{
    const QWidget* tab = tabIn(host);
    return tab ? tab->findChild<QWidget*>("AdvTriggerDialog") : nullptr;
}

QStringList linesOf(const QTableWidget& table)
{
    QStringList lines;
    for (int row = 0; row < table.rowCount(); ++row)
        lines.append(table.verticalHeaderItem(row)->text());
    return lines;
}

/// The first failing call, for the reader.
QString nameOf(const Failures& failures)
{
    if (failures.empty())
        return QStringLiteral("nothing failing");
    const FailedCall& first = failures.front();
    return QStringLiteral("%1 %2 failing").arg(first.operation, first.feature);
}

} // namespace

void Session::openTab(TabExtensionPlugin& plugin, HostWindow& host, const FaultyCamera& camera)
{
    QMap<QString, QVariant> options = {{"connectWidgetToSignal", SIGNAL(streaming(bool))}};
    host.setUpdatesEnabled(false); // Painting asks the camera nothing, and is half of the time.
    host.resize(700, 900);
    host.container->resize(host.size());
    plugin.get(camera.fake().features(), *host.container, &options);
}

void Session::showWindow(HostWindow& host)
{
    host.show();
    QApplication::setActiveWindow(&host);
}

void Session::openDialog(QWidget& tab)
{
    tab.findChild<QAbstractButton*>("btnAdvancedDialog")->click();
    if (auto* content = tab.findChild<QWidget*>("AdvTriggerDialog")) {
        content->window()->setUpdatesEnabled(false);
        QApplication::setActiveWindow(content->window());
    }
}

QWidget* Session::tab() const
{
    return host ? tabIn(*host) : nullptr;
}

QWidget* Session::dialog() const
{
    return host ? dialogIn(*host) : nullptr;
}

User Session::user(QWidget& form)
{
    return User(form, circumstances.asks, camera);
}

QList<QTimer*> Session::refreshTimers() const
{
    QList<QTimer*> timers;
    for (const QWidget* form : {tab(), dialog()}) {
        if (form)
            timers += form->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    }
    return timers;
}

/// What a second would bring. The timers themselves are held, so that a slow machine sees no more
/// of them than a fast one.
void Session::tick()
{
    for (const QTimer* timer : refreshTimers()) {
        if (timer->isActive())
            QMetaObject::invokeMethod(timer->parent(), "updateTimer");
    }
}

void Session::settle()
{
    for (QTimer* timer : refreshTimers()) {
        if (timer->isActive())
            timer->setInterval(24 * 60 * 60 * 1000);
    }
    QApplication::processEvents();
    camera.reportChanges();
    QApplication::processEvents();
    tick();
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Session::step(const QString& name, const std::function<void()>& action)
{
    stepName = name;
    camera.beginStep(name);
    for (const QString& selector : steppedSelectors)
        selectedBefore[selector] = camera.entryOf(selector);
    action();
    spring();
    settle();
    judge();
}

/// Lets what was planted come to light.
void Session::spring()
{
    if (plant == Plant::None || !camera.hasStruck())
        return;
    if (plant == Plant::UnaskedWrite)
        camera.fake()["TriggerDelay"].SetFloatValue(77.0);
    else if (plant == Plant::Crash)
        crash();
    else if (plant == Plant::Hang)
        std::raise(SIGSTOP);
    else if (plant == Plant::LostLine)
        camera.fake()["LineSelector"].SetStringValue("Line2");
}

/// A selector that was only looked through ends where it was, but for mayEndElsewhere().
void Session::judgeSelectors()
{
    for (const QString& selector : steppedSelectors) {
        const QString now = camera.entryOf(selector);
        const auto isNow = [&](const Ask& ask) {
            return ask.feature == selector && ask.value == now;
        };
        const auto& asks = circumstances.asks;
        if (now == selectedBefore[selector] || std::any_of(asks.begin(), asks.end(), isNow))
            continue;
        const bool isExcused = mayEndElsewhere(selector, circumstances.failures);
        (isExcused ? notes : findings)
            .append(QStringLiteral("%1 left at another entry in step '%2', %3")
                        .arg(selector, stepName, nameOf(circumstances.failures)));
    }
}

void Session::judge()
{
    circumstances.failures = camera.takeFailures();
    const std::vector<Write> writes = camera.takeWrites();
    unansweredAsks += unanswered(circumstances.asks, writes);
    for (const QString& write : unaskedWrites(writes, circumstances))
        findings.append(QStringLiteral("unasked write %1 in step '%2', %3")
                            .arg(write, stepName, nameOf(circumstances.failures)));
    judgeSelectors();
    remember(circumstances.failures);
    endStep(circumstances, bindingOf(stepName));
}

void Session::remember(const Failures& failures)
{
    if (struckStep.isEmpty() && !failures.empty())
        struckStep = stepName;
    failuresOfSteps[stepName] = failures;
    const bool isReset = stepName == "preset in dialog" && circumstances.appliesPreset;
    if (stepName == dialogStep || isReset)
        sinceDialogOverview.clear();
    sinceDialogOverview.insert(sinceDialogOverview.end(), failures.begin(), failures.end());
}

void Session::hideAndShow(QWidget& window)
{
    window.hide();
    window.show();
    QApplication::setActiveWindow(&window);
}

void Session::recoverAndCompare(bool dialogIsOpen)
{
    bool& isCompared = dialogIsOpen ? isDialogCompared : isTabCompared;
    if (!camera.hasStruck() || isCompared)
        return;
    isCompared = true;
    camera.recover();
    QWidget* form = dialogIsOpen ? dialog() : tab();
    step("recovery", [&] { hideAndShow(*form->window()); });
    if (plant == Plant::StaleWidget && !dialogIsOpen)
        form->findChild<QComboBox*>("cmbTriggerSource")->clear();
    const Portrait actual = portraitOf(*form);
    if (!dialogIsOpen)
        portraitOfTab = actual;
    const Portrait expected =
        gallery.portraitFor((dialogIsOpen ? "dialog " : "tab ") + camera.digest(),
                            [&] { return portraitOfNewForm(dialogIsOpen); });
    for (const Difference& difference :
         unexplained(differences(actual, expected), lifeOf(dialogIsOpen)))
        findings.append(QStringLiteral("after %1 in step '%2', %3 shows %4: %5, not %6")
                            .arg(nameOf(circumstances.earlierFailures), struckStep,
                                 dialogIsOpen ? "the dialog" : "the tab", difference.widget,
                                 difference.actual, difference.expected));
}

/// Of a bystander's form, on the camera as it is.
Portrait Session::portraitOfNewForm(bool isDialog) const
{
    camera.lookAway();
    TabExtensionPlugin newPlugin;
    HostWindow window;
    openTab(newPlugin, window, camera);
    showWindow(window);
    if (isDialog)
        openDialog(*tabIn(window));
    QWidget* form = isDialog ? dialogIn(window) : tabIn(window);
    QMetaObject::invokeMethod(form, "updateTimer");
    return portraitOf(*form);
}

FormLife Session::lifeOf(bool isDialog) const
{
    FormLife life;
    life.isDialog = isDialog;
    life.sinceOverview = sinceDialogOverview;
    const QWidget* form = isDialog ? dialog() : tab();
    life.lines = linesOf(*form->findChild<QTableWidget*>("tableWidget"));
    for (auto it = failuresOfSteps.begin(); it != failuresOfSteps.end(); ++it) {
        const bool isBuilding = isDialog ? it.key() == dialogStep : tabSteps.contains(it.key());
        auto& failures = isBuilding ? life.whileBuilt : life.sinceBuilt;
        failures.insert(failures.end(), it->begin(), it->end());
    }
    return life;
}

bool Session::isOnTroddenWay() const
{
    const Failures& failures = circumstances.earlierFailures;
    if (!leavesOutTroddenWays || !isTabCompared || !findings.isEmpty() || failures.empty())
        return false;
    const FailedCall& first = failures.front();
    QStringList way = {first.operation, first.feature, camera.isLasting() ? "lasting" : "once",
                       isUnanswered(first.status) ? "unanswered" : "refused",
                       QString::fromLatin1(camera.digest())};
    return gallery.isTrodden((way + portraitOfTab.values()).join('\n').toUtf8());
}

void Session::play()
{
    const MessageBoxes boxes;
    host = std::make_unique<HostWindow>();
    start();
    useTab();
    recoverAndCompare(false);
    if (!isOnTroddenWay()) {
        useDialog();
        recoverAndCompare(false);
    }
    end();
}

} // namespace Faults
