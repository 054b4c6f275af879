#pragma once

#include "tests/support/GvcpProxy.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

/// Applies the presets of the simulated model `full` over a network that loses datagrams, and tells
/// whether the camera is right afterwards, as its own registers say: they hold every feature under
/// every entry of every selector. Right is what an undisturbed application of the same preset makes
/// of the same camera.
class PresetLoss
{
public:
    enum Outcome
    {
        Right,
        RightWithLine, ///< "Line": the user was told that something failed.
        WrongWithLine,
        WrongSilently,
        OutcomeCount
    };

    struct Result
    {
        Outcome outcome = WrongSilently;
        GvcpProxy::Counts datagrams; ///< While the preset was applied.
        qint64 milliseconds = 0;
        QString preset;
        QString lines;
        QStringList differences; ///< "register: right, wrong".
    };

    /// With the presets from `applicationDir`/plugins. Applies each of them undisturbed first; an
    /// empty `problem` says that this went well.
    explicit PresetLoss(const QString& applicationDir);

    /// The application of that number: the presets take turns, each on a fresh camera that has the
    /// preset before it in the box.
    Result apply(int number, double loss);

    QString problem;

private:
    using Registers = std::vector<std::uint32_t>;

    struct Run
    {
        Registers registers;
        Result result;
        QString problem;
    };

    Run runOnce(int number, const GvcpProxy::Weather& weather) const;
    Run run(int number, const GvcpProxy::Weather& weather) const;
    void listPresets();
    void learn(int number);

    QString m_applicationDir;
    QStringList m_presets;
    QMap<QString, Registers> m_right;
};
