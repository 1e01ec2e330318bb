// SPDX-License-Identifier: MIT
// The whole program, off-screen, while calls of the system fail: it starts, a note is typed and saved, and it quits.
#include "app/PreferenceKeys.h"
#include "faults/FaultShim.h"
#include "plist/PropertyList.h"
#include "store/Record.h"
#include "support/AppFixture.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

constexpr int mostCalls = 500; // no run makes as many

/// One error stands for all: how each of them is taken is tried at the store itself.
int errorOf(Faults::Call call)
{
    const std::vector<int>& errors = Faults::errorsOf(call);
    return std::ranges::count(errors, EIO) > 0 ? EIO : errors.front();
}

class ProgramFaults : public AppFixture, public testing::WithParamInterface<Faults::Call> {
protected:
    ProgramFaults()
    {
        host.stateFolder = state();
        host.userDefaults.stored.insert(PreferenceKeys::notesCleaned, 1);
    }

    fs::path root() const { return home.path().toStdString(); }
    fs::path state() const { return root() / "state"; }

    /// The texts of the notes that are on the disk, those kept aside counted.
    std::vector<std::string> textsOnDisk()
    {
        std::vector<std::string> texts;
        for (const auto& entry : fs::recursive_directory_iterator(dataFolder())) {
            if (!entry.is_regular_file()) {
                continue;
            }
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes(std::istreambuf_iterator<char>(file), {});
            for (const Value& note : PropertyList::readTable(bytes).value_or(Table())) {
                texts.emplace_back(textOf(note, NoteDataKey).value_or(""));
            }
        }
        return texts;
    }

    /// Types where the list is shown; one that could not be read is not.
    bool type()
    {
        if (shownRows().isEmpty()) {
            return false;
        }
        typeNote(0, QStringLiteral("dentist at nine"));
        return true;
    }

    /// False when a run makes fewer such calls in `folder`.
    bool tryRun(const fs::path& folder, const Faults::Plan& plan)
    {
        SCOPED_TRACE(testing::Message() << Faults::nameOf(plan.call) << " number " << plan.number
                                        << (plan.forGood ? " and all after it" : ""));
        fs::remove_all(state());
        fs::remove_all(dataFolder());
        fs::create_directories(dataFolder());
        putNotes({note(2024, 3, 2, "dentist"), note(2024, 3, 20, "spring")});
        bool fired = false;
        bool isTyped = false;
        {
            const Faults::Watch watch(folder, plan);
            start();
            isTyped = type();
            app->waitForSaves();
            runQueued();
            quit();
            fired = watch.hasFired();
        }
        start();
        if (alert()) {
            answer(Alert::firstButtonReturn); // keeps what was not saved
        }
        app->waitForSaves();
        const std::vector<std::string> texts = textsOnDisk();
        for (const char* text : {isTyped ? "dentist at nine" : "dentist", "spring"}) {
            EXPECT_GT(std::ranges::count(texts, text), 0) << text << " is lost";
        }
        quit();
        return fired;
    }

    int tryAll(const fs::path& folder, bool forGood)
    {
        int number = 1;
        while (number < mostCalls && !HasFailure() &&
               tryRun(folder, {GetParam(), number, errorOf(GetParam()), forGood})) {
            ++number;
        }
        EXPECT_LT(number, mostCalls);
        const bool isMadeAlways = GetParam() != Faults::Call::ReadLink && GetParam() != Faults::Call::MakeFolder &&
                                  GetParam() != Faults::Call::ListFolder && GetParam() != Faults::Call::Link &&
                                  GetParam() != Faults::Call::Unlink && GetParam() != Faults::Call::ChangeMode &&
                                  GetParam() != Faults::Call::ChangeOwner;
        EXPECT_TRUE(number > 1 || !isMadeAlways) << "the calls were not seen";
        return number - 1;
    }
};

TEST_P(ProgramFaults, NoWordIsLostByOne)
{
    RecordProperty("faults", tryAll(root(), false));
}

/// The list cannot be saved any more; what was typed is in the draft.
TEST_P(ProgramFaults, NoWordIsLostByADataFolderThatFailsForGood)
{
    RecordProperty("faults", tryAll(dataFolder(), true));
}

INSTANTIATE_TEST_SUITE_P(Calls, ProgramFaults, testing::ValuesIn([] {
                             std::vector<Faults::Call> calls = Faults::allCalls();
                             std::erase(calls, Faults::Call::Map); // the toolkit's, too
                             return calls;
                         }()),
                         [](const auto& row) {
                             std::string name = Faults::nameOf(row.param);
                             std::erase_if(name,
                                           [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; });
                             return name;
                         });

} // namespace
