// SPDX-License-Identifier: MIT
#include "notes/NoteQueries.h"

#include <algorithm>
#include <bit>
#include <compare>

namespace {

enum class Kind : std::uint8_t { Missing, DateKind, TextKind, OtherKind };

/// What one record is sorted by under one descriptor, extracted once. Of two values of one kind the one with the
/// smaller prefix comes first; texts with equal prefixes are compared as a whole.
struct SortKey {
    Kind kind = Kind::Missing;
    std::uint64_t prefix = 0;
    std::string_view text;
};

/// Increases with the date.
std::uint64_t prefixOf(Date date)
{
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    const auto bits = std::bit_cast<std::uint64_t>(unixSeconds(date));
    return (bits & sign) != 0 ? ~bits : bits | sign;
}

/// UTF-8 sorts by code point. UTF-16 differs in one respect: characters of two units (lead bytes from F0) come before
/// U+E000 to U+FFFF (lead bytes EE and EF).
std::uint8_t utf16Rank(char byte)
{
    const auto unit = static_cast<std::uint8_t>(byte);
    if (unit < 0xEE) {
        return unit;
    }
    return static_cast<std::uint8_t>(unit < 0xF0 ? unit + 0x10 : unit - 2);
}

std::uint64_t prefixOf(std::string_view text)
{
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < sizeof prefix; ++i) {
        prefix = prefix << 8 | (i < text.size() ? utf16Rank(text[i]) : 0U);
    }
    return prefix;
}

SortKey sortKeyOf(const Value& element, const std::string& key)
{
    const Value* record = NoteQueries::recordOf(element);
    if (!record) {
        return {};
    }
    const DictionaryView dictionary = record->dictionary();
    if (const std::optional<Date> date = dictionary.date(key)) {
        return {Kind::DateKind, prefixOf(*date), {}};
    }
    if (const std::optional<std::string_view> text = dictionary.text(key)) {
        return {Kind::TextKind, prefixOf(*text), *text};
    }
    return {dictionary.find(key) ? Kind::OtherKind : Kind::Missing, 0, {}};
}

std::strong_ordering compareTexts(std::string_view a, std::string_view b)
{
    const auto [inA, inB] = std::ranges::mismatch(a, b);
    if (inA == a.end() || inB == b.end()) {
        return a.size() <=> b.size();
    }
    return utf16Rank(*inA) <=> utf16Rank(*inB);
}

std::strong_ordering compare(const SortKey& a, const SortKey& b)
{
    if (const auto kinds = a.kind <=> b.kind; std::is_neq(kinds)) {
        return kinds;
    }
    if (const auto prefixes = a.prefix <=> b.prefix; std::is_neq(prefixes)) {
        return prefixes;
    }
    return compareTexts(a.text, b.text);
}

/// The first key is stored in the row that is moved while sorting, so that most comparisons need nothing else.
struct Row {
    SortKey first;
    qsizetype index;
};

} // namespace

void NoteQueries::sortArrayAscending(Table& table, const std::string& key)
{
    sortArray(table, {{key, SortOrder::Ascending}});
}

void NoteQueries::sortArray(Table& table, const std::vector<SortDescriptor>& descriptors)
{
    if (descriptors.empty()) {
        return;
    }
    const Table& unsorted = table;
    std::vector<Row> rows;
    rows.reserve(static_cast<std::size_t>(unsorted.size()));
    for (qsizetype index = 0; index < unsorted.size(); ++index) {
        rows.push_back({sortKeyOf(unsorted.at(index), descriptors.front().key), index});
    }
    const auto comesBefore = [&](const Row& a, const Row& b) {
        std::strong_ordering compared = compare(a.first, b.first);
        auto descriptor = descriptors.begin();
        while (std::is_eq(compared) && ++descriptor != descriptors.end()) {
            compared = compare(sortKeyOf(unsorted.at(a.index), descriptor->key),
                               sortKeyOf(unsorted.at(b.index), descriptor->key));
        }
        if (std::is_eq(compared)) {
            return false;
        }
        return descriptor->order == SortOrder::Ascending ? std::is_lt(compared) : std::is_gt(compared);
    };
    std::ranges::stable_sort(rows, comesBefore);
    Table sorted;
    sorted.reserve(unsorted.size());
    for (const Row& row : rows) {
        sorted.append(unsorted.at(row.index));
    }
    table = sorted;
}
