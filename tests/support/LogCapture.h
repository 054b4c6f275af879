#pragma once

#include <QMutex>
#include <QStringList>
#include <QtGlobal>

/// Collects Qt's log lines while it lives, one capture at a time. Make it after the first plugin
/// widget: each widget installs the plugin's own message handler, which discards every line.
class LogCapture
{
public:
    LogCapture() : m_previous(qInstallMessageHandler(&LogCapture::handle)) { active() = this; }
    ~LogCapture()
    {
        active() = nullptr;
        qInstallMessageHandler(m_previous);
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// The lines so far, each as "category/type text", for example "default/debug Error ...".
    QStringList lines() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_captured;
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
        const QMutexLocker lock(&self->m_mutex);
        self->m_captured.append(
            QStringLiteral("%1/%2 %3").arg(context.category, typeName(type), text));
    }

    mutable QMutex m_mutex;
    QStringList m_captured;
    QtMessageHandler m_previous;
};
