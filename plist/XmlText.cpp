// SPDX-License-Identifier: MIT
#include "plist/XmlText.h"

#include <cstdint>

namespace PropertyList {

namespace {

/// Whether a byte of a text may need to be escaped or replaced.
constexpr bool needsCare(std::uint8_t byte)
{
    const bool isControl = (byte < 0x20) & (byte != '\t') & (byte != '\n');
    const bool isMarkup = (byte == '&') | (byte == '<') | (byte == '>');
    return isControl | isMarkup | (byte == 0xEF); // U+FFFE and U+FFFF, which XML excludes, begin with 0xEF
}

constexpr std::size_t blockSize = 64;
constexpr std::size_t nearby = 4; ///< bytes checked one by one before a block, because such bytes come in clusters

/// Without branches, so that compilers vectorise it.
bool blockNeedsCare(const char* block)
{
    std::uint8_t found = 0;
    for (std::size_t i = 0; i < blockSize; ++i) {
        found |= static_cast<std::uint8_t>(needsCare(static_cast<std::uint8_t>(block[i])));
    }
    return found != 0;
}

} // namespace

std::size_t findCare(std::string_view text)
{
    std::size_t at = 0;
    for (; at < nearby && at < text.size(); ++at) {
        if (needsCare(static_cast<std::uint8_t>(text[at]))) {
            return at;
        }
    }
    while (at + blockSize <= text.size() && !blockNeedsCare(text.data() + at)) {
        at += blockSize;
    }
    while (at < text.size() && !needsCare(static_cast<std::uint8_t>(text[at]))) {
        ++at;
    }
    return at;
}

} // namespace PropertyList
