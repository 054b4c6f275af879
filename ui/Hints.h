#pragma once

#include <QLabel>

/// Keeps the place of a hint free while it is hidden, so that nothing moves under the mouse when it
/// comes and goes.
inline void keepRoomOf(QLabel& hint)
{
    QSizePolicy policy = hint.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    hint.setSizePolicy(policy);
}
