#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace ZalCPP {

/// Whether a description is one document from beginning to end. Aravis opens what comes before a
/// mistake as a smaller camera. Any thread.
bool isWholeDescription(const char* text, std::size_t size);

/// A register whose place follows an index, in steps that another node tells.
struct IndexOffset
{
    std::string registerName; ///< Of a structure, the name of one of its parts.
    std::string offsetName;
};

/// All of them that the description has. Aravis goes by the attribute, but does not tell it. Any
/// thread.
std::vector<IndexOffset> indexOffsetsOf(const char* text, std::size_t size);

} // namespace ZalCPP
