#pragma once

#include <QMutex>
#include <QStringList>
#include <QtGlobal>

/// Collects Qt's log lines while it lives, one capture at a time. Make it after the first plugin
/// widget: each widget installs the plugin's own message handler, which discards every line.
class LogCapture
{
public:
    LogCapture() : previous(qInstallMessageHandler(&LogCapture::handle)) { active() = this; }
    ~LogCapture()
    {
        active() = nullptr;
        qInstallMessageHandler(previous);
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// The lines so far, each as "category/type text", for example "default/debug Error ...".
    QStringList lines() const
    {
        const QMutexLocker lock(&mutex);
        return captured;
    }

private:
    static LogCapture*& active()
    {
        static LogCapture* capture = nullptr;
        return capture;
    }

    static const char* typeName(QtMsgType type)
    {
        switch (type) {
        case QtDebugMsg:
            return "debug";
        case QtInfoMsg:
            return "info";
        case QtWarningMsg:
            return "warning";
        default:
            return "critical";
        }
    }

    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        LogCapture* const self = active();
        const QMutexLocker lock(&self->mutex);
        self->captured.append(
            QStringLiteral("%1/%2 %3").arg(context.category, typeName(type), text));
    }

    mutable QMutex mutex;
    QStringList captured;
    QtMessageHandler previous;
};
