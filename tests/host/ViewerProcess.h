#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// What a run of the built viewer came to.
struct Outcome
{
    int exitCode = -1;
    bool crashed = true;
    QString output;
    QString complaint;
};

/// Runs the viewer with `folder` as its working directory.
inline Outcome runViewerProgram(const QStringList& arguments,
                                const QProcessEnvironment& environment, const QString& folder)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.start(VIEWER, arguments);
    Outcome outcome;
    outcome.crashed =
        !process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit;
    outcome.exitCode = process.exitCode();
    outcome.output = QString::fromLocal8Bit(process.readAllStandardOutput());
    outcome.complaint = QString::fromUtf8(process.readAllStandardError());
    return outcome;
}

inline QProcessEnvironment environmentWithoutDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(variable);
    return environment;
}

/// The folder with this extension of the tests, and no other.
inline QString extensionFolder(const QString& name)
{
    return QStringLiteral(EXTENSIONS_DIR "/") + name;
}
