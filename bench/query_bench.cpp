// SPDX-License-Identifier: MIT
#include "bench/LifetimeNotes.h"
#include "dates/Clock.h"
#include "notes/NoteQueries.h"
#include "search/TextSearch.h"
#include "text/TextLines.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr Date someDay = dateFromUnixSeconds(1709208000); // 29 February 2024, 12:00 UTC

constexpr Date firstOfMarch = dateFromUnixSeconds(1709251200); // 1 March 2024, 00:00 UTC

const Table& notes()
{
    static const Table table = makeLifetimeNotes();
    return table;
}

Table shuffledNotes()
{
    Table table = notes();
    std::ranges::shuffle(table, std::mt19937(1));
    return table;
}

void filterMonth(benchmark::State& state)
{
    notes();
    for (auto _ : state) {
        benchmark::DoNotOptimize(NoteQueries::copyArrayOfDatesHavingNotes(notes(), someDay));
    }
}

void filterYear(benchmark::State& state)
{
    notes();
    for (auto _ : state) {
        benchmark::DoNotOptimize(NoteQueries::copyCurrentYearNotes(notes(), 2024));
    }
}

std::vector<Date> daysOfMonth()
{
    std::vector<Date> days;
    for (int day = 0; day < 31; ++day) {
        days.push_back(firstOfMarch + std::chrono::days(day));
    }
    return days;
}

/// The notes of a month's days, looked up day by day.
void lookUpMonthByDay(benchmark::State& state)
{
    const std::vector<Date> days = daysOfMonth();
    for (auto _ : state) {
        for (const Date day : days) {
            benchmark::DoNotOptimize(NoteQueries::doesTVDataHaveDate(notes(), day));
        }
    }
}

void lookUpMonth(benchmark::State& state)
{
    const std::vector<Date> days = daysOfMonth();
    for (auto _ : state) {
        benchmark::DoNotOptimize(NoteQueries::textsOfDates(notes(), days));
    }
}

void sortShuffled(benchmark::State& state, const char* key)
{
    const Table shuffled = shuffledNotes();
    for (auto _ : state) {
        Table table = shuffled;
        NoteQueries::sortArrayAscending(table, key);
        benchmark::DoNotOptimize(table);
    }
}

void makeSearch(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(TextSearch(rareWord, "en_US"));
    }
}

void search(benchmark::State& state, const char* needle)
{
    notes();
    qsizetype found = 0;
    for (auto _ : state) {
        found = NoteQueries::filterNotes(notes(), TextSearch(needle, "en_US")).size();
    }
    state.counters["found"] = static_cast<double>(found);
}

void countLines(benchmark::State& state)
{
    notes();
    std::size_t lines = 0;
    for (auto _ : state) {
        lines = 0;
        for (const Value& note : notes()) {
            lines += countOfLines(*NoteQueries::valueOf(note, "NoteDataKey")->text());
        }
    }
    state.counters["lines"] = static_cast<double>(lines);
}

constexpr auto unit = benchmark::kMillisecond;
BENCHMARK(filterMonth)->Unit(unit);
BENCHMARK(filterYear)->Unit(unit);
BENCHMARK(lookUpMonthByDay)->Unit(unit);
BENCHMARK(lookUpMonth)->Unit(unit);
BENCHMARK_CAPTURE(sortShuffled, date, "NoteDateKey")->Unit(unit);
BENCHMARK_CAPTURE(sortShuffled, text, "NoteDataKey")->Unit(unit);
BENCHMARK(makeSearch)->Unit(unit);
BENCHMARK_CAPTURE(search, rareWord, rareWord)->Unit(unit);
BENCHMARK_CAPTURE(search, umlaut, "ärger")->Unit(unit);
BENCHMARK_CAPTURE(search, umlautBeforeCommonLetter, "für")->Unit(unit);
BENCHMARK_CAPTURE(search, commonWords, "the quick")->Unit(unit);
BENCHMARK_CAPTURE(search, umlautThatIsThere, "JÜRGEN")->Unit(unit);
BENCHMARK_CAPTURE(search, lettersWithManySpellings, "fist")->Unit(unit);
BENCHMARK_CAPTURE(search, sharpS, "straße")->Unit(unit);
BENCHMARK_CAPTURE(search, oneLetter, "e")->Unit(unit);
BENCHMARK_CAPTURE(search, cyrillic, "привет")->Unit(unit);
BENCHMARK_CAPTURE(search, ideographs, "日本")->Unit(unit);
BENCHMARK_CAPTURE(search, hangul, "한국")->Unit(unit);
BENCHMARK(countLines)->Unit(unit);

} // namespace
