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

const QStringList SteppedSelectors = {"CounterSelector", "TimerSelector", "TriggerSelector",
                                      "LineSelector"};

/// The dialog is built and bound in one step, the tab in those until its first show.
const QString DialogStep = "open dialog";
const QStringList TabSteps = {"get", "get again", "show"};

Binding bindingOf(const QString& step)
{
    if (step == DialogStep)
        return Binding::Dialog;
    return TabSteps.contains(step) ? Binding::Tab : Binding::None;
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
    return m_host ? tabIn(*m_host) : nullptr;
}

QWidget* Session::dialog() const
{
    return m_host ? dialogIn(*m_host) : nullptr;
}

User Session::user(QWidget& form)
{
    return User(form, m_circumstances.asks, m_camera);
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
    m_camera.reportChanges();
    QApplication::processEvents();
    tick();
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Session::step(const QString& name, const std::function<void()>& action)
{
    m_stepName = name;
    m_camera.beginStep(name);
    for (const QString& selector : SteppedSelectors)
        m_selectedBefore[selector] = m_camera.entryOf(selector);
    action();
    spring();
    settle();
    judge();
}

/// Lets what was planted come to light.
void Session::spring()
{
    if (m_plant == Plant::None || !m_camera.hasStruck())
        return;
    if (m_plant == Plant::UnaskedWrite)
        m_camera.fake()["TriggerDelay"].SetFloatValue(77.0);
    else if (m_plant == Plant::Crash)
        crash();
    else if (m_plant == Plant::Hang)
        std::raise(SIGSTOP);
    else if (m_plant == Plant::LostLine)
        m_camera.fake()["LineSelector"].SetStringValue("Line2");
}

/// A selector that was only looked through ends where it was, but for mayEndElsewhere().
void Session::judgeSelectors()
{
    for (const QString& selector : SteppedSelectors) {
        const QString now = m_camera.entryOf(selector);
        const auto isNow = [&](const Ask& ask) {
            return ask.feature == selector && ask.value == now;
        };
        const auto& asks = m_circumstances.asks;
        if (now == m_selectedBefore[selector] || std::any_of(asks.begin(), asks.end(), isNow))
            continue;
        const bool isExcused = mayEndElsewhere(selector, m_circumstances.failures);
        (isExcused ? notes : findings)
            .append(QStringLiteral("%1 left at another entry in step '%2', %3")
                        .arg(selector, m_stepName, nameOf(m_circumstances.failures)));
    }
}

void Session::judge()
{
    m_circumstances.failures = m_camera.takeFailures();
    const std::vector<Write> writes = m_camera.takeWrites();
    unansweredAsks += unanswered(m_circumstances.asks, writes);
    for (const QString& write : unaskedWrites(writes, m_circumstances))
        findings.append(QStringLiteral("unasked write %1 in step '%2', %3")
                            .arg(write, m_stepName, nameOf(m_circumstances.failures)));
    judgeSelectors();
    remember(m_circumstances.failures);
    endStep(m_circumstances, bindingOf(m_stepName));
}

void Session::remember(const Failures& failures)
{
    if (m_struckStep.isEmpty() && !failures.empty())
        m_struckStep = m_stepName;
    m_failuresOfSteps[m_stepName] = failures;
    const bool isReset = m_stepName == "preset in dialog" && m_circumstances.appliesPreset;
    if (m_stepName == DialogStep || isReset)
        m_sinceDialogOverview.clear();
    m_sinceDialogOverview.insert(m_sinceDialogOverview.end(), failures.begin(), failures.end());
}

void Session::hideAndShow(QWidget& window)
{
    window.hide();
    window.show();
    QApplication::setActiveWindow(&window);
}

void Session::recoverAndCompare(bool dialogIsOpen)
{
    bool& isCompared = dialogIsOpen ? m_isDialogCompared : m_isTabCompared;
    if (!m_camera.hasStruck() || isCompared)
        return;
    isCompared = true;
    m_camera.recover();
    QWidget* form = dialogIsOpen ? dialog() : tab();
    step("recovery", [&] { hideAndShow(*form->window()); });
    if (m_plant == Plant::StaleWidget && !dialogIsOpen)
        form->findChild<QComboBox*>("cmbTriggerSource")->clear();
    const Portrait actual = portraitOf(*form);
    if (!dialogIsOpen)
        m_portraitOfTab = actual;
    const Portrait expected =
        m_gallery.portraitFor((dialogIsOpen ? "dialog " : "tab ") + m_camera.digest(),
                              [&] { return portraitOfNewForm(dialogIsOpen); });
    for (const Difference& difference :
         unexplained(differences(actual, expected), lifeOf(dialogIsOpen)))
        findings.append(QStringLiteral("after %1 in step '%2', %3 shows %4: %5, not %6")
                            .arg(nameOf(m_circumstances.earlierFailures), m_struckStep,
                                 dialogIsOpen ? "the dialog" : "the tab", difference.widget,
                                 difference.actual, difference.expected));
}

/// Of a bystander's form, on the camera as it is.
Portrait Session::portraitOfNewForm(bool isDialog) const
{
    m_camera.lookAway();
    TabExtensionPlugin newPlugin;
    HostWindow window;
    openTab(newPlugin, window, m_camera);
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
    life.sinceOverview = m_sinceDialogOverview;
    const QWidget* form = isDialog ? dialog() : tab();
    life.lines = linesOf(*form->findChild<QTableWidget*>("tableWidget"));
    for (auto it = m_failuresOfSteps.begin(); it != m_failuresOfSteps.end(); ++it) {
        const bool isBuilding = isDialog ? it.key() == DialogStep : TabSteps.contains(it.key());
        auto& failures = isBuilding ? life.whileBuilt : life.sinceBuilt;
        failures.insert(failures.end(), it->begin(), it->end());
    }
    return life;
}

bool Session::isOnTroddenWay() const
{
    const Failures& failures = m_circumstances.earlierFailures;
    if (!leavesOutTroddenWays || !m_isTabCompared || !findings.isEmpty() || failures.empty())
        return false;
    const FailedCall& first = failures.front();
    QStringList way = {first.operation, first.feature, m_camera.isLasting() ? "lasting" : "once",
                       isUnanswered(first.status) ? "unanswered" : "refused",
                       QString::fromLatin1(m_camera.digest())};
    return m_gallery.isTrodden((way + m_portraitOfTab.values()).join('\n').toUtf8());
}

void Session::play()
{
    const MessageBoxes boxes;
    m_host = std::make_unique<HostWindow>();
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
