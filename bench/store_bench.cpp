// Reading and writing the notes of a lifetime, compared with a bare parse of the same bytes.
#include "bench/LifetimeNotes.h"
#include "plist/PageMemory.h"
#include "plist/PropertyList.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <algorithm>
#include <fstream>
#include <optional>

#include <malloc.h>
#include <unistd.h>

namespace {

const std::string& lifetimeXml()
{
    static const std::string xml = PropertyList::writeXml(makeLifetimeNotes());
    return xml;
}

/// The resident memory of this process, in MB.
double residentMegabytes()
{
    std::ifstream statistics("/proc/self/statm");
    double total = 0;
    double resident = 0;
    statistics >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

void bareParse(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        std::string bytes = lifetimeXml();
        pugi::xml_document document;
        state.ResumeTiming();
        const auto result = document.load_buffer_inplace(
            bytes.data(), bytes.size(), pugi::parse_escapes | pugi::parse_cdata | pugi::parse_ws_pcdata);
        if (!result) {
            state.SkipWithError("not parsed");
        }
    }
}

void readTable(benchmark::State& state)
{
    double growth = 0;
    lifetimeXml();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming(); // reading the file and freeing the table are not measured
        const double before = residentMegabytes();
        std::optional<PageMemory> bytes(lifetimeXml().size());
        std::ranges::copy(lifetimeXml(), bytes->data());
        state.ResumeTiming();
        std::optional<Table> table = PropertyList::readTableInPlace({bytes->data(), bytes->size()});
        state.PauseTiming();
        bytes.reset();
        growth = residentMegabytes() - before;
        if (!table || table->size() != lifetimeNotes) {
            state.SkipWithError("not read");
        }
        table.reset();
        malloc_trim(0);
        state.ResumeTiming();
    }
    state.counters["MB kept"] = growth;
}

void writeXml(benchmark::State& state)
{
    const Table table = makeLifetimeNotes();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(PropertyList::writeXml(table));
    }
}

BENCHMARK(bareParse)->Unit(benchmark::kMillisecond);
BENCHMARK(readTable)->Unit(benchmark::kMillisecond);
BENCHMARK(writeXml)->Unit(benchmark::kMillisecond);

} // namespace
