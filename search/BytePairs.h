// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// Two neighbouring bytes to look for. A byte fits when it equals the wanted one after its mask's bits are set in it:
/// mask 0x20 accepts an ASCII letter (wanted in lower case) in either case; mask 0xFF with 0xFF wanted accepts any
/// byte.
struct BytePair {
    std::uint8_t firstMask = 0;
    std::uint8_t first = 0;
    std::uint8_t secondMask = 0;
    std::uint8_t second = 0;

    /// Whether the pair is at `at`, which must be less than the size of `text`. The byte after the end counts as 0.
    bool fits(std::string_view text, std::size_t at) const;
};

/// Finds every position of a text at which one of several pairs occurs. Scans some gigabytes a second for each pair.
class BytePairScan {
public:
    /// The text and the pairs must outlive the scan.
    BytePairScan(std::string_view text, std::span<const BytePair> pairs) : m_text(text), m_pairs(pairs) {}

    /// The first such position at or after `from`; `std::string_view::npos` when there is none. `from` must not
    /// decrease from one call to the next.
    std::size_t next(std::size_t from);

private:
    static constexpr std::size_t blockSize = 128;

    void scanBlock(std::size_t begin);

    std::string_view m_text;
    std::span<const BytePair> m_pairs;
    std::size_t m_blockBegin = 0;
    std::size_t m_blockEnd = 0;
    std::array<std::uint8_t, blockSize> m_fits; // 1 for each byte of the block where a pair stands, else 0
};
