#pragma once

#include "tests/faults/Portrait.h"

#include <QByteArray>
#include <QHash>
#include <QSet>

#include <functional>

namespace Faults {

/// What sessions know of those before them. Many leave the camera in the same state, and making
/// forms is what takes longest.
class Gallery
{
public:
    /// The portrait for that state. `make` makes it where it is not known yet, in a copy of this
    /// process, so that the form leaves no trace.
    Portrait portraitFor(const QByteArray& state, const std::function<Portrait()>& make);

    /// Whether a session has come this way before. From now on one has.
    bool isTrodden(const QByteArray& way);

    /// What was learnt since the last call, for another gallery.
    QByteArray takeNews();
    void learn(const QByteArray& news);

private:
    QHash<QByteArray, Portrait> m_known;
    QHash<QByteArray, Portrait> m_made; ///< Since the last news.
    QSet<QByteArray> m_ways;
    QSet<QByteArray> m_newWays;
};

} // namespace Faults
