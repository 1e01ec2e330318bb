// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Zeroed memory taken straight from the system and given back to it at once, for what is large and short-lived, such
/// as the bytes of a file. From the heap, the bytes of a lifetime's notes would stay with the process
/// (bench/store_bench measures what is kept, bench/process-figures the memory of the running program). Huge pages are
/// used where the system has them, so that there is one page fault for 2 MiB rather than for 4 KiB. Memory that is
/// never touched costs nothing.
class PageMemory {
public:
    PageMemory() = default;

    /// `size` bytes, aligned for every type; none when the system does not have that much.
    explicit PageMemory(std::size_t size);

    PageMemory(const PageMemory&) = delete;
    PageMemory& operator=(const PageMemory&) = delete;
    PageMemory(PageMemory&& other) noexcept;
    PageMemory& operator=(PageMemory&& other) noexcept;
    ~PageMemory();

    /// Null when there is none.
    char* data() const { return m_data; }
    std::size_t size() const { return m_size; }

private:
    void* m_mapping = nullptr;
    std::size_t m_mappingSize = 0;
    char* m_data = nullptr; ///< within the mapping, aligned to a huge page if it is large
    std::size_t m_size = 0;
};
