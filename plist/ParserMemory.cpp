// SPDX-License-Identifier: MIT
#include "plist/ParserMemory.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

thread_local ParserMemory* current = nullptr;

void* allocateForParser(std::size_t size)
{
    return current ? current->allocate(size) : std::malloc(size);
}

void freeForParser(void* memory)
{
    if (!current) {
        std::free(memory);
    }
}

} // namespace

ParserMemory::ParserMemory()
{
    // The parser's functions are set once for the whole process; they work as its own do where no ParserMemory lives.
    [[maybe_unused]] static const bool areSet = [] {
        pugi::set_memory_management_functions(&allocateForParser, &freeForParser);
        return true;
    }();
    current = this;
}

ParserMemory::~ParserMemory()
{
    current = nullptr;
}

void* ParserMemory::allocate(std::size_t size)
{
    constexpr std::size_t alignment = alignof(std::max_align_t);
    const std::size_t space = (size + alignment - 1) / alignment * alignment;
    if (m_blocks.empty() || m_blocks.back().size() - m_used < space) {
        constexpr std::size_t blockSize = std::size_t{16} << 20;
        PageMemory block(std::max(space, blockSize));
        if (!block.data()) {
            return nullptr;
        }
        m_blocks.push_back(std::move(block));
        m_used = 0;
    }
    return m_blocks.back().data() + std::exchange(m_used, m_used + space);
}

void ParserMemory::reuse()
{
    if (m_blocks.size() > 1) {
        m_blocks.erase(m_blocks.begin(), m_blocks.end() - 1);
    }
    m_used = 0;
}
