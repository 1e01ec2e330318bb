// SPDX-License-Identifier: MIT
#include "text/TextLines.h"

#include <algorithm>
#include <cstdint>

namespace {

std::uint8_t byteAt(const char* bytes, std::size_t at)
{
    return static_cast<std::uint8_t>(bytes[at]);
}

/// The number of newlines that begin within [0, count) of `bytes`; two more bytes must be readable after them. Written
/// without branches so that compilers vectorise it; `count` is at most 255, so that the sum fits a byte.
std::size_t newlinesIn(const char* bytes, std::size_t count)
{
    std::uint8_t found = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t first = byteAt(bytes, i);
        const std::uint8_t second = byteAt(bytes, i + 1);
        const std::uint8_t third = byteAt(bytes, i + 2);
        const bool ascii = static_cast<std::uint8_t>(first - 0x0A) <= 3;
        const bool nextLine = (first == 0xC2) & (second == 0x85);
        const bool separator = (first == 0xE2) & (second == 0x80) & ((third & 0xFE) == 0xA8);
        found = static_cast<std::uint8_t>(found + (ascii | nextLine | separator));
    }
    return found;
}

qsizetype lineEnd(QStringView text, qsizetype from)
{
    const char16_t* const begin = text.utf16();
    return std::find_if(begin + from, begin + text.size(), isNewline) - begin;
}

} // namespace

std::size_t countOfLines(std::string_view utf8)
{
    constexpr std::size_t blockSize = 128;
    std::size_t lines = 1;
    std::size_t at = 0;
    for (; at + blockSize + 2 <= utf8.size(); at += blockSize) {
        lines += newlinesIn(utf8.data() + at, blockSize);
    }
    char tail[blockSize + 4] = {};
    const std::string_view rest = utf8.substr(at);
    std::ranges::copy(rest, tail);
    return lines + newlinesIn(tail, rest.size());
}

std::vector<QStringView> linesOf(QStringView text, int first, int limit)
{
    std::vector<QStringView> lines;
    qsizetype start = 0;
    for (int line = 0; line - first < limit && start <= text.size(); ++line) {
        const qsizetype end = lineEnd(text, start);
        if (line >= first) {
            lines.push_back(text.sliced(start, end - start));
        }
        start = end + 1;
    }
    return lines;
}

QString withLineFeeds(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    std::ranges::replace_if(
        text, [](QChar character) { return isNewline(character.unicode()); }, QChar(u'\n'));
    return text;
}
