#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// The folder of a host application with the presets files that a test puts there.
class PresetFolder
{
public:
    PresetFolder() { QDir(m_folder.path()).mkdir(QStringLiteral("plugins")); }

    QString path() const { return m_folder.path(); }

    void put(const QString& name, const QByteArray& content) const
    {
        QFile file(m_folder.path() + QStringLiteral("/plugins/") + name);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qUtf8Printable(file.fileName()));
    }

    void putGeneric(const QByteArray& content) const
    {
        put(QStringLiteral("AdvTrigger_Presets.json"), content);
    }

private:
    QTemporaryDir m_folder;
};
