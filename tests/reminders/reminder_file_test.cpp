// SPDX-License-Identifier: MIT
#include "plist/PropertyList.h"
#include "reminders/AutostartEntry.h"
#include "reminders/NotificationRequestFormat.h"
#include "reminders/ReminderList.h"
#include "reminders/StateFolder.h"
#include "store/store_fixture.h"
#include "support/FileSizeLimit.h"
#include "support/NoMoreFiles.h"

namespace {

namespace fs = std::filesystem;

/// A request for midnight of 1 December 2026 in UTC.
NotificationRequest request(const QString& identifier, const std::string& text = "Dentist")
{
    return {.identifier = identifier,
            .content = {.title = QStringLiteral("Velumora Reminder"),
                        .subtitle = {},
                        .body = QStringLiteral("Dec 1, 2026:"),
                        .userInfo = {{"NoteDataKey", Value(text)}}},
            .trigger = {.year = 2026, .month = 12, .day = 1, .timeZone = "UTC"}};
}

/// What the agent writes for a pending request.
Value recordOf(const NotificationRequest& pending)
{
    return Value(Dictionary{{"Request", NotificationRequestFormat::valueOf(pending)}, {"Delivered", Value(false)}});
}

class ReminderFileTest : public testing::Test {
protected:
    ReminderFileTest() { fs::create_directories(file().parent_path()); }

    fs::path folder() const { return m_home.path() / "velumora"; }
    fs::path file() const { return folder() / "Reminders"; }

    ReminderList loaded() const
    {
        ReminderList list(file());
        EXPECT_EQ(list.load(), std::error_code());
        return list;
    }

    /// The file holds `a`, pending; its bytes.
    std::string putOne() const
    {
        ReminderList list = loaded();
        EXPECT_EQ(list.add(a), std::error_code());
        return bytesOf(file());
    }

    /// The list says why the file cannot be read, and takes nothing.
    void expectUnreadable(ReminderList& list, std::errc reason) const
    {
        EXPECT_EQ(list.load(), reason);
        EXPECT_FALSE(list.isLoaded());
        EXPECT_TRUE(list.add(b));
        EXPECT_TRUE(list.deliverDue(moment).isEmpty());
        list.removeDelivered({a.identifier});
        EXPECT_EQ(list.saveAgain(), std::error_code());
        EXPECT_TRUE(list.all().empty());
    }

    const NotificationRequest a = request(QStringLiteral("a"));
    const NotificationRequest b = request(QStringLiteral("b"));
    const Date moment = dateFromUnixSeconds(1796083200);

private:
    TestFolder m_home;
};

// --- What cannot be told is not taken for nothing --------------------------------------------------------------------

TEST_F(ReminderFileTest, AFileThatCannotBeOpenedStaysAndIsReadLater)
{
    const std::string bytes = putOne();
    ReminderList list(file());
    std::error_code error;
    {
        const NoMoreFiles guard; // for a sanitizer neither: nothing is called here that it would look at by way of one
        error = list.load();
    }
    EXPECT_EQ(error, std::errc::too_many_files_open);
    EXPECT_FALSE(list.isLoaded());
    EXPECT_EQ(bytesOf(file()), bytes);
    EXPECT_EQ(namesIn(folder()), std::vector<std::string>{"Reminders"});
    EXPECT_EQ(list.load(), std::error_code());
    EXPECT_EQ(list.all().size(), 1U);
    EXPECT_EQ(list.add(b), std::error_code());
    EXPECT_EQ(loaded().all().size(), 2U);
}

TEST_F(ReminderFileTest, AFileThatCannotBeReadStays)
{
    fs::create_symlink("/proc/self/mem", file()); // opens, and gives an input/output error
    ReminderList list(file());
    expectUnreadable(list, std::errc::io_error);
    EXPECT_TRUE(fs::is_symlink(file()));
    EXPECT_EQ(namesIn(folder()), std::vector<std::string>{"Reminders"});
}

TEST_F(ReminderFileTest, AFileThatCannotBeAskedForIsNotAbsent)
{
    fs::remove(folder());
    fs::create_symlink("velumora", folder()); // a link to itself
    ReminderList list(file());
    expectUnreadable(list, std::errc::too_many_symbolic_link_levels);
    fs::remove(folder());
    EXPECT_EQ(list.load(), std::error_code());
}

TEST_F(ReminderFileTest, ALinkToWhatIsNotThereNowStays)
{
    for (const char* target : {"Reminders", "/nowhere/Reminders"}) { // itself; a disk that is not there
        fs::create_symlink(target, file());
        ReminderList list(file());
        EXPECT_TRUE(list.load()) << target;
        EXPECT_TRUE(list.add(b));
        EXPECT_EQ(fs::read_symlink(file()), target);
        fs::remove(file());
    }
}

TEST_F(ReminderFileTest, WhereNothingStandsThereAreNoReminders)
{
    EXPECT_TRUE(loaded().empty());
    fs::remove(folder());
    EXPECT_TRUE(loaded().empty());
    put(folder(), "a file where the folder would be");
    EXPECT_TRUE(loaded().empty());
}

TEST_F(ReminderFileTest, WhatIsNoListAndCannotBeSetAsideStays)
{
    put(file(), "no list");
    fs::create_directories(folder() / "Reminders.unreadable" / "in the way");
    ReminderList list(file());
    expectUnreadable(list, std::errc::is_a_directory);
    EXPECT_EQ(bytesOf(file()), "no list");
    fs::remove_all(folder() / "Reminders.unreadable");
    EXPECT_EQ(list.load(), std::error_code());
    EXPECT_EQ(bytesOf(folder() / "Reminders.unreadable"), "no list");
}

TEST_F(ReminderFileTest, ANumberThatIsNoNotificationsIsNone)
{
    Table table;
    const Integer numbers[] = {{7, false}, {7, true}, {(std::uint64_t{1} << 32) + 7, false}};
    for (const Integer& number : numbers) {
        Dictionary record = *recordOf(request(QString::number(table.size()))).dictionary();
        record.set("Notification", Value(number));
        record.set("Daemon", Value("bus :1.7"));
        table << Value(record);
    }
    put(file(), PropertyList::writeXml(table));
    const ReminderList list = loaded();
    ASSERT_EQ(list.all().size(), 3U);
    EXPECT_EQ(list.all()[0].notification.id, 7U);
    EXPECT_EQ(list.all()[1].notification, StandingNotification());
    EXPECT_EQ(list.all()[2].notification, StandingNotification());
}

TEST_F(ReminderFileTest, AnEmptyFileIsAnEmptyListAndNotSetAside)
{
    put(file(), "");
    EXPECT_TRUE(loaded().empty());
    EXPECT_EQ(namesIn(folder()), std::vector<std::string>{"Reminders"});
}

TEST_F(ReminderFileTest, TheNextMomentIsTheFirstOfThosePending)
{
    ReminderList list = loaded();
    EXPECT_EQ(list.nextMoment(), std::nullopt);
    int first = 31;
    for (const int day : {3, 2, 4, 1}) {
        first = std::min(first, day);
        NotificationRequest added = request(QString::number(day));
        added.trigger.day = day;
        EXPECT_EQ(list.add(added), std::error_code());
        EXPECT_EQ(list.nextMoment(), moment + std::chrono::hours(24 * (first - 1)));
    }
}

// --- A change that could not be written ------------------------------------------------------------------------------

TEST_F(ReminderFileTest, AChangeThatCouldNotBeWrittenIsWrittenLater)
{
    const std::string bytes = putOne();
    ReminderList list = loaded();
    {
        const FileSizeLimit full(100);
        EXPECT_EQ(list.deliverDue(moment), QStringList{a.identifier});
        EXPECT_TRUE(list.hasUnsavedChanges());
        EXPECT_TRUE(list.saveAgain());
        EXPECT_TRUE(list.deliverDue(moment).isEmpty()) << "delivered once";
    }
    EXPECT_EQ(bytesOf(file()), bytes);
    EXPECT_EQ(namesIn(folder()), std::vector<std::string>{"Reminders"});
    EXPECT_EQ(list.saveAgain(), std::error_code());
    EXPECT_FALSE(list.hasUnsavedChanges());
    EXPECT_EQ(loaded().all(), list.all());
    ASSERT_EQ(list.all().size(), 1U);
    EXPECT_EQ(list.all().front().state, Reminder::State::Delivered);
}

TEST_F(ReminderFileTest, AChangeThatCouldNotBeWrittenIsWrittenWithTheNext)
{
    putOne();
    ReminderList list = loaded();
    {
        const FileSizeLimit full(100);
        list.deliverDue(moment);
        EXPECT_TRUE(list.add(b));
        EXPECT_TRUE(list.hasUnsavedChanges());
        EXPECT_EQ(list.all().size(), 1U) << "what was refused is not kept";
    }
    EXPECT_EQ(list.add(b), std::error_code());
    EXPECT_FALSE(list.hasUnsavedChanges());
    EXPECT_EQ(loaded().all(), list.all());
}

TEST_F(ReminderFileTest, ARequestThatCouldNotBeWrittenIsOwedToNobody)
{
    putOne();
    ReminderList list = loaded();
    const FileSizeLimit full(100);
    EXPECT_TRUE(list.add(b));
    EXPECT_FALSE(list.hasUnsavedChanges());
}

TEST_F(ReminderFileTest, AFileThatCouldNotBeRemovedIsRemovedLater)
{
    putOne();
    ReminderList list = loaded();
    list.deliverDue(moment);
    fs::remove(file());
    fs::create_directory(file());
    list.removeDelivered({a.identifier});
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(list.hasUnsavedChanges());
    EXPECT_EQ(list.saveAgain(), std::errc::is_a_directory);
    fs::remove(file());
    put(file(), "");
    EXPECT_EQ(list.saveAgain(), std::error_code());
    EXPECT_FALSE(list.hasUnsavedChanges());
    EXPECT_TRUE(namesIn(folder()).empty());
}

// --- What is written can be read back --------------------------------------------------------------------------------

TEST_F(ReminderFileTest, ARequestThatWouldMakeTheFileTooLargeIsRefusedAndTheFileStays)
{
    const std::string text(12 << 20, 'x');
    ReminderList list = loaded();
    EXPECT_EQ(list.add(request(QStringLiteral("1"), text)), std::error_code());
    EXPECT_EQ(list.add(request(QStringLiteral("2"), text)), std::error_code());
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_EQ(list.add(request(QStringLiteral("3"), text)), std::errc::value_too_large);
    }
    EXPECT_EQ(list.all().size(), 2U);
    EXPECT_LE(fs::file_size(file()), ReminderList::largestWritten);
    EXPECT_EQ(loaded().all(), list.all());
    EXPECT_EQ(list.add(request(QStringLiteral("2"), "short")), std::error_code()) << "in the place of a long one";
    EXPECT_EQ(list.add(request(QStringLiteral("3"), text)), std::error_code());
}

TEST_F(ReminderFileTest, TheBytesThatCountAreThoseThatAreWritten)
{
    ReminderList list = loaded();
    const std::string text(9 << 20, '&'); // five bytes each in the file
    EXPECT_EQ(list.add(request(QStringLiteral("1"), text)), std::errc::value_too_large);
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(ReminderFileTest, AListFromBeforeTheLimitIsReadAndDelivered)
{
    const std::string text(12 << 20, 'x');
    Table table;
    for (const char* identifier : {"1", "2", "3"}) {
        table << recordOf(request(QString::fromLatin1(identifier), text));
    }
    put(file(), PropertyList::writeXml(table));
    ASSERT_GT(fs::file_size(file()), ReminderList::largestWritten);
    ReminderList list = loaded();
    EXPECT_EQ(list.all().size(), 3U);
    EXPECT_EQ(list.add(a), std::errc::value_too_large);
    EXPECT_EQ(list.deliverDue(moment).size(), 3);
    EXPECT_FALSE(list.hasUnsavedChanges());
    list.removeDelivered({QStringLiteral("1"), QStringLiteral("2")});
    EXPECT_EQ(loaded().all(), list.all());
    EXPECT_EQ(list.add(a), std::error_code());
}

TEST_F(ReminderFileTest, AThousandRemindersAreKeptAndNotOneMore)
{
    Table table;
    for (std::size_t number = 1; number < ReminderList::mostReminders; ++number) {
        table << recordOf(request(QString::number(number)));
    }
    put(file(), PropertyList::writeXml(table));
    ReminderList list = loaded();
    EXPECT_EQ(list.add(a), std::error_code());
    EXPECT_EQ(list.add(b), std::errc::value_too_large);
    EXPECT_EQ(list.add(a), std::error_code()) << "in its own place";
    EXPECT_EQ(list.all().size(), ReminderList::mostReminders);
    EXPECT_EQ(loaded().all(), list.all());
}

TEST_F(ReminderFileTest, AListThatIsTooLongFromBeforeTheLimitGrowsNoLonger)
{
    Table table;
    for (std::size_t number = 0; number <= ReminderList::mostReminders; ++number) {
        table << recordOf(request(QString::number(number)));
    }
    put(file(), PropertyList::writeXml(table));
    ReminderList list = loaded();
    EXPECT_EQ(list.add(a), std::errc::value_too_large);
    EXPECT_EQ(list.add(request(QStringLiteral("1"), "another text")), std::error_code()) << "in its own place";
    EXPECT_EQ(list.all().size(), ReminderList::mostReminders + 1);
}

TEST_F(ReminderFileTest, ARequestThatIsNestedTooDeeplyForTheFileIsRefused)
{
    const std::string bytes = putOne();
    Value nested{Array()};
    for (int depth = 4; depth < PropertyList::maximumDepth; ++depth) { // root, request, user info and the array
        nested = Value(Array{nested});
    }
    NotificationRequest deep = b;
    deep.content.userInfo.set("deep", nested);
    const QByteArray onTheBus = NotificationRequestFormat::bytesOf(deep).value();
    ASSERT_EQ(NotificationRequestFormat::requestFromBytes(onTheBus), deep) << "by itself it can be read";
    ReminderList list = loaded();
    EXPECT_EQ(list.add(deep), std::errc::value_too_large);
    EXPECT_EQ(bytesOf(file()), bytes);
    EXPECT_EQ(list.all().size(), 1U);
}

// --- The start at login ----------------------------------------------------------------------------------------------

TEST_F(ReminderFileTest, AStartAtLoginIsWrittenWholeOrNotAtAll)
{
    const AutostartEntry former(folder(), "/usr/bin/former");
    const AutostartEntry entry(folder(), "/usr/bin/agent");
    const fs::path place = folder() / "app.velumora.ReminderAgent1.desktop";
    ASSERT_EQ(former.enable(), std::error_code());
    {
        const FileSizeLimit full(10);
        EXPECT_TRUE(entry.enable());
    }
    EXPECT_EQ(bytesOf(place), autostartText("/usr/bin/former"));
    EXPECT_EQ(namesIn(folder()).size(), 1U);
    put(folder() / ".app.velumora.ReminderAgent1.desktop.tmp-abcdef", "what a killed agent left");
    ASSERT_EQ(entry.enable(), std::error_code());
    EXPECT_EQ(namesIn(folder()).size(), 1U);
    EXPECT_EQ(bytesOf(place), autostartText("/usr/bin/agent"));
    EXPECT_EQ(entry.disable(), std::error_code());
    EXPECT_EQ(entry.disable(), std::error_code()) << "it is gone already";
    fs::create_directory(place);
    EXPECT_EQ(entry.disable(), std::errc::is_a_directory);
    EXPECT_TRUE(entry.enable());
}

TEST(StateFolder, IsInTheFolderOfTheEnvironmentOrElseInTheHome)
{
    EXPECT_EQ(stateFolder("/var/mine", "/home/ada"), "/var/mine/velumora");
    EXPECT_EQ(stateFolder("", "/home/ada"), "/home/ada/.local/state/velumora");
    EXPECT_EQ(stateFolder("relative", "/home/ada"), "/home/ada/.local/state/velumora") << "it is to be ignored";
    EXPECT_EQ(reminderFile("/var/mine/velumora"), "/var/mine/velumora/Reminders");
}

} // namespace
