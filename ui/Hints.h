#pragma once

#include <QLabel>

/// The hints of the forms: labels that come and go with the state of the camera. GUI thread only.
namespace Hints {

/// Keeps the place of a hint free while it is hidden, so that nothing moves under the mouse when it
/// comes and goes.
inline void keepRoomOf(QLabel& hint)
{
    QSizePolicy policy = hint.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    hint.setSizePolicy(policy);
}

/// Gives the hint its blue, by whether it stands on a dark window.
inline void colour(QLabel& hint, bool onDark)
{
    hint.setStyleSheet(onDark ? QStringLiteral("color: rgba(56,111,251,255);")
                              : QStringLiteral("color: rgba(50,95,201,255);"));
}

} // namespace Hints
