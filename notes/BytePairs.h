// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// Two neighbouring bytes to look for. A byte fits when it equals the wanted one after the bits of its mask are set in
/// it: mask 0x20 takes an ASCII letter (wanted in lower case) in both cases, mask 0xFF with 0xFF wanted takes any byte.
struct BytePair {
    std::uint8_t firstMask = 0;
    std::uint8_t first = 0;
    std::uint8_t secondMask = 0;
    std::uint8_t second = 0;

    /// The byte after the end of a text counts as 0.
    bool fits(std::string_view text, std::size_t at) const;
};

/// The first position at or after `from` where one of `pairs` stands in `text`, `std::string_view::npos` when none
/// does. Scans several gigabytes a second for each pair.
std::size_t findBytePair(std::string_view text, std::size_t from, std::span<const BytePair> pairs);
