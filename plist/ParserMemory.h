// SPDX-License-Identifier: MIT
#pragma once

#include "plist/PageMemory.h"

#include <cstddef>
#include <vector>

/// While one lives, the XML parser takes its memory from it on this thread: a pointer is moved on, nothing is freed,
/// and all of it goes back to the system in the end. (From the heap, a parsed document of tens of megabytes would leave
/// holes among the texts that outlive it.) Only documents that are made and destroyed while it lives may be used
/// meanwhile; other threads are not concerned.
class ParserMemory {
public:
    ParserMemory();
    ParserMemory(const ParserMemory&) = delete;
    ParserMemory& operator=(const ParserMemory&) = delete;
    ~ParserMemory();

    /// `size` bytes that suit every type; null when the system has not as many.
    void* allocate(std::size_t size);

    /// Gives everything allocated out anew. No document may be left.
    void reuse();

private:
    std::vector<PageMemory> m_blocks;
    std::size_t m_used = 0; ///< bytes of the last block
};
