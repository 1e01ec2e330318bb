// SPDX-License-Identifier: MIT
#include "fuzz/Failure.h"
#include "notes/NoteQueries.h"
#include "search/TextFolding.h"
#include "search/TextSearch.h"
#include "store/Record.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::string_view separator = "\n-\n";

/// Removes the part up to the next separator, and the separator, from `rest`; returns the part.
std::string_view takePart(std::string_view& rest)
{
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + separator.size(), rest.size()));
    return part;
}

Value noteOf(std::string_view text, int second)
{
    return Value(Dictionary{{std::string(NoteDateKey), Value(dateFromUnixSeconds(second))},
                            {std::string(NoteDataKey), Value(std::string(text))}});
}

} // namespace

/// An input is "tr_TR" or another locale, the text to search for, and notes, divided by separators. The search must
/// find the same notes as the definition.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string input(data, data + size);
    std::string_view rest = input;
    const std::string locale = takePart(rest) == "tr_TR" ? "tr_TR" : "en_US";
    const std::string needle(takePart(rest));

    const Folding folding = foldingForLocale(locale);
    const icu::UnicodeString folded = foldedText(icu::UnicodeString::fromUTF8(needle), folding);
    Table notes;
    Table expected;
    while (!rest.empty()) {
        const std::string_view text = takePart(rest);
        notes.append(noteOf(text, static_cast<int>(notes.size())));
        if (containsFolded(text, folded, folding)) {
            expected.append(notes.back());
        }
    }
    if (NoteQueries::filterNotes(notes, TextSearch(needle, locale)) != expected) {
        fail("the search and the definition find different notes");
    }
    return 0;
}
