#pragma once

#include <QMap>
#include <QString>

/// Where a description has to have a register.
struct DescribedRegister
{
    quint64 address = 0;
    quint64 step = 0; ///< From one entry of its selector to the next; 0 where it has none.
};

/// What the simulated camera works with, by the names of the nodes in its descriptions.
const QMap<QString, DescribedRegister>& describedRegisters();
