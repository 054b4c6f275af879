#pragma once

#include <QStringList>
#include <QtGlobal>

/// Records Qt's log lines while it lives. Make it after the widget under test: every plugin widget
/// installs a handler of its own.
class LogRecorder
{
public:
    LogRecorder() : previous(qInstallMessageHandler(record)) { lines().clear(); }
    LogRecorder(const LogRecorder&) = delete;
    LogRecorder& operator=(const LogRecorder&) = delete;
    ~LogRecorder() { qInstallMessageHandler(previous); }

    static QStringList& lines()
    {
        static QStringList recorded;
        return recorded;
    }

private:
    static void record(QtMsgType type, const QMessageLogContext& context, const QString& message)
    {
        lines() << QStringLiteral("%1|%2|%3")
                       .arg(type == QtDebugMsg ? "debug" : "other", context.category, message);
    }

    QtMessageHandler previous;
};
