// SPDX-License-Identifier: MIT
// Every call of the system that the store makes fails once, with each error that it can have, and then for good.
// Whatever happens, nothing is lost and nothing untrue is told, and the next attempt without a fault succeeds and
// tidies up.
#include "core/store_fixture.h"
#include "faults/FaultShim.h"
#include "store/DataFolder.h"
#include "store/DraftFile.h"
#include "store/PropertyList.h"

#include <cerrno>
#include <functional>

namespace {

namespace fs = std::filesystem;

const std::string notesName = "TALV VeluMora";
constexpr int mostCalls = 1000; // no scenario makes as many

const Table& oldNotes()
{
    static const Table table = notes(3, "old");
    return table;
}

const Table& newNotes()
{
    static const Table table = notes(4, "new");
    return table;
}

std::optional<Table> listIn(const fs::path& file)
{
    return fs::exists(file) ? PropertyList::readTable(bytesOf(file)) : std::nullopt;
}

/// A home of its own with an old list, and what is done to it.
class Scenario {
public:
    virtual ~Scenario() = default;

    virtual void prepare() { saveOld(); }
    virtual void act() = 0;

    /// What must hold although a call failed.
    virtual void checkAfterFault() = 0;

    /// What must hold once it was done again, without a fault.
    virtual void checkAfterSuccess() = 0;

    const fs::path& home() const { return m_home.path(); }
    const std::error_code& error() const { return m_error; }

    void checkNoTemporary() const
    {
        for (const auto& entry : fs::recursive_directory_iterator(home())) {
            EXPECT_EQ(entry.path().native().find(".tmp-"), std::string::npos) << entry.path();
        }
    }

protected:
    fs::path folder() const { return home() / "TALV"; }
    fs::path file() const { return folder() / notesName; }

    /// As another run of the program left it.
    void saveOld() const
    {
        DataFolder former(home(), m_clock);
        ASSERT_FALSE(former.saveTable(oldNotes(), notesName, Replacing::OwnFile));
    }

    void save(const Table& table, Replacing replacing = Replacing::OwnFile)
    {
        m_error = m_folder.saveTable(table, notesName, replacing);
    }

    bool isKept(const Table& table) const
    {
        const std::vector<std::string> names = namesIn(folder() / "Recovered");
        return std::ranges::any_of(names, [&](const std::string& name) {
            return name.find(".tmp-") == std::string::npos && listIn(folder() / "Recovered" / name) == table;
        });
    }

    /// The old list is on the disk, or the new one with the old one kept beside.
    void checkOldOrNew(bool keepsOld) const
    {
        const std::optional<Table> found = listIn(file());
        if (m_error) {
            EXPECT_TRUE(found == oldNotes() || found == newNotes()) << "torn or gone";
        } else {
            EXPECT_EQ(found, newNotes()) << "success was told";
        }
        if (keepsOld && found != oldNotes()) {
            EXPECT_TRUE(isKept(oldNotes())) << "lost";
        }
    }

    TestFolder m_home;
    StillClock m_clock;
    DataFolder m_folder{m_home.path(), m_clock};
    std::error_code m_error;
};

class Load : public Scenario {
    void act() override { m_found = m_folder.loadTable(notesName); }
    void checkAfterFault() override
    {
        EXPECT_TRUE(m_found == std::nullopt || m_found == oldNotes()) << "another list than the disk's";
        EXPECT_EQ(listIn(file()), oldNotes());
    }
    void checkAfterSuccess() override { EXPECT_EQ(m_found, oldNotes()); }

    std::optional<Table> m_found;
};

class FirstSave : public Scenario {
    void prepare() override {}
    void act() override { save(newNotes()); }
    void checkAfterFault() override
    {
        const std::optional<Table> found = listIn(file());
        EXPECT_TRUE(found == newNotes() || (m_error && !fs::exists(file())));
    }
    void checkAfterSuccess() override
    {
        EXPECT_FALSE(m_error);
        EXPECT_EQ(listIn(file()), newNotes());
    }
};

class SaveOverOwn : public Scenario {
    void prepare() override
    {
        saveOld();
        ASSERT_EQ(m_folder.loadTable(notesName), oldNotes());
    }
    void act() override { save(newNotes()); }
    void checkAfterFault() override { checkOldOrNew(false); }
    void checkAfterSuccess() override
    {
        EXPECT_FALSE(m_error);
        EXPECT_EQ(listIn(file()), newNotes());
    }
};

class SaveOverForeign : public Scenario {
public:
    void act() override { save(newNotes()); }
    void checkAfterFault() override { checkOldOrNew(true); }
    void checkAfterSuccess() override
    {
        EXPECT_FALSE(m_error);
        EXPECT_EQ(listIn(file()), newNotes());
        EXPECT_TRUE(isKept(oldNotes()));
    }
};

class SaveThroughLink : public SaveOverForeign {
    void prepare() override
    {
        saveOld();
        fs::create_directory(home() / "elsewhere");
        fs::rename(file(), home() / "elsewhere" / "mine");
        fs::create_symlink(home() / "elsewhere" / "mine", file());
    }
    void checkAfterFault() override
    {
        EXPECT_TRUE(fs::is_symlink(file()));
        SaveOverForeign::checkAfterFault();
    }
};

class Removal : public Scenario {
    void act() override { save({}); }
    void checkAfterFault() override
    {
        EXPECT_TRUE(listIn(file()) == oldNotes() || isKept(oldNotes())) << "lost";
        if (!m_error) {
            EXPECT_FALSE(fs::exists(file()));
        }
    }
    void checkAfterSuccess() override
    {
        EXPECT_FALSE(m_error);
        EXPECT_FALSE(fs::exists(file()));
        EXPECT_TRUE(isKept(oldNotes()));
    }
};

class Import : public SaveOverForeign {
    void prepare() override
    {
        saveOld();
        ASSERT_EQ(m_folder.loadTable(notesName), oldNotes());
    }
    void act() override { save(newNotes(), Replacing::Nothing); }
};

/// Copies are there already; whatever goes wrong, none takes another's place, and no torn one comes.
class CopiesAreThere : public SaveOverForeign {
    void prepare() override
    {
        for (int i = 1; i <= 2; ++i) {
            saveOld();
            DataFolder former(home(), m_clock);
            ASSERT_FALSE(former.saveTable(notes(i, "earlier"), notesName, Replacing::Nothing));
        }
        saveOld();
    }
    void checkAfterFault() override
    {
        SaveOverForeign::checkAfterFault();
        EXPECT_GE(wholeCopies(), 4);
    }
    void checkAfterSuccess() override
    {
        SaveOverForeign::checkAfterSuccess();
        EXPECT_EQ(wholeCopies(), 5);
    }

    int wholeCopies() const
    {
        int copies = 0;
        for (const std::string& name : namesIn(folder() / "Recovered")) {
            if (name.find(".tmp-") == std::string::npos) {
                EXPECT_TRUE(listIn(folder() / "Recovered" / name)) << name << " is torn";
                ++copies;
            }
        }
        return copies;
    }
};

/// A draft of another run is read, and one of this run written.
class DraftIsReplaced : public Scenario {
    static Draft draftOf(const std::string& text)
    {
        return {{DraftChange::Kind::Note, std::nullopt, DatedText{dateFromUnixSeconds(0), text}}};
    }
    fs::path state() const { return home() / "state"; }

    void prepare() override
    {
        DraftFile(state()).write([] { return draftOf("former"); });
    }
    void act() override
    {
        DraftFile run(state());
        const Draft former = run.read();
        m_wasRead = former == draftOf("former") || former == draftOf("both");
        run.write([former] { return draftOf(former.empty() ? "new" : "both"); });
    }
    void checkAfterFault() override
    {
        bool holdsFormer = false;
        for (const std::string& name : namesIn(state())) {
            if (name.find(".tmp-") != std::string::npos) {
                continue;
            }
            const std::optional<Table> table = listIn(state() / name);
            ASSERT_TRUE(table) << name << " is torn";
            const std::optional<Draft> draft = Drafts::draftFromTable(*table);
            holdsFormer = holdsFormer || draft == draftOf("former") || draft == draftOf("both");
        }
        EXPECT_TRUE(holdsFormer) << "lost";
    }
    void checkAfterSuccess() override { checkAfterFault(); }

    bool m_wasRead = false;
};

/// What another program put in the draft's place is not a draft, but not to be lost either.
class DraftIsNone : public Scenario {
    fs::path state() const { return home() / "state"; }

    void prepare() override
    {
        fs::create_directory(state());
        put(state() / "Draft", "of a newer version");
    }
    void act() override
    {
        DraftFile run(state());
        run.read();
        run.write([] { return Draft{{DraftChange::Kind::Note, std::nullopt, DatedText{Date(), "new"}}}; });
    }
    void checkAfterFault() override
    {
        const std::vector<std::string> names = namesIn(state());
        EXPECT_TRUE(std::ranges::any_of(names, [this](const std::string& name) {
            return bytesOf(state() / name) == "of a newer version";
        })) << "lost";
    }
    void checkAfterSuccess() override { checkAfterFault(); }
};

struct Row {
    const char* name;
    std::function<std::unique_ptr<Scenario>()> make;
};

template <typename Kind> Row row(const char* name)
{
    return {name, [] { return std::make_unique<Kind>(); }};
}

const Row rows[] = {
    row<Load>("Load"),
    row<FirstSave>("FirstSave"),
    row<SaveOverOwn>("SaveOverOwn"),
    row<SaveOverForeign>("SaveOverForeign"),
    row<SaveThroughLink>("SaveThroughLink"),
    row<Removal>("Removal"),
    row<Import>("Import"),
    row<CopiesAreThere>("CopiesAreThere"),
    row<DraftIsReplaced>("DraftIsReplaced"),
    row<DraftIsNone>("DraftIsNone"),
};

class EveryFault : public testing::TestWithParam<Row> {
protected:
    /// False when the scenario makes fewer such calls.
    static bool tryFault(const Faults::Plan& plan)
    {
        SCOPED_TRACE(testing::Message() << Faults::nameOf(plan.call) << " number " << plan.number << " fails with "
                                        << plan.error << (plan.forGood ? " for good" : ""));
        const std::unique_ptr<Scenario> scenario = GetParam().make();
        scenario->prepare();
        bool fired = false;
        {
            const Faults::Watch watch(scenario->home(), plan);
            scenario->act();
            fired = watch.hasFired();
        }
        scenario->checkAfterFault();
        scenario->act();
        scenario->checkAfterSuccess();
        scenario->checkNoTemporary();
        return fired;
    }

    /// How many faults there were.
    static int tryAll(Faults::Call call, int error, bool forGood)
    {
        int number = 1;
        while (number < mostCalls && tryFault({call, number, error, forGood}) && !HasFailure()) {
            ++number;
        }
        EXPECT_LT(number, mostCalls);
        return number - 1;
    }
};

TEST_P(EveryFault, LosesNothingAndTellsNothingUntrue)
{
    int faults = 0;
    for (const Faults::Call call : Faults::allCalls()) {
        for (const int error : Faults::errorsOf(call)) {
            for (const bool forGood : {false, true}) {
                faults += tryAll(call, error, forGood);
                if (HasFailure()) {
                    return;
                }
            }
        }
    }
    RecordProperty("faults", faults);
    EXPECT_GT(faults, 100) << "the calls were not seen";
}

/// Who is told of a success must not lose the list when the power fails.
TEST(StoreFaults, ASaveWithoutOneOfItsSyncsIsNone)
{
    std::vector<int> needless;
    int syncs = 0;
    for (bool fired = true; fired; ++syncs) {
        SaveOverForeign scenario;
        scenario.prepare();
        const Faults::Watch watch(scenario.home(), {Faults::Call::Sync, syncs + 1, EIO});
        scenario.act();
        fired = watch.hasFired();
        if (fired && !scenario.error()) {
            needless.push_back(syncs + 1);
        }
    }
    EXPECT_EQ(syncs - 1, 6) << "the list, the new folder of copies, the copy, its name twice, the list's name";
    EXPECT_EQ(needless, std::vector<int>{3}) << "a second name of the old file stands in for the copy";
}

INSTANTIATE_TEST_SUITE_P(Scenarios, EveryFault, testing::ValuesIn(rows),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

} // namespace
