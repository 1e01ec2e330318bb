// SPDX-License-Identifier: MIT
#include "fuzz/Failure.h"
#include "fuzz/RoundTrip.h"
#include "reminders/NotificationRequestFormat.h"
#include "reminders/ReminderList.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

/// A folder that exists as long as the process, in memory if possible.
class Folder {
public:
    Folder()
    {
        const std::filesystem::path memory = "/dev/shm";
        m_path = (std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path()) /
                 ("velumora-fuzz-" + std::to_string(::getpid()));
        std::filesystem::create_directory(m_path);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

bool isCarried(const Reminder& reminder)
{
    return isCarriedByXml(NotificationRequestFormat::valueOf(reminder.request)) &&
           isCarriedByXml(Value(reminder.notification.daemon.toStdString()));
}

} // namespace

/// The agent's file: what is read must be deliverable, and the remaining list must read back unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Folder folder;
    const std::filesystem::path file = folder.path() / "Reminders";
    std::ofstream(file, std::ios::binary) << std::string(data, data + size);
    ReminderList list(file);
    (void)list.load();
    (void)list.deliverDue(dateFromUnixSeconds(1'700'000'000));
    const bool changed = std::ranges::any_of(list.all(), [](const Reminder& reminder) { return !reminder.announced; });
    for (const Reminder& reminder : std::vector<Reminder>(list.all())) {
        list.setNotification(reminder.request.identifier, {.id = 7, .daemon = QStringLiteral(":1.7")});
    }
    if (list.nextMoment() && list.empty()) {
        fail("an empty list waits for something");
    }
    const bool delivered = std::ranges::any_of(
        list.all(), [](const Reminder& reminder) { return reminder.state == Reminder::State::Delivered; });
    if (changed && delivered && std::ranges::all_of(list.all(), isCarried)) { // in which case it was saved
        ReminderList again(file);
        (void)again.load();
        if (again.all() != list.all()) {
            fail("what was saved reads back differently");
        }
    }
    return 0;
}
