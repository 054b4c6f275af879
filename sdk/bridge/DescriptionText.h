#pragma once

#include <cstddef>

namespace ZalCPP {

/// Whether a description is one document from beginning to end. Aravis opens what comes before a
/// mistake as a smaller camera. Any thread.
bool isWholeDescription(const char* text, std::size_t size);

} // namespace ZalCPP
