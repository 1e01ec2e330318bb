// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Memory straight from the system, zeroed, which goes back to it at once: for what is large and soon thrown away,
/// such as the bytes of a file: from the heap, those of a lifetime's notes stay with the process (bench/store_bench
/// counts what is kept, bench/process-figures what the program has in the end). It is in huge pages where the system
/// gives them, so that touching it costs a page fault for 2 MiB instead of for 4 KiB; what is never touched costs
/// nothing.
class PageMemory {
public:
    PageMemory() = default;

    /// At least `size` bytes, at an address that suits every type; none when the system has not as many.
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
    char* m_data = nullptr; ///< in the mapping, where a huge page can begin
    std::size_t m_size = 0;
};
