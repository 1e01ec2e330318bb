// SPDX-License-Identifier: MIT
#include "bench/LifetimeNotes.h"

#include <array>
#include <random>

namespace {

constexpr double secondsPerDay = 86'400;
constexpr std::size_t leastBytesPerNote = 355; // the line that exceeds it makes about 400
constexpr int notesPerRareWord = 1'000;

constexpr std::array words{
    "the",     "a",       "with",   "morning", "evening", "walk",     "garden",  "letter", "from",  "to",
    "for",     "and",     "Anna",   "Jürgen",  "müde",    "café",     "lunch",   "train",  "river", "rain",
    "sun",     "bought",  "called", "wrote",   "read",    "finished", "started", "about",  "book",  "bread",
    "doctor",  "ten",     "past",   "half",    "schön",   "Käse",     "office",  "late",   "early", "home",
    "weather", "meeting", "dinner", "films",   "bicycle", "of",       "in",      "it",     "was",   "then",
    "after",   "before",  "again",  "happily", "slowly",  "remember", "birthday"};

/// The next word. Taken by the plain remainder, because the standard library's distributions differ between
/// implementations.
const char* anyWord(std::mt19937& random)
{
    return words[random() % words.size()];
}

std::string noteText(std::mt19937& random, bool isRare)
{
    std::string text;
    while (text.size() < leastBytesPerNote) {
        const std::size_t wordsOfLine = 5 + random() % 8;
        for (std::size_t i = 0; i < wordsOfLine; ++i) {
            text.append(anyWord(random)).push_back(' ');
        }
        text.back() = '.';
        text.push_back('\n');
    }
    if (isRare) {
        text.append(rareWord).push_back('.');
    } else {
        text.pop_back();
    }
    return text;
}

} // namespace

Table makeLifetimeNotes(int count)
{
    std::mt19937 random; // with the standard's default seed, so always the same
    Table table;
    table.reserve(count);
    for (int day = 0; day < count; ++day) {
        table.append(Value(Dictionary{{"NoteDateKey", Value(dateFromUnixSeconds(day * secondsPerDay))},
                                      {"NoteDataKey", Value(noteText(random, day % notesPerRareWord == 0))}}));
    }
    return table;
}
