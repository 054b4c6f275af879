#pragma once

/// Descriptions whose feature `A` leads Aravis in a circle.
namespace Circles {

/// Adds a row with the nodes of each.
void addAll();

} // namespace Circles
