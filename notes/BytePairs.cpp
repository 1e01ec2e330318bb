// SPDX-License-Identifier: MIT
#include "notes/BytePairs.h"

#include <algorithm>
#include <array>

namespace {

// One step of the scan. The loop over it has no early way out, so that compilers turn it into vector instructions.
constexpr std::size_t blockSize = 64;

// `bytes` holds blockSize + 1 bytes.
bool blockHolds(const char* bytes, std::span<const BytePair> pairs)
{
    std::uint8_t found = 0;
    for (const BytePair pair : pairs) {
        for (std::size_t i = 0; i < blockSize; ++i) {
            const auto first = static_cast<std::uint8_t>(static_cast<std::uint8_t>(bytes[i]) | pair.firstMask);
            const auto second = static_cast<std::uint8_t>(static_cast<std::uint8_t>(bytes[i + 1]) | pair.secondMask);
            found |= static_cast<std::uint8_t>((first == pair.first) & (second == pair.second));
        }
    }
    return found != 0;
}

std::size_t findInBlock(std::string_view text, std::size_t from, std::span<const BytePair> pairs)
{
    const std::size_t end = std::min(text.size(), from + blockSize);
    for (std::size_t at = from; at < end; ++at) {
        if (std::ranges::any_of(pairs, [&](const BytePair& pair) { return pair.fits(text, at); })) {
            return at;
        }
    }
    return std::string_view::npos;
}

} // namespace

bool BytePair::fits(std::string_view text, std::size_t at) const
{
    const int next = at + 1 < text.size() ? static_cast<std::uint8_t>(text[at + 1]) : 0;
    return (static_cast<std::uint8_t>(text[at]) | firstMask) == first && (next | secondMask) == second;
}

std::size_t findBytePair(std::string_view text, std::size_t from, std::span<const BytePair> pairs)
{
    std::size_t at = from;
    for (; at + blockSize < text.size(); at += blockSize) {
        if (blockHolds(text.data() + at, pairs)) {
            if (const std::size_t found = findInBlock(text, at, pairs); found != std::string_view::npos) {
                return found;
            }
        }
    }
    if (at >= text.size()) {
        return std::string_view::npos;
    }
    std::array<char, blockSize + 1> tail{};
    std::ranges::copy(text.substr(at), tail.begin());
    return blockHolds(tail.data(), pairs) ? findInBlock(text, at, pairs) : std::string_view::npos;
}
