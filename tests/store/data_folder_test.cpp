// SPDX-License-Identifier: MIT
#include "store/DataFolder.h"
#include "store/FileStamp.h"
#include "store/store_fixture.h"

#include <array>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr const char* oneNote = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<array>
	<dict>
		<key>NoteDataKey</key>
		<string>Zahnarzt ä</string>
		<key>NoteDateKey</key>
		<date>2026-11-21T05:00:00Z</date>
	</dict>
</array>
</plist>
)";

// The same, written by Python's plistlib in the binary form.
std::string oneNoteBinary()
{
    constexpr std::string_view hex =
        "62706c6973743030a101d2020304055b4e6f7465446174614b65795b4e6f7465446174654b65796a005a00610068006e00610072007a00"
        "74002000e43341c858ae68000000080a0f1b273c0000000000000101000000000000000600000000000000000000000000000045";
    std::string bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        bytes.push_back(static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16)));
    }
    return bytes;
}

class DataFolderTest : public testing::Test {
protected:
    fs::path folderPath() const { return m_home.path() / "TALV"; }
    fs::path notesFile() const { return folderPath() / notesName; }
    fs::path recovered() const { return folderPath() / "Recovered"; }
    std::error_code save(const std::optional<Table>& table, const std::string& name = notesName)
    {
        return m_folder.saveTable(table, name, Replacing::OwnFile);
    }

    TestFolder m_home;
    FixedClock m_clock{storeTime};
    DataFolder m_folder{m_home.path(), m_clock};
};

TEST_F(DataFolderTest, LiesInTheApplicationSupportFolder)
{
    const DataFolder folder(fs::path("/home/ada/.local/share"), m_clock);
    EXPECT_EQ(folder.url(), fs::path("/home/ada/.local/share/TALV"));
    EXPECT_EQ(folder.fileUrl("TALV VeluMora"), fs::path("/home/ada/.local/share/TALV/TALV VeluMora"));
    EXPECT_EQ(folder.fileUrl("TALV Events"), fs::path("/home/ada/.local/share/TALV/TALV Events"));
}

TEST_F(DataFolderTest, WithoutApplicationSupportThereIsNoFolderAnEmptyTableAndNoSave)
{
    DataFolder folder(std::nullopt, m_clock);
    EXPECT_EQ(folder.url(), std::nullopt);
    EXPECT_EQ(folder.fileUrl(notesName), std::nullopt);
    EXPECT_EQ(folder.ensure(), std::nullopt);
    EXPECT_EQ(folder.loadTable(notesName), Table());
    EXPECT_TRUE(folder.saveTable(notes(1, "x"), notesName, Replacing::OwnFile));
    EXPECT_TRUE(folder.saveTable(Table(), notesName, Replacing::OwnFile));
}

TEST_F(DataFolderTest, IsMadeForTheUserAloneWhateverTheMask)
{
    const mode_t mask = ::umask(0);
    EXPECT_EQ(m_folder.ensure(), folderPath());
    EXPECT_FALSE(save(notes(1, "x")));
    ::umask(mask);
    EXPECT_EQ(modeOf(folderPath()), 0700U);
    EXPECT_EQ(modeOf(notesFile()), 0600U);
}

TEST_F(DataFolderTest, OnlyTheLastComponentIsMade)
{
    DataFolder folder(m_home.path() / "missing", m_clock);
    EXPECT_EQ(folder.ensure(), m_home.path() / "missing" / "TALV");
    EXPECT_FALSE(fs::exists(m_home.path() / "missing"));
    EXPECT_EQ(folder.loadTable(notesName), Table());
    EXPECT_TRUE(folder.saveTable(notes(1, "x"), notesName, Replacing::OwnFile));
}

TEST_F(DataFolderTest, AFolderThatIsThereKeepsItsContents)
{
    fs::create_directory(folderPath());
    put(folderPath() / "mine", "mine");
    EXPECT_EQ(m_folder.ensure(), folderPath());
    EXPECT_EQ(bytesOf(folderPath() / "mine"), "mine");
}

TEST_F(DataFolderTest, AFileInPlaceOfTheFolderIsLeftAlone)
{
    put(folderPath(), "a file");
    EXPECT_EQ(m_folder.ensure(), folderPath());
    EXPECT_EQ(m_folder.loadTable(notesName), Table());
    EXPECT_TRUE(save(notes(1, "x")));
    EXPECT_EQ(bytesOf(folderPath()), "a file");
}

TEST_F(DataFolderTest, AnAbsentFileIsAnEmptyTable)
{
    EXPECT_EQ(m_folder.loadTable(notesName), Table());
    EXPECT_TRUE(fs::is_directory(folderPath()));
}

TEST_F(DataFolderTest, BothFormsOfPropertyListsAreLoaded)
{
    m_folder.ensure();
    const Table expected{makeNoteRecord(dateFromUnixSeconds(1795237200), "Zahnarzt ä")}; // by Python's datetime
    put(notesFile(), oneNote);
    EXPECT_EQ(m_folder.loadTable(notesName), expected);
    put(notesFile(), oneNoteBinary());
    EXPECT_EQ(m_folder.loadTable(notesName), expected);
}

TEST_F(DataFolderTest, AnEmptyArrayIsAnEmptyTable)
{
    m_folder.ensure();
    put(notesFile(), "<plist version=\"1.0\"><array/></plist>");
    EXPECT_EQ(m_folder.loadTable(notesName), Table());
}

TEST_F(DataFolderTest, WhatIsNoArrayIsNoTable)
{
    m_folder.ensure();
    const std::string rows[] = {
        "",
        "a note",
        std::string(4096, '\0'),
        "bplist00",
        oneNoteBinary().substr(0, 100),
        std::string(oneNote).substr(0, 300),
        "<plist version=\"1.0\"><dict><key>NoteDataKey</key><string>x</string></dict></plist>",
        "<plist version=\"1.0\"><string>x</string></plist>",
        "<plist version=\"1.0\"/>",
        "<html><body>Not found</body></html>",
    };
    for (const std::string& row : rows) {
        put(notesFile(), row);
        EXPECT_EQ(m_folder.loadTable(notesName), std::nullopt) << row;
        EXPECT_EQ(bytesOf(notesFile()), row);
    }
}

TEST_F(DataFolderTest, AFolderUnderTheFilesNameIsNoTable)
{
    fs::create_directories(notesFile());
    EXPECT_EQ(m_folder.loadTable(notesName), std::nullopt);
}

TEST_F(DataFolderTest, APipeUnderTheFilesNameIsNoTableAndNotWaitedFor)
{
    m_folder.ensure();
    ASSERT_EQ(::mkfifo(notesFile().c_str(), 0600), 0);
    EXPECT_EQ(m_folder.loadTable(notesName), std::nullopt);
}

TEST_F(DataFolderTest, ASocketUnderTheFilesNameIsNoTable)
{
    m_folder.ensure();
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    // Short, as the address holds but 108 characters.
    const FileDescriptor folder(::open(folderPath().c_str(), O_PATH | O_DIRECTORY));
    const fs::path shortPath = fs::path("/proc/self/fd") / std::to_string(folder.get()) / notesName;
    shortPath.native().copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(m_folder.loadTable(notesName), std::nullopt);
}

TEST_F(DataFolderTest, ADeviceUnderTheFilesNameIsNoTable)
{
    m_folder.ensure();
    fs::create_symlink("/dev/zero", notesFile());
    EXPECT_EQ(m_folder.loadTable(notesName), std::nullopt);
}

TEST_F(DataFolderTest, AFileBeyondTheSizeLimitIsNoTable)
{
    m_folder.ensure();
    put(notesFile(), oneNote);
    fs::resize_file(notesFile(), (std::uintmax_t{1} << 30) + 1); // sparse
    EXPECT_EQ(m_folder.loadTable(notesName), std::nullopt);
}

TEST_F(DataFolderTest, ASavedTableIsLoadedAgain)
{
    const Table table{makeEventRecord(dateFromUnixSeconds(-1577880000), "Oma <&> \"x\"\nzweite\tZeile"),
                      Value(Dictionary{{"Foreign", Value("kept")}}), Value(Array{makeEventRecord(Date(), "listed")})};
    EXPECT_FALSE(save(table, eventsName));
    EXPECT_EQ(m_folder.loadTable(eventsName), table);
    EXPECT_EQ(DataFolder(m_home.path(), m_clock).loadTable(eventsName), table);
    EXPECT_EQ(namesIn(folderPath()), std::vector<std::string>{eventsName});
}

TEST_F(DataFolderTest, AnEmptyTableRemovesTheFile)
{
    EXPECT_FALSE(save(notes(3, "x")));
    EXPECT_FALSE(save(Table()));
    EXPECT_FALSE(fs::exists(notesFile()));
    EXPECT_EQ(m_folder.loadTable(notesName), Table());
}

TEST_F(DataFolderTest, AnEmptyTableWithoutAFileIsSavedByDoingNothing)
{
    EXPECT_FALSE(save(Table()));
    EXPECT_EQ(namesIn(folderPath()), std::vector<std::string>{});
}

TEST_F(DataFolderTest, NoTableRemovesTheUnreadableFile)
{
    m_folder.ensure();
    put(notesFile(), "not a list");
    const std::optional<Table> none = m_folder.loadTable(notesName);
    ASSERT_EQ(none, std::nullopt);
    EXPECT_FALSE(save(none));
    EXPECT_EQ(namesIn(folderPath()), std::vector<std::string>{"Recovered"});
    EXPECT_EQ(bytesOf(recovered() / "TALV VeluMora 2026-11-21 05.32.10.123"), "not a list");
}

TEST_F(DataFolderTest, AFolderUnderTheFilesNameIsMovedAsideBySaving)
{
    fs::create_directories(notesFile());
    put(notesFile() / "inside", "precious");
    EXPECT_FALSE(save(notes(1, "x")));
    EXPECT_EQ(m_folder.loadTable(notesName), notes(1, "x"));
    EXPECT_EQ(bytesOf(recovered() / "TALV VeluMora 2026-11-21 05.32.10.123" / "inside"), "precious");
}

TEST_F(DataFolderTest, AFileReachedThroughALinkIsReplacedWhereItLies)
{
    m_folder.ensure();
    fs::create_directory(m_home.path() / "elsewhere");
    const fs::path target = m_home.path() / "elsewhere" / "mine.plist";
    put(target, oneNote);
    fs::create_symlink("../elsewhere/mine.plist", notesFile());
    EXPECT_EQ(m_folder.loadTable(notesName)->size(), 1);

    EXPECT_FALSE(save(notes(2, "x")));
    EXPECT_TRUE(fs::is_symlink(notesFile()));
    EXPECT_FALSE(fs::is_symlink(target));
    EXPECT_EQ(m_folder.loadTable(notesName), notes(2, "x"));

    EXPECT_FALSE(save(Table()));
    EXPECT_FALSE(fs::exists(target));
    EXPECT_EQ(m_folder.loadTable(notesName), Table());

    EXPECT_FALSE(save(notes(3, "x"))); // through the link that now leads nowhere
    EXPECT_TRUE(fs::is_symlink(notesFile()));
    EXPECT_TRUE(fs::is_regular_file(target));
    EXPECT_EQ(namesIn(m_home.path() / "elsewhere"), std::vector<std::string>{"mine.plist"});
}

TEST_F(DataFolderTest, ALinkInACircleIsAnEmptyTableAndReplaced)
{
    m_folder.ensure();
    fs::create_symlink(notesName, notesFile());
    EXPECT_EQ(m_folder.loadTable(notesName), Table());
    EXPECT_FALSE(save(notes(1, "x")));
    EXPECT_EQ(m_folder.loadTable(notesName), notes(1, "x"));
}

TEST_F(DataFolderTest, ALinkToADeviceIsReplacedAndTheDeviceLeftAlone)
{
    m_folder.ensure();
    fs::create_symlink("/dev/null", notesFile());
    EXPECT_FALSE(save(notes(1, "x")));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(m_folder.loadTable(notesName), notes(1, "x"));
}

TEST_F(DataFolderTest, LoadingRemovesWhatAKilledProgramLeft)
{
    m_folder.ensure();
    put(folderPath() / ".TALV VeluMora.tmp-a1B2c3", "half a li");
    m_folder.loadTable(notesName);
    EXPECT_EQ(namesIn(folderPath()), std::vector<std::string>{});
}

TEST_F(DataFolderTest, LoadingRemovesWhatAKilledSaveLeftBesideTheFileThatALinkPointsAt)
{
    const fs::path elsewhere = m_home.path() / "elsewhere";
    fs::create_directories(elsewhere);
    m_folder.ensure();
    fs::create_symlink(elsewhere / "mine", notesFile());
    ASSERT_FALSE(save(notes(1, "x")));
    put(elsewhere / ".mine.tmp-abcdef", "half");
    put(elsewhere / ".other.tmp-abcdef", "somebody else's");
    EXPECT_EQ(m_folder.loadTable(notesName), notes(1, "x"));
    EXPECT_EQ(namesIn(elsewhere), (std::vector<std::string>{".other.tmp-abcdef", "mine"}));
}

TEST_F(DataFolderTest, LoadingLeavesTheTemporaryFileOfALivingProgram)
{
    m_folder.ensure();
    TemporaryFile writing(notesFile());
    ASSERT_FALSE(writing.write("half a li"));
    m_folder.loadTable(notesName);
    EXPECT_EQ(namesIn(folderPath()), std::vector<std::string>{writing.path().filename().native()});
}

TEST_F(DataFolderTest, LoadingLeavesOtherFilesAlone)
{
    m_folder.ensure();
    const std::vector<std::string> others = {".TALV Events.tmp-abcdef", ".TALV VeluMora", ".TALV VeluMora.tmp",
                                             ".other.tmp-abcdef",       ".tmp-abcdef",    "TALV VeluMora backup",
                                             "TALV VeluMora.tmp-abcdef"};
    for (const std::string& other : others) {
        put(folderPath() / other, "x");
    }
    m_folder.loadTable(notesName);
    EXPECT_EQ(namesIn(folderPath()), others);
}

// Type and creator

bool hasUserAttributes(const fs::path& folder)
{
    return ::setxattr(folder.c_str(), "user.velumora.test", "x", 1, 0) == 0;
}

std::string finderInfoOf(const fs::path& file)
{
    std::array<char, 64> info{};
    const ssize_t size = ::getxattr(file.c_str(), "user.com.apple.FinderInfo", info.data(), info.size());
    return size < 0 ? "none" : std::string(info.data(), static_cast<std::size_t>(size));
}

TEST_F(DataFolderTest, EverySavedFileCarriesTypeAndCreator)
{
    if (!hasUserAttributes(m_home.path())) {
        GTEST_SKIP() << "the file system under " << m_home.path() << " has no user attributes";
    }
    const struct {
        std::string name;
        std::string codes;
    } rows[] = {
        {"TALV VeluMora", "NOTEVel1"},  {"TALV Events", "DATEVel1"},  {"talv velumora", "DATEVel1"},
        {"TALV VeluMora ", "DATEVel1"}, {"TALV VeluMor", "DATEVel1"}, {"something else", "DATEVel1"},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(save(notes(1, "x"), row.name));
        EXPECT_EQ(finderInfoOf(folderPath() / row.name), row.codes + std::string(24, '\0')) << row.name;
    }
}

TEST_F(DataFolderTest, StampingChangesOnlyTheCodes)
{
    if (!hasUserAttributes(m_home.path())) {
        GTEST_SKIP() << "the file system under " << m_home.path() << " has no user attributes";
    }
    const fs::path file = m_home.path() / "file";
    put(file, "x");
    ASSERT_EQ(::setxattr(file.c_str(), "user.com.apple.FinderInfo", "ABCDEFGHabcdefghijklmnopqrstuvwx", 32, 0), 0);
    stampFile(file, 0x41424344, 0x7A7A7A7A);
    EXPECT_EQ(finderInfoOf(file), "ABCDzzzzabcdefghijklmnopqrstuvwx");
}

TEST_F(DataFolderTest, StampingNothingDoesNothing)
{
    stampFile(m_home.path() / "missing", NotesTypeCode, CreatorCode);
    EXPECT_EQ(namesIn(m_home.path()), std::vector<std::string>{});
}

} // namespace
