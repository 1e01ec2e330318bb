// SPDX-License-Identifier: MIT
#include "notes/NoteQueries.h"

#include <algorithm>
#include <compare>
#include <numeric>

namespace {

enum class Kind : std::uint8_t { Missing, DateKind, TextKind, OtherKind };

// What one record is sorted by under one descriptor, taken out once.
struct SortKey {
    Kind kind = Kind::Missing;
    double seconds = 0;
    std::string_view text;
};

SortKey sortKeyOf(const Value& element, const std::string& key)
{
    const Value* value = NoteQueries::valueOf(element, key);
    if (!value) {
        return {};
    }
    if (const Date* date = value->date()) {
        return {Kind::DateKind, unixSeconds(*date), {}};
    }
    if (const std::string* text = value->text()) {
        return {Kind::TextKind, 0, *text};
    }
    return {Kind::OtherKind, 0, {}};
}

// UTF-8 sorts as code points do. UTF-16 differs in one thing: what takes two units (lead bytes from F0) comes before
// U+E000 to U+FFFF (lead bytes EE and EF).
int utf16Rank(char byte)
{
    const auto unit = static_cast<std::uint8_t>(byte);
    return unit == 0xEE || unit == 0xEF ? unit + 0x100 : unit;
}

std::weak_ordering compareTexts(std::string_view a, std::string_view b)
{
    const auto [inA, inB] = std::ranges::mismatch(a, b);
    if (inA == a.end() || inB == b.end()) {
        return a.size() <=> b.size();
    }
    return utf16Rank(*inA) <=> utf16Rank(*inB);
}

std::weak_ordering compare(const SortKey& a, const SortKey& b)
{
    if (a.kind != b.kind) {
        return a.kind <=> b.kind;
    }
    switch (a.kind) {
    case Kind::DateKind:
        return std::weak_order(a.seconds, b.seconds);
    case Kind::TextKind:
        return compareTexts(a.text, b.text);
    default:
        return std::weak_ordering::equivalent;
    }
}

} // namespace

void NoteQueries::sortArrayAscending(Table& table, const std::string& key)
{
    sortArray(table, {{key, SortOrder::Ascending}});
}

void NoteQueries::sortArray(Table& table, const std::vector<SortDescriptor>& descriptors)
{
    const std::size_t width = descriptors.size();
    std::vector<SortKey> keys;
    keys.reserve(static_cast<std::size_t>(table.size()) * width);
    for (const Value& element : std::as_const(table)) {
        for (const SortDescriptor& descriptor : descriptors) {
            keys.push_back(sortKeyOf(element, descriptor.key));
        }
    }
    std::vector<std::size_t> order(static_cast<std::size_t>(table.size()));
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) {
        for (std::size_t i = 0; i < width; ++i) {
            const std::weak_ordering compared = compare(keys[a * width + i], keys[b * width + i]);
            if (compared != 0) {
                return descriptors[i].order == SortOrder::Ascending ? compared < 0 : compared > 0;
            }
        }
        return false;
    });
    Table sorted;
    sorted.reserve(table.size());
    for (const std::size_t index : order) {
        sorted.append(table.at(static_cast<qsizetype>(index)));
    }
    table = sorted;
}
