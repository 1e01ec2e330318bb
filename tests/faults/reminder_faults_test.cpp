// SPDX-License-Identifier: MIT
// The agent's list while calls of the system fail.
#include "faults/every_fault.h"
#include "reminders/AutostartEntry.h"
#include "reminders/ReminderList.h"

#include <unistd.h>

namespace {

namespace fs = std::filesystem;

const Date now = dateFromUnixSeconds(1796079600); // 2026-12-01 00:00 in Berlin

NotificationRequest requestFor(int day, const char* identifier)
{
    NotificationRequest request;
    request.identifier = QLatin1String(identifier);
    request.content.title = QStringLiteral("Velumora Reminder");
    request.content.body = QStringLiteral("Dentist");
    request.trigger = {.year = 2026, .month = 12, .day = day, .timeZone = "Europe/Berlin"};
    return request;
}

/// A file of two requests, one of which is delivered already, and an agent that starts with it.
class ReminderScenario : public FaultScenario {
public:
    void prepare() override
    {
        fs::create_directory(file().parent_path());
        ReminderList former(file());
        ASSERT_FALSE(former.load());
        ASSERT_FALSE(former.add(requestFor(1, "delivered")));
        ASSERT_EQ(former.deliverDue(now), QStringList(QStringLiteral("delivered")));
        ASSERT_FALSE(former.add(requestFor(1, "due")));
        ASSERT_FALSE(former.add(requestFor(2, "later")));
        ASSERT_FALSE(former.hasUnsavedChanges());
        m_former = former.all();
    }

    void act() override
    {
        if (!m_list.isLoaded()) {
            m_error = m_list.load();
        }
        if (m_list.isLoaded()) {
            change();
        }
    }

    void checkAfterFault() override
    {
        if (!m_list.isLoaded()) {
            EXPECT_TRUE(m_error) << "success was told";
            EXPECT_TRUE(m_list.empty());
            EXPECT_TRUE(m_list.add(requestFor(3, "meanwhile"))) << "nobody knows what it would replace";
            EXPECT_EQ(inFile(), m_former);
        } else if (!m_list.hasUnsavedChanges()) {
            EXPECT_EQ(inFile(), m_list.all()) << "what is told to be on the disk is not";
        } else {
            EXPECT_TRUE(inFile() == m_former || inFile() == m_list.all()) << "torn or gone";
        }
    }

    void checkAfterSuccess() override
    {
        EXPECT_FALSE(m_list.hasUnsavedChanges());
        EXPECT_EQ(inFile(), m_list.all());
    }

protected:
    virtual void change() = 0;

    fs::path file() const { return home() / "state" / "Reminders"; }

    std::vector<Reminder> inFile() const
    {
        ReminderList found(file());
        EXPECT_FALSE(found.load());
        return found.all();
    }

    std::vector<Reminder> m_former;
    ReminderList m_list{file()};
    std::error_code m_error;
};

class ReminderLoad : public ReminderScenario {
protected:
    void change() override {}
    void checkAfterSuccess() override
    {
        EXPECT_EQ(m_list.all(), m_former);
        ReminderScenario::checkAfterSuccess();
    }
};

/// The parser asks the system for memory of its own.
class LargeLoad : public ReminderLoad {
    void prepare() override
    {
        fs::create_directory(file().parent_path());
        ReminderList former(file());
        ASSERT_FALSE(former.load());
        NotificationRequest request = requestFor(2, "large");
        request.content.body = QString(2 << 20, u'x');
        ASSERT_FALSE(former.add(request));
        m_former = former.all();
    }
};

class Addition : public ReminderScenario {
    void change() override
    {
        m_error = m_list.add(requestFor(4, "new"));
        EXPECT_EQ(m_list.all().size(), m_error ? 3U : 4U);
    }
    void checkAfterFault() override
    {
        if (m_error && m_list.isLoaded()) {
            const std::vector<Reminder> found = inFile(); // the new one may stand there, but is not counted on
            EXPECT_TRUE(found == m_former || (m_list.hasUnsavedChanges() && found.size() == 4)) << "torn or gone";
        } else {
            ReminderScenario::checkAfterFault();
        }
    }
    void checkAfterSuccess() override
    {
        EXPECT_FALSE(m_error);
        EXPECT_EQ(m_list.all().size(), 4U);
        ReminderScenario::checkAfterSuccess();
    }
};

class Delivery : public ReminderScenario {
    void change() override
    {
        (void)m_list.deliverDue(now);
        (void)m_list.saveAgain();
    }
    void checkAfterSuccess() override
    {
        ASSERT_TRUE(m_list.delivered(QStringLiteral("due")));
        EXPECT_EQ(m_list.all().size(), 3U);
        ReminderScenario::checkAfterSuccess();
    }
};

/// The last request goes, and the file with it.
class LastGoes : public ReminderScenario {
    void change() override
    {
        (void)m_list.deliverDue(now + std::chrono::hours(30 * 24));
        m_list.removeDelivered({QStringLiteral("delivered"), QStringLiteral("due"), QStringLiteral("later")});
        (void)m_list.saveAgain();
    }
    void checkAfterFault() override
    {
        if (m_list.isLoaded() && m_list.hasUnsavedChanges()) {
            EXPECT_TRUE(inFile().size() == 3 || inFile().empty()) << "torn";
        } else {
            ReminderScenario::checkAfterFault();
        }
    }
    void checkAfterSuccess() override
    {
        EXPECT_FALSE(fs::exists(file()));
        ReminderScenario::checkAfterSuccess();
    }
};

/// A file of a later version, or a broken one, keeps its bytes.
class OtherFile : public ReminderScenario {
    void prepare() override
    {
        fs::create_directory(file().parent_path());
        put(file(), "of a later version");
    }
    void change() override { m_error = m_list.add(requestFor(4, "new")); }
    void checkAfterFault() override
    {
        EXPECT_TRUE(bytesOf(file()) == "of a later version" || bytesOf(aside()) == "of a later version") << "lost";
    }
    void checkAfterSuccess() override
    {
        EXPECT_FALSE(m_error);
        EXPECT_EQ(bytesOf(aside()), "of a later version");
        ReminderScenario::checkAfterSuccess();
    }
    fs::path aside() const { return home() / "state" / "Reminders.unreadable"; }
};

/// The entry that starts the agent at login: the former one, the new one or none, never a part of one.
class StartAtLogin : public FaultScenario {
    void prepare() override { ASSERT_FALSE(former().enable()); }
    void act() override
    {
        m_error = former().disable();
        if (!m_error) {
            EXPECT_NE(::access(entry().c_str(), F_OK), 0) << "success was told"; // by a call that never fails
            m_error = AutostartEntry(folder(), "/usr/bin/agent").enable();
        }
    }
    void checkAfterFault() override
    {
        if (!m_error || fs::exists(entry())) {
            const std::string text = bytesOf(entry());
            EXPECT_TRUE(text == autostartText("/usr/bin/agent") ||
                        (m_error && text == autostartText("/usr/bin/former")));
        }
    }
    void checkAfterSuccess() override
    {
        EXPECT_FALSE(m_error);
        EXPECT_EQ(bytesOf(entry()), autostartText("/usr/bin/agent"));
    }

    fs::path folder() const { return home() / "autostart"; }
    fs::path entry() const { return folder() / "app.velumora.ReminderAgent1.desktop"; }
    AutostartEntry former() const { return {folder(), "/usr/bin/former"}; }

    std::error_code m_error;
};

const FaultRow reminderScenarios[] = {
    faultRow<ReminderLoad>("Load"),         faultRow<LargeLoad>("LargeLoad"), faultRow<Addition>("Addition"),
    faultRow<Delivery>("Delivery"),         faultRow<LastGoes>("LastGoes"),   faultRow<OtherFile>("OtherFile"),
    faultRow<StartAtLogin>("StartAtLogin"),
};

/// Who is told of a success must be reminded although the power fails.
TEST(StartAtLoginFaults, AnEntryWithoutItsSyncIsNoneHoweverOftenItIsTried)
{
    const TestFolder home;
    const AutostartEntry entry(home.path(), "/usr/bin/agent");
    const auto enableWithoutSync = [&](int number) {
        const Faults::Watch watch(home.path(), {.call = Faults::Call::Sync, .number = number, .error = EIO});
        const std::error_code error = entry.enable();
        EXPECT_TRUE(watch.hasFired());
        return error;
    };
    EXPECT_TRUE(enableWithoutSync(1)) << "the entry itself";
    EXPECT_TRUE(enableWithoutSync(2)) << "its name";
    EXPECT_TRUE(enableWithoutSync(1)) << "its name, again";
    EXPECT_FALSE(entry.enable());
}

INSTANTIATE_TEST_SUITE_P(Reminders, EveryFault, testing::ValuesIn(reminderScenarios), nameOfFaultRow);

} // namespace
