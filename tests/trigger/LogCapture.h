#pragma once

#include <QStringList>
#include <QtGlobal>

/// Collects log lines while it lives. Make it after the last plugin widget: building one of those
/// replaces the message handler.
class LogCapture
{
public:
    LogCapture()
    {
        lines().clear();
        previous = qInstallMessageHandler(record);
    }
    ~LogCapture() { qInstallMessageHandler(previous); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    QStringList warnings() const { return lines(); }

private:
    static void record(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        if (type == QtWarningMsg)
            lines().append(text);
    }
    static QStringList& lines()
    {
        static QStringList collected;
        return collected;
    }

    QtMessageHandler previous;
};
