// Saving the notes of a lifetime: the cost to the saving thread, and that of the disk compared with a plain write.
#include "bench/LifetimeNotes.h"
#include "plist/PropertyList.h"
#include "store/Record.h"
#include "store/SaveQueue.h"
#include "support/FixedClock.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include <fcntl.h>
#include <malloc.h>
#include <stdlib.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

const std::string notesName(NotesFileName);

/// A data folder in the working directory, which is on a real disk, unlike most folders for temporary files.
class BenchFolder {
public:
    BenchFolder() = default;
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;
    ~BenchFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }

    const fs::path& path() const { return m_path; }
    DataFolder& data() { return m_data; }

private:
    static fs::path makeFolder()
    {
        std::string name = fs::current_path() / "save-bench-XXXXXX";
        return ::mkdtemp(name.data());
    }

    fs::path m_path = makeFolder();
    FixedClock m_clock;
    DataFolder m_data{m_path, m_clock};
};

/// What the user waits for: the call itself, with no other save waiting.
void handOverSave(benchmark::State& state)
{
    BenchFolder folder;
    SaveQueue queue(folder.data());
    Table table = makeLifetimeNotes();
    for ([[maybe_unused]] auto _ : state) {
        queue.save(table, notesName);
        state.PauseTiming();
        queue.waitUntilDone();
        state.ResumeTiming();
    }
}

/// The same after changing a note, which detaches the table from the former save's snapshot.
void changeNoteAndHandOverSave(benchmark::State& state)
{
    BenchFolder folder;
    SaveQueue queue(folder.data());
    Table table = makeLifetimeNotes();
    for ([[maybe_unused]] auto _ : state) {
        table[lifetimeNotes / 2] = withText(table.at(lifetimeNotes / 2), NoteDataKey, "changed");
        queue.save(table, notesName);
        state.PauseTiming();
        queue.waitUntilDone();
        state.ResumeTiming();
    }
}

/// The worker's whole job.
void writeTable(benchmark::State& state)
{
    BenchFolder folder;
    const Table table = makeLifetimeNotes();
    for ([[maybe_unused]] auto _ : state) {
        if (folder.data().saveTable(table, notesName, Replacing::OwnFile)) {
            state.SkipWithError("not saved");
        }
    }
}

/// The least that any save costs: writing the finished bytes to a new file and syncing it.
void plainWriteAndSync(benchmark::State& state)
{
    const BenchFolder folder;
    const std::string bytes = PropertyList::writeXml(makeLifetimeNotes());
    const fs::path path = folder.path() / "plain";
    for ([[maybe_unused]] auto _ : state) {
        const FileDescriptor file(::open(path.c_str(), O_CREAT | O_WRONLY | O_TRUNC | O_CLOEXEC, 0600));
        if (::write(file.get(), bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) ||
            ::fsync(file.get()) != 0) {
            state.SkipWithError("not written");
        }
    }
}

void loadTable(benchmark::State& state)
{
    BenchFolder folder;
    (void)folder.data().saveTable(makeLifetimeNotes(), notesName, Replacing::OwnFile);
    for ([[maybe_unused]] auto _ : state) {
        std::optional<Table> table = folder.data().loadTable(notesName);
        state.PauseTiming(); // freeing the table is not measured
        if (!table || table->size() != lifetimeNotes) {
            state.SkipWithError("not loaded");
        }
        table.reset();
        malloc_trim(0);
        state.ResumeTiming();
    }
}

BENCHMARK(handOverSave)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(changeNoteAndHandOverSave)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(writeTable)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(plainWriteAndSync)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(loadTable)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
