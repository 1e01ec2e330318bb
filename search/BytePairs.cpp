// SPDX-License-Identifier: MIT
#include "search/BytePairs.h"

#include <algorithm>
#include <cstring>

bool BytePair::fits(std::string_view text, std::size_t at) const
{
    const int next = at + 1 < text.size() ? static_cast<std::uint8_t>(text[at + 1]) : 0;
    return (static_cast<std::uint8_t>(text[at]) | firstMask) == first && (next | secondMask) == second;
}

std::size_t BytePairScan::next(std::size_t from)
{
    while (from < m_text.size()) {
        if (from >= m_blockEnd) {
            scanBlock(from);
        }
        const std::uint8_t* begin = m_fits.data() + (from - m_blockBegin);
        if (const void* found = std::memchr(begin, 1, m_blockEnd - from)) {
            return from + static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - begin);
        }
        from = m_blockEnd;
    }
    return std::string_view::npos;
}

void BytePairScan::scanBlock(std::size_t begin)
{
    m_blockBegin = begin;
    m_blockEnd = std::min(m_text.size(), begin + blockSize);
    const char* bytes = m_text.data() + begin;
    std::array<char, blockSize + 1> padded;
    if (m_text.size() - begin < padded.size()) {
        padded.fill('\0');
        std::ranges::copy(m_text.substr(begin), padded.begin());
        bytes = padded.data();
    }
    m_fits.fill(0);
    for (const BytePair pair : m_pairs) {
        // No early exit, so that compilers vectorise the loop.
        for (std::size_t i = 0; i < blockSize; ++i) {
            const auto first = static_cast<std::uint8_t>(static_cast<std::uint8_t>(bytes[i]) | pair.firstMask);
            const auto second = static_cast<std::uint8_t>(static_cast<std::uint8_t>(bytes[i + 1]) | pair.secondMask);
            m_fits[i] |= static_cast<std::uint8_t>((first == pair.first) & (second == pair.second));
        }
    }
}
