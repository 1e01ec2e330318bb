// SPDX-License-Identifier: MIT
// The other program of the store's tests: "save FOLDER" saves alternating lists until it is killed, "look FOLDER" loads
// the notes again and again until its input ends, and says how often. It fails when a list is not whole.
#include "store/Record.h"
#include "store/SaveQueue.h"
#include "support/FixedClock.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include <poll.h>

namespace {

const std::string notesName(NotesFileName);
constexpr int noteCount = 200;

Table notes(const std::string& text)
{
    Table table;
    for (int i = 0; i < noteCount; ++i) {
        table.append(makeNoteRecord(dateFromUnixSeconds(i), text));
    }
    return table;
}

/// To the test that started this, at once.
void tell(const char* word)
{
    (void)std::puts(word);
    (void)std::fflush(stdout);
}

[[noreturn]] void saveForEver(DataFolder& folder)
{
    SaveQueue queue(folder);
    for (int i = 0;; ++i) {
        queue.save(notes(i % 2 == 0 ? "old" : "new"), notesName);
        queue.waitUntilDone();
        if (i == 0) {
            tell("saving");
        }
    }
}

bool isWhole(const std::optional<Table>& table)
{
    return table && table->size() == noteCount && std::ranges::all_of(*table, [&table](const Value& note) {
               const std::optional<std::string_view> text = textOf(note, NoteDataKey);
               return text && *text == *textOf(table->front(), NoteDataKey);
           });
}

bool inputEnded()
{
    pollfd input{STDIN_FILENO, POLLIN, 0};
    return ::poll(&input, 1, 0) == 1;
}

int look(DataFolder& folder)
{
    int looks = 0;
    do {
        if (!isWhole(folder.loadTable(notesName))) {
            return EXIT_FAILURE;
        }
        if (++looks == 1) {
            tell("looking");
        }
    } while (!inputEnded());
    (void)std::printf("%d\n", looks);
    return EXIT_SUCCESS;
}

} // namespace

int main(int count, char* arguments[])
{
    if (count != 3) {
        return EXIT_FAILURE;
    }
    const FixedClock clock;
    DataFolder folder(std::filesystem::path(arguments[2]), clock);
    if (std::string_view(arguments[1]) == "save") {
        saveForEver(folder);
    }
    return look(folder);
}
