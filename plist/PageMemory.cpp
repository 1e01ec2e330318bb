// SPDX-License-Identifier: MIT
#include "plist/PageMemory.h"

#include <memory>
#include <utility>

#include <sys/mman.h>

namespace {

constexpr std::size_t hugePage = std::size_t{1} << 21;

} // namespace

PageMemory::PageMemory(std::size_t size)
{
    const bool isLarge = size >= hugePage;
    std::size_t space = isLarge ? size + hugePage : size;
    void* mapping = ::mmap(nullptr, space, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapping == MAP_FAILED) {
        return;
    }
    m_mapping = mapping;
    m_mappingSize = space;
    m_size = size;
    if (isLarge) {
        std::align(hugePage, size, mapping, space);
        (void)::madvise(mapping, space, MADV_HUGEPAGE); // without huge pages it is merely slower
    }
    m_data = static_cast<char*>(mapping);
}

PageMemory::PageMemory(PageMemory&& other) noexcept
{
    *this = std::move(other);
}

PageMemory& PageMemory::operator=(PageMemory&& other) noexcept
{
    std::swap(m_mapping, other.m_mapping);
    std::swap(m_mappingSize, other.m_mappingSize);
    std::swap(m_data, other.m_data);
    std::swap(m_size, other.m_size);
    return *this;
}

PageMemory::~PageMemory()
{
    if (m_mapping) {
        ::munmap(m_mapping, m_mappingSize);
    }
}
