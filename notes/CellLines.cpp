// SPDX-License-Identifier: MIT
#include "notes/CellLines.h"

#include <algorithm>

namespace {

qsizetype lineEnd(QStringView text, qsizetype from)
{
    const char16_t* const begin = text.utf16();
    const char16_t* const end = begin + text.size();
    return std::find_if(begin + from, end, CellLines::isSeparator) - begin;
}

} // namespace

int CellLines::count(QStringView text)
{
    const char16_t* const begin = text.utf16();
    return 1 + static_cast<int>(std::count_if(begin, begin + text.size(), isSeparator));
}

std::vector<QStringView> CellLines::slice(QStringView text, int first, int limit)
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

QStringView CellLines::cut(QStringView line, qsizetype maximum)
{
    if (line.size() <= maximum) {
        return line;
    }
    const bool splitsPair = maximum > 0 && line[maximum - 1].isHighSurrogate();
    return line.first(splitsPair ? maximum - 1 : maximum);
}
