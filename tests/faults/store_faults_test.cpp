// SPDX-License-Identifier: MIT
// The store's lists while calls of the system fail.
#include "faults/every_fault.h"
#include "store/DataFolder.h"
#include "store/Files.h"
#include "store/SaveQueue.h"
#include "support/AccessList.h"

#include <gmock/gmock.h>

#include <cerrno>

#include <sys/xattr.h>

namespace {

namespace fs = std::filesystem;

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

/// A home with an old list.
class Scenario : public FaultScenario {
public:
    void prepare() override { saveOld(); }

    const std::error_code& error() const { return m_error; }

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

    DataFolder m_folder{home(), m_clock};
    std::error_code m_error;
};

class TableLoad : public Scenario {
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
        fs::permissions(file(), ownersAndReaders);
        ASSERT_EQ(m_folder.loadTable(notesName), oldNotes());
    }
    void act() override { save(newNotes()); }
    void checkAfterFault() override
    {
        checkOldOrNew(false);
        EXPECT_EQ(fs::status(file()).permissions() & ~ownersAndReaders, fs::perms::none) << "others may see more";
    }

    static constexpr fs::perms ownersAndReaders =
        fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
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

/// What the queue could not save it keeps, and its retry saves it.
class Queue : public Scenario {
    void prepare() override
    {
        saveOld();
        ASSERT_EQ(m_folder.loadTable(notesName), oldNotes());
    }
    void act() override
    {
        if (m_wasHandedOver) {
            m_queue.retry();
        } else {
            m_wasHandedOver = true;
            m_queue.save(newNotes(), notesName);
        }
        m_queue.waitUntilDone();
    }
    void checkAfterFault() override
    {
        checkOldOrNew(false);
        EXPECT_EQ(m_queue.unsaved(notesName), m_error ? std::optional(newNotes()) : std::nullopt);
    }
    void checkAfterSuccess() override
    {
        EXPECT_FALSE(m_error);
        EXPECT_FALSE(m_queue.unsaved(notesName));
        EXPECT_EQ(listIn(file()), newNotes());
    }

    bool m_wasHandedOver = false;
    SaveQueue m_queue{m_folder, [this](const SaveResult& result) { m_error = result.error; }};
};

/// Copies are there already; whatever goes wrong, none takes another's place, and no torn one comes.
class CopiesAreThere : public SaveOverForeign {
    void prepare() override
    {
        for (int i = 1; i <= 3; ++i) {
            saveOld();
            DataFolder former(home(), m_clock);
            ASSERT_FALSE(former.saveTable(notes(i, "earlier"), notesName, Replacing::Nothing));
        }
        saveOld();
    }
    void checkAfterFault() override
    {
        SaveOverForeign::checkAfterFault();
        EXPECT_GE(wholeCopies(), 4); // the oldest goes when there are too many
    }
    void checkAfterSuccess() override
    {
        SaveOverForeign::checkAfterSuccess();
        EXPECT_THAT(wholeCopies(), testing::AnyOf(5, 6)); // the oldest stays where it could not be removed
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

const FaultRow storeScenarios[] = {
    faultRow<TableLoad>("Load"),
    faultRow<FirstSave>("FirstSave"),
    faultRow<SaveOverOwn>("SaveOverOwn"),
    faultRow<SaveOverForeign>("SaveOverForeign"),
    faultRow<SaveThroughLink>("SaveThroughLink"),
    faultRow<Removal>("Removal"),
    faultRow<Import>("Import"),
    faultRow<Queue>("Queue"),
    faultRow<CopiesAreThere>("CopiesAreThere"),
};

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

/// Without an access list its mask would stand for the group's permissions.
TEST(StoreFaults, AnAttributeThatCannotBeKeptIsNotMadeUpAndAnAccessListLetsNobodyElseIn)
{
    const std::string list = accessListFor(12346);
    std::vector<int> errors = Faults::errorsOf(Faults::Call::Attribute);
    errors.push_back(EACCES);
    std::erase(errors, ENOTSUP); // says that there are none
    int faults = 0;
    for (const int error : errors) {
        bool fired = true;
        for (int number = 1; fired; ++number) {
            SaveOverForeign scenario;
            scenario.prepare();
            const fs::path file = scenario.home() / "TALV" / notesName;
            if (::setxattr(file.c_str(), "user.xdg.tags", "diary", 5, 0) != 0 ||
                ::setxattr(file.c_str(), accessList, list.data(), list.size(), 0) != 0) {
                GTEST_SKIP() << "the file system under " << scenario.home() << " has no attributes or access lists";
            }
            {
                const Faults::Watch watch(scenario.home(), {Faults::Call::Attribute, number, error});
                scenario.act();
                fired = watch.hasFired();
            }
            EXPECT_TRUE(attribute(file, "user.xdg.tags") == "diary" ||
                        ::getxattr(file.c_str(), "user.xdg.tags", nullptr, 0) < 0)
                << number << ' ' << error;
            const fs::perms others = fs::status(file).permissions() & (fs::perms::group_all | fs::perms::others_all);
            EXPECT_TRUE(attribute(file, accessList) == list || others == fs::perms::none) << number << ' ' << error;
            EXPECT_TRUE(fired || others == fs::perms::group_read) << "kept where nothing failed";
            faults += fired ? 1 : 0;
        }
    }
    EXPECT_GT(faults, 30);
}

TEST(StoreFaults, ATemporaryFileThatCannotBeAskedForGoesAtOnce)
{
    const TestFolder home;
    {
        const Faults::Watch watch(home.path(), {Faults::Call::Status, 1, EIO});
        TemporaryFile file(home.path() / "target");
        EXPECT_EQ(file.write("x"), std::errc::io_error);
    }
    EXPECT_TRUE(namesIn(home.path()).empty());
}

/// A disk that can only be read says so also where nothing is to be done.
TEST(StoreFaults, WhereNothingIsToBeDoneAReadOnlyDiskIsNoFailure)
{
    const TestFolder home;
    const FixedClock clock(storeTime);
    DataFolder folder(home.path(), clock);
    {
        const Faults::Watch watch(home.path(), {.call = Faults::Call::MakeFolder, .error = EROFS, .forGood = true});
        EXPECT_FALSE(folder.saveTable({}, notesName, Replacing::OwnFile)) << "there is no folder, and no need of one";
        EXPECT_TRUE(folder.saveTable(newNotes(), notesName, Replacing::OwnFile));
    }
    fs::create_directory(*folder.url());
    {
        const Faults::Watch watch(home.path(), {.call = Faults::Call::Unlink, .error = EROFS, .forGood = true});
        EXPECT_FALSE(folder.saveTable({}, notesName, Replacing::OwnFile)) << "there is no file";
    }
    {
        const Faults::Watch watch(home.path(), {.call = Faults::Call::MakeFolder, .error = EROFS, .forGood = true});
        EXPECT_FALSE(folder.saveTable(newNotes(), notesName, Replacing::OwnFile)) << "the folder is there";
    }
    EXPECT_EQ(listIn(*folder.fileUrl(notesName)), newNotes());
}

INSTANTIATE_TEST_SUITE_P(Store, EveryFault, testing::ValuesIn(storeScenarios), nameOfFaultRow);

} // namespace
