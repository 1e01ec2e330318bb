// SPDX-License-Identifier: MIT
#include "plist/PropertyList.h"
#include "reminders/AutostartEntry.h"
#include "reminders/NotificationRequestFormat.h"
#include "reminders/NotificationText.h"
#include "reminders/ReminderList.h"
#include "reminders/TriggerMoment.h"
#include "store/store_fixture.h"

#include <random>

namespace {

using namespace NotificationRequestFormat;

NotificationRequest sampleRequest(const QString& text = QStringLiteral("Dentist\n<b>9:30</b> & \"bring\" 📅"))
{
    return {.identifier = QStringLiteral("VelumoraZNYgg56Lp"),
            .content = {.title = QStringLiteral("Velumora Reminder"),
                        .subtitle = {},
                        .body = QStringLiteral("Dec 1, 2026:") + text + QLatin1Char('\n'),
                        .defaultSound = true,
                        .userInfo = {{"NoteDateKey", Value(dateFromUnixSeconds(1796079600))},
                                     {"NoteDataKey", Value(text.toStdString())}}},
            .trigger = {.year = 2026, .month = 12, .day = 1, .timeZone = "Europe/Berlin"}};
}

CalendarNotificationTrigger midnight(int year, int month, int day, const char* zone)
{
    return {.year = year, .month = month, .day = day, .timeZone = zone};
}

/// `request` with `value` under `key`, in the dictionary under `inner` when there is one.
Value changed(const NotificationRequest& request, const char* inner, const char* key, const Value& value)
{
    Dictionary dictionary = *valueOf(request).dictionary();
    if (inner) {
        Dictionary part = *dictionary.find(inner)->dictionary();
        part.set(key, value);
        dictionary.set(inner, Value(part));
    } else {
        dictionary.set(key, value);
    }
    return Value(dictionary);
}

TEST(NotificationRequestFormat, ARequestIsReadBackEqual)
{
    NotificationRequest request = sampleRequest();
    EXPECT_EQ(requestFromBytes(bytesOf(request).value()), request);
    request.content.subtitle = QStringLiteral("subtitle");
    request.content.defaultSound = false;
    request.content.defaultActionTitle = QStringLiteral("Notiz anzeigen");
    request.trigger = {1970, 1, 31, 23, 59, 58, "America/Argentina/Buenos_Aires", true};
    EXPECT_EQ(requestFromBytes(bytesOf(request).value()), request);
}

TEST(NotificationRequestFormat, KeysOfALaterVersionDoNoHarm)
{
    EXPECT_EQ(requestFrom(changed(sampleRequest(), nullptr, "Colour", Value("blue"))), sampleRequest());
    EXPECT_EQ(requestFrom(changed(sampleRequest(), "Trigger", "Week", Value("49"))), sampleRequest());
}

TEST(NotificationRequestFormat, AMissingPartIsNoRequest)
{
    const Value whole = valueOf(sampleRequest());
    const Dictionary dictionary = *whole.dictionary();
    for (const Dictionary::Entry& left : dictionary) {
        std::vector<Dictionary::Entry> entries(dictionary.begin(), dictionary.end());
        std::erase(entries, left);
        EXPECT_EQ(requestFrom(Value(Dictionary(entries))), std::nullopt) << left.first;
    }
}

TEST(NotificationRequestFormat, APartOfAnotherTypeOrOutOfRangeIsNoRequest)
{
    const auto integer = [](std::uint64_t magnitude, bool negative = false) {
        return Value(Integer{magnitude, negative});
    };
    struct Row {
        const char* inner;
        const char* key;
        Value value;
    };
    const Row rows[] = {
        {nullptr, "Identifier", integer(1)},     {nullptr, "Title", Value(true)},
        {nullptr, "UserInfo", Value(Array())},   {nullptr, "Trigger", Value("midnight")},
        {nullptr, "DefaultSound", Value("yes")}, {"Trigger", "Year", integer(0)},
        {"Trigger", "Year", integer(1'000'001)}, {"Trigger", "Year", integer(2026, true)},
        {"Trigger", "Month", integer(0)},        {"Trigger", "Month", integer(13)},
        {"Trigger", "Day", integer(0)},          {"Trigger", "Day", integer(32)},
        {"Trigger", "Hour", integer(24)},        {"Trigger", "Minute", integer(60)},
        {"Trigger", "Second", integer(60)},      {"Trigger", "Second", integer(~std::uint64_t{})},
        {"Trigger", "Day", Value(1.0)},          {"Trigger", "TimeZone", integer(1)},
        {"Trigger", "Repeats", integer(0)},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(requestFrom(changed(sampleRequest(), row.inner, row.key, row.value)), std::nullopt) << row.key;
    }
    EXPECT_EQ(requestFrom(Value("text")), std::nullopt);
}

TEST(NotificationRequestFormat, DamagedBytesGiveARequestOrNone)
{
    const QByteArray whole = bytesOf(sampleRequest()).value();
    for (qsizetype size = 0; size < whole.size() - 1; ++size) { // but for the last line feed
        EXPECT_EQ(requestFromBytes(whole.first(size)), std::nullopt) << size;
    }
    std::mt19937 random(20261121);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<qsizetype> place(0, whole.size() - 1);
    for (int i = 0; i < 20'000; ++i) {
        QByteArray damaged = whole;
        for (int changes = i % 4 + 1; changes > 0; --changes) {
            damaged[place(random)] = static_cast<char>(byte(random));
        }
        if (const std::optional<NotificationRequest> request = requestFromBytes(damaged)) {
            const QByteArray written = bytesOf(*request).value(); // without what XML cannot carry
            const std::optional<NotificationRequest> again = requestFromBytes(written);
            ASSERT_TRUE(again);
            EXPECT_EQ(bytesOf(*again), written);
            EXPECT_GT(unixSeconds(momentOf(request->trigger)), -62'135'683'200.0); // 2 January of the year 1
        }
    }
}

TEST(NotificationRequestFormat, TwoRequestsAreNoRequest)
{
    const std::string two = PropertyList::writeXml({valueOf(sampleRequest()), valueOf(sampleRequest())});
    EXPECT_EQ(requestFromBytes(QByteArray::fromStdString(two)), std::nullopt);
}

struct ZoneDay {
    const char* zone;
    double firstInstant;
    int year;
    int month;
    int day;
    bool hasMidnight;
};

constexpr ZoneDay zoneDays[] = {
#include "dates/zone_days.inc"
};

// The table is another program's: days around changes of the clock, with their first instants.
TEST(TriggerMoment, AMidnightIsTheFirstInstantOfItsDayInAnyZone)
{
    for (const ZoneDay& row : zoneDays) {
        EXPECT_EQ(unixSeconds(momentOf(midnight(row.year, row.month, row.day, row.zone))), row.firstInstant)
            << row.zone << ' ' << row.year << '-' << row.month << '-' << row.day;
    }
}

// By Python's zoneinfo, the instants of gaps by `zdump -v`.
TEST(TriggerMoment, ATimeIsReadInItsOwnZone)
{
    struct Row {
        CalendarNotificationTrigger trigger;
        double seconds;
    };
    const Row rows[] = {
        {{2026, 12, 1, 9, 30, 15, "Europe/Berlin"}, 1796113815},
        {{2026, 12, 1, 9, 30, 15, "Asia/Kathmandu"}, 1796096715},
        {{2027, 3, 28, 2, 30, 0, "Europe/Berlin"}, 1806195600},  // skipped: the clock goes from 2 to 3
        {{2026, 10, 25, 2, 30, 0, "Europe/Berlin"}, 1792888200}, // twice: the first
        {{2100, 1, 1, 0, 0, 0, "UTC"}, 4102444800},
        {{2026, 12, 1, 0, 0, 0, "Nowhere/Land"}, 1796083200},
        {{2026, 12, 1, 0, 0, 0, "../zoneinfo/Europe/Berlin"}, 1796083200}, // a path, which could lead to anything
        {{2027, 2, 31, 0, 0, 0, "UTC"}, 1804032000},                       // 3 March
    };
    for (const Row& row : rows) {
        EXPECT_EQ(unixSeconds(momentOf(row.trigger)), row.seconds) << row.trigger.year << ' ' << row.trigger.timeZone;
    }
}

class RemindersFile : public testing::Test {
protected:
    std::filesystem::path file() const { return m_home.path() / "state" / "velumora" / "Reminders"; }

    ReminderList loaded() const
    {
        ReminderList list(file());
        list.load();
        return list;
    }

    const Date before = dateFromUnixSeconds(1796079599); // 30 November 2026, 23:59:59 in Berlin
    const Date moment = dateFromUnixSeconds(1796079600);
    const StandingNotification standing{.id = 4'000'000'000, .daemon = QStringLiteral("bus :1.7")};

private:
    TestFolder m_home;
};

TEST_F(RemindersFile, ARequestIsDueAtItsMomentAndNotBefore)
{
    ReminderList list = loaded();
    ASSERT_FALSE(list.add(sampleRequest()));
    EXPECT_EQ(list.nextMoment(), moment);
    EXPECT_TRUE(list.deliverDue(before).isEmpty());
    EXPECT_EQ(list.deliverDue(moment), QStringList{sampleRequest().identifier});
    EXPECT_EQ(list.nextMoment(), std::nullopt);
    EXPECT_TRUE(list.deliverDue(moment).isEmpty());
}

TEST_F(RemindersFile, EachChangeIsInTheFile)
{
    ReminderList list = loaded();
    const auto expectSame = [&] { EXPECT_EQ(loaded().all(), list.all()); };
    ASSERT_FALSE(list.add(sampleRequest()));
    expectSame();
    list.deliverDue(moment);
    ASSERT_FALSE(list.add(sampleRequest(QStringLiteral("next"))));
    ASSERT_EQ(list.all().size(), 2U);
    expectSame();
    list.setNotification(sampleRequest().identifier, standing);
    EXPECT_TRUE(list.delivered(sampleRequest().identifier)->announced);
    EXPECT_EQ(list.delivered(sampleRequest().identifier)->notification, standing);
    expectSame();
    list.setNotification(sampleRequest().identifier, {});
    EXPECT_EQ(list.delivered(sampleRequest().identifier)->notification, StandingNotification());
    expectSame();
    list.removeDelivered({sampleRequest().identifier});
    ASSERT_EQ(list.all().size(), 1U);
    EXPECT_EQ(list.all().front().request, sampleRequest(QStringLiteral("next")));
    expectSame();
    list.deliverDue(moment);
    list.removeDelivered({sampleRequest().identifier});
    EXPECT_TRUE(list.empty());
    EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(RemindersFile, ALaterDeliveryReplacesTheFormerAndItsNotificationAndIsHeard)
{
    ReminderList list = loaded();
    ASSERT_FALSE(list.add(sampleRequest()));
    list.deliverDue(moment);
    list.setNotification(sampleRequest().identifier, standing);
    ASSERT_FALSE(list.add(sampleRequest(QStringLiteral("next"))));
    list.deliverDue(moment);
    ASSERT_EQ(list.all().size(), 1U);
    EXPECT_EQ(list.all().front(),
              (Reminder{sampleRequest(QStringLiteral("next")), Reminder::State::Delivered, false, standing}));
}

TEST_F(RemindersFile, OfAPartlyBadFileTheGoodRequestsCount)
{
    ReminderList list = loaded();
    ASSERT_FALSE(list.add(sampleRequest()));
    std::optional<Table> table = PropertyList::readTable(bytesOf(file()));
    ASSERT_TRUE(table);
    table->prepend(Value("text"));
    table->append(Value(Dictionary{{"Request", Value(Dictionary())}}));
    put(file(), PropertyList::writeXml(*table));
    EXPECT_EQ(loaded().all(), list.all());
    for (const char* bytes : {"", "text", "<plist><dict></dict></plist>", "bplist00\xff"}) {
        put(file(), bytes);
        EXPECT_TRUE(loaded().empty()) << bytes;
    }
}

TEST_F(RemindersFile, AFileThatIsNoListIsKeptWhenTheNextOneIsWritten)
{
    std::filesystem::create_directories(file().parent_path());
    for (const std::string bytes : {"text", "<plist><dict></dict></plist>", "bplist00\xff"}) {
        put(file(), bytes);
        ReminderList list = loaded();
        ASSERT_FALSE(list.add(sampleRequest()));
        EXPECT_EQ(bytesOf(file().parent_path() / "Reminders.unreadable"), bytes);
        EXPECT_EQ(loaded().all(), list.all());
    }
}

TEST_F(RemindersFile, AFileThatIsTooLargeIsKeptAside)
{
    constexpr std::uintmax_t size = (64 << 20) + 1;
    std::filesystem::create_directories(file().parent_path());
    put(file(), "<plist><array></array></plist>");
    std::filesystem::resize_file(file(), size);
    EXPECT_TRUE(loaded().empty());
    EXPECT_FALSE(std::filesystem::exists(file()));
    EXPECT_EQ(std::filesystem::file_size(file().parent_path() / "Reminders.unreadable"), size);
}

TEST_F(RemindersFile, AFileThatCannotBeWrittenLeavesTheListAsItWas)
{
    put(file().parent_path().parent_path(), "a file where the folder would be");
    ReminderList list = loaded();
    EXPECT_EQ(list.add(sampleRequest()), std::errc::not_a_directory);
    EXPECT_TRUE(list.empty());
}

// Desktop Entry Specification 1.5: a quoted argument within a value of type string.
TEST(AutostartEntry, AnyPathIsStartedAsItStands)
{
    const auto exec = [](const char* path) {
        const std::string text = autostartText(path);
        const std::size_t at = text.find("\nExec=") + 6;
        return text.substr(at, text.find('\n', at) - at);
    };
    EXPECT_EQ(exec("/usr/bin/agent"), R"("/usr/bin/agent")");
    EXPECT_EQ(exec("/my files/50% off/agent"), R"("/my files/50%% off/agent")");
    EXPECT_EQ(exec("/a\"b$c`d/agent"), R"("/a\\"b\\$c\\`d/agent")");
    EXPECT_EQ(exec("/a\\b"), R"("/a\\\\b")");
    EXPECT_EQ(exec("/a\nHidden=true"), R"("/a\nHidden=true")");
}

const QStringList everything{QStringLiteral("actions"), QStringLiteral("body-markup"), QStringLiteral("sound")};

TEST(NotificationText, ANoteIsNeverMarkup)
{
    const NotificationContent content = sampleRequest(QStringLiteral("<b>9:30</b> & more")).content;
    EXPECT_EQ(notificationText(content, everything, NotificationSound::Audible).body,
              QStringLiteral("Dec 1, 2026:&lt;b&gt;9:30&lt;/b&gt; &amp; more"));
    EXPECT_EQ(notificationText(content, {}, NotificationSound::Audible).body,
              QStringLiteral("Dec 1, 2026:<b>9:30</b> & more"));
}

TEST(NotificationText, TheSoundIsAskedForWhereItCanBeMade)
{
    const QString name = QStringLiteral("sound-name");
    const QString suppress = QStringLiteral("suppress-sound");
    NotificationContent content = sampleRequest().content;
    EXPECT_TRUE(notificationText(content, everything, NotificationSound::Audible).hints.contains(name));
    EXPECT_FALSE(notificationText(content, {}, NotificationSound::Audible).hints.contains(name));
    EXPECT_FALSE(notificationText(content, everything, NotificationSound::Audible).hints.contains(suppress));
    EXPECT_FALSE(notificationText(content, everything, NotificationSound::Silent).hints.contains(name));
    EXPECT_TRUE(notificationText(content, everything, NotificationSound::Silent).hints.contains(suppress));
    content.defaultSound = false;
    EXPECT_FALSE(notificationText(content, everything, NotificationSound::Audible).hints.contains(name));
}

TEST(NotificationText, AClickIsLabelledInTheLanguageOfTheReminder)
{
    NotificationContent content = sampleRequest().content;
    const auto actions = [&content] {
        return notificationText(content, everything, NotificationSound::Silent).actions;
    };
    EXPECT_EQ(actions(), (QStringList{QStringLiteral("default"), QStringLiteral("Show Note")}));
    content.defaultActionTitle = QStringLiteral("Notiz anzeigen");
    EXPECT_EQ(actions(), (QStringList{QStringLiteral("default"), QStringLiteral("Notiz anzeigen")}));
    EXPECT_EQ(notificationText(content, {}, NotificationSound::Silent).actions, QStringList());
}

TEST(NotificationText, AVeryLongNoteIsCutBetweenCharacters)
{
    NotificationContent content;
    content.body = QString(1999, QLatin1Char('a')) + QStringLiteral("📅📅\n");
    EXPECT_EQ(notificationText(content, {}, NotificationSound::Silent).body,
              QString(1999, QLatin1Char('a')) + QStringLiteral("…"));
    for (const QString& sign :
         {QStringLiteral("👩‍👩‍👧"), QStringLiteral("🇩🇪"), QStringLiteral("👍🏽")}) {
        content.body = QString(1997, QLatin1Char('a')) + sign;
        EXPECT_EQ(notificationText(content, {}, NotificationSound::Silent).body,
                  QString(1997, QLatin1Char('a')) + QStringLiteral("…"))
            << sign.toStdString();
    }
    content.body = QString(2000, QLatin1Char('a'));
    EXPECT_EQ(notificationText(content, {}, NotificationSound::Silent).body, content.body);
}

TEST(NotificationText, ASubtitleStandsAboveTheBody)
{
    NotificationContent content = sampleRequest(QStringLiteral("x")).content;
    content.subtitle = QStringLiteral("Soon");
    EXPECT_EQ(notificationText(content, {}, NotificationSound::Silent).body, QStringLiteral("Soon\nDec 1, 2026:x"));
}

} // namespace
