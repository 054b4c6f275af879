#include "host/Display.h"

#include "host/CommandLine.h"

#include <QGuiApplication>
#include <QStringList>

#include <cerrno>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr char PlatformVariable[] = "QT_QPA_PLATFORM";
// Enough for a display at the other end of a slow network.
constexpr unsigned PatienceSeconds = 20;

void endQuietly(QtMsgType type, const QMessageLogContext&, const QString&)
{
    if (type == QtFatalMsg)
        ::_exit(1);
}

/// The program may have been started with alarms ignored or blocked.
void setAlarm()
{
    std::signal(SIGALRM, SIG_DFL);
    sigset_t alarms;
    ::sigemptyset(&alarms);
    ::sigaddset(&alarms, SIGALRM);
    ::sigprocmask(SIG_UNBLOCK, &alarms, nullptr);
    ::alarm(PatienceSeconds);
}

/// The part of the child: ends the process with 0 when Qt can connect to the display.
[[noreturn]] void tryDisplay()
{
    setAlarm();
    qInstallMessageHandler(endQuietly);
    char name[] = "ZalViewer";
    char* arguments[] = {name, nullptr};
    int count = 1;
    const QGuiApplication application(count, arguments);
    ::_exit(0);
}

/// Qt ends the process when it cannot use a display, so a child process tries it.
bool isUsable()
{
    std::signal(SIGCHLD, SIG_DFL); // Ignored, it would leave nothing to wait for.
    const pid_t child = ::fork();
    if (child == 0)
        tryDisplay();
    if (child < 0)
        return false;
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// What the environment says about displays, as "NAME=value".
QStringList namedDisplays()
{
    QStringList named;
    for (const char* variable : {PlatformVariable, "DISPLAY", "WAYLAND_DISPLAY"}) {
        if (!qEnvironmentVariableIsEmpty(variable))
            named.append(QString::fromLatin1(variable) + '=' + qEnvironmentVariable(variable));
    }
    return named;
}

} // namespace

bool Display::prepare(const ViewerOptions& options)
{
    if (isUsable())
        return true;
    // A platform that the user named is not replaced.
    if (options.screenshotFile.isEmpty() || !qEnvironmentVariableIsEmpty(PlatformVariable))
        return false;
    qputenv(PlatformVariable, "offscreen");
    return true;
}

QString Display::complaint(const ViewerOptions& options)
{
    const QStringList named = namedDisplays();
    if (named.isEmpty())
        return QCoreApplication::translate("Viewer", "There is no display to open the window on. "
                                                     "Use --screenshot FILE to save a picture of "
                                                     "it.");
    const QString sentence =
        options.screenshotFile.isEmpty()
            ? QCoreApplication::translate(
                  "Viewer", "There is no usable display to open the window on (%1). Use "
                            "--screenshot FILE to save a picture of it.")
            : QCoreApplication::translate("Viewer",
                                          "There is no usable display to open the window on (%1).");
    return sentence.arg(named.join(QStringLiteral(", ")));
}
