#pragma once

#include <QAccessible>
#include <QStringList>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <utility>

/// The names that assistive technology is told to have changed, as long as this object lives. As if
/// it were there to listen; the platform of the tests has none.
class Announcements
{
public:
    Announcements() : m_before(QAccessible::installUpdateHandler(note))
    {
        names().clear();
        listen(true);
    }
    ~Announcements()
    {
        listen(false);
        QAccessible::installUpdateHandler(m_before);
    }
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;

    /// The names announced since the last call.
    QStringList take() { return std::exchange(names(), {}); }

private:
    static QStringList& names()
    {
        static QStringList all;
        return all;
    }
    static void note(QAccessibleEvent* event)
    {
        if (event->type() == QAccessible::NameChanged)
            names() << event->accessibleInterface()->text(QAccessible::Name);
    }
    static void listen(bool on)
    {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
    }

    QAccessible::UpdateHandler m_before;
};
