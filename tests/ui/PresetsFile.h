#pragma once

#include "tests/support/FakeCamera.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <memory>

/// The presets of one camera family, in the program's folder of plugins until destroyed. The family
/// has the program's name, so that programs running side by side do not see each other's.
class PresetsFile
{
public:
    explicit PresetsFile(const QByteArray& content)
        : m_file(QCoreApplication::applicationDirPath() + "/plugins/AdvTrigger_" +
                 QString(family()).remove(' ') + "_Presets.json")
    {
        QDir(QCoreApplication::applicationDirPath()).mkpath("plugins");
        if (!m_file.open(QIODevice::WriteOnly) || m_file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(m_file.fileName()));
        m_file.close();
    }
    ~PresetsFile() { m_file.remove(); }

    static QString family() { return "Family " + QCoreApplication::applicationName(); }

    /// Four presets, each of which sets the trigger's delay to its index times 100.
    static QByteArray fourPresets()
    {
        return R"({"#presets": ["Custom", "Hundred", "Two Hundred", "Three Hundred"],
                   "Custom": {},
                   "Hundred": {"TriggerDelay": {"#value": 100}},
                   "Two Hundred": {"TriggerDelay": {"#value": 200}},
                   "Three Hundred": {"TriggerDelay": {"#value": 300}}})";
    }

private:
    QFile m_file;
};

inline std::unique_ptr<Fake::FakeCamera> cameraOfPresetFamily()
{
    auto camera = Fake::FakeCamera::standard();
    (*camera)["DeviceFamilyName"].state().text = PresetsFile::family().toStdString();
    return camera;
}
